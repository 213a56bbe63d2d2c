#pragma once
// The OziExplorer CE set: every route, every track and the waypoints in files
// of one base name.
#include <string>

namespace ortelix {

class Session;

// "tour" gives tour1.rt2, tour2.rt2 ... per route, tour1.plt ... per track,
// and tour.wpt with all waypoints. A name without extension gets ".txt"
// first, which the base name then drops again.
void OziExportieren(Session& s, const std::string& file);

}  // namespace ortelix
