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
// nodes (bench/coord-accuracy.sh). Each node is a 16-bit two's complement
// number of centimetres: 0xFFFF is -0.01 m, and the lowest geoid, -106.99 m
// south of India, is stored as 54 837.
double GeoidWert(const GeoidTable& t, double lon, double lat) {
    // Written so that NaN is off the earth too.
    if (!(lat >= -90 && lat <= 90)) return 0;
    if (lon < 0) lon += 360;
    if (!(lon >= 0 && lon <= 360)) return 0;
    // Nearest node; 0.49999 puts a value exactly half-way on the lower node.
    const double lonQ = std::floor(lon * 4 + 0.49999) / 4;
    const double latQ = std::floor(lat * 4 + 0.49999) / 4;
    // Longitude 360 reads column 1440, which is column 0 of the next row.
    const double index = (90 - latQ) * 4 * 1440 + lonQ * 4;
    const size_t i = static_cast<size_t>(index) * 2;
    // Past the end (only longitude 360 at the south pole, or a short file).
    if (i + 1 >= t.bytes.size()) return 0;
    const int stored = t.bytes[i] * 256 + t.bytes[i + 1];
    const int centimetres = stored >= 32768 ? stored - 65536 : stored;
    return centimetres / 100.0;
}

double GeoidHoehe(Session& s, double lon, double lat) {
    if (!s.coords.geoid.loaded && !s.coords.geoid.searched) GeoidLaden(s);
    if (!s.coords.geoid.loaded) return 0;
    return GeoidWert(s.coords.geoid, lon, lat);
}

}  // namespace ortelix
