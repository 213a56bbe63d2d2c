#pragma once
// The editor's walk along one route: kilometres so far, and the way from
// each point to the next.
#include <cstdint>
#include <vector>

#include "core/ModulArray.h"

namespace ortelix {

struct RouteRun {
    double PrevLon = 0, PrevLat = 0;
    double Metres = 0;
};

// Advances run by point i (1-based; 1 starts the walk). Returns the length
// so far in km; sectionKm gets the step from the previous point in km and
// course the whole degrees of that step (kept as it came in when the points
// are less than a metre apart).
double RoutePointStat(RouteRun& run, const GeoPoint& p, int64_t i, double& sectionKm, double& course);

struct RouteRowStat {
    double km = 0;
    bool hasSection = false;  // false in the last row of the route
    double sectionKm = 0;     // to the next point
    int32_t direction = 0;    // to the next point, whole degrees
};

struct RouteTable {
    int64_t erster = 0;
    int64_t zeilen = 0;
    std::vector<RouteRowStat> rows;  // rows[r - 1] for grid row r
};

// Walks the whole route and keeps the rows erster+1 .. erster+zeilen: each
// row the length up to its point and the section to the next one.
RouteTable FillRouteTable(const Route& route, int64_t erster, int64_t zeilen);

}  // namespace ortelix
