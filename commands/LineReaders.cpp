#include "commands/LineReaders.h"

#include "appformats/ModOzi.h"
#include "core/FileIO.h"
#include "gpsformats/Nmea.h"

namespace ortelix {

namespace {
[[noreturn]] void NotBuilt() { throw FileError("Dieses Format ist noch nicht verfügbar"); }
}  // namespace

void ReadTrackFile(Session& s, const std::string& path, int format) {
    if (format == 1) return ReadNmeaLog(s, path, true);
    if (format == 2) return ReadNmeaLog(s, path, false);
    if (format == 4) return OziTrackLesen(s, path);
    NotBuilt();
}

void ReadRouteFile(Session& s, const std::string& path, int format) {
    if (format == 4) return OziRouteLesen(s, path);
    if (format == 6) return OziCERouteLesen(s, path);
    NotBuilt();
}

void ReadWayPointFile(Session& s, const std::string& path, int format) {
    if (format == 4) return OziWegepunkteLesen(s, path);
    NotBuilt();
}

}  // namespace ortelix
