#pragma once
// The small conversions that every reader and writer shares. Numbers in files
// always use a point, whatever the locale.
#include <string>
#include <string_view>
#include <vector>

#include "core/DateTime.h"
#include "core/Optional.h"

namespace ortelix {

// The leading-number rule: the longest start of the text (after blanks) that
// reads as a number with a point and an optional sign; 0 without one.
double LeadingNumber(std::string_view text, size_t* consumed = nullptr);

double ParseCoordinate(std::string_view text);
OptDouble ParseAltitude(std::string_view text);
OptDouble ParseSpeed(std::string_view text);
OptDouble ParseCourse(std::string_view text);
Date ParseDateValue(std::string_view text);

std::string FormatFixed(double value, int decimals);
std::string PointText(std::string_view text);
// Formats with a picture such as "0.000000", "#0.0####" or "00000".
std::string FormatPoint(double value, std::string_view format);
std::string AltitudeFeet(OptDouble alt);
std::string OziText(std::string_view text);
std::string OziTextLong(std::string_view text);
std::string Pad5(long n);
std::string LatLetter(double x);
std::string LonLetter2(double x);
std::string LatSign(double x);
std::string LonLetter(double x);
std::string LonSign(double x);
std::string GradMinuten(double x);
std::string GradMinSek(double x);

// Field splitting: each returns the field and moves pos behind the separator.
std::string_view NextField(std::string_view line, size_t& pos, char sep = ' ');
std::string NextQuoted(std::string_view line, size_t& pos, char sep = ' ');
std::string_view NextWord(std::string_view line, size_t& pos);
std::string StripQuotes(std::string_view text);
std::string_view Trim(std::string_view text);
// Longitude, latitude and the further columns of a "," or ";" separated line.
struct CsvRow {
    double lon = 0, lat = 0;
    std::vector<std::string_view> rest;
};
CsvRow CsvFields(std::string_view line);
CsvRow SemicolonFields(std::string_view line);

// ASCII letters in lower case, every other byte as it is.
std::string LowerAscii(std::string_view text);
// The extension of a path in lower case, without the point.
std::string LowerExtension(std::string_view path);

// Text cleaning.
std::string ReplaceUmlauts(std::string_view text);
std::string SafeName(std::string_view text);
std::string ToUtf8(std::string_view text);
std::string FromUtf8(std::string_view text);
std::string_view StripCdata(std::string_view text);

// Dates and times.
Date ParseDate(std::string_view text);
Time ParseTime(std::string_view text);
Date ParseMonthDate(std::string_view text);  // 0 when it is no date
struct DateAndTime {
    Date date;
    Time time;
};
DateAndTime NormaliseDateTime(std::string_view text);
std::string ClockTime(double moment);
// "YYYY-mm-dd", "hh:nn:ss".
std::string IsoDate(int32_t serial);
std::string IsoTime(int32_t seconds);
// A time of day "hh:mm:ss" (also "h:m"); empty when it is none.
Time ParseClock(std::string_view text);

// File names. Mode 1: base name, 2: name with extension, 3: folder without
// the closing "/", 4: path without extension, 5: extension without the point.
std::string SplitPath(std::string_view path, int mode);
bool FileExists(const std::string& path);

}  // namespace ortelix
