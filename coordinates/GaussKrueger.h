#pragma once
// Gauss-Krueger on the Bessel ellipsoid (three-degree strips) and the o2 cell
// broadcast text built on it. Rechtswert = strip · 10^6 + 500000 + y.
#include <string>
#include <string_view>

namespace ortelix {

// WGS 84 degrees through the fixed Potsdam shift to Rechtswert and Hochwert.
void WGS84NachGK(double lon, double lat, double& R, double& H);
void WGS84NachGKMeridian(double lon, double lat, double meridian, double& R, double& H);
void GKNachWGS84(double R, double H, double& lon, double& lat);
void GKNachWGS84Meridian(double R, double H, double meridian, double& lon, double& lat);

// On the Bessel ellipsoid itself. The strip is the nearest to lon / 3 (halves
// to the even one) or forced by the meridian; the inverse reads it from R.
void GeoNachGK(double lon, double lat, double& R, double& H);
void GeoNachGKMeridian(double lon, double lat, double meridian, double& R, double& H);
void GKNachGeo(double R, double H, double& lon, double& lat);
void GKNachGeoMeridian(double R, double H, double meridian, double& lon, double& lat);

// Twelve digits: the reader takes Rechtswert first, the writer gives
// Hochwert first (a known asymmetry of the format's users, kept).
void O2NachWGS84(std::string_view text, double& lon, double& lat);
std::string WGS84NachO2(double lon, double lat);

}  // namespace ortelix
