#pragma once
// The number and text forms that every OziExplorer file shares, and the line
// and field walking of their readers. The files are Windows-1252 with CR LF.
#include <array>
#include <string>
#include <string_view>

#include "core/DateTime.h"
#include "core/ModulArray.h"
#include "core/Optional.h"

namespace ortelix {

// OziExplorer stores altitude in feet; -777 means unknown.
inline constexpr double kFeetPerMetre = 3.2808399;
inline constexpr int kNoAltitudeFeet = -777;

// Koordinate: six decimals with a point.
void AppendKoordinate(std::string& out, double value);
// Hoehe Fuss: -777 for an empty altitude, else the whole feet (rounded down).
void AppendHoeheFuss(std::string& out, OptInt metres);
// Tageswert: days since 1899-12-30 with the time as fraction, in the shortest
// digits that read back exactly; nothing when the date or the time is empty.
void AppendTageswert(std::string& out, Date date, Time time);
// The stored text forms of a date ("14.01.2004") and a time ("11:27:45"); nothing when empty.
void AppendDateText(std::string& out, Date date);
void AppendTimeText(std::string& out, Time time);
void AppendInt(std::string& out, long long value);
// UTF-8 text as Windows-1252 bytes ("?" for what the code page lacks).
void AppendCp1252(std::string& out, std::string_view utf8);
// Name Ozi: cut to 40 characters, "," replaced by character 209, trimmed; as Windows-1252.
void AppendNameOzi(std::string& out, std::string_view utf8);
// "Name,Lat,Lon,Tageswert" of a point, the core of waypoint and route-point lines.
void AppendNamePosition(std::string& out, const GeoPoint& p);

// The same forms written at p, for the hot loops; each returns the end.
// p needs room for 400 characters (Koordinate of any double), 64 for the others.
char* PutKoordinate(char* p, double value);
char* PutHoeheFuss(char* p, OptInt metres);
char* PutTageswert(char* p, Date date, Time time);
char* PutDateText(char* p, Date date);
char* PutTimeText(char* p, Time time);

// A Tageswert field back into date and time; empty when the field holds no number.
struct OziMoment {
    Date date;
    Time time;
};
OziMoment ParseTageswert(std::string_view field);
// The latitude and longitude fields of a record; false when either holds no
// number: such a line has no position and is no point at all (not one at 0/0).
bool ParseOziPosition(std::string_view latField, std::string_view lonField, double& lat, double& lon);
// An altitude field in feet as metres; empty for an empty field and for -777.
OptDouble ParseHoeheFuss(std::string_view field);
// A whole number field (colours); empty when the field holds no number.
OptInt ParseOziInt(std::string_view field);
// A text field: trimmed, double quotes removed, decoded from Windows-1252.
std::string OziFieldText(std::string_view field);

// Walks the lines of a file held in memory; CR LF, LF and a lone CR all end a line.
class OziLines {
public:
    explicit OziLines(std::string_view text) : text_(text) {}
    bool next(std::string_view& line);
    // Consumes n lines without looking at them; false when the file ended first.
    bool skip(int n);

private:
    std::string_view text_;
    size_t pos_ = 0;
};

// The comma fields of a line, numbered from 1 as the file descriptions count
// them; a field that the line lacks is empty.
template <size_t N>
class OziFields {
public:
    explicit OziFields(std::string_view line, char sep = ',') {
        size_t pos = 0;
        for (count_ = 0; count_ < N; ++count_) {
            const size_t end = line.find(sep, pos);
            if (end == std::string_view::npos) {
                f_[count_++] = line.substr(pos);
                break;
            }
            f_[count_] = line.substr(pos, end - pos);
            pos = end + 1;
        }
    }
    std::string_view operator[](size_t oneBased) const {
        return oneBased >= 1 && oneBased <= count_ ? f_[oneBased - 1] : std::string_view{};
    }
    size_t count() const { return count_; }

private:
    std::array<std::string_view, N> f_{};
    size_t count_ = 0;
};

bool IsBlankLine(std::string_view line);
// First character in upper case; 0 for an empty line.
char UpperFirst(std::string_view line);


// The numbered files of the batch export: the path without its extension,
// the number, then the extension given ("tour" + 2 + ".plt").
std::string OziNumberedFile(const std::string& path, size_t number, std::string_view extension);

}  // namespace ortelix
