#pragma once
// OziExplorer route files (.rte) and their companion waypoint file (.rte.wpt).
#include <string>
#include <string_view>

namespace ortelix {

class Session;
struct DataStore;

// Writes all routes, then the same points as "<file>.wpt". Without a route
// it says "Kein Datensatz vorhanden!" and writes nothing.
void OziRouteSchreiben(Session& s, const std::string& file);
// The .rte bytes; today is the date text of the R lines ("14.01.2004").
std::string OziRouteText(const DataStore& store, std::string_view today);
// Today's date in the stored text form, from the system's local clock.
std::string HeuteText();

// Reads a .rte file; its routes are named after the file.
void OziRouteLesen(Session& s, const std::string& file);
void OziRouteLesenText(Session& s, std::string_view bytes, std::string_view name);

}  // namespace ortelix
