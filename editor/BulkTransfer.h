#pragma once
// The menu "Übertragen": points and whole elements carried between the
// track, route and waypoint lists. Waypoints made from a track or route
// show white on blue.
#include "editor/BulkTarget.h"

namespace ortelix {

constexpr int32_t kTransferFore = 16777215;  // white
constexpr int32_t kTransferBack = 16711680;  // blue, as 0x00BBGGRR

// "Trackpoint zu Waypoint": the grid row of the track view. False when the
// row is outside the grid.
bool TrackpointZuWaypoint(Session& s, ModuleEditor& ed, int row);
// "Routepoint zu Waypoint": the route point of the grid row, copied.
bool RoutepointZuWaypoint(Session& s, ModuleEditor& ed, int row);
// "Track zu Route", "Track zu Waypoint", "Route zu Track", "Route zu
// Waypoint" on the shown element; "Waypoint zu Route" on all waypoints.
bool TrackZuRoute(Session& s, ModuleEditor& ed);
bool TrackZuWaypoint(Session& s, ModuleEditor& ed);
bool RouteZuTrack(Session& s, ModuleEditor& ed);
bool RouteZuWaypoint(Session& s, ModuleEditor& ed);
bool WaypointZuRoute(Session& s, ModuleEditor& ed);

}  // namespace ortelix
