#include "editor/BulkMove.h"

#include "coordinates/Entfernung.h"
#include "platform/Platform.h"

namespace ortelix {

namespace {
template <typename List>
void Shift(Session& s, List& points, ElementRange r, double metres, double degrees) {
    const int64_t last = std::min<int64_t>(r.last, static_cast<int64_t>(points.size()));
    for (int64_t i = r.first; i <= last; ++i) {
        auto& p = points[static_cast<size_t>(i - 1)];
        double lon = 0, lat = 0;
        PunktVersetzen(p.Lon, p.Lat, lon, lat, degrees, metres);
        p.Lon = lon;
        p.Lat = lat;
        s.progress();
    }
}
}  // namespace

bool Verschieben(Session& s, ModuleEditor& ed, Marked m) {
    const ElementRange r = MarkedElements(ed, m);
    if (r.first > r.last || ed.rowCount() == 0) {
        s.platform.messageBox("Sie müssen eine oder mehrere Zeilen auswählen!", "Koordinaten verschieben", Buttons::Ok,
                              Icon::Warning);
        return false;
    }
    const char* kind = ed.view() == EditorView::Track   ? "Verschiebe markierte Trackpunkte ("
                       : ed.view() == EditorView::Route ? "Verschiebe markierte Routenpunkte ("
                                                        : "Verschiebe markierte Waypoints (";
    const std::string title = kind + std::to_string(r.first) + "-" + std::to_string(r.last) + ")";
    const OptDouble metres = AskNumber(s, "Geben Sie die Entfernung in Meter ein", title, "");
    if (!metres) return false;
    const OptDouble degrees = AskNumber(s, "Geben Sie den Winkel in Grad ein", title, "");
    if (!degrees) return false;
    if (Track* t = ShownTrack(s, ed)) Shift(s, t->Points, r, *metres, *degrees);
    else if (Route* rt = ShownRoute(s, ed)) Shift(s, rt->Points, r, *metres, *degrees);
    else if (ed.view() == EditorView::Waypoint) Shift(s, s.store.WayPoints, r, *metres, *degrees);
    ed.refill();
    return true;
}

}  // namespace ortelix
