#include "appformats/ModOziRoute.h"

#include <chrono>
#include <ctime>
#include <vector>

#include "appformats/ModOziNumbers.h"
#include "appformats/ModOziWaypoint.h"
#include "core/Failure.h"
#include "core/FileIO.h"
#include "core/ModulMain.h"
#include "core/ModulShared.h"
#include "core/Session.h"
#include "platform/Platform.h"

namespace ortelix {

namespace {

void RouteLine(std::string& out, size_t n, std::string_view today) {
    out += "R,";
    AppendInt(out, static_cast<long long>(n));
    out += ",R";
    AppendInt(out, static_cast<long long>(n));
    out += ',';
    out += today;
    out += ",255\r\n";
}

void PointLine(std::string& out, size_t n, long long number, const GeoPoint& p) {
    out += "W,";
    AppendInt(out, static_cast<long long>(n));
    out += ',';
    AppendInt(out, static_cast<long long>(n));
    out += ',';
    AppendInt(out, number);
    out += ',';
    AppendNamePosition(out, p);
    out += ",0,1,2,0,65535,";
    AppendNameOzi(out, p.Desc);
    out += ",0,0\r\n";
}

}  // namespace

std::string HeuteText() {
    const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    std::tm local{};
    localtime_r(&now, &local);
    std::string out;
    AppendDateText(out, SerialFromCivil(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday));
    return out;
}

std::string OziRouteText(const DataStore& store, std::string_view today) {
    std::string out;
    out += "OziExplorer Route File Version 1.0\r\n"
           "WGS 84\r\n"
           "Reserved 1\r\n"
           "Reserved 2\r\n"
           // Route 0 stands there for OziExplorer's sake; it holds no point.
           "R,  0,R0              ,,255\r\n";
    long long number = 0;  // runs over the whole file, not per route
    size_t n = 0;
    for (const Route& r : store.Routes) {
        RouteLine(out, ++n, today);
        for (const GeoPoint& p : r.Points) PointLine(out, n, ++number, p);
    }
    return out;
}

void OziRouteSchreiben(Session& s, const std::string& file) {
    if (file.empty()) return;
    if (s.store.Routes.empty()) {
        ReportNothingToWrite(s);
        return;
    }
    // The save dialog asked about the route file; the companion is a second file.
    const std::string companionFile = file + ".wpt";
    if (!ConfirmOverwriteFiles(s, {companionFile})) return;
    s.platform.setBusy(true);
    {
        SafeWriter w(file);
        w.write(OziRouteText(s.store, HeuteText()));
        w.commit();
    }
    std::vector<const GeoPoint*> points;
    for (const Route& r : s.store.Routes)
        for (const GeoPoint& p : r.Points) points.push_back(&p);
    SafeWriter companion(companionFile);
    companion.write(OziWegepunkteText(points, true));
    companion.commit();
    s.platform.setBusy(false);
    ReportFilesWritten(s, {file, companionFile});
}

void OziRouteLesenText(Session& s, std::string_view bytes, std::string_view name) {
    OziLines lines(bytes);
    lines.skip(4);
    std::string_view line;
    bool started = false;
    int64_t count = 0;
    while (!s.UserAbort && lines.next(line)) {
        const char first = UpperFirst(line);
        const OziFields<16> f(line);
        if (!started) {
            // The placeholder route 0 and anything before the first real point is passed over.
            if (first != 'W' || ParseCoordinate(f[6]) == 0) continue;
            started = true;
            NewRoute(s.store, name);
        } else if (first == 'R') {
            NewRoute(s.store, name);
            continue;
        } else if (first != 'W') {
            continue;
        }
        GeoPointIn p;
        // A W line without a position is no route point (not one at 0/0).
        if (!ParseOziPosition(f[6], f[7], p.lat, p.lon)) {
            s.progress();
            continue;
        }
        p.name = OziFieldText(f[5]);
        p.desc = OziFieldText(f[14]);
        const OziMoment m = ParseTageswert(f[8]);
        p.date = m.date;
        p.time = m.time;
        AddRoutePoint(s.store, p);
        s.store.StatusText.set("Lese Datensätze: ", ++count);
        s.progress();
    }
}

void OziRouteLesen(Session& s, const std::string& file) {
    if (file.empty()) return;
    s.platform.setBusy(true);
    const std::string bytes = ReadWholeFile(s, file);
    OziRouteLesenText(s, bytes, SplitPath(file, 1));
    s.platform.setBusy(false);
    s.store.StatusText.set("Fertig");
}

}  // namespace ortelix
