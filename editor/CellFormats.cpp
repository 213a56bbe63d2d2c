#include "editor/CellFormats.h"

#include <charconv>
#include <cmath>
#include <cstdlib>

namespace ortelix {

namespace {

void PutTwo(std::string& out, int64_t v) {
    out += static_cast<char>('0' + v / 10 % 10);
    out += static_cast<char>('0' + v % 10);
}

void PutWhole(std::string& out, int64_t v) {
    char buf[24];
    const auto r = std::to_chars(buf, buf + sizeof buf, v);
    out.append(buf, r.ptr);
}

// Seconds of the day of a moment; a moment before the epoch counts its
// time of day from the start of its own day.
int64_t DaySeconds(int64_t seconds) { return ((seconds % kSecondsPerDay) + kSecondsPerDay) % kSecondsPerDay; }

void PutClock(std::string& out, int64_t daySeconds, bool withSeconds, bool padHours) {
    const int64_t h = daySeconds / 3600;
    if (padHours || h >= 10) PutTwo(out, h);
    else out += static_cast<char>('0' + h);
    out += ':';
    PutTwo(out, daySeconds / 60 % 60);
    if (withSeconds) {
        out += ':';
        PutTwo(out, daySeconds % 60);
    }
}

}  // namespace

std::string GermanMoment(int64_t seconds) {
    const int64_t day = (seconds - DaySeconds(seconds)) / kSecondsPerDay;
    return GermanDate(static_cast<int32_t>(day)) + ' ' + GermanTime(static_cast<int32_t>(DaySeconds(seconds)));
}

// A span shown as a time of day: a negative span is a moment before the
// epoch, whose clock runs from its own midnight the other way.
std::string DurationText(int64_t seconds) {
    std::string out;
    PutClock(out, std::llabs(seconds) % kSecondsPerDay, true, false);
    return out;
}

std::string PauseText(int64_t seconds) {
    std::string out;
    PutClock(out, std::llabs(seconds) % kSecondsPerDay, false, false);
    return out;
}

// Fifteen significant digits, as a double's text has always read: a speed
// of 3.5 m/s stored as 12.600000000000001 km/h shows as 12.6.
std::string NumberText(double v) {
    if (!std::isfinite(v)) return {};
    char buf[40];
    const auto r = std::to_chars(buf, buf + sizeof buf, v, std::chars_format::general, 15);
    std::string out(buf, r.ptr);
    if (out == "-0") out = "0";
    return out;
}

std::string NumberText(OptDouble v) { return v.has() ? NumberText(*v) : std::string(); }

std::string NumberText(OptInt v) {
    std::string out;
    if (v.has()) PutWhole(out, *v);
    return out;
}

std::string NumberText(OptShort v) {
    std::string out;
    if (v.has()) PutWhole(out, *v);
    return out;
}

}  // namespace ortelix
