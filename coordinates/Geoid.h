#pragma once
// Geoid undulation of EGM96 from the 15-minute grid file (nearest node).
#include <string>

#include "core/CoordinateState.h"

namespace ortelix {

class Session;

// Loads WW15MGH.DAC, else geobin.dat, from the program folder. False when
// neither exists; a file that cannot be read throws FileError.
bool GeoidLaden(Session& s);
// Metres, two decimals; 0 without a grid or off the earth. Loads on first use.
double GeoidHoehe(Session& s, double lon, double lat);
// The lookup itself on a loaded table.
double GeoidWert(const GeoidTable& t, double lon, double lat);

}  // namespace ortelix
