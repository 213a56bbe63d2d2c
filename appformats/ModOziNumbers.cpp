#include "appformats/ModOziNumbers.h"

#include <charconv>
#include <cstdint>
#include <cmath>
#include <cstring>

#include "core/Charset.h"
#include "core/FixedDecimals.h"
#include "core/ModulShared.h"

namespace ortelix {


char* PutKoordinate(char* p, double value) { return PutFixed(p, value, 6); }

char* PutHoeheFuss(char* p, OptInt metres) {
    const long long feet = metres.empty() ? kNoAltitudeFeet : static_cast<long long>(std::floor(*metres * kFeetPerMetre));
    return std::to_chars(p, p + 24, feet).ptr;
}

char* PutTageswert(char* p, Date date, Time time) {
    if (date.empty() || time.empty()) return p;
    const double v = static_cast<double>(*date) + static_cast<double>(*time) / kSecondsPerDay;
    return std::to_chars(p, p + 64, v).ptr;
}

namespace {
char* Two(char* p, int v) {
    p[0] = static_cast<char>('0' + v / 10 % 10);
    p[1] = static_cast<char>('0' + v % 10);
    return p + 2;
}
}  // namespace

char* PutDateText(char* p, Date date) {
    if (date.empty()) return p;
    const CivilDate c = CivilFromSerial(*date);
    p = Two(p, c.day);
    *p++ = '.';
    p = Two(p, c.month);
    *p++ = '.';
    if (c.year >= 0 && c.year < 10000) return Two(Two(p, c.year / 100), c.year % 100);
    return std::to_chars(p, p + 24, c.year).ptr;
}

char* PutTimeText(char* p, Time time) {
    if (time.empty()) return p;
    const int s = ((*time % kSecondsPerDay) + kSecondsPerDay) % kSecondsPerDay;
    p = Two(p, s / 3600);
    *p++ = ':';
    p = Two(p, s / 60 % 60);
    *p++ = ':';
    return Two(p, s % 60);
}

void AppendKoordinate(std::string& out, double value) {
    char buf[400];
    out.append(buf, PutKoordinate(buf, value));
}

void AppendInt(std::string& out, long long value) {
    char buf[24];
    out.append(buf, std::to_chars(buf, buf + sizeof buf, value).ptr);
}

void AppendHoeheFuss(std::string& out, OptInt metres) {
    char buf[24];
    out.append(buf, PutHoeheFuss(buf, metres));
}

void AppendTageswert(std::string& out, Date date, Time time) {
    char buf[64];
    out.append(buf, PutTageswert(buf, date, time));
}

void AppendDateText(std::string& out, Date date) {
    char buf[32];
    out.append(buf, PutDateText(buf, date));
}

void AppendTimeText(std::string& out, Time time) {
    char buf[16];
    out.append(buf, PutTimeText(buf, time));
}

void AppendCp1252(std::string& out, std::string_view utf8) {
    bool ascii = true;
    for (char c : utf8)
        if (static_cast<unsigned char>(c) >= 0x80) ascii = false;
    if (ascii) out += utf8;
    else out += EncodeFromUtf8(utf8, Charset::Windows1252);
}

void AppendNameOzi(std::string& out, std::string_view utf8) { AppendCp1252(out, OziText(utf8)); }

void AppendNamePosition(std::string& out, const GeoPoint& p) {
    AppendNameOzi(out, p.Name);
    out += ',';
    AppendKoordinate(out, p.Lat);
    out += ',';
    AppendKoordinate(out, p.Lon);
    out += ',';
    AppendTageswert(out, p.Date_, p.Time_);
}

OziMoment ParseTageswert(std::string_view field) {
    size_t used = 0;
    const double v = LeadingNumber(field, &used);
    if (used == 0 || !std::isfinite(v) || std::fabs(v) > 3.0e6) return {};
    double day = std::floor(v);
    long long seconds = std::llround((v - day) * kSecondsPerDay);
    if (seconds >= kSecondsPerDay) {  // a fraction that rounds up to midnight belongs to the next day
        seconds -= kSecondsPerDay;
        day += 1;
    }
    return {static_cast<int32_t>(day), static_cast<int32_t>(seconds)};
}

bool ParseOziPosition(std::string_view latField, std::string_view lonField, double& lat, double& lon) {
    // The fields are comma-separated, so no decimal comma is left in them:
    // the leading-number rule of ParseCoordinate, telling whether it found one.
    size_t latUsed = 0, lonUsed = 0;
    lat = LeadingNumber(latField, &latUsed);
    lon = LeadingNumber(lonField, &lonUsed);
    return latUsed > 0 && lonUsed > 0;
}

OptDouble ParseHoeheFuss(std::string_view field) {
    size_t used = 0;
    const double feet = LeadingNumber(field, &used);
    if (used == 0 || feet == kNoAltitudeFeet || !std::isfinite(feet)) return {};
    return feet / kFeetPerMetre;
}

OptInt ParseOziInt(std::string_view field) {
    size_t used = 0;
    const double v = LeadingNumber(field, &used);
    if (used == 0 || !(v > -2147483648.0 && v < 2147483648.0)) return {};
    return static_cast<int32_t>(v);
}

std::string OziFieldText(std::string_view field) {
    return DecodeToUtf8(StripQuotes(field), Charset::Windows1252);
}

bool OziLines::next(std::string_view& line) {
    if (pos_ >= text_.size()) return false;
    size_t end = pos_;
    while (end < text_.size() && text_[end] != '\n' && text_[end] != '\r') ++end;
    line = text_.substr(pos_, end - pos_);
    if (end < text_.size() && text_[end] == '\r') {
        ++end;
        if (end < text_.size() && text_[end] == '\n') ++end;
    } else if (end < text_.size()) {
        ++end;
    }
    pos_ = end;
    return true;
}

bool OziLines::skip(int n) {
    std::string_view dummy;
    for (int i = 0; i < n; ++i)
        if (!next(dummy)) return false;
    return true;
}

bool IsBlankLine(std::string_view line) { return Trim(line).empty(); }

char UpperFirst(std::string_view line) {
    if (line.empty()) return '\0';
    const char c = line[0];
    return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 32) : c;
}

std::string OziNumberedFile(const std::string& path, size_t number, std::string_view extension) {
    std::string name = SplitPath(path, 4);
    AppendInt(name, static_cast<long long>(number));
    name += extension;
    return name;
}

}  // namespace ortelix
