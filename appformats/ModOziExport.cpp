#include "appformats/ModOziExport.h"

#include <vector>

#include "appformats/ModOziCERoute.h"
#include "appformats/ModOziNumbers.h"
#include "appformats/ModOziTrack.h"
#include "appformats/ModOziWaypoint.h"
#include "core/Failure.h"
#include "core/ModulMain.h"
#include "core/ModulShared.h"
#include "core/Session.h"

namespace ortelix {

std::vector<std::string> OziExportFiles(const DataStore& st, const std::string& file) {
    std::string name = file;
    if (SplitPath(name, 5).empty()) name += ".txt";
    std::vector<std::string> files;
    for (size_t i = 1; i <= st.Routes.size(); ++i) files.push_back(OziNumberedFile(name, i, ".rt2"));
    for (size_t i = 1; i <= st.Tracks.size(); ++i) files.push_back(OziNumberedFile(name, i, ".plt"));
    files.push_back(SplitPath(name, 4) + ".wpt");
    return files;
}

void OziExportieren(Session& s, const std::string& file) {
    if (file.empty()) return;
    const DataStore& st = s.store;
    if (st.Routes.empty() && st.Tracks.empty() && st.WayPoints.empty()) {
        ReportNothingToWrite(s);
        return;
    }
    // Every name first, so that one question covers every file that exists.
    const std::vector<std::string> files = OziExportFiles(st, file);
    if (!ConfirmOverwriteFiles(s, files)) return;
    size_t next = 0;
    for (size_t i = 1; i <= st.Routes.size(); ++i) OziCERouteSchreiben(s, files[next++], static_cast<int>(i));
    for (size_t i = 1; i <= st.Tracks.size(); ++i) OziTrackSchreiben(s, files[next++], static_cast<int>(i));
    OziWegepunkteSchreiben(s, files[next]);
    ReportFilesWritten(s, files);
}

}  // namespace ortelix
