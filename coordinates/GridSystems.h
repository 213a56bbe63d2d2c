#pragma once
// The transverse Mercator grids by system number (1 to 3) of the Swiss Map
// overlays and export; 3 is the Swiss grid CH1903 (LV03).
namespace ortelix {

void GridNachWGS84(double ost, double nord, double& lon, double& lat, int system);
// Results are whole metres.
void WGS84NachGrid(double lon, double lat, double& ost, double& nord, int system);

}  // namespace ortelix
