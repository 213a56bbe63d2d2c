#include "core/TrackWayPoints.h"

#include <string>

#include "core/ModulShared.h"

namespace ortelix {

namespace {
void Put2(std::string& out, int64_t v) {
    out += static_cast<char>('0' + v / 10);
    out += static_cast<char>('0' + v % 10);
}

int64_t OfDay(int64_t seconds) {
    int64_t s = seconds % kSecondsPerDay;
    return s < 0 ? s + kSecondsPerDay : s;
}

GeoPointIn At(const TrackPoint& p, int32_t fore, int32_t back) {
    GeoPointIn g = WayPointAt(p);
    g.foreColor = fore;
    g.backColor = back;
    return g;
}
}  // namespace

GeoPointIn WayPointAt(const TrackPoint& p) {
    GeoPointIn g;
    g.lon = p.Lon;
    g.lat = p.Lat;
    if (p.Alt.has()) g.alt = static_cast<double>(*p.Alt);
    g.date = p.Date_;
    g.time = p.Time_;
    return g;
}

std::string HourMinutes(int64_t seconds, bool twoDigitHour) {
    const int64_t s = OfDay(seconds);
    const int64_t h = s / 3600;
    std::string out;
    if (twoDigitHour) Put2(out, h);
    else out += std::to_string(h);
    out += ':';
    Put2(out, s / 60 % 60);
    return out;
}

std::string HourMinutesSeconds(int64_t seconds) {
    std::string out = HourMinutes(seconds, false);
    out += ':';
    Put2(out, OfDay(seconds) % 60);
    return out;
}

GeoPointIn StartWayPoint(std::string_view trackName, const TrackPoint& at) {
    GeoPointIn g = At(at, 255, 65280);
    g.name = "Start ";
    g.name += trackName;
    return g;
}

GeoPointIn PauseWayPoint(std::string_view trackName, const TrackPoint& at, int64_t pauseSeconds) {
    GeoPointIn g = At(at, 16777215, 16711680);
    g.name = FormatFixed(at.DistKm, 1) + " km " + HourMinutes(pauseSeconds, false) + " Pause ";
    g.name += trackName;
    g.desc = HourMinutesSeconds(pauseSeconds) + " Pause";
    return g;
}

GeoPointIn EndWayPoint(std::string_view trackName, const TrackPoint& last) {
    GeoPointIn g = At(last, 16777215, 255);
    const std::string km = FormatFixed(last.DistKm, 1);
    g.name = "Ende ";
    g.name += trackName;
    g.name += " " + km + " km";
    g.desc = std::string(trackName) + " Strecke:" + km + " km Dauer:" + HourMinutes(last.Duration.valueOr(0), true) +
             " Std:Min";
    return g;
}

}  // namespace ortelix
