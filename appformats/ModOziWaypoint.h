#pragma once
// OziExplorer waypoint files (.wpt).
#include <string>
#include <string_view>
#include <vector>

namespace ortelix {

class Session;
struct GeoPoint;

// Writes all waypoints of the store.
void OziWegepunkteSchreiben(Session& s, const std::string& file);
// The "Waypoint" command: as for tracks and routes, a store without
// waypoints says "Kein Datensatz vorhanden!" and writes nothing, so that no
// file of headers alone stands in for what the user meant to save.
void OziWegepunkteDateiSchreiben(Session& s, const std::string& file);
// The file's bytes for a list of points. With fixedColours the colour fields
// are 0 and 65535 whatever the points hold (the companion file of a route).
std::string OziWegepunkteText(const std::vector<const GeoPoint*>& points, bool fixedColours);

// Reads a .wpt file into the waypoints.
void OziWegepunkteLesen(Session& s, const std::string& file);
void OziWegepunkteLesenText(Session& s, std::string_view bytes);

}  // namespace ortelix
