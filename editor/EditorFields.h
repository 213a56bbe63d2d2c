#pragma once
// Which store field stands in which column of the editor grid, both ways:
// the text a field shows, and the write of a typed text through the
// column's check. Track columns 1..9 and route and waypoint columns 1..9;
// every other column has no field.
#include <string>
#include <string_view>

#include "core/ModulArray.h"

namespace ortelix {

std::string TrackFieldText(const TrackPoint& p, int col);
std::string GeoFieldText(const GeoPoint& p, int col);

// Checks and stores the text; false (and nothing stored) when the column
// has no field or the number cannot be held (a coordinate beyond a double).
bool WriteTrackField(TrackPoint& p, int col, std::string_view text);
bool WriteGeoField(GeoPoint& p, int col, std::string_view text);

}  // namespace ortelix
