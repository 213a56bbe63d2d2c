#include "appformats/ModOziNumbers.h"

#include <charconv>
#include <cmath>

#include "core/Charset.h"
#include "core/ModulShared.h"

namespace ortelix {

void AppendKoordinate(std::string& out, double value) {
    if (!std::isfinite(value)) value = 0;
    char buf[400];
    auto r = std::to_chars(buf, buf + sizeof buf, value, std::chars_format::fixed, 6);
    std::string_view s(buf, static_cast<size_t>(r.ptr - buf));
    // A value that rounds to zero shows no sign.
    if (s[0] == '-' && s.find_first_not_of("-0.") == std::string_view::npos) s.remove_prefix(1);
    out += s;
}

void AppendInt(std::string& out, long long value) {
    char buf[24];
    auto r = std::to_chars(buf, buf + sizeof buf, value);
    out.append(buf, r.ptr);
}

void AppendHoeheFuss(std::string& out, OptInt metres) {
    if (metres.empty()) {
        AppendInt(out, kNoAltitudeFeet);
        return;
    }
    AppendInt(out, static_cast<long long>(std::floor(*metres * kFeetPerMetre)));
}

void AppendTageswert(std::string& out, Date date, Time time) {
    if (date.empty() || time.empty()) return;
    const double v = static_cast<double>(*date) + static_cast<double>(*time) / kSecondsPerDay;
    char buf[64];
    auto r = std::to_chars(buf, buf + sizeof buf, v);
    out.append(buf, r.ptr);
}

namespace {
void Two(std::string& out, int v) {
    out += static_cast<char>('0' + v / 10 % 10);
    out += static_cast<char>('0' + v % 10);
}
}  // namespace

void AppendDateText(std::string& out, Date date) {
    if (date.empty()) return;
    const CivilDate c = CivilFromSerial(*date);
    Two(out, c.day);
    out += '.';
    Two(out, c.month);
    out += '.';
    if (c.year >= 0 && c.year < 10000) {
        Two(out, c.year / 100);
        Two(out, c.year % 100);
    } else {
        AppendInt(out, c.year);
    }
}

void AppendTimeText(std::string& out, Time time) {
    if (time.empty()) return;
    const int s = ((*time % kSecondsPerDay) + kSecondsPerDay) % kSecondsPerDay;
    Two(out, s / 3600);
    out += ':';
    Two(out, s / 60 % 60);
    out += ':';
    Two(out, s % 60);
}

void AppendCp1252(std::string& out, std::string_view utf8) {
    bool ascii = true;
    for (char c : utf8)
        if (static_cast<unsigned char>(c) >= 0x80) ascii = false;
    if (ascii) out += utf8;
    else out += EncodeFromUtf8(utf8, Charset::Windows1252);
}

void AppendNameOzi(std::string& out, std::string_view utf8) { AppendCp1252(out, OziText(utf8)); }

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
