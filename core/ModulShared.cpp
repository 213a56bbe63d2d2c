#include "core/ModulShared.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <sys/stat.h>

#include "core/Charset.h"
#include "core/FixedDecimals.h"
#include "core/ScanBytes.h"

namespace ortelix {

namespace {
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsBlank(char c) { return c == ' ' || c == '\t'; }

std::string_view TrimBlanks(std::string_view t) {
    while (!t.empty() && (IsBlank(t.front()) || t.front() == '\r' || t.front() == '\n')) t.remove_prefix(1);
    while (!t.empty() && (IsBlank(t.back()) || t.back() == '\r' || t.back() == '\n')) t.remove_suffix(1);
    return t;
}

// Reads an unsigned whole number at pos; -1 without digits.
int ReadInt(std::string_view t, size_t& pos, int maxDigits = 9) {
    int v = 0, n = 0;
    while (pos < t.size() && IsDigit(t[pos]) && n < maxDigits) v = v * 10 + (t[pos++] - '0'), ++n;
    return n ? v : -1;
}

int FullYear(int y, int digits) {
    if (digits > 2) return y;
    return y < 30 ? 2000 + y : 1900 + y;  // the two-digit window of the system's date parser
}
}  // namespace

double LeadingNumber(std::string_view t, size_t* consumed) {
    // One walk reads the digits into a whole mantissa as it finds them. Most
    // numbers in files are short decimals: a mantissa below 2^53 divided by an
    // exact power of ten is correctly rounded, as from_chars is; the rest go
    // to from_chars.
    static constexpr double kPow10[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                        1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    const size_t n = t.size();
    size_t i = 0;
    while (i < n && IsBlank(t[i])) ++i;
    const size_t start = i;
    if (i < n && (t[i] == '+' || t[i] == '-')) ++i;
    uint64_t mantissa = 0;
    int digits = 0, scale = 0;
    const size_t intStart = i;
    for (; i < n && IsDigit(t[i]); ++i) {
        mantissa = mantissa * 10 + static_cast<uint64_t>(t[i] - '0');
        digits += mantissa != 0;
    }
    bool any = i > intStart;
    if (i < n && t[i] == '.') {
        size_t j = i + 1;
        for (; j < n && IsDigit(t[j]); ++j) {
            mantissa = mantissa * 10 + static_cast<uint64_t>(t[j] - '0');
            digits += mantissa != 0;
            ++scale;
        }
        if (j > i + 1 || any) {
            any = true;
            i = j;
        }
    }
    if (!any) {
        if (consumed) *consumed = 0;
        return 0;
    }
    bool exponent = false;
    if (i < n && (t[i] == 'e' || t[i] == 'E')) {
        size_t j = i + 1;
        if (j < n && (t[j] == '+' || t[j] == '-')) ++j;
        const size_t expDigits = j;
        while (j < n && IsDigit(t[j])) ++j;
        if (j > expDigits) {
            i = j;
            exponent = true;
        }
    }
    if (consumed) *consumed = i;
    if (!exponent && digits <= 15 && scale <= 22) {
        const double v = static_cast<double>(mantissa) / kPow10[scale];
        return t[start] == '-' ? -v : v;
    }
    size_t from = start;
    if (t[from] == '+') ++from;
    double v = 0;
    auto r = std::from_chars(t.data() + from, t.data() + i, v);
    if (r.ec == std::errc::result_out_of_range) {
        v = (t[start] == '-') ? -HUGE_VAL : HUGE_VAL;
    } else if (r.ec != std::errc()) {
        return 0;
    }
    return v;
}

double ParseCoordinate(std::string_view text) {
    const size_t comma = text.find(',');
    if (comma == std::string_view::npos) return LeadingNumber(text);
    std::string copy(text);
    copy[comma] = '.';
    return LeadingNumber(copy);
}

OptDouble ParseAltitude(std::string_view text) {
    if (text.empty()) return {};
    const double v = std::floor(LeadingNumber(text));
    if (v < -100 || !std::isfinite(v)) return {};
    return v;
}

OptDouble ParseSpeed(std::string_view text) {
    if (text.empty()) return {};
    const double v = std::floor(LeadingNumber(text));
    // A number too long for a double is no speed, not the top of the range.
    if (!std::isfinite(v)) return {};
    return std::clamp(v, 0.0, 2000.0);
}

OptDouble ParseCourse(std::string_view text) {
    if (text.empty()) return {};
    const double v = LeadingNumber(text);
    if (!std::isfinite(v)) return {};
    return std::floor(v - 360.0 * std::floor(v / 360.0));
}

std::string FormatFixed(double value, int decimals) {
    std::string s;
    AppendFixed(s, value, decimals);
    return s;
}

std::string PointText(std::string_view text) {
    std::string s(text);
    std::replace(s.begin(), s.end(), ',', '.');
    return s;
}

std::string FormatPoint(double value, std::string_view format) {
    const size_t dot = format.find('.');
    const std::string_view intPart = format.substr(0, dot);
    const std::string_view fracPart = dot == std::string_view::npos ? std::string_view{} : format.substr(dot + 1);
    const int minInt = static_cast<int>(std::count(intPart.begin(), intPart.end(), '0'));
    const int minFrac = static_cast<int>(std::count(fracPart.begin(), fracPart.end(), '0'));
    const int maxFrac = minFrac + static_cast<int>(std::count(fracPart.begin(), fracPart.end(), '#'));
    std::string s = FormatFixed(value, maxFrac);
    if (maxFrac > minFrac) {
        size_t keep = s.size();
        const size_t point = s.find('.');
        while (keep > point + 1 + static_cast<size_t>(minFrac) && s[keep - 1] == '0') --keep;
        s.resize(keep);
        if (!s.empty() && s.back() == '.') s.pop_back();
    }
    const bool negative = !s.empty() && s[0] == '-';
    const size_t digitsStart = negative ? 1 : 0;
    size_t intDigits = s.find('.');
    if (intDigits == std::string::npos) intDigits = s.size();
    intDigits -= digitsStart;
    if (static_cast<int>(intDigits) < minInt) s.insert(digitsStart, static_cast<size_t>(minInt) - intDigits, '0');
    if (minInt == 0 && intDigits == 1 && s[digitsStart] == '0' && s.size() > digitsStart + 1)
        s.erase(digitsStart, 1);  // "#.##" writes .5
    return s;
}

std::string AltitudeFeet(OptDouble alt) {
    if (alt.empty()) return "-777";
    // The whole feet as digits of the double itself: no altitude, however
    // absurd, passes through an integer type.
    return FormatFixed(std::floor(*alt * 3.2808399), 0);
}

std::string OziTextLong(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (char c : text) {
        if (c == ',') out += "\xC3\x91";  // character 209, which OziExplorer shows in place of a comma
        else out += c;
    }
    return std::string(TrimBlanks(out));
}

std::string OziText(std::string_view text) { return OziTextLong(Utf8Left(text, 40)); }

std::string Pad5(long n) {
    // The picture "00000": five digits at least, the sign in front of them.
    std::string s = std::to_string(n);
    const size_t digitsStart = n < 0 ? 1 : 0;
    if (s.size() - digitsStart < 5) s.insert(digitsStart, 5 - (s.size() - digitsStart), '0');
    return s;
}

namespace {
std::string Lettered(double x, double offset, char positive, char negative) {
    std::string s = FormatFixed(std::fabs(x) + offset, 7);
    s[0] = x < 0 ? negative : positive;
    return s;
}
}  // namespace

std::string LatLetter(double x) { return Lettered(x, 100, 'N', 'S'); }
std::string LonLetter2(double x) { return Lettered(x, 100, 'E', 'W'); }
std::string LatSign(double x) { return Lettered(x, 100, '+', '-'); }
std::string LonLetter(double x) { return Lettered(x, 1000, 'E', 'W'); }
std::string LonSign(double x) { return Lettered(x, 1000, '+', '-'); }

std::string GradMinuten(double x) {
    const double deg = std::trunc(x);
    const double minutes = std::fabs(x - deg) * 60;
    return FormatFixed(deg, 0) + " Grad " + FormatPoint(minutes, "#0.0####") + " Minuten";
}

std::string GradMinSek(double x) {
    const double deg = std::trunc(x);
    const double minutesAll = std::fabs(x - deg) * 60;
    const double minutes = std::floor(minutesAll);
    const double seconds = (minutesAll - minutes) * 60;
    return FormatFixed(deg, 0) + " Grad " + FormatFixed(minutes, 0) + " Minuten " + FormatPoint(seconds, "#0.0") +
           " Sekunden";
}

std::string_view NextField(std::string_view line, size_t& pos, char sep) {
    if (pos >= line.size()) {
        pos = line.size() + 1;
        return {};
    }
    const size_t end = line.find(sep, pos);
    const size_t stop = end == std::string_view::npos ? line.size() : end;
    std::string_view f = line.substr(pos, stop - pos);
    pos = stop + 1;
    return f;
}

std::string NextQuoted(std::string_view line, size_t& pos, char sep) {
    std::string out;
    bool quoted = false;
    size_t i = pos;
    for (; i < line.size(); ++i) {
        const char c = line[i];
        if (c == '"') quoted = !quoted;
        else if (c == sep && !quoted) break;
        else out += c;
    }
    pos = i + 1;
    return out;
}

std::string_view NextWord(std::string_view line, size_t& pos) {
    while (pos < line.size() && line[pos] == ' ') ++pos;
    const size_t start = pos;
    while (pos < line.size() && line[pos] != ' ') ++pos;
    std::string_view w = line.substr(std::min(start, line.size()), pos - start);
    while (pos < line.size() && line[pos] == ' ') ++pos;
    return w;
}

std::string_view Trim(std::string_view text) { return TrimBlanks(text); }

std::string StripQuotes(std::string_view text) {
    std::string s;
    for (char c : TrimBlanks(text))
        if (c != '"') s += c;
    return s;
}

namespace {
CsvRow SplitRow(std::string_view line, char sep) {
    CsvRow row;
    size_t pos = 0;
    row.lon = ParseCoordinate(NextField(line, pos, sep));
    row.lat = ParseCoordinate(NextField(line, pos, sep));
    while (pos <= line.size()) row.rest.push_back(NextField(line, pos, sep));
    return row;
}
}  // namespace

CsvRow CsvFields(std::string_view line) { return SplitRow(line, ','); }
CsvRow SemicolonFields(std::string_view line) { return SplitRow(line, ';'); }

std::string LowerAscii(std::string_view text) {
    std::string out(text);
    for (char& c : out)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
    return out;
}

std::string LowerExtension(std::string_view path) { return LowerAscii(SplitPath(path, 5)); }

std::string ReplaceUmlauts(std::string_view text) {
    static constexpr std::pair<std::string_view, std::string_view> kMap[] = {
        {"\xC3\x84", "Ae"}, {"\xC3\xA4", "ae"}, {"\xC3\x96", "Oe"}, {"\xC3\xB6", "oe"},
        {"\xC3\x9C", "Ue"}, {"\xC3\xBC", "ue"}, {"\xC3\x9F", "ss"}};
    std::string out;
    out.reserve(text.size());
    for (size_t i = 0; i < text.size();) {
        bool done = false;
        for (const auto& [from, to] : kMap) {
            if (text.compare(i, from.size(), from) == 0) {
                out += to;
                i += from.size();
                done = true;
                break;
            }
        }
        if (!done) out += text[i++];
    }
    return out;
}

std::string SafeName(std::string_view text) {
    std::string s(text);
    std::replace(s.begin(), s.end(), ' ', '_');
    return s;
}

std::string ToUtf8(std::string_view text) {
    // Each character above 127 becomes 195 and the character 64 below it:
    // right for 192..255, and written the same way for the others.
    std::string out;
    for (char32_t c : Utf8CodePoints(text)) {
        if (c > 127) {
            AppendUtf8(out, 195);
            AppendUtf8(out, c - 64);
        } else {
            out += static_cast<char>(c);
        }
    }
    return out;
}

std::string FromUtf8(std::string_view text) {
    std::string out;
    bool raise = false;
    for (char32_t c : Utf8CodePoints(text)) {
        if (c == 195) {
            raise = true;
            continue;
        }
        AppendUtf8(out, raise ? c + 64 : c);
        raise = false;
    }
    return out;
}

std::string_view StripCdata(std::string_view text) {
    // Nearly every value is plain text without any "<".
    if (!FindByte(text.data(), text.data() + text.size(), '<')) return text;
    const size_t open = text.find("<![CDATA[");
    if (open == std::string_view::npos) return text;
    const size_t from = open + 9;
    const size_t close = text.find("]]>", from);
    if (close == std::string_view::npos) return text;
    return text.substr(from, close - from);
}

namespace {
// The system's date parser as a German desktop has it: d.m.y, y-m-d and d/m/y,
// optionally followed by a time that is ignored here.
Date SystemDate(std::string_view t) {
    t = TrimBlanks(t);
    size_t pos = 0;
    const size_t s0 = pos;
    const int a = ReadInt(t, pos);
    const size_t aDigits = pos - s0;
    if (a < 0 || pos >= t.size()) return {};
    const char sep = t[pos];
    if (sep != '.' && sep != '-' && sep != '/') return {};
    ++pos;
    const int b = ReadInt(t, pos);
    if (b < 0 || pos >= t.size() || t[pos] != sep) return {};
    ++pos;
    const size_t s2 = pos;
    const int c = ReadInt(t, pos);
    const size_t cDigits = pos - s2;
    if (c < 0) return {};
    if (pos < t.size() && !IsBlank(t[pos]) && t[pos] != 'T' && t[pos] != 't') return {};
    int y, m, d;
    if (sep == '-' && aDigits >= 3) {
        y = a, m = b, d = c;
    } else if (sep == '-' && cDigits <= 2 && aDigits <= 2 && a > 31) {
        y = FullYear(a, 2), m = b, d = c;
    } else {
        d = a, m = b, y = FullYear(c, static_cast<int>(cDigits));
    }
    if (!ValidCivil(y, m, d)) return {};
    return SerialFromCivil(y, m, d);
}
}  // namespace

Date ParseDateValue(std::string_view text) {
    if (text.empty()) return {};
    return ParseDate(text);
}

Date ParseDate(std::string_view text) {
    text = TrimBlanks(text);
    if (text.size() >= 10 && (text.size() == 10 || text[10] == 'T' || text[10] == 't')) {
        const std::string_view d = text.substr(0, 10);
        if (d[4] == '-' && d[7] == '-') {
            size_t pos = 0;
            const int y = ReadInt(d, pos, 4);
            pos = 5;
            const int m = ReadInt(d, pos, 2);
            pos = 8;
            const int day = ReadInt(d, pos, 2);
            if (y >= 0 && m >= 0 && day >= 0 && ValidCivil(y, m, day)) return SerialFromCivil(y, m, day);
            return {};
        }
    }
    return SystemDate(text);
}

Time ParseClock(std::string_view t) {
    t = TrimBlanks(t);
    size_t pos = 0;
    const int h = ReadInt(t, pos, 2);
    if (h < 0 || pos >= t.size() || t[pos] != ':') return {};
    ++pos;
    const int m = ReadInt(t, pos, 2);
    if (m < 0) return {};
    int s = 0;
    if (pos < t.size() && t[pos] == ':') {
        ++pos;
        s = ReadInt(t, pos, 2);
        if (s < 0) return {};
    }
    if (h > 23 || m > 59 || s > 59) return {};
    return h * 3600 + m * 60 + s;
}

Time ParseTime(std::string_view text) {
    for (size_t mark = 0; mark < text.size(); ++mark)
        if ((text[mark] | 0x20) == 't') return ParseClock(text.substr(mark + 1, 8));
    return ParseClock(text);
}

Date ParseMonthDate(std::string_view text) {
    std::string up(text);
    for (char& c : up) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    static constexpr const char* kMonths[] = {"-JAN-", "-FEB-", "-MAR-", "-APR-", "-MAY-", "-JUN-",
                                              "-JUL-", "-AUG-", "-SEP-", "-OCT-", "-NOV-", "-DEC-"};
    for (int i = 0; i < 12; ++i) {
        const size_t at = up.find(kMonths[i]);
        if (at != std::string::npos) {
            char num[5] = {'-', static_cast<char>('0' + (i + 1) / 10), static_cast<char>('0' + (i + 1) % 10), '-', 0};
            up.replace(at, 5, num);
        }
    }
    const size_t first = up.find('-');
    const size_t second = first == std::string::npos ? std::string::npos : up.find('-', first + 1);
    if (second == std::string::npos) return 0;
    std::string joined = up.substr(0, first) + "/" + up.substr(first + 1, second - first - 1) + "/" + up.substr(second + 1);
    Date d = SystemDate(joined);
    return d.empty() ? Date(0) : d;
}

DateAndTime NormaliseDateTime(std::string_view text) { return {ParseDate(text), ParseTime(text)}; }

std::string IsoDate(int32_t serial) {
    const CivilDate c = CivilFromSerial(serial);
    char buf[16];
    auto put = [](char* p, int v, int width) {
        for (int i = width - 1; i >= 0; --i, v /= 10) p[i] = static_cast<char>('0' + v % 10);
    };
    put(buf, c.year, 4);
    buf[4] = '-';
    put(buf + 5, c.month, 2);
    buf[7] = '-';
    put(buf + 8, c.day, 2);
    return std::string(buf, 10);
}

std::string IsoTime(int32_t seconds) {
    seconds = ((seconds % kSecondsPerDay) + kSecondsPerDay) % kSecondsPerDay;
    const int h = seconds / 3600, m = seconds / 60 % 60, s = seconds % 60;
    const char buf[8] = {static_cast<char>('0' + h / 10), static_cast<char>('0' + h % 10), ':',
                         static_cast<char>('0' + m / 10), static_cast<char>('0' + m % 10), ':',
                         static_cast<char>('0' + s / 10), static_cast<char>('0' + s % 10)};
    return std::string(buf, 8);
}

std::string ClockTime(double moment) {
    if (!std::isfinite(moment)) moment = 0;
    const double frac = moment - std::floor(moment);
    return IsoTime(static_cast<int32_t>(std::llround(frac * kSecondsPerDay)));
}

std::string SplitPath(std::string_view path, int mode) {
    const size_t slash = path.rfind('/');
    const size_t nameStart = slash == std::string_view::npos ? 0 : slash + 1;
    size_t dot = path.rfind('.');
    if (dot != std::string_view::npos && dot < nameStart) dot = std::string_view::npos;  // a "." before the last "/"
    const size_t nameEnd = dot == std::string_view::npos ? path.size() : dot;
    switch (mode) {
        case 1: return std::string(path.substr(nameStart, nameEnd - nameStart));
        case 2: return std::string(path.substr(nameStart));
        case 3: return slash == std::string_view::npos ? std::string() : std::string(path.substr(0, slash));
        case 4: return std::string(path.substr(0, nameEnd));
        case 5: return dot == std::string_view::npos ? std::string() : std::string(path.substr(dot + 1));
        default: return std::string(path);
    }
}

bool FileExists(const std::string& path) {
    struct stat st {};
    return !path.empty() && ::stat(path.c_str(), &st) == 0 && S_ISREG(st.st_mode);
}

}  // namespace ortelix
