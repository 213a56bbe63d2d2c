#pragma once
// State that the read filters keep for the whole run of the program.
#include <string>
#include <vector>

#include "core/DateTime.h"
#include "core/Optional.h"

namespace ortelix {

struct TrackFilterState {
    int SplitCounter = 0;
    double PrevLon = 0, PrevLat = 0;
    OptDouble PrevMoment;
    OptDouble KeptLon, KeptLat;
    OptDouble BeforeKeptLon, BeforeKeptLat;
};

// Running statistics of the track being filled.
struct TrackStatState {
    double TotalMetres = 0;
    double LastLon = 0, LastLat = 0;
    double StartMoment = 0;
    double AnchorLon = 0, AnchorLat = 0;
    double AnchorMoment = 0;
    double MovingTime = 0;
    double PauseSum = 0;
    double LastMovement = 0;
    double CheckMoment = 0;
    double CheckMetres = 0;
};

// The dates found in a log, and after the choice those that pass.
struct DateChoice {
    std::vector<int32_t> Dates;
};

}  // namespace ortelix
