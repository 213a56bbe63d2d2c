#include "appformats/ModOziExport.h"

#include "appformats/ModOziCERoute.h"
#include "appformats/ModOziNumbers.h"
#include "appformats/ModOziTrack.h"
#include "appformats/ModOziWaypoint.h"
#include "core/ModulShared.h"
#include "core/Session.h"

namespace ortelix {

void OziExportieren(Session& s, const std::string& file) {
    if (file.empty()) return;
    std::string name = file;
    if (SplitPath(name, 5).empty()) name += ".txt";
    for (size_t i = 1; i <= s.store.Routes.size(); ++i)
        OziCERouteSchreiben(s, OziNumberedFile(name, i, ".rt2"), static_cast<int>(i));
    for (size_t i = 1; i <= s.store.Tracks.size(); ++i)
        OziTrackSchreiben(s, OziNumberedFile(name, i, ".plt"), static_cast<int>(i));
    OziWegepunkteSchreiben(s, SplitPath(name, 4) + ".wpt");
    s.store.StatusText.set("Fertig");
}

}  // namespace ortelix
