#include "appformats/ModOziWaypoint.h"

#include "appformats/ModOziNumbers.h"
#include "core/Failure.h"
#include "core/FileIO.h"
#include "core/ModulShared.h"
#include "core/ReadFilter.h"
#include "core/Session.h"
#include "platform/Platform.h"

namespace ortelix {

namespace {

void ColourField(std::string& out, OptInt colour) {
    if (colour.has()) AppendInt(out, *colour);
}

// Sixteen fields; the two that OziExplorer keeps after them (font style "0",
// symbol size "17") are left out on purpose, so the line ends with the comma
// before the empty field 16.
void WayPointLine(std::string& out, long long number, const GeoPoint& p, bool fixedColours) {
    AppendInt(out, number);
    out += ',';
    AppendNamePosition(out, p);
    out += ",0,1,2,";
    if (fixedColours) {
        out += "0,65535";
    } else {
        ColourField(out, p.ForeColor);
        out += ',';
        ColourField(out, p.BackColor);
    }
    out += ',';
    AppendNameOzi(out, p.Desc);
    out += ",0,0,0,";
    AppendHoeheFuss(out, p.Alt);
    out += ",\r\n";
}

}  // namespace

std::string OziWegepunkteText(const std::vector<const GeoPoint*>& points, bool fixedColours) {
    std::string out;
    out.reserve(128 + points.size() * 96);
    out += "OziExplorer Waypoint File Version 1.1\r\n"
           "WGS 84\r\n"
           "Reserved 2\r\n"
           "garmin\r\n";
    long long number = 0;
    for (const GeoPoint* p : points) WayPointLine(out, ++number, *p, fixedColours);
    return out;
}

void OziWegepunkteDateiSchreiben(Session& s, const std::string& file) {
    if (file.empty()) return;
    if (s.store.WayPoints.empty()) return ReportNothingToWrite(s);
    OziWegepunkteSchreiben(s, file);
}

void OziWegepunkteSchreiben(Session& s, const std::string& file) {
    if (file.empty()) return;
    s.platform.setBusy(true);
    std::vector<const GeoPoint*> points;
    points.reserve(s.store.WayPoints.size());
    for (const GeoPoint& p : s.store.WayPoints) points.push_back(&p);
    SafeWriter w(file);
    w.write(OziWegepunkteText(points, false));
    w.commit();
    s.platform.setBusy(false);
    s.store.StatusText.set("Fertig");
}

void OziWegepunkteLesenText(Session& s, std::string_view bytes) {
    OziLines lines(bytes);
    lines.skip(4);
    std::string_view line;
    int64_t count = 0;
    while (!s.UserAbort && lines.next(line)) {
        if (IsBlankLine(line) || line[0] == ';' || line[0] == ',') continue;
        const OziFields<16> f(line);
        GeoPointIn p;
        if (!ParseOziPosition(f[3], f[4], p.lat, p.lon)) {
            s.progress();  // a file of nothing but such lines can still be stopped
            continue;
        }
        p.name = OziFieldText(f[2]);
        p.desc = OziFieldText(f[11]);
        p.alt = ParseHoeheFuss(f[15]);
        const OziMoment m = ParseTageswert(f[5]);
        p.date = m.date;
        p.time = m.time;
        p.foreColor = ParseOziInt(f[9]);
        p.backColor = ParseOziInt(f[10]);
        AddWayPoint(s, std::move(p));
        s.store.StatusText.set("Lese Datensätze: ", ++count);
        s.progress();
    }
}

void OziWegepunkteLesen(Session& s, const std::string& file) {
    if (file.empty()) return;
    s.platform.setBusy(true);
    const std::string bytes = ReadWholeFile(s, file);
    OziWegepunkteLesenText(s, bytes);
    s.platform.setBusy(false);
    s.store.StatusText.set("Fertig");
}

}  // namespace ortelix
