#include "coordinates/Geoid.h"

#include <cmath>

#include "core/FileIO.h"
#include "core/ModulShared.h"
#include "core/Session.h"
#include "platform/Platform.h"

namespace ortelix {

bool GeoidLaden(Session& s) {
    s.coords.geoid.searched = true;
    const std::string folder = s.platform.programFolder();
    std::string path = folder + "/WW15MGH.DAC";
    if (!FileExists(path)) path = folder + "/geobin.dat";
    if (!FileExists(path)) return false;
    s.store.StatusText.set("Lese Datensatz");
    s.platform.setBusy(true);
    GeoidTable& t = s.coords.geoid;
    try {
        const std::string bytes = ReadFileBytes(path);
        t.bytes.assign(bytes.begin(), bytes.end());
    } catch (...) {
        s.platform.setBusy(false);
        throw;
    }
    s.platform.setBusy(false);
    t.loaded = true;
    return true;
}

// Nearest node of the 15' grid: against cct +proj=vgridshift +grids=egm96_15.gtx
// (bilinear) at most 1.25 m over Germany and Switzerland, 0.005 m at the
// nodes (bench/coord-accuracy.sh). Values below -55.36 m read as 655.36 m
// plus the value, by the sign rule "above 600".
double GeoidWert(const GeoidTable& t, double lon, double lat) {
    if (lat < -90 || lat > 90) return 0;
    if (lon < 0) lon += 360;
    if (lon < 0 || lon > 360) return 0;
    // Nearest node; 0.49999 puts a value exactly half-way on the lower node.
    const double lonQ = std::floor(lon * 4 + 0.49999) / 4;
    const double latQ = std::floor(lat * 4 + 0.49999) / 4;
    // Longitude 360 reads column 1440, which is column 0 of the next row.
    const double index = (90 - latQ) * 4 * 1440 + lonQ * 4;
    const size_t i = static_cast<size_t>(index) * 2;
    // Past the end (only longitude 360 at the south pole, or a short file).
    if (i + 1 >= t.bytes.size()) return 0;
    double v = (t.bytes[i] * 256 + t.bytes[i + 1]) / 100.0;
    if (v > 600) v -= 655.36;
    return v;
}

double GeoidHoehe(Session& s, double lon, double lat) {
    if (!s.coords.geoid.loaded && !s.coords.geoid.searched) GeoidLaden(s);
    if (!s.coords.geoid.loaded) return 0;
    return GeoidWert(s.coords.geoid, lon, lat);
}

}  // namespace ortelix
