#pragma once
// What every bulk command of the editor works on: the shown source (a track,
// a route or all waypoints) and the marked grid rows, and the walks over the
// elements of that source.
#include <algorithm>
#include <cstdint>
#include <string>

#include "core/Session.h"
#include "editor/ModuleEditor.h"

namespace ortelix {

// The grid's marked rows: Row (the current one) and RowSel (the other end).
struct Marked {
    int row = 0;
    int rowSel = 0;
};

// The marked range as 1-based element numbers: ascending, the lower end
// raised to 1, shifted by the window. first > last when nothing is marked.
struct ElementRange {
    int64_t first = 0, last = -1;
};
inline ElementRange MarkedElements(const ModuleEditor& ed, Marked m) {
    if (m.row < 1 && m.rowSel < 1) return {};
    const int lo = std::max(1, std::min(m.row, m.rowSel));
    const int hi = std::max(m.row, m.rowSel);
    return {ed.erster() + lo, ed.erster() + hi};
}

// "Editor Track", "Editor Route", "Editor Waypoint".
std::string EditorTitle(EditorView view);

// The name of point i of track t (both from 0) as the transfers give it: "T1P1".
std::string TrackPointName(size_t t, size_t i);

// The shown track or route, nullptr when the view shows another kind or the
// element does not exist.
Track* ShownTrack(Session& s, const ModuleEditor& ed);
Route* ShownRoute(Session& s, const ModuleEditor& ed);

// Calls f for every element of the shown source (track points, route points
// or waypoints), giving the event loop time as it goes.
template <typename F>
void ForEachShown(Session& s, const ModuleEditor& ed, F&& f) {
    auto walk = [&](auto& points) {
        for (auto& p : points) {
            f(p);
            s.progress();
        }
    };
    switch (ed.view()) {
        case EditorView::Track:
            if (Track* t = ShownTrack(s, ed)) walk(t->Points);
            break;
        case EditorView::Route:
            if (Route* r = ShownRoute(s, ed)) walk(r->Points);
            break;
        case EditorView::Waypoint: walk(s.store.WayPoints); break;
    }
}

// Asks yes or no; true on yes.
bool AskYes(Session& s, const std::string& text, const std::string& title);
// A number typed into an input box with a point or a comma; empty when the
// box was cancelled or left empty. A text that is no number reads 0.
OptDouble AskNumber(Session& s, const std::string& prompt, const std::string& title, const std::string& proposal);

}  // namespace ortelix
