#include "appformats/ModOziCERoute.h"

#include <vector>

#include "appformats/ModOziNumbers.h"
#include "core/Failure.h"
#include "core/FileIO.h"
#include "core/ModulMain.h"
#include "core/ModulShared.h"
#include "core/Session.h"
#include "platform/Platform.h"

namespace ortelix {

std::string OziCERouteText(const Route& r, std::string_view name) {
    std::string out;
    out.reserve(128 + r.Points.size() * 48);
    out += "H1,OziExplorer CE Route2 File Version 1.0\r\n"
           "H2,WGS 84\r\n"
           "H3,";
    AppendCp1252(out, name);
    out += ",,0\r\n";
    for (const GeoPoint& p : r.Points) {
        out += "W,";
        AppendCp1252(out, StripQuotes(p.Name));
        out += ',';
        AppendKoordinate(out, p.Lat);
        out += "  ,";
        AppendKoordinate(out, p.Lon);
        // The flag marks a silent point: OziExplorer CE gives no alarm there.
        out += p.Cmt.empty() ? "  ,0\r\n" : "  ,1\r\n";
    }
    return out;
}

void OziCERouteSchreiben(Session& s, const std::string& file, int routeIndex) {
    if (file.empty() || routeIndex < 1 || static_cast<size_t>(routeIndex) > s.store.Routes.size()) return;
    s.platform.setBusy(true);
    SafeWriter w(file);
    w.write(OziCERouteText(s.store.Routes[static_cast<size_t>(routeIndex) - 1], SplitPath(file, 1)));
    w.commit();
    s.platform.setBusy(false);
    s.store.StatusText.set("Fertig");
}

void OziCERouteDateienSchreiben(Session& s, const std::string& file) {
    if (file.empty()) return;
    const size_t n = s.store.Routes.size();
    if (n == 0) {
        ReportNothingToWrite(s);
        return;
    }
    if (n == 1) {
        OziCERouteSchreiben(s, file, 1);
        return;
    }
    std::vector<std::string> files;
    for (size_t i = 1; i <= n; ++i) files.push_back(OziNumberedFile(file, i, ".rt2"));
    if (!ConfirmOverwriteFiles(s, files)) return;
    for (size_t i = 1; i <= n; ++i) OziCERouteSchreiben(s, files[i - 1], static_cast<int>(i));
    ReportFilesWritten(s, files);
}

void OziCERouteLesenText(Session& s, std::string_view bytes, std::string_view name) {
    OziLines lines(bytes);
    std::string_view line;
    bool started = false;
    int64_t count = 0;
    while (!s.UserAbort && lines.next(line)) {
        if (UpperFirst(line) != 'W') continue;
        const OziFields<5> f(line);
        GeoPointIn p;
        // A W line without a position is no route point (not one at 0/0),
        // and a file of nothing else opens no route.
        if (!ParseOziPosition(f[3], f[4], p.lat, p.lon)) {
            s.progress();
            continue;
        }
        if (!started) {
            NewRoute(s.store, name);
            started = true;
        }
        p.name = OziFieldText(f[2]);
        if (LeadingNumber(f[5]) != 0) p.cmt = "Silent";
        AddRoutePoint(s.store, p);
        s.store.StatusText.set("Lese Datensätze: ", ++count);
        s.progress();
    }
}

void OziCERouteLesen(Session& s, const std::string& file) {
    if (file.empty()) return;
    s.platform.setBusy(true);
    const std::string bytes = ReadWholeFile(s, file);
    OziCERouteLesenText(s, bytes, SplitPath(file, 1));
    s.platform.setBusy(false);
    s.store.StatusText.set("Fertig");
}

}  // namespace ortelix
