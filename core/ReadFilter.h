#pragma once
// The decisions between a reader and the store: which track points and
// waypoints arrive, and what the track statistics record for them.
#include "core/Session.h"

namespace ortelix {

// The entry of every track reader.
void AddTrackPoint(Session& s, const TrackPointIn& p);
// The part of AddTrackPoint behind the reduction.
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
