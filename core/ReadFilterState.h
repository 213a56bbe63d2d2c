#pragma once
// State that the read filters keep for the whole run of the program. It
// survives new files and ClearStore: the kept point at the end of one file is
// the first comparison of the next.
#include <cstdint>
#include <unordered_set>
#include <vector>

#include "core/DateTime.h"
#include "core/Optional.h"

namespace ortelix {

using OptMoment = Opt<int64_t>;  // whole seconds since 1899-12-30

struct TrackFilterState {
    int SplitCounter = 0;          // number of the last split part
    double PrevLon = 0, PrevLat = 0;  // last point seen by the gap test
    OptMoment PrevMoment;
    OptDouble KeptLon, KeptLat;    // the last point that the reduction kept
    OptDouble BeforeKeptLon, BeforeKeptLat;  // the one kept before it
};

// Running statistics of the track being filled. Moments in whole seconds.
struct TrackStatState {
    double TotalMetres = 0;
    double LastLon = 0, LastLat = 0;
    int64_t StartMoment = 0;
    double AnchorLon = 0, AnchorLat = 0;  // where the walker last stood still
    int64_t AnchorMoment = 0;
    int64_t MovingTime = 0;
    int64_t PauseSum = 0;
    int64_t LastMovement = 0;
    // The ten-minute check of the average speed.
    int64_t CheckMoment = 0;
    double CheckMetres = 0;
    double CheckSpeedKmh = 0;
};

// The dates found in a log, and after the choice those that pass. `Dates`
// keeps the order in which they were found, for the dialog; `known` holds the
// same dates for the lookup per point, so a log of many days costs no search
// through the list. Change both through the routines of core/ReadFilter.h.
struct DateChoice {
    std::vector<int32_t> Dates;
    std::unordered_set<int32_t> known;
};

}  // namespace ortelix
