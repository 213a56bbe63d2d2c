#pragma once
// The texts of the computed columns: track columns 10..15 and route columns
// 10..12, from the rows a walk kept. Row r is the r-th row of the table
// (1-based); a row the table does not hold gives "".
#include <cstdint>
#include <string>

#include "editor/RouteWalk.h"
#include "editor/TrackWalk.h"

namespace ortelix {

std::string TrackComputedText(const TrackTable& t, int64_t row, int col);
std::string RouteComputedText(const RouteTable& t, int64_t row, int col);

}  // namespace ortelix
