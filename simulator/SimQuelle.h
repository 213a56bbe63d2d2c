#pragma once
// Where the simulated position comes from: a track, a route, the waypoints
// (each walked point by point) or the boxes alone ("Direkt").
#include <string>

#include "core/DateTime.h"
#include "core/Optional.h"

namespace ortelix {

struct Options;
struct DataStore;

enum class SimQuelle { Track = 0, Route = 1, Waypoint = 2, Direkt = 3 };

// The chosen source from the option buttons "Track", "Route", "Waypoint",
// "Direkt". The buttons are one group: set in order, the last one set wins
// (the reset sets "Waypoint" and then "Direkt").
SimQuelle GewaehlteQuelle(const Options& o);
// Chooses one source and clears the others.
void WaehleQuelle(Options& o, SimQuelle q);

// One point of a source, with what a box or a label may take from it.
struct SimElement {
    double lon = 0, lat = 0;
    OptDouble speed;  // tracks only
    OptInt alt;
    OptShort course;
    Date date;
    Time time;
    std::string name, desc;  // routes and waypoints
};

// The source as the simulator walks it: which track and which route of the
// store (0-based, as the form's lists count).
struct SimAuswahl {
    SimQuelle quelle = SimQuelle::Track;
    int track = 0, route = 0;
};

// The number of points of the chosen source (0 for "Direkt", or when the
// chosen track or route does not exist).
int ElementAnzahl(const DataStore& store, const SimAuswahl& a);
// Point `index`, counted from 1; index must lie within 1..ElementAnzahl.
SimElement ElementAt(const DataStore& store, const SimAuswahl& a, int index);

}  // namespace ortelix
