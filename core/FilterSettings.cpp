#include "core/FilterSettings.h"

#include <cmath>

#include "core/ModulShared.h"
#include "core/WholeNumber.h"

namespace ortelix {

Reduction ReductionSetting(const Options& o) {
    // "Optimal", "Alle Punkte", "1 m", "5 m", "10 m", "25 m", "50 m", "100 m", "250 m", "500 m"
    static constexpr double kLimits[] = {0, 0, 1, 5, 10, 25, 50, 100, 250, 500};
    const int entry = o.List[7];
    if (entry == 0) return {true, 0};
    if (entry < 0 || entry >= static_cast<int>(std::size(kLimits))) return {false, 0};
    return {false, kLimits[entry]};
}

bool OutsideRegion(const Options& o, double lon, double lat) {
    return o.Check[11] != 0 && (lon < -10 || lon > 40 || lat < 15 || lat > 59);
}

bool OutsideTimeWindow(const Options& o, Time t) {
    if (o.Check[9] == 0 || t.empty()) return false;
    const Time from = ParseClock(o.TextZeit[0]);
    const Time to = ParseClock(o.TextZeit[1]);
    if (from.empty() || to.empty()) return false;
    return *t < *from || *t > *to;
}

GapLimits GapSetting(const Options& o) {
    if (o.Check[14] == 0) return {};
    return {true, o.Number(3) * 1000.0, o.Number(2)};
}

double SplitSizeLimit(const Options& o) {
    if (o.Check[6] == 0) return 0;
    const double limit = o.Number(1);
    return limit < 1 ? 1 : limit;
}

int64_t PauseLimitSeconds(const Options& o) {
    if (o.Check[18] == 0) return -1;
    // Held within a million years of minutes: the product stays far inside 64 bits.
    return WholeWithin(std::floor(o.Number(0)), int64_t{1} << 40) * 60;
}

namespace {
double DegreesMinutes(const Options& o, int degreesField) {
    return o.Number(degreesField) + o.Number(degreesField + 1) / 60.0;
}
}  // namespace

Box WayPointFilterCorners(const Options& o) {
    Box b;
    b.West = DegreesMinutes(o, 8);
    b.North = DegreesMinutes(o, 10);
    b.East = DegreesMinutes(o, 12);
    b.South = DegreesMinutes(o, 14);
    return b;
}

void WayPointFilterCentre(const Options& o, double& lon, double& lat) {
    lon = DegreesMinutes(o, 16);
    lat = DegreesMinutes(o, 18);
}

double WayPointFilterRadiusMetres(const Options& o) { return o.Number(20) * 1000.0; }

Box WidenedTrackBox(const Box& b) {
    return {b.West - 0.000691, b.South - 0.004465, b.East + 0.000691, b.North + 0.004465};
}

}  // namespace ortelix
