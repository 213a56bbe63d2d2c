#pragma once
// The transverse Mercator series that UTM and the grid systems share.
// Angles in degrees at the interface; the series work in radians.
namespace ortelix {

struct TransverseMercator {
    double a, b;          // ellipsoid axes
    double k0;            // scale on the central meridian
    double lat0 = 0;      // latitude of origin, degrees
    double lon0 = 0;      // central meridian, degrees
    double falseEasting = 0;
    double falseNorthing = 0;
};

void TMForward(const TransverseMercator& p, double lon, double lat, double& ost, double& nord);
void TMInverse(const TransverseMercator& p, double ost, double nord, double& lon, double& lat);

}  // namespace ortelix
