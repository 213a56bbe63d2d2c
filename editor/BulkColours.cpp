#include "editor/BulkColours.h"

#include "platform/Platform.h"

namespace ortelix {

bool FarbeWaypoints(Session& s, ModuleEditor& ed, Marked m, int32_t fore, int32_t back) {
    const ElementRange r = MarkedElements(ed, m);
    if (ed.view() != EditorView::Waypoint || r.first > r.last || ed.rowCount() == 0) {
        s.platform.messageBox("Sie müssen eine oder mehrere Zeilen auswählen!", "Editor", Buttons::Ok, Icon::Warning);
        return false;
    }
    auto& wps = s.store.WayPoints;
    const int64_t last = std::min<int64_t>(r.last, static_cast<int64_t>(wps.size()));
    for (int64_t i = r.first; i <= last; ++i) {
        wps[static_cast<size_t>(i - 1)].ForeColor = fore;
        wps[static_cast<size_t>(i - 1)].BackColor = back;
    }
    ed.refill();
    return true;
}

}  // namespace ortelix
