#pragma once
// Tracks and routes laid out by metres along a meridian or a parallel, so
// that the expected lengths are known without the distance routine: near
// points are measured on a sphere of 6371.299 km.
#include <cmath>
#include <initializer_list>
#include <utility>
#include <numbers>
#include <string>

#include "core/ModulArray.h"

namespace ortelix::testing {

constexpr double kSphereMetres = 6371299.0;
constexpr double kBaseLat = 50.0, kBaseLon = 10.0;

// Degrees of latitude for a distance north; degrees of longitude for a
// distance east on the parallel of kBaseLat.
inline double NorthDegrees(double metres) { return metres / kSphereMetres * 180.0 / std::numbers::pi; }
inline double EastDegrees(double metres) {
    return metres / (kSphereMetres * std::cos(kBaseLat * std::numbers::pi / 180.0)) * 180.0 / std::numbers::pi;
}

// A track point `north` metres north of the base, `seconds` after midnight
// of 16.02.2006.
inline TrackPoint PointAt(double north, int seconds, OptInt alt = {}) {
    TrackPoint p;
    p.Lon = kBaseLon;
    p.Lat = kBaseLat + NorthDegrees(north);
    p.Date_ = SerialFromCivil(2006, 2, 16) + seconds / kSecondsPerDay;
    p.Time_ = seconds % kSecondsPerDay;
    p.Alt = alt;
    return p;
}

// A track of points `north` metres north of the base with their altitudes,
// one a minute from 10:00.
inline Track MinuteTrack(std::initializer_list<std::pair<double, OptInt>> points) {
    Track t;
    int seconds = 10 * 3600;
    for (const auto& [north, alt] : points) {
        t.Points.push_back(PointAt(north, seconds, alt));
        seconds += 60;
    }
    return t;
}

inline GeoPoint GeoAt(double north, double east, std::string name) {
    GeoPoint p;
    p.Lon = kBaseLon + EastDegrees(east);
    p.Lat = kBaseLat + NorthDegrees(north);
    p.Name = std::move(name);
    return p;
}

}  // namespace ortelix::testing
