#include "simulator/SimVersatz.h"

#include <cmath>

#include "coordinates/Constants.h"

namespace ortelix {

void SimVersatz(double seconds, double course, double speed, double& east, double& north) {
    const double winkel = kPi * course / 180;
    const double weg = speed * 1000 * seconds / 3600;  // metres
    east = weg * std::sin(winkel) * kGradOstProKm / 1000;
    north = weg * std::cos(winkel) * kGradNordProKm / 1000;
}

}  // namespace ortelix
