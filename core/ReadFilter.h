#pragma once
// The decisions between a reader and the store: which track points and
// waypoints arrive, and what the track statistics record for them.
//
// The track and waypoint filters measure distances, so their bodies live in
// coordinates/ (TrackFilter.cpp, WayPointFilter.cpp) above the distance
// routine; the date choice lives in core/DateChoice.cpp. Every reader
// includes this one header.
#include "core/Session.h"

namespace ortelix {

// The entry of every track reader: region, reduction and time window, then
// AppendTrackPoint.
void AddTrackPoint(Session& s, const TrackPointIn& p);
// The part of AddTrackPoint behind the reduction: date choice, gap and size
// splits, the point, its statistics and the pause waypoints.
void AppendTrackPoint(Session& s, const TrackPointIn& p);
// Appends a waypoint if the waypoint filter wants it.
void AddWayPoint(Session& s, GeoPointIn p);
bool WayPointWanted(Session& s, double lon, double lat);

// The date choice of readers that read a file twice.
void NoteDate(Session& s, Date date);
bool DateChosen(const Session& s, Date date);
void AskDates(Session& s);
void ClearDates(Session& s);

}  // namespace ortelix
