#pragma once
// The time commands of the editor: hours added, times from a speed, the
// waypoints where the tracks were at a moment, and the new track times of
// "Neue Trackzeiten". Moments are whole seconds (date * 86400 + time), so
// that no floating day rounds a second away.
#include <cstdint>
#include <string>

#include "editor/BulkTarget.h"

namespace ortelix {

// "GPS-Zeit nach Ortszeit": whole hours onto every element with a time.
bool GpsZeitNachOrtszeit(Session& s, ModuleEditor& ed);
// "Zeiten neu berechnen": times from a start time today and an average speed.
bool ZeitenNeuBerechnen(Session& s, ModuleEditor& ed);
// "Waypoint bei Zeitpunkt": on every track, a waypoint "T<t>P<i>" at the
// point where the track was at the asked moment. Returns the waypoints added.
int WaypointBeiZeitpunkt(Session& s, ModuleEditor& ed);

// "16.02.2006 16:23:10" as whole seconds; false when it is no date and time.
bool ParseGermanMoment(std::string_view text, int64_t& seconds);

// What the form "Track anpassen" hands over.
struct TrackZeitWahl {
    bool bySpeed = true;   // else a fixed interval
    double speedKmh = 20;  // TxtSpeed; below 0.1 counts as 0.1
    double seconds = 1;    // TxtTime; below 1 counts as 1
    bool overwrite = false;  // Chk: speed and course replaced by the computed values
};
// "Neue Trackzeiten" on one track (0-based). False on a track of fewer than
// two points.
bool NeueTrackzeiten(Session& s, int track, const TrackZeitWahl& wahl);

}  // namespace ortelix
