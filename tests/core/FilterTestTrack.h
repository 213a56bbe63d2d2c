#pragma once
// Builds track points at known distances: metres north and east of a base at
// 10° E, 50° N, converted with the near-point plane of the distance routine,
// so that Entfernung gives the metres back.
#include <cmath>

#include "core/DateTime.h"
#include "core/ModulArray.h"
#include "core/ReadFilter.h"
#include "fake/FakePlatform.h"

namespace ortelix::test {

constexpr double kBaseLon = 10, kBaseLat = 50;
constexpr double kMetresPerDegree = 6371299.0 * 0.017453292519943278;

inline double LatAt(double north) { return kBaseLat + north / kMetresPerDegree; }
inline double LonAt(double east, double north) {
    const double lat = LatAt(north) * 0.017453292519943278;
    return kBaseLon + east / (kMetresPerDegree * std::cos(lat));
}

// 2006-02-16 is day 38764 after 1899-12-30.
constexpr int32_t kDay = 38764;

inline TrackPointIn PointAt(double north, double east = 0, int32_t seconds = 0, int32_t day = kDay) {
    TrackPointIn p;
    p.lat = LatAt(north);
    p.lon = LonAt(east, north);
    p.date = day;
    p.time = seconds;
    p.speed = 5.0;
    p.alt = 100.0;
    return p;
}

// A session with the filter options at their reset values: nothing filters.
struct FilterSession {
    FakePlatform platform;
    Session s{platform};
    FilterSession() {
        Options& o = s.options;
        o.List[7] = 1;  // "Alle Punkte"
        o.List[8] = 0;  // "Alle eintragen"
        o.KarteKoordInput[0] = "15";
        o.KarteKoordInput[1] = "15000";
        o.KarteKoordInput[2] = "5";
        o.KarteKoordInput[3] = "300";
        o.KarteKoordInput[20] = "1";
    }
    void add(const TrackPointIn& p) { AddTrackPoint(s, p); }
    const Track& track(size_t i) const { return s.store.Tracks.at(i); }
    size_t points(size_t i) const { return s.store.Tracks.at(i).Points.size(); }
};

}  // namespace ortelix::test
