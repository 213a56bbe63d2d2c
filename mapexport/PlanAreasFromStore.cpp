// Areas from what the store holds: their outline is the points themselves,
// so the plan's frame and its inside test follow the track or route.
#include <algorithm>

#include "core/Session.h"
#include "mapexport/ModKarteFlaeche.h"

namespace ortelix {

namespace {

template <typename Points>
void FlaecheAus(Session& s, const std::string& name, const Points& points) {
    if (points.empty()) return;
    Flaeche& f = NewFlaeche(s.store);
    f.Name = name;
    f.West = f.East = points.front().Lon;
    f.North = f.South = points.front().Lat;
    f.Polygon.reserve(points.size());
    for (const auto& p : points) {
        f.Polygon.push_back({p.Lon, p.Lat});
        f.West = std::min(f.West, p.Lon);
        f.East = std::max(f.East, p.Lon);
        f.South = std::min(f.South, p.Lat);
        f.North = std::max(f.North, p.Lat);
    }
}

}  // namespace

void FlaechenAusTracks(Session& s, const std::string&) {
    for (const Track& t : s.store.Tracks) FlaecheAus(s, t.Name, t.Points);
}

void FlaechenAusRouten(Session& s, const std::string&) {
    for (const Route& r : s.store.Routes) FlaecheAus(s, r.Name, r.Points);
}

void FlaechenAusWegepunkten(Session& s, const std::string&) {
    FlaecheAus(s, s.store.WayPointListName, s.store.WayPoints);
}

}  // namespace ortelix
