#pragma once
// Areas as regions on the 1/10000-degree grid and the point tests on them.
// Built once, tested per read point by a few integer comparisons.
#include <cstdint>
#include <string>
#include <vector>

#include "core/CoordinateState.h"

namespace ortelix {

class Session;

struct PolyPunkt {
    int32_t x = 0, y = 0;
};

// Int(value · 10000): Int rounds down, as the grid cells do.
int32_t GridCell(double degrees);

// Even-odd region of a closed polygon; the low edges of a cell run belong to
// it, the high edges not.
Region MakeRegion(const std::vector<PolyPunkt>& punkte);
bool PtInRegion(const Region& r, int32_t x, int32_t y);

// The polygon file: "lon|lat" per line, in the program folder.
void PolygonDateiLesen(Session& s, const std::string& file);
bool PunktImPolygon(const Session& s, double lon, double lat);

// index counts areas from 1, as the area list does.
void FlaecheRegionBauen(Session& s, size_t index);
bool PunktInFlaeche(const Session& s, double lon, double lat);
void AlleRegionenBauen(Session& s);
// Forgets the regions made from the store's areas, for a store cleared by
// "Neu": areas read afterwards are built and tested afresh.
void AlleRegionenVergessen(Session& s);
bool PunktInEinerFlaeche(const Session& s, double lon, double lat);

}  // namespace ortelix
