#pragma once
// The OziExplorer CE set: every route, every track and the waypoints in files
// of one base name.
#include <string>
#include <vector>

namespace ortelix {

class Session;
struct DataStore;

// The files that OziExportieren writes for this store, in writing order.
std::vector<std::string> OziExportFiles(const DataStore& st, const std::string& file);

// "tour" gives tour1.rt2, tour2.rt2 ... per route, tour1.plt ... per track,
// and tour.wpt with all waypoints. A name without extension gets ".txt"
// first, which the base name then drops again. Files that exist already are
// named in one question before anything is written; the status line then
// names the files written. An empty store writes nothing.
void OziExportieren(Session& s, const std::string& file);

}  // namespace ortelix
