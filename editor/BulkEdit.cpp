#include "editor/BulkEdit.h"

#include "platform/Platform.h"

namespace ortelix {

namespace {

template <typename List>
void EraseRange(List& list, ElementRange r) {
    const auto size = static_cast<int64_t>(list.size());
    if (r.first > r.last || r.first > size) return;
    const int64_t last = std::min(r.last, size);
    list.erase(list.begin() + (r.first - 1), list.begin() + last);
}

template <typename List>
void InsertEmpty(List& list, int64_t at) {  // at: 1-based
    const int64_t pos = std::clamp<int64_t>(at - 1, 0, static_cast<int64_t>(list.size()));
    list.insert(list.begin() + pos, typename List::value_type{});
}

// The editor's view of a list after it shrank: the same index where there is
// one, else the last.
int Kept(int index, size_t size) { return size == 0 ? 0 : std::min(index, static_cast<int>(size) - 1); }

}  // namespace

bool AllesLoeschen(Session& s, ModuleEditor& ed) {
    DataStore& st = s.store;
    switch (ed.view()) {
        case EditorView::Track: {
            if (!AskYes(s, "Soll dieser Track wirklich gelöscht werden?", "Editor Track")) return false;
            const int e = ed.element();
            if (ShownTrack(s, ed)) st.Tracks.erase(st.Tracks.begin() + e);
            st.TrackCount = static_cast<int32_t>(st.Tracks.size());
            ed.showTrack(Kept(e, st.Tracks.size()));
            return true;
        }
        case EditorView::Route: {
            if (!AskYes(s, "Soll diese Route wirklich gelöscht werden?", "Editor Route")) return false;
            const int e = ed.element();
            if (ShownRoute(s, ed)) st.Routes.erase(st.Routes.begin() + e);
            st.RouteCount = static_cast<int32_t>(st.Routes.size());
            ed.showRoute(Kept(e, st.Routes.size()));
            return true;
        }
        case EditorView::Waypoint:
            if (!AskYes(s, "Sollen wirklich alle Waypoints gelöscht werden?", "Editor Waypoint")) return false;
            st.WayPoints.clear();
            st.WayPointCount = 0;
            ed.showWayPoints();
            return true;
    }
    return false;
}

void ZeileLoeschen(Session& s, ModuleEditor& ed, Marked m) {
    const ElementRange r = MarkedElements(ed, m);
    switch (ed.view()) {
        case EditorView::Track:
            if (Track* t = ShownTrack(s, ed)) EraseRange(t->Points, r);
            break;
        case EditorView::Route:
            if (Route* rt = ShownRoute(s, ed)) EraseRange(rt->Points, r);
            break;
        case EditorView::Waypoint:
            EraseRange(s.store.WayPoints, r);
            s.store.WayPointCount = static_cast<int32_t>(s.store.WayPoints.size());
            break;
    }
    ed.refill();
}

void ZeileEinfuegen(Session& s, ModuleEditor& ed, int row) {
    DataStore& st = s.store;
    const int64_t at = ed.erster() + std::max(1, row);
    switch (ed.view()) {
        case EditorView::Track:
            if (!ShownTrack(s, ed)) {
                NewTrack(st);
                ed.showTrack(static_cast<int>(st.Tracks.size()) - 1);
            }
            InsertEmpty(ShownTrack(s, ed)->Points, at);
            break;
        case EditorView::Route:
            if (!ShownRoute(s, ed)) {
                NewRoute(st);
                ed.showRoute(static_cast<int>(st.Routes.size()) - 1);
            }
            InsertEmpty(ShownRoute(s, ed)->Points, at);
            break;
        case EditorView::Waypoint:
            InsertEmpty(st.WayPoints, at);
            st.WayPointCount = static_cast<int32_t>(st.WayPoints.size());
            break;
    }
    ed.refill();
}

void DatensaetzeErweitern(Session& s, ModuleEditor& ed) {
    switch (ed.view()) {
        case EditorView::Track:
            NewTrack(s.store);
            ed.showTrack(static_cast<int>(s.store.Tracks.size()) - 1);
            break;
        case EditorView::Route:
            NewRoute(s.store);
            ed.showRoute(static_cast<int>(s.store.Routes.size()) - 1);
            break;
        case EditorView::Waypoint: break;
    }
}

namespace {
// Moves the points from `row` (1-based) on to the end of `to`, in order.
template <typename Points>
void MoveTail(Points& from, Points& to, int64_t row) {
    to.reserve(to.size() + from.size() - static_cast<size_t>(row - 1));
    for (auto it = from.begin() + (row - 1); it != from.end(); ++it) to.push_back(std::move(*it));
    from.resize(static_cast<size_t>(row - 1));
}
}  // namespace

bool DatensaetzeTrennen(Session& s, ModuleEditor& ed, int row) {
    if (row < 1) return false;
    const int64_t at = ed.erster() + row;
    DataStore& st = s.store;
    struct Busy {
        Platform& p;
        ~Busy() { p.setBusy(false); }
    };
    if (Track* t = ShownTrack(s, ed)) {
        if (t->Points.empty() || at > static_cast<int64_t>(t->Points.size())) return false;
        const int old = ed.element();
        s.platform.setBusy(true);
        Busy busy{s.platform};
        NewTrack(st);  // the shown track has points, so this is never the track itself
        MoveTail(st.Tracks[static_cast<size_t>(old)].Points, st.Tracks.back().Points, at);
        ed.showTrack(static_cast<int>(st.Tracks.size()) - 1);
        return true;
    }
    if (Route* r = ShownRoute(s, ed)) {
        if (r->Points.empty() || at > static_cast<int64_t>(r->Points.size())) return false;
        const int old = ed.element();
        s.platform.setBusy(true);
        Busy busy{s.platform};
        NewRoute(st);
        MoveTail(st.Routes[static_cast<size_t>(old)].Points, st.Routes.back().Points, at);
        ed.showRoute(static_cast<int>(st.Routes.size()) - 1);
        return true;
    }
    return false;
}

}  // namespace ortelix
