#include "simulator/SimTimers.h"

#include <cmath>

namespace ortelix {

int WeiterIntervall(double fach) {
    if (!(fach > 0)) fach = 1;
    const double ms = std::floor(1000 / fach);
    if (ms < 1) return 1;
    return ms > 1.0e9 ? 1000000000 : static_cast<int>(ms);
}

}  // namespace ortelix
