#pragma once
// "Internet Karte zeigen": the marked point on a web map. The modifier keys
// held at the click choose the service; the hosts are settings (section
// "Internet", keys "KartenServer1".."KartenServer4"), the paths are fixed.
#include <string>

#include "editor/BulkTarget.h"

namespace ortelix {

struct WebKeys {
    bool shift = false, ctrl = false, alt = false;
};

// 1..4: the service that the keys choose.
int WebService(WebKeys keys);
// The settings key of a service's host, and the host when none is stored.
std::string WebHostKey(int service);
std::string WebHostDefault(int service);
// The link for a host, the keys and a position (formatted to 6 decimals).
std::string WebLink(const std::string& host, WebKeys keys, double lat, double lon);
// Opens the link of the point in the grid row rowSel. False without a point
// there or when the service has no host.
bool InternetKarteZeigen(Session& s, const ModuleEditor& ed, int rowSel, WebKeys keys);

}  // namespace ortelix
