#include "coordinates/GridSystems.h"

#include <cmath>

#include "coordinates/Constants.h"
#include "coordinates/Datum.h"
#include "coordinates/TransverseMercator.h"

namespace ortelix {
namespace {

struct GridSystem {
    double a, b;
    double dx, dy, dz, rx, ry, rz, m;
    double falseNorthing, lat0;
};

// System 1: Gauss-Krueger (strip from the easting), 2: Bessel on the zero
// meridian, 3: the Swiss grid as a transverse Mercator at Bern.
constexpr GridSystem kSystems[3] = {
    {6377397.15508, 6356078.9629, 591.28, 81.35, 396.39, -1.477, 0.0736, 1.458, 1.00000982, 0, 0},
    {6377397.155, 6356078.963, 577.3, 90.1, 463.9, 5.137, 1.474, 5.297, 1.00000982, 0, 0},
    {6377397.155, 6356078.963, 674.4, 15.1, 405.3, 0, 0, 0, 1, 200000, 46.952405555},
};

// E is the easting the strip of system 1 is read from.
TransverseMercator Projection(const GridSystem& g, int system, double E) {
    TransverseMercator p{g.a, g.b, 1};
    p.lat0 = g.lat0;
    p.falseNorthing = g.falseNorthing;
    if (system == 1) {
        const double strip = std::floor(E / 1e6);
        p.falseEasting = 500000 + 1e6 * strip;
        p.lon0 = 3 * strip;
    } else if (system == 3) {
        p.falseEasting = 600000;
        p.lon0 = 7.439583333;
    }
    return p;
}

}  // namespace

// System 3 is a transverse, not the oblique, Mercator of the Swiss grid:
// against cs2cs EPSG:4326 -> EPSG:21781 it is within a few metres around
// Bern and Zurich and at most 68.9 m (68.6 m back) at the edges of the
// country, 6 to 10.4 E, 45.9 to 47.7 N (bench/coord-accuracy.sh).
void GridNachWGS84(double ost, double nord, double& lon, double& lat, int system) {
    lon = lat = 0;
    if (system < 1 || system > 3) return;
    const GridSystem& g = kSystems[system - 1];
    double lonB, latB, X, Y, Z, X2, Y2, Z2;
    TMInverse(Projection(g, system, ost), ost, nord, lonB, latB);
    GeoNachKartesisch(lonB, latB, X, Y, Z, g.a, g.b, kHeightOnDatum);
    HelmertTransformation(X, Y, Z, X2, Y2, Z2, g.dx, g.dy, g.dz, g.rx, g.ry, g.rz, g.m);
    KartesischNachGeo(X2, Y2, Z2, lon, lat, kWgs84A, kWgs84B);
}

void WGS84NachGrid(double lon, double lat, double& ost, double& nord, int system) {
    ost = nord = 0;
    if (system < 1 || system > 3) return;
    const GridSystem& g = kSystems[system - 1];
    double lonB, latB, X, Y, Z, X2, Y2, Z2;
    GeoNachKartesisch(lon, lat, X, Y, Z, kWgs84A, kWgs84B, kHeightOnWgs84);
    HelmertTransformation(X, Y, Z, X2, Y2, Z2, g.dx * -1, g.dy * -1, g.dz * -1, g.rx * -1, g.ry * -1, g.rz * -1,
                          1 / g.m);
    KartesischNachGeo(X2, Y2, Z2, lonB, latB, g.a, g.b);
    // No easting to read a strip from in this direction: system 1 lies on meridian 0.
    TMForward(Projection(g, system, 0), lonB, latB, ost, nord);
    ost = std::floor(ost + 0.5);
    nord = std::floor(nord + 0.5);
}

}  // namespace ortelix
