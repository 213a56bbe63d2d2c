#pragma once
// The three line readers by format number, as menus and batch reading name
// them: 1 NMEA with the date choice, 2 NMEA in one pass, 3 PCX5, 4
// OziExplorer, 5 the configurable ASCII format; 6 Kompass (OziCE for routes,
// where Kompass is 7).
#include <string>

namespace ortelix {

class Session;

// Throw FileError "Dieses Format ist noch nicht verfügbar" for a format whose
// reader is not built yet.
void ReadTrackFile(Session& s, const std::string& path, int format);
void ReadRouteFile(Session& s, const std::string& path, int format);
void ReadWayPointFile(Session& s, const std::string& path, int format);

}  // namespace ortelix
