#pragma once
// The running statistics of the track being filled: length, duration, the
// course from the last standing place, and pauses. A pause is a stay within
// 100 metres that lasted more than five minutes.
#include <cstdint>

#include "core/ModulArray.h"
#include "core/ReadFilterState.h"

namespace ortelix {

// Fills DistKm and, after the first point of a track, StepCourse, Duration
// and PauseTime of p, the point just appended at moment (whole seconds).
// Returns the pause in seconds that ended at p, 0 when none did.
int64_t TrackStats(TrackStatState& st, TrackPoint& p, bool firstOfTrack, int64_t moment);

}  // namespace ortelix
