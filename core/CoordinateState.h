#pragma once
// What the coordinate routines keep for a whole run: the datum table read
// from helmert.dat, the geoid grid and the regions of the areas. Plain data
// only; the routines that fill and use it live in coordinates/.
#include <cstdint>
#include <string>
#include <vector>

namespace ortelix {

// One row of helmert.dat: a datum and its seven parameters towards WGS 84.
struct Datum {
    std::string Name;
    std::string Region;
    double HalbachseX = 0;  // a of the datum's ellipsoid, metres
    double HalbachseY = 0;  // b of the datum's ellipsoid, metres
    double dx = 0, dy = 0, dz = 0;  // metres
    double rx = 0, ry = 0, rz = 0;  // seconds of arc
    double Massstab = 0;            // a factor close to 1
};

// The EGM96 grid as the file holds it: 721 rows of 1440 big-endian int16
// centimetres, north row first, longitude 0 first.
struct GeoidTable {
    std::vector<uint8_t> bytes;
    bool loaded = false;
    bool searched = false;  // looked for the file once; no disk look-up per point
};

// A polygon region on the 1/10000-degree grid, kept as the system's regions
// are: horizontal bands of equal rows, each with sorted half-open x spans.
// A point is inside when its cell's centre lies inside under the even-odd
// rule, so the low x and low y edges belong to the region, the high ones not.
struct Region {
    std::vector<int32_t> bandTop;     // first row of each band
    std::vector<int32_t> bandBottom;  // row after the last row of each band
    std::vector<uint32_t> bandStart;  // first span boundary of each band, one extra at the end
    std::vector<int32_t> edges;       // span boundaries: start, end, start, end...
    bool empty() const { return bandTop.empty(); }
};

struct CoordinateState {
    // The rows of helmert.dat; row i (1-based) is DatumListe[i - 1].
    std::vector<Datum> DatumListe;
    GeoidTable geoid;
    Region polygonRegion;             // from the polygon file
    Region areaRegion;                // of the current area
    std::vector<Region> areaRegions;  // one per area of the store
};

}  // namespace ortelix
