#pragma once
// "Farbe Waypoints ändern": the two colours of the panel onto the marked
// waypoints.
#include "editor/BulkTarget.h"

namespace ortelix {

// Sets ForeColor and BackColor (0x00BBGGRR) of the marked waypoints. False
// with the message when no row is marked or the view shows no waypoints.
bool FarbeWaypoints(Session& s, ModuleEditor& ed, Marked m, int32_t fore, int32_t back);

}  // namespace ortelix
