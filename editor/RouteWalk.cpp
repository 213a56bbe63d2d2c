#include "editor/RouteWalk.h"

#include <algorithm>
#include <cmath>

#include "coordinates/Entfernung.h"
#include "core/WholeNumber.h"

namespace ortelix {

double RoutePointStat(RouteRun& run, const GeoPoint& p, int64_t i, double& sectionKm, double& course) {
    double schritt = 0;
    if (i == 1) {
        run.Metres = 0;
    } else {
        schritt = Entfernung(run.PrevLon, run.PrevLat, p.Lon, p.Lat, course);
        run.Metres += schritt;
    }
    run.PrevLon = p.Lon;
    run.PrevLat = p.Lat;
    sectionKm = schritt / 1000;
    return run.Metres / 1000;
}

RouteTable FillRouteTable(const Route& route, int64_t erster, int64_t zeilen) {
    RouteTable t;
    const int64_t n = static_cast<int64_t>(route.Points.size());
    t.erster = std::clamp<int64_t>(erster, 0, n);
    t.zeilen = std::clamp<int64_t>(zeilen, 0, n - t.erster);
    t.rows.resize(static_cast<size_t>(t.zeilen));
    RouteRun run;
    double section = 0, course = 0;
    // Nothing past the point after the window shows, and a route keeps no
    // derived fields: the walk may stop there.
    const int64_t last = std::min(n, t.erster + t.zeilen + 1);
    for (int64_t i = 1; i <= last; ++i) {
        const double km = RoutePointStat(run, route.Points[static_cast<size_t>(i - 1)], i, section, course);
        const int64_t r = i - t.erster;
        if (r > 0 && r <= t.zeilen) t.rows[static_cast<size_t>(r - 1)].km = km;
        // The section to this point belongs to the row of the point before.
        if (i > 1 && r - 1 > 0 && r - 1 <= t.zeilen) {
            RouteRowStat& above = t.rows[static_cast<size_t>(r - 2)];
            above.hasSection = true;
            above.sectionKm = section;
            above.direction = static_cast<int32_t>(WholeWithin(std::floor(course), 2147483647));
        }
    }
    return t;
}

}  // namespace ortelix
