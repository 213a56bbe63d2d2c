#pragma once
// The waypoints that the track filter sets: at the start of a track, after a
// pause, and at the end of a track that a gap cuts off.
#include <cstdint>
#include <string>
#include <string_view>

#include "core/ModulArray.h"

namespace ortelix {

// A waypoint where a track point lies: position, altitude, date and time,
// nothing else.
GeoPointIn WayPointAt(const TrackPoint& p);

// "Start " and the track's name; 255 on 65280.
GeoPointIn StartWayPoint(std::string_view trackName, const TrackPoint& at);

// "<km> km <h:nn> Pause <track>", described "<h:nn:ss> Pause"; 16777215 on 16711680.
GeoPointIn PauseWayPoint(std::string_view trackName, const TrackPoint& at, int64_t pauseSeconds);

// "Ende <track> <km> km", described "<track> Strecke:<km> km Dauer:<hh:mm> Std:Min";
// 16777215 on 255. Length and duration are those of the track's last point.
GeoPointIn EndWayPoint(std::string_view trackName, const TrackPoint& last);

// Clock texts of a span, as a time of day is formatted: the hours wrap at 24.
// "h:nn" without, "hh:mm" with leading zero of the hour; "h:nn:ss".
std::string HourMinutes(int64_t seconds, bool twoDigitHour);
std::string HourMinutesSeconds(int64_t seconds);

}  // namespace ortelix
