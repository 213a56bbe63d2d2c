#pragma once
// UTM on the WGS 84 axes, with zone exceptions and band letters.
#include <string>
#include <string_view>

namespace ortelix {

// zone like "32U", ost/nord whole metres, text like "32U 0500000 5400000".
// erzwingen has no visible effect; it stays for the callers' sake.
void GeoNachUTM(double lon, double lat, bool erzwingen, std::string& zone, double& ost, double& nord,
                std::string& text);
// Reads "32U 500000 5400000" or the fixed columns "32U05000005400000".
void UTMNachGeo(std::string_view text, double& lon, double& lat, bool erzwingen);

}  // namespace ortelix
