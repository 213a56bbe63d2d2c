#include "appformats/ModOziNumbers.h"

#include <charconv>
#include <cstdint>
#include <cmath>
#include <cstring>

#include "core/Charset.h"
#include "core/ModulShared.h"

namespace ortelix {

namespace {
// Six decimals of a double exactly as to_chars makes them (the exact binary
// value, ties to even), by whole-number arithmetic for the common sizes;
// nullptr when the value is outside them.
char* FastSixDecimals(char* p, double value) {
    const double a = std::fabs(value);
    if (!(a < 1.0e9) || a == 0) return nullptr;
    uint64_t bits;
    std::memcpy(&bits, &a, sizeof bits);
    const int biased = static_cast<int>(bits >> 52);
    if (biased == 0) return nullptr;  // subnormal
    const uint64_t m = (bits & ((uint64_t{1} << 52) - 1)) | (uint64_t{1} << 52);
    const int shift = 1075 - biased;  // a = m / 2^shift
    if (shift <= 0 || shift > 100) return nullptr;
    const unsigned __int128 scaled = static_cast<unsigned __int128>(m) * 1000000u;
    unsigned __int128 q = scaled >> shift;
    const unsigned __int128 rest = scaled - (q << shift);
    const unsigned __int128 half = static_cast<unsigned __int128>(1) << (shift - 1);
    if (rest > half || (rest == half && (q & 1))) ++q;
    auto whole = static_cast<uint64_t>(q);
    if (value < 0 && whole != 0) *p++ = '-';
    char digits[24];
    int n = 0;
    do {
        digits[n++] = static_cast<char>('0' + whole % 10);
        whole /= 10;
    } while (whole != 0 || n < 7);  // at least one digit before the point
    for (int i = n - 1; i >= 6; --i) *p++ = digits[i];
    *p++ = '.';
    for (int i = 5; i >= 0; --i) *p++ = digits[i];
    return p;
}
}  // namespace

char* PutKoordinate(char* p, double value) {
    if (!std::isfinite(value)) value = 0;
    if (char* fast = FastSixDecimals(p, value)) return fast;
    char* end = std::to_chars(p, p + 400, value, std::chars_format::fixed, 6).ptr;
    // A value that rounds to zero shows no sign.
    if (*p == '-') {
        bool zero = true;
        for (const char* q = p + 1; q < end && zero; ++q) zero = *q == '0' || *q == '.';
        if (zero) {
            std::memmove(p, p + 1, static_cast<size_t>(end - p - 1));
            --end;
        }
    }
    return end;
}

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
