#include <string>

#include "core/Charset.h"
#include "core/FileIO.h"
#include "core/ModulShared.h"
#include "core/ReadFilter.h"
#include "core/Session.h"
#include "gpsformats/ElementScan.h"
#include "gpsformats/GPX.h"

namespace ortelix {

namespace {

// Both texts of the file: the original for values, the lower-cased for the scan.
struct Doc {
    std::string_view text;
    std::string_view lower;

    Element find(std::string_view tag, size_t from, size_t to) const { return GetElement(lower, tag, from, to); }
    // The text of the first child element `tag` inside `e`, CDATA stripped.
    std::string_view child(const Element& e, std::string_view tag) const {
        const Element c = find(tag, e.begin, e.end);
        return Trim(StripCdata(InnerText(text, c)));
    }
    std::string childText(const Element& e, std::string_view tag) const { return DecodeEntities(child(e, tag)); }
};

// lat and lon of a point's start tag; false when one of them is missing or empty.
bool Position(const Doc& d, const Element& e, double& lon, double& lat) {
    const std::string_view tag = StartTag(d.text, e);
    const std::string_view lowerTag = d.lower.substr(e.begin, tag.size());
    bool hasLat = false, hasLon = false;
    const std::string_view latText = AttributeValue(lowerTag, tag, "lat", hasLat);
    const std::string_view lonText = AttributeValue(lowerTag, tag, "lon", hasLon);
    if (!hasLat || !hasLon || Trim(latText).empty() || Trim(lonText).empty()) return false;
    lat = LeadingNumber(latText);
    lon = LeadingNumber(lonText);
    return true;
}

// The XML declaration's encoding, if the file has one.
Charset DeclaredCharset(std::string_view bytes) {
    const std::string_view head = bytes.substr(0, std::min<size_t>(bytes.size(), 200));
    if (head.substr(0, 5) != "<?xml" && head.substr(0, 8) != "\xEF\xBB\xBF<?xml") return Charset::Utf8;
    const size_t end = head.find("?>");
    const std::string lower = LowerAscii(head.substr(0, end));
    bool found = false;
    const std::string_view name = AttributeValue(lower, head, "encoding", found);
    return found ? CharsetFromName(name) : Charset::Utf8;
}

OptDouble SpeedFromMetresPerSecond(std::string_view text) {
    const OptDouble ms = ParseSpeed(text);  // whole metres per second, by design
    if (ms.empty()) return {};
    return *ms * 3600.0 / 1000.0;
}

void ReadGpxTrackElement(Session& s, const Doc& d, const Element& trk, int mode) {
    const std::string name = d.childText(trk, "name");
    size_t segPos = trk.begin;
    while (!s.UserAbort) {
        const Element seg = d.find("trkseg", segPos, trk.end);
        if (!seg.found) break;
        segPos = seg.next;
        if (InnerText(d.text, seg).empty()) continue;
        if (mode == 2 && (s.store.Tracks.empty() || s.options.Check[12] == 0)) NewTrack(s.store, name);
        size_t ptPos = seg.begin;
        while (!s.UserAbort) {
            const Element pt = d.find("trkpt", ptPos, seg.end);
            if (!pt.found) break;
            ptPos = pt.next;
            s.progress();
            const std::string_view timeText = d.child(pt, "time");
            const Date date = ParseDate(timeText);
            if (mode == 1) {
                NoteDate(s, date);
                continue;
            }
            TrackPointIn p;
            if (!Position(d, pt, p.lon, p.lat)) continue;
            p.speed = SpeedFromMetresPerSecond(d.child(pt, "speed"));
            p.alt = ParseAltitude(d.child(pt, "ele"));
            p.course = ParseCourse(d.child(pt, "course"));
            p.date = date;
            p.time = date.empty() ? Time() : ParseTime(timeText);
            p.sat = d.child(pt, "sat");
            p.fix = d.child(pt, "fix");
            AddTrackPoint(s, p);
        }
    }
}

void ReadShortTrackElement(Session& s, const Doc& d, const Element& trk, int mode) {
    if (mode == 2 && (s.store.Tracks.empty() || s.options.Check[12] == 0)) NewTrack(s.store, d.childText(trk, "name"));
    size_t ptPos = trk.begin;
    while (!s.UserAbort) {
        const Element pt = d.find("trp", ptPos, trk.end);
        if (!pt.found) break;
        ptPos = pt.next;
        s.progress();
        const Date date = ParseDate(d.child(pt, "date"));
        if (mode == 1) {
            NoteDate(s, date);
            continue;
        }
        TrackPointIn p;
        p.lon = ParseCoordinate(d.child(pt, "lon"));
        p.lat = ParseCoordinate(d.child(pt, "lat"));
        p.speed = ParseSpeed(d.child(pt, "speed"));
        p.alt = ParseAltitude(d.child(pt, "alt"));
        p.course = ParseCourse(d.child(pt, "course"));
        p.date = date;
        p.time = ParseTime(d.child(pt, "time"));
        p.sat = d.child(pt, "sat");
        p.fix = d.child(pt, "fix");
        AddTrackPoint(s, p);
    }
}

// A route point or waypoint of the GPX vocabulary; false when it has no position.
bool GpxGeoPoint(const Doc& d, const Element& pt, bool normaliseTime, GeoPointIn& g) {
    if (!Position(d, pt, g.lon, g.lat)) return false;
    g.name = d.childText(pt, "name");
    g.desc = d.childText(pt, "desc");
    g.cmt = d.childText(pt, "cmt");
    g.alt = ParseAltitude(d.child(pt, "ele"));
    g.course = ParseCourse(d.child(pt, "course"));
    const std::string_view timeText = d.child(pt, "time");
    if (normaliseTime) {
        const DateAndTime dt = NormaliseDateTime(timeText);
        g.date = dt.date;
        g.time = dt.date.empty() ? Time() : dt.time;
    } else {
        g.date = ParseDate(timeText);
        g.time = g.date.empty() ? Time() : ParseTime(timeText);
    }
    return true;
}

GeoPointIn ShortGeoPoint(const Doc& d, const Element& pt) {
    GeoPointIn g;
    g.lon = ParseCoordinate(d.child(pt, "lon"));
    g.lat = ParseCoordinate(d.child(pt, "lat"));
    g.name = d.childText(pt, "name");
    g.desc = d.childText(pt, "description");
    g.cmt = d.childText(pt, "info");
    g.alt = ParseAltitude(d.child(pt, "alt"));
    g.date = ParseDate(d.child(pt, "date"));
    g.time = ParseTime(d.child(pt, "time"));
    return g;
}

// Walks every `outer` element and every `point` in it.
template <typename OnOuter, typename OnPoint>
void Walk(Session& s, const Doc& d, std::string_view outer, std::string_view point, OnOuter onOuter, OnPoint onPoint) {
    size_t pos = 0;
    while (!s.UserAbort) {
        const Element o = d.find(outer, pos, d.lower.size());
        if (!o.found) break;
        pos = o.next;
        onOuter(o);
        size_t ptPos = o.begin;
        while (!s.UserAbort) {
            const Element pt = d.find(point, ptPos, o.end);
            if (!pt.found) break;
            ptPos = pt.next;
            s.progress();
            onPoint(pt);
        }
    }
}

void ReadGpxRoutes(Session& s, const Doc& d) {
    s.store.StatusText.set("Suche GPX RoutePoints");
    Walk(s, d, "rte", "rtept", [&](const Element& r) { NewRoute(s.store, d.childText(r, "name")); },
         [&](const Element& pt) {
             GeoPointIn g;
             if (GpxGeoPoint(d, pt, false, g)) AddRoutePoint(s.store, g);
         });
    s.store.StatusText.set("Fertig");
}

void ReadShortRoutes(Session& s, const Doc& d) {
    Walk(s, d, "route", "rwp", [&](const Element& r) { NewRoute(s.store, d.childText(r, "name")); },
         [&](const Element& pt) { AddRoutePoint(s.store, ShortGeoPoint(d, pt)); });
    s.store.StatusText.set("Fertig");
}

void ReadPoints(Session& s, const Doc& d, std::string_view tag, bool gpx) {
    size_t pos = 0;
    while (!s.UserAbort) {
        const Element pt = d.find(tag, pos, d.lower.size());
        if (!pt.found) break;
        pos = pt.next;
        s.progress();
        GeoPointIn g;
        if (gpx) {
            if (!GpxGeoPoint(d, pt, true, g)) continue;
        } else {
            g = ShortGeoPoint(d, pt);
        }
        AddWayPoint(s, std::move(g));
    }
}

}  // namespace

void ReadGPXTracks(Session& s, std::string_view text, std::string_view lower, int mode) {
    const Doc d{text, lower};
    s.store.StatusText.set("Suche GPX TrackPoints");
    size_t pos = 0;
    while (!s.UserAbort) {
        const Element trk = d.find("trk", pos, lower.size());
        if (!trk.found) break;
        pos = trk.next;
        ReadGpxTrackElement(s, d, trk, mode);
    }
    s.store.StatusText.set("Fertig");
}

void ReadShortTracks(Session& s, std::string_view text, std::string_view lower, int mode) {
    const Doc d{text, lower};
    size_t pos = 0;
    while (!s.UserAbort) {
        const Element trk = d.find("track", pos, lower.size());
        if (!trk.found) break;
        pos = trk.next;
        ReadShortTrackElement(s, d, trk, mode);
    }
    s.store.StatusText.set("Fertig");
}

void ReadGPXText(Session& s, std::string_view bytes) {
    if (bytes.empty()) return;
    const std::string text = DecodeToUtf8(bytes, DeclaredCharset(bytes));
    const std::string lower = LowerAscii(text);
    const Doc d{text, lower};

    // A file with points of several days lets the user choose the days.
    ReadGPXTracks(s, text, lower, 1);
    ReadShortTracks(s, text, lower, 1);
    AskDates(s);

    ReadGPXTracks(s, text, lower, 2);
    ReadShortTracks(s, text, lower, 2);
    ClearDates(s);
    ReadGpxRoutes(s, d);
    ReadShortRoutes(s, d);
    s.store.StatusText.set("Suche GPX WayPoints");
    ReadPoints(s, d, "wpt", true);
    s.store.StatusText.set("Fertig");
    ReadPoints(s, d, "wp", false);
    s.store.StatusText.set("Fertig");
}

void ReadGPXFile(Session& s, const std::string& path) {
    const std::string bytes = ReadWholeFile(s, path);
    ReadGPXText(s, bytes);
}

}  // namespace ortelix
