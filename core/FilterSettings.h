#pragma once
// What the options of the "Track Filter" and "Waypoint Filter" frames say,
// read afresh at every call as the filters do. Pure functions over Options.
#include <cstdint>

#include "core/DateTime.h"
#include "core/ModulArray.h"
#include "core/Options.h"

namespace ortelix {

// A moment as whole seconds since 1899-12-30; empty date and time count as 0.
// Whole seconds keep "exactly five minutes" exact.
inline int64_t MomentSeconds(Date d, Time t) {
    return static_cast<int64_t>(d.valueOr(0)) * kSecondsPerDay + t.valueOr(0);
}

// List(7): entry 0 is "Optimal", the others a fixed limit in metres.
struct Reduction {
    bool optimal = false;
    double limitMetres = 0;
};
Reduction ReductionSetting(const Options& o);

// Check(11): the region of the track filter (Germany and Austria, generously).
bool OutsideRegion(const Options& o, double lon, double lat);

// Check(9) with TextZeit(0) and (1): true when the time of day lies outside
// the window. A point without a time cannot be judged and passes.
bool OutsideTimeWindow(const Options& o, Time t);

// Check(14): the limits of the gap split.
struct GapLimits {
    bool on = false;
    double metres = 0;
    double minutes = 0;
};
GapLimits GapSetting(const Options& o);

// Check(6): the points per part, at least 1; 0 when the split is off.
double SplitSizeLimit(const Options& o);

// Check(18): the pause in seconds above which a pause waypoint is set;
// negative when pause waypoints are off.
int64_t PauseLimitSeconds(const Options& o);

// The corners of "Innerhalb der Koordinaten" and the centre of "Um einen
// Punkt": degrees plus decimal minutes.
Box WayPointFilterCorners(const Options& o);
void WayPointFilterCentre(const Options& o, double& lon, double& lat);
double WayPointFilterRadiusMetres(const Options& o);

// The box test of the waypoint filter: false outside, the edges count as inside.
inline bool InBox(const Box& b, double lon, double lat) {
    return !(lon < b.West || lon > b.East || lat < b.South || lat > b.North);
}

// "Im Flächenqudrat der LOG-Strecke": the track box widened on each side.
Box WidenedTrackBox(const Box& trackRouteBox);

}  // namespace ortelix
