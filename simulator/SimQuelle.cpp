#include "simulator/SimQuelle.h"

#include "core/ModulArray.h"
#include "core/Options.h"

namespace ortelix {

SimQuelle GewaehlteQuelle(const Options& o) {
    for (int i = 3; i >= 0; --i)
        if (o.OptionNMEA[static_cast<size_t>(i)] == 1) return static_cast<SimQuelle>(i);
    return SimQuelle::Track;
}

void WaehleQuelle(Options& o, SimQuelle q) {
    for (size_t i = 0; i < o.OptionNMEA.size(); ++i) o.OptionNMEA[i] = static_cast<int>(i) == static_cast<int>(q);
}

namespace {
const Track* ChosenTrack(const DataStore& s, int i) {
    return i >= 0 && static_cast<size_t>(i) < s.Tracks.size() ? &s.Tracks[static_cast<size_t>(i)] : nullptr;
}
const Route* ChosenRoute(const DataStore& s, int i) {
    return i >= 0 && static_cast<size_t>(i) < s.Routes.size() ? &s.Routes[static_cast<size_t>(i)] : nullptr;
}
SimElement FromGeoPoint(const GeoPoint& p) {
    SimElement e;
    e.lon = p.Lon;
    e.lat = p.Lat;
    e.alt = p.Alt;
    e.course = p.Course;
    e.date = p.Date_;
    e.time = p.Time_;
    e.name = p.Name;
    e.desc = p.Desc;
    return e;
}
}  // namespace

int ElementAnzahl(const DataStore& s, const SimAuswahl& a) {
    switch (a.quelle) {
        case SimQuelle::Track: {
            const Track* t = ChosenTrack(s, a.track);
            return t ? static_cast<int>(t->Points.size()) : 0;
        }
        case SimQuelle::Route: {
            const Route* r = ChosenRoute(s, a.route);
            return r ? static_cast<int>(r->Points.size()) : 0;
        }
        case SimQuelle::Waypoint: return static_cast<int>(s.WayPoints.size());
        case SimQuelle::Direkt: return 0;
    }
    return 0;
}

SimElement ElementAt(const DataStore& s, const SimAuswahl& a, int index) {
    const size_t i = static_cast<size_t>(index - 1);
    switch (a.quelle) {
        case SimQuelle::Track: {
            const TrackPoint& p = ChosenTrack(s, a.track)->Points[i];
            SimElement e;
            e.lon = p.Lon;
            e.lat = p.Lat;
            e.speed = p.Speed;
            e.alt = p.Alt;
            e.course = p.Course;
            e.date = p.Date_;
            e.time = p.Time_;
            return e;
        }
        case SimQuelle::Route: return FromGeoPoint(ChosenRoute(s, a.route)->Points[i]);
        case SimQuelle::Waypoint: return FromGeoPoint(s.WayPoints[i]);
        case SimQuelle::Direkt: break;
    }
    return {};
}

}  // namespace ortelix
