#include "gpsformats/NmeaDecode.h"

#include <cmath>
#include <cstring>

#include "coordinates/Geoid.h"
#include "core/ModulShared.h"
#include "core/Session.h"
#include "core/WholeNumber.h"

namespace ortelix {

namespace {

// Knots as the program counts them (the log writer divides by the same number).
constexpr double kKmhPerKnot = 1.8532;
constexpr double kMetresPerFoot = 0.3048;
constexpr int kMaxFields = 12;

enum class Kind { None, Gga, Rmc, Pmgntrk };

// The sentence name stands somewhere in the line's first characters: "$GPGGA",
// "$GNGGA", a "GPGGA" whose "$" was lost.
bool NameWithin(std::string_view line, size_t width, std::string_view name) {
    return line.substr(0, width).find(name) != std::string_view::npos;
}

Kind KindOf(std::string_view line) {
    if (NameWithin(line, 6, "GGA")) return Kind::Gga;
    if (NameWithin(line, 6, "RMC")) return Kind::Rmc;
    if (NameWithin(line, 10, "PMGNTRK")) return Kind::Pmgntrk;
    return Kind::None;
}

// The fields between commas; the name is field 0. Fields past the last
// stay empty.
struct Fields {
    std::string_view f[kMaxFields];
    // Fields are a few bytes each: a plain walk beats a search call per field.
    // Only the first `count` fields are split; the rest of the line is not walked.
    Fields(std::string_view line, int count) {
        const char* p = line.data();
        const char* const end = p + line.size();
        int i = 0;
        const char* start = p;
        for (; p < end; ++p) {
            if (*p != ',') continue;
            f[i] = std::string_view(start, static_cast<size_t>(p - start));
            if (++i == count) return;
            start = p + 1;
        }
        f[i] = std::string_view(start, static_cast<size_t>(end - start));
    }
    std::string_view operator[](int i) const { return f[i]; }
};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
int TwoDigits(const char* p) { return (p[0] - '0') * 10 + (p[1] - '0'); }

// A number field; empty when the field holds no number.
OptDouble Number(std::string_view field) {
    size_t used = 0;
    const double v = LeadingNumber(field, &used);
    if (used == 0 || !std::isfinite(v)) return {};
    return v;
}

// One coordinate with its hemisphere; 0 when the field holds none.
double Coordinate(std::string_view value, std::string_view hemisphere) {
    const double v = NmeaDegrees(value);
    return !hemisphere.empty() && (hemisphere[0] == 'S' || hemisphere[0] == 'W') ? -v : v;
}

// The hours offset moves the moment: with a date, a time pushed past
// midnight moves the date too; without one the time wraps within its day.
void ShiftHours(Date& date, Time& time, int hours) {
    if (hours == 0 || time.empty()) return;
    const int64_t shifted = static_cast<int64_t>(*time) + static_cast<int64_t>(hours) * 3600;
    int64_t days = shifted / kSecondsPerDay;
    int64_t rest = shifted % kSecondsPerDay;
    if (rest < 0) {
        rest += kSecondsPerDay;
        --days;
    }
    time = static_cast<int32_t>(rest);
    if (!date.empty()) date = static_cast<int32_t>(*date + days);
}

}  // namespace

double NmeaDegrees(std::string_view field) {
    const double v = LeadingNumber(field);
    if (!std::isfinite(v)) return 0;
    const double grad = std::trunc(v / 100);
    return grad + (v - grad * 100) / 60;
}

Time NmeaTime(std::string_view t) {
    if (t.size() < 5 || !IsDigit(t[0]) || !IsDigit(t[1]) || !IsDigit(t[2]) || !IsDigit(t[3]) || !IsDigit(t[4]))
        return {};
    const int h = TwoDigits(t.data()), m = TwoDigits(t.data() + 2);
    // The seconds are the rest, a fraction cut off.
    const double sec = LeadingNumber(t.substr(4));
    if (h > 23 || m > 59 || !(sec >= 0 && sec < 60)) return {};
    return h * 3600 + m * 60 + static_cast<int>(sec);
}

Date NmeaDate(std::string_view d) {
    if (d.size() < 6) return {};
    for (int i = 0; i < 6; ++i)
        if (!IsDigit(d[static_cast<size_t>(i)])) return {};
    const int day = TwoDigits(d.data()), month = TwoDigits(d.data() + 2), yy = TwoDigits(d.data() + 4);
    const int year = yy < 30 ? 2000 + yy : 1900 + yy;
    if (!ValidCivil(year, month, day)) return {};
    return SerialFromCivil(year, month, day);
}

bool NmeaChecksumOk(std::string_view line) {
    const size_t star = line.find('*');
    if (star == std::string_view::npos) return false;
    size_t dollar = line.find('$');
    if (dollar != std::string_view::npos && star < dollar) return false;
    // A line whose "$" was lost is summed from its start.
    const size_t from = dollar == std::string_view::npos ? 0 : dollar + 1;
    unsigned x = 0;
    for (size_t i = from; i < star; ++i) x ^= static_cast<unsigned char>(line[i]);
    // Up to two hex digits, read until the first that is none (an empty or
    // broken sum reads as 0).
    unsigned given = 0;
    for (size_t i = star + 1; i < line.size() && i < star + 3; ++i) {
        const char c = line[i];
        unsigned d;
        if (c >= '0' && c <= '9') d = static_cast<unsigned>(c - '0');
        else if ((c | 0x20) >= 'a' && (c | 0x20) <= 'f') d = static_cast<unsigned>((c | 0x20) - 'a' + 10);
        else break;
        given = given * 16 + d;
    }
    return x == given;
}

NmeaDecodeOptions NmeaOptionsOf(Session& s) {
    NmeaDecodeOptions o;
    // A whole number of hours; more than a year either way is no offset anyone means.
    o.hours = static_cast<int>(WholeWithin(s.options.Number(25), 24 * 366));
    o.checksum = s.options.Check[7] != 0;
    o.dropZeroAltitude = s.options.Check[29] != 0;
    if (s.options.Check[21] != 0) {
        // Loads the grid once; without one the correction subtracts 0.
        GeoidHoehe(s, 0, 0);
        o.geoid = &s.coords.geoid;
    }
    return o;
}

bool DecodeNmeaLine(std::string_view line, const NmeaDecodeOptions& o, NmeaDecodeState& state, NmeaFix& out) {
    while (!line.empty() && (line.back() == '\r' || line.back() == '\n')) line.remove_suffix(1);
    const Kind kind = KindOf(line);
    if (kind == Kind::None) return false;
    if (o.checksum && !NmeaChecksumOk(line)) return false;
    // GGA and RMC use their fields up to the ninth, PMGNTRK up to the tenth.
    const Fields f(line, kind == Kind::Pmgntrk ? 11 : 10);
    out = NmeaFix{};
    const bool altitude = o.wholeFix || o.dropZeroAltitude;
    std::string_view lat, ns, lon, ew;
    switch (kind) {
        case Kind::Gga:
            out.time = NmeaTime(f[1]);
            lat = f[2], ns = f[3], lon = f[4], ew = f[5];
            out.fix = f[6];
            out.sat = f[7];
            if (altitude) out.alt = Number(f[9]);
            out.date = state.lastDate;
            break;
        case Kind::Rmc: {
            out.time = NmeaTime(f[1]);
            lat = f[3], ns = f[4], lon = f[5], ew = f[6];
            if (o.wholeFix) {
                if (const OptDouble knots = Number(f[7]); knots.has()) out.speed = std::trunc(*knots * kKmhPerKnot);
                out.course = ParseCourse(f[8]);
                // A number too large for the fold into a circle gives none.
                if (out.course.has() && !(*out.course >= 0 && *out.course < 360)) out.course.reset();
            }
            out.date = state.lastDate = NmeaDate(f[9]);
            break;
        }
        case Kind::Pmgntrk:
            lat = f[1], ns = f[2], lon = f[3], ew = f[4];
            if (altitude) out.alt = Number(f[5]);
            if (out.alt.has() && !f[6].empty() && (f[6][0] | 0x20) == 'f') out.alt = *out.alt * kMetresPerFoot;
            out.time = NmeaTime(f[7]);
            // Newer Magellan logs carry the date; the older ones take the last RMC's.
            out.date = NmeaDate(f[10]);
            if (out.date.empty()) out.date = state.lastDate;
            break;
        case Kind::None: return false;
    }
    ShiftHours(out.date, out.time, o.hours);
    out.lat = Coordinate(lat, ns);
    out.lon = Coordinate(lon, ew);
    if (out.lat == 0 || out.lon == 0) return false;
    if (o.geoid && out.alt.has())
        out.alt = std::floor(*out.alt - GeoidWert(*o.geoid, out.lon, out.lat) + 0.499);
    if (o.dropZeroAltitude && out.alt.has() && *out.alt == 0) return false;
    return true;
}

}  // namespace ortelix
