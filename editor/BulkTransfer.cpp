#include "editor/BulkTransfer.h"

#include "core/ModulShared.h"
#include "editor/BulkTarget.h"
#include "editor/CellFormats.h"

namespace ortelix {

namespace {

std::string CellClean(const ModuleEditor& ed, int row, int col) { return StripQuotes(Trim(ed.cellText(row, col))); }

GeoPoint FromTrackPoint(const TrackPoint& p) {
    GeoPoint w;
    w.Lon = p.Lon;
    w.Lat = p.Lat;
    w.Alt = p.Alt;
    w.Course = p.Course;
    w.Date_ = p.Date_;
    w.Time_ = p.Time_;
    return w;
}

void CountWayPoints(DataStore& st) { st.WayPointCount = static_cast<int32_t>(st.WayPoints.size()); }

}  // namespace

bool TrackpointZuWaypoint(Session& s, ModuleEditor& ed, int row) {
    const Track* t = ShownTrack(s, ed);
    const int64_t index = ed.erster() + row - 1;
    if (!t || row < 1 || row > ed.rowCount() || index >= static_cast<int64_t>(t->Points.size())) return false;
    GeoPoint w = FromTrackPoint(t->Points[static_cast<size_t>(index)]);
    w.Lon = LeadingNumber(CellClean(ed, row, 1));
    w.Lat = LeadingNumber(CellClean(ed, row, 2));
    w.Name = t->Name + "  " + FormatPoint(LeadingNumber(CellClean(ed, row, 10)), "0.0") + " km";
    w.Desc = CellClean(ed, row, 11) + " (Dauer) ";
    if (const std::string pause = CellClean(ed, row, 12); !pause.empty()) w.Desc += pause + " (Pause)";
    w.ForeColor = kTransferFore;
    w.BackColor = kTransferBack;
    s.store.WayPoints.push_back(std::move(w));  // unfiltered: the user chose this point
    CountWayPoints(s.store);
    return true;
}

bool RoutepointZuWaypoint(Session& s, ModuleEditor& ed, int row) {
    const Route* r = ShownRoute(s, ed);
    const int64_t index = ed.erster() + row - 1;
    if (!r || row < 1 || row > ed.rowCount() || index >= static_cast<int64_t>(r->Points.size())) return false;
    s.store.WayPoints.push_back(r->Points[static_cast<size_t>(index)]);
    CountWayPoints(s.store);
    return true;
}

bool TrackZuRoute(Session& s, ModuleEditor& ed) {
    const Track* shown = ShownTrack(s, ed);
    if (!shown || shown->Points.empty()) return false;
    const size_t t = static_cast<size_t>(ed.element());
    NewRoute(s.store);
    const Track& track = s.store.Tracks[t];
    Route& r = s.store.Routes.back();
    const size_t first = GrowRoutePoints(r, track.Points.size());
    for (size_t i = 0; i < track.Points.size(); ++i) {
        GeoPoint& p = r.Points[first + i];
        p = FromTrackPoint(track.Points[i]);
        p.Name = TrackPointName(t, i);
        s.progress();
    }
    return true;
}

bool TrackZuWaypoint(Session& s, ModuleEditor& ed) {
    const Track* track = ShownTrack(s, ed);
    if (!track) return false;
    const size_t t = static_cast<size_t>(ed.element());
    const size_t first = GrowWayPoints(s.store, track->Points.size());
    for (size_t i = 0; i < track->Points.size(); ++i) {
        GeoPoint& w = s.store.WayPoints[first + i];
        w = FromTrackPoint(track->Points[i]);
        w.Name = TrackPointName(t, i);
        w.ForeColor = kTransferFore;
        w.BackColor = kTransferBack;
        s.progress();
    }
    CountWayPoints(s.store);
    return true;
}

bool RouteZuTrack(Session& s, ModuleEditor& ed) {
    if (!ShownRoute(s, ed)) return false;
    const size_t ri = static_cast<size_t>(ed.element());
    NewTrack(s.store);
    const Route& r = s.store.Routes[ri];
    Track& t = s.store.Tracks.back();
    const size_t first = GrowTrackPoints(t, r.Points.size());
    for (size_t i = 0; i < r.Points.size(); ++i) {
        const GeoPoint& g = r.Points[i];
        TrackPoint& p = t.Points[first + i];
        p.Lon = g.Lon;
        p.Lat = g.Lat;
        p.Alt = g.Alt;
        p.Course = g.Course;
        p.Date_ = g.Date_;
        p.Time_ = g.Time_;
        s.progress();
    }
    WalkTrack(t);
    return true;
}

bool RouteZuWaypoint(Session& s, ModuleEditor& ed) {
    const Route* r = ShownRoute(s, ed);
    if (!r) return false;
    const size_t first = GrowWayPoints(s.store, r->Points.size());
    for (size_t i = 0; i < r->Points.size(); ++i) {
        GeoPoint& w = s.store.WayPoints[first + i];
        w = r->Points[i];
        w.ForeColor = kTransferFore;
        w.BackColor = kTransferBack;
        s.progress();
    }
    CountWayPoints(s.store);
    return true;
}

bool WaypointZuRoute(Session& s, ModuleEditor&) {
    NewRoute(s.store);
    Route& r = s.store.Routes.back();
    const size_t first = GrowRoutePoints(r, s.store.WayPoints.size());
    for (size_t i = 0; i < s.store.WayPoints.size(); ++i) {
        GeoPoint& p = r.Points[first + i];
        p = s.store.WayPoints[i];
        p.ForeColor.reset();
        p.BackColor.reset();
        s.progress();
    }
    return true;
}

}  // namespace ortelix
