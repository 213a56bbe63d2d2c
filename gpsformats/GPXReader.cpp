#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "core/Charset.h"
#include "core/FileIO.h"
#include "core/ModulShared.h"
#include "core/ReadFilter.h"
#include "core/ScanBytes.h"
#include "core/Session.h"
#include "gpsformats/ElementScan.h"
#include "gpsformats/GPX.h"

namespace ortelix {

namespace {

// The file's text and, when it is mapped, the mapping whose pages a pass may
// hand back behind itself.
// Closing-tag positions of the outer elements, found by the survey, so that
// an outer element's end costs no walk over all of its points.
struct Closings {
    std::vector<size_t> trk, trkseg, track, rte, route;
};

bool AllAscii(std::string_view t) {
    unsigned char any = 0;
    for (char c : t) any |= static_cast<unsigned char>(c);
    return any < 0x80;
}

struct Doc {
    std::string_view text;
    const MappedFile* map = nullptr;
    Closings closings{};

    Element outer(std::string_view tag, const std::vector<size_t>& at, size_t from, size_t to) const {
        return GetElementIndexed(text, tag, from, to, at);
    }
    template <size_t N>
    Element point(std::string_view tag, size_t from, size_t to, const std::string_view (&names)[N],
                  std::string_view (&values)[N]) const {
        const Element e = GetElementWithChildren(text, tag, from, to, names, values, N);
        for (auto& v : values) v = Trim(StripCdata(v));
        return e;
    }

    Element find(std::string_view tag, size_t from, size_t to) const { return GetElement(text, tag, from, to); }
    std::string_view child(const Element& e, std::string_view tag) const {
        return Trim(StripCdata(InnerText(text, find(tag, e.begin, e.end))));
    }
    std::string childText(const Element& e, std::string_view tag) const { return value(child(e, tag)); }

    // The file's charset. The text is scanned as it stands (every charset read
    // here keeps markup and numbers in ASCII); only the values that the store
    // keeps are decoded, so a large file is never copied.
    Charset charset = Charset::Utf8;
    // A value's bytes in UTF-8: as they stand when they are UTF-8 already
    // (nearly always), else decoded into `buffer`.
    std::string_view utf8(std::string_view raw, std::string& buffer) const {
        if (AllAscii(raw) || (charset == Charset::Utf8 && IsValidUtf8(raw))) return raw;
        buffer = DecodeToUtf8(raw, charset);
        return buffer;
    }
    // A text value in UTF-8 with its entities and character references decoded.
    std::string value(std::string_view raw) const {
        std::string buffer;
        return DecodeEntities(utf8(raw, buffer));
    }
    // Hands the pages behind a walk back, every 16 MB, so that a large file
    // is never resident as a whole.
    // A walk that starts again below the last release point counts from there.
    void passed(size_t pos) const {
        if (pos >= releasedUpTo && pos - releasedUpTo < kReleaseStep) return;
        if (map && pos > releasedUpTo) map->release(pos);
        releasedUpTo = pos;
    }
    static constexpr size_t kReleaseStep = size_t{1} << 24;
    mutable size_t releasedUpTo = 0;
};

// Does the text (blanks and a sign aside) begin with `word`, without regard to case?
bool BeginsWithWord(std::string_view text, std::string_view word) {
    text = Trim(text);
    if (!text.empty() && (text[0] == '+' || text[0] == '-')) text.remove_prefix(1);
    if (text.size() < word.size()) return false;
    for (size_t i = 0; i < word.size(); ++i)
        if ((text[i] | 0x20) != word[i]) return false;
    return true;
}

// A coordinate by the leading-number rule (with a decimal comma for the short
// vocabulary). "nan" and "inf" stay what they say instead of reading as 0, so
// that the store refuses the point rather than placing it on the equator.
double CoordinateValue(std::string_view text, bool decimalComma) {
    if (BeginsWithWord(text, "nan")) return std::numeric_limits<double>::quiet_NaN();
    if (BeginsWithWord(text, "inf")) {
        const double inf = std::numeric_limits<double>::infinity();
        return Trim(text)[0] == '-' ? -inf : inf;
    }
    return decimalComma ? ParseCoordinate(text) : LeadingNumber(text);
}

// lat and lon of a point's start tag; false when one of them is missing or empty.
bool Position(const Doc& d, const Element& e, double& lon, double& lat) {
    const std::string_view tag = StartTag(d.text, e);
    bool hasLat = false, hasLon = false;
    const std::string_view latText = AttributeValue(tag, "lat", hasLat);
    const std::string_view lonText = AttributeValue(tag, "lon", hasLon);
    if (!hasLat || !hasLon || Trim(latText).empty() || Trim(lonText).empty()) return false;
    lat = CoordinateValue(latText, false);
    lon = CoordinateValue(lonText, false);
    return true;
}

// The same for the short vocabulary, whose lon and lat are child elements: a
// point without either has no position and is not taken (rather than at 0).
bool ShortPosition(std::string_view lonText, std::string_view latText, double& lon, double& lat) {
    if (lonText.empty() || latText.empty()) return false;  // the values come trimmed
    lon = CoordinateValue(lonText, true);
    lat = CoordinateValue(latText, true);
    return true;
}

// A GPX time element: the date, and the time of day. A text that holds only
// a time ("12:34:56Z", "T12:34:56") keeps that time without a date; a text
// whose date part cannot be read gives neither.
DateAndTime GpxTime(std::string_view text) {
    DateAndTime m = NormaliseDateTime(text);
    if (m.date.empty()) {
        size_t mark = 0;
        while (mark < text.size() && (text[mark] | 0x20) != 't') ++mark;
        if (mark != 0 && mark != text.size()) m.time = {};  // something before the time mark that is no date
    }
    return m;
}

// The XML declaration's encoding, if the file has one.
Charset DeclaredCharset(std::string_view bytes) {
    const std::string_view head = bytes.substr(0, std::min<size_t>(bytes.size(), 200));
    if (head.substr(0, 5) != "<?xml" && head.substr(0, 8) != "\xEF\xBB\xBF<?xml") return Charset::Utf8;
    bool found = false;
    const std::string_view name = AttributeValue(head.substr(0, head.find("?>")), "encoding", found);
    return found ? CharsetFromName(name) : Charset::Utf8;
}


// Which outer elements the file has at all, found in one walk, so that the
// passes for the others cost nothing.
struct Present {
    bool trk = false, track = false, rte = false, route = false, wpt = false, wp = false;
};
// Does the tag name in t[from, to) equal `word` (lower case), without regard to case?
bool NameIs(std::string_view t, size_t from, size_t to, std::string_view word) {
    if (to - from != word.size()) return false;
    for (size_t i = 0; i < word.size(); ++i) {
        char c = t[from + i];
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
        if (c != word[i]) return false;
    }
    return true;
}

// The text of a child element whose start-tag name ends at `nameEnd`, when
// plain text follows its ">" up to the matching closing tag.
std::string_view PlainChild(std::string_view t, size_t nameEnd, std::string_view name) {
    const char* gt = FindByte(t.data() + nameEnd, t.data() + t.size(), '>');
    if (!gt || gt[-1] == '/') return {};
    const size_t from = static_cast<size_t>(gt - t.data()) + 1;
    const char* lt = FindByte(t.data() + from, t.data() + t.size(), '<');
    if (!lt) return {};
    const size_t to = static_cast<size_t>(lt - t.data());
    if (to + name.size() + 3 > t.size() || t[to + 1] != '/' || !NameIs(t, to + 2, to + 2 + name.size(), name) ||
        t[to + 2 + name.size()] != '>')
        return {};
    return t.substr(from, to - from);
}

// The first time (of a trkpt) or date (of a trp) of the point whose start
// tag opens at `open`, as the reading pass will find it.
std::string_view FirstChildText(std::string_view t, size_t open, std::string_view point, std::string_view name,
                                size_t nameEnd) {
    if (const std::string_view plain = PlainChild(t, nameEnd, name); plain.data()) return Trim(StripCdata(plain));
    // Not the plain form (CDATA, markup inside, never closed): the full scan.
    std::string_view value;
    GetElementWithChildren(t, point, open, t.size(), &name, &value, 1);
    return Trim(StripCdata(value));
}

// One walk over the tags of interest: which outer elements exist, where they
// close, and, when a session is given, the dates of the track points for the
// date choice (the first time of each trkpt, the first date of each trp).
Present Survey(const Doc& d, Closings& c, Session* dates = nullptr) {
    static constexpr char kFirstLetters[4] = {'t', 'r', 'w', 'd'};  // of every name looked for
    Present p;
    bool inTrkpt = false, inTrp = false;
    size_t pointOpen = 0;
    std::string_view lastDay;
    const std::string_view t = d.text;
    const char* const begin = t.data();
    const char* const stop = begin + t.size();
    for (const char* at = FindTagStart(begin, stop, kFirstLetters); at; at = FindTagStart(at + 1, stop, kFirstLetters)) {
        const size_t open = static_cast<size_t>(at - begin);
        d.passed(open);
        const bool closing = t[open + 1] == '/';
        const size_t from = closing ? open + 2 : open + 1;
        size_t end = from;
        while (end < t.size() && end - from < 7 && t[end] != ' ' && t[end] != '>' && t[end] != '/' && t[end] != '\t' &&
               t[end] != '\r' && t[end] != '\n')
            ++end;
        const size_t len = end - from;
        if (len < 2 || len > 6) continue;
        if (closing) {
            if (end >= t.size() || t[end] != '>') continue;
            if (NameIs(t, from, end, "trkpt")) {  // the common case first
                inTrkpt = false;
                continue;
            }
            if (NameIs(t, from, end, "trp")) inTrp = false;
            else if (NameIs(t, from, end, "trkseg")) c.trkseg.push_back(open);
            else if (NameIs(t, from, end, "trk")) c.trk.push_back(open);
            else if (NameIs(t, from, end, "track")) c.track.push_back(open);
            else if (NameIs(t, from, end, "rte")) c.rte.push_back(open);
            else if (NameIs(t, from, end, "route")) c.route.push_back(open);
        } else if (len == 4 && dates && (inTrkpt || inTrp)) {
            const std::string_view name = inTrkpt ? "time" : "date";
            if (NameIs(t, from, end, name)) {
                const std::string_view when = FirstChildText(t, pointOpen, inTrkpt ? "trkpt" : "trp", name, end);
                // Points come in runs of one day: a text seen just before is noted already.
                if (when.empty() || when.substr(0, 10) != lastDay) {
                    lastDay = when.substr(0, when.size() >= 11 && (when[10] == 'T' || when[10] == 't') ? 10 : when.size());
                    NoteDate(*dates, ParseDate(when));
                }
                inTrkpt = inTrp = false;  // the first one counts
            }
        } else if (len == 5 && NameIs(t, from, end, "trkpt")) {
            const char* gt = FindByte(t.data() + end, t.data() + t.size(), '>');
            inTrkpt = gt && gt[-1] != '/';
            pointOpen = open;
        } else if (len == 3) {
            if (NameIs(t, from, end, "trp")) {
                inTrp = true;
                pointOpen = open;
            } else if (NameIs(t, from, end, "trk")) p.trk = true;
            else if (NameIs(t, from, end, "rte")) p.rte = true;
            else if (NameIs(t, from, end, "wpt")) p.wpt = true;
        } else if (len == 5) {
            if (NameIs(t, from, end, "track")) p.track = true;
            else if (NameIs(t, from, end, "route")) p.route = true;
        } else if (len == 2 && NameIs(t, from, end, "wp")) {
            p.wp = true;
        }
    }
    return p;
}

OptDouble SpeedFromMetresPerSecond(std::string_view text) {
    const OptDouble ms = ParseSpeed(text);  // whole metres per second, by design
    if (ms.empty()) return {};
    return *ms * 3600.0 / 1000.0;
}

constexpr std::string_view kTrkptChildren[] = {"ele", "speed", "course", "time", "sat", "fix"};

void ReadGpxTrackElement(Session& s, const Doc& d, const Element& trk) {
    const std::string name = d.childText(trk, "name");
    size_t segPos = trk.begin;
    while (!s.UserAbort) {
        const Element seg = d.outer("trkseg", d.closings.trkseg, segPos, trk.end);
        if (!seg.found) break;
        segPos = seg.next;
        if (InnerText(d.text, seg).empty()) continue;
        if (s.store.Tracks.empty() || s.options.Check[12] == 0) NewTrack(s.store, name);
        size_t ptPos = seg.begin;
        std::string fix;
        while (!s.UserAbort) {
            std::string_view c[6];
            const Element pt = d.point("trkpt", ptPos, seg.end, kTrkptChildren, c);
            if (!pt.found) break;
            ptPos = pt.next;
            s.progress();
            d.passed(ptPos);
            TrackPointIn p;
            if (!Position(d, pt, p.lon, p.lat)) continue;
            p.alt = ParseAltitude(c[0]);
            p.speed = SpeedFromMetresPerSecond(c[1]);
            p.course = ParseCourse(c[2]);
            const DateAndTime when = GpxTime(c[3]);
            p.date = when.date;
            p.time = when.time;
            p.sat = c[4];
            p.fix = d.utf8(c[5], fix);
            AddTrackPoint(s, p);
        }
    }
}

constexpr std::string_view kTrpChildren[] = {"lon", "lat", "speed", "alt", "course", "sat", "fix", "date", "time"};

void ReadShortTrackElement(Session& s, const Doc& d, const Element& trk) {
    if ((s.store.Tracks.empty() || s.options.Check[12] == 0)) NewTrack(s.store, d.childText(trk, "name"));
    size_t ptPos = trk.begin;
    std::string fix;
    while (!s.UserAbort) {
        std::string_view c[9];
        const Element pt = d.point("trp", ptPos, trk.end, kTrpChildren, c);
        if (!pt.found) break;
        ptPos = pt.next;
        s.progress();
        d.passed(ptPos);
        TrackPointIn p;
        if (!ShortPosition(c[0], c[1], p.lon, p.lat)) continue;
        p.speed = ParseSpeed(c[2]);
        p.alt = ParseAltitude(c[3]);
        p.course = ParseCourse(c[4]);
        p.sat = c[5];
        p.fix = d.utf8(c[6], fix);
        p.date = ParseDate(c[7]);
        p.time = ParseTime(c[8]);
        AddTrackPoint(s, p);
    }
}

constexpr std::string_view kGpxPointChildren[] = {"name", "desc", "cmt", "ele", "course", "time"};

// A route point or waypoint of the GPX vocabulary; false when it has no position.
bool GpxGeoPoint(const Doc& d, const Element& pt, const std::string_view (&c)[6], GeoPointIn& g) {
    if (!Position(d, pt, g.lon, g.lat)) return false;
    g.name = d.value(c[0]);
    g.desc = d.value(c[1]);
    g.cmt = d.value(c[2]);
    g.alt = ParseAltitude(c[3]);
    g.course = ParseCourse(c[4]);
    const DateAndTime when = GpxTime(c[5]);
    g.date = when.date;
    g.time = when.time;
    return true;
}

constexpr std::string_view kShortPointChildren[] = {"lon", "lat", "name", "description", "info", "alt", "date", "time"};

// A route point or waypoint of the short vocabulary; false when it has no position.
bool ShortGeoPoint(const Doc& d, const std::string_view (&c)[8], GeoPointIn& g) {
    if (!ShortPosition(c[0], c[1], g.lon, g.lat)) return false;
    g.name = d.value(c[2]);
    g.desc = d.value(c[3]);
    g.cmt = d.value(c[4]);
    g.alt = ParseAltitude(c[5]);
    g.date = ParseDate(c[6]);
    g.time = ParseTime(c[7]);
    return true;
}

// Walks every `outer` element and every `point` in it, with the point's children.
template <size_t N, typename OnOuter, typename OnPoint>
void Walk(Session& s, const Doc& d, std::string_view outer, const std::vector<size_t>& closings,
          std::string_view point, const std::string_view (&names)[N], OnOuter onOuter, OnPoint onPoint) {
    size_t pos = 0;
    while (!s.UserAbort) {
        const Element o = d.outer(outer, closings, pos, d.text.size());
        if (!o.found) break;
        pos = o.next;
        onOuter(o);
        size_t ptPos = o.begin;
        while (!s.UserAbort) {
            std::string_view c[N];
            const Element pt = d.point(point, ptPos, o.end, names, c);
            if (!pt.found) break;
            ptPos = pt.next;
            s.progress();
            d.passed(ptPos);
            onPoint(pt, c);
        }
    }
}

void ReadGpxRoutes(Session& s, const Doc& d) {
    Walk(s, d, "rte", d.closings.rte, "rtept", kGpxPointChildren,
         [&](const Element& r) { NewRoute(s.store, d.childText(r, "name")); },
         [&](const Element& pt, const std::string_view (&c)[6]) {
             GeoPointIn g;
             if (GpxGeoPoint(d, pt, c, g)) AddRoutePoint(s.store, g);
         });
}

void ReadShortRoutes(Session& s, const Doc& d) {
    Walk(s, d, "route", d.closings.route, "rwp", kShortPointChildren,
         [&](const Element& r) { NewRoute(s.store, d.childText(r, "name")); },
         [&](const Element&, const std::string_view (&c)[8]) {
             GeoPointIn g;
             if (ShortGeoPoint(d, c, g)) AddRoutePoint(s.store, g);
         });
}

template <size_t N>
void ReadPoints(Session& s, const Doc& d, std::string_view tag, const std::string_view (&names)[N]) {
    size_t pos = 0;
    while (!s.UserAbort) {
        std::string_view c[N];
        const Element pt = d.point(tag, pos, d.text.size(), names, c);
        if (!pt.found) break;
        pos = pt.next;
        s.progress();
        d.passed(pos);
        GeoPointIn g;
        if constexpr (N == 6) {
            if (!GpxGeoPoint(d, pt, c, g)) continue;
        } else {
            if (!ShortGeoPoint(d, c, g)) continue;
        }
        AddWayPoint(s, std::move(g));
    }
}

// Every outer element `tag`, each handed to `read`.
template <typename Read>
void EachOuter(Session& s, const Doc& d, std::string_view tag, const std::vector<size_t>& closings, Read read) {
    size_t pos = 0;
    while (!s.UserAbort) {
        const Element e = d.outer(tag, closings, pos, d.text.size());
        if (!e.found) break;
        pos = e.next;
        read(e);
    }
    s.store.StatusText.set("Fertig");
}

void ReadTracks(Session& s, const Doc& d, const Present& p) {
    if (p.trk) {
        s.store.StatusText.set("Suche GPX TrackPoints");
        EachOuter(s, d, "trk", d.closings.trk, [&](const Element& e) { ReadGpxTrackElement(s, d, e); });
    }
    if (p.track)
        EachOuter(s, d, "track", d.closings.track, [&](const Element& e) { ReadShortTrackElement(s, d, e); });
}

void ReadDoc(Session& s, Doc&& d) {
    if (d.text.empty()) return;
    // A file with points of several days lets the user choose the days: the
    // survey notes the dates on its way.
    const Present p = Survey(d, d.closings, &s);
    AskDates(s);
    ReadTracks(s, d, p);
    ClearDates(s);
    s.store.StatusText.set("Suche GPX RoutePoints");
    if (p.rte) ReadGpxRoutes(s, d);
    if (p.route) ReadShortRoutes(s, d);
    s.store.StatusText.set("Fertig");
    s.store.StatusText.set("Suche GPX WayPoints");
    if (p.wpt) ReadPoints(s, d, "wpt", kGpxPointChildren);
    if (p.wp) ReadPoints(s, d, "wp", kShortPointChildren);
    s.store.StatusText.set("Fertig");
}

// The document over the file's bytes. UTF-16 is the one charset that the
// scan cannot walk as it stands: such a file is decoded as a whole into
// `decoded` (its declaration then names UTF-16, which the scan need not know).
Doc OpenDoc(std::string_view bytes, std::string& decoded, const MappedFile* map) {
    Doc d;
    if (const Utf16Order order = DetectUtf16(bytes); order != Utf16Order::None) {
        decoded = DecodeUtf16(bytes, order);
        d.text = decoded;
        return d;
    }
    d.text = bytes;
    d.map = map;
    d.charset = DeclaredCharset(bytes);
    return d;
}

}  // namespace

void ReadGPXText(Session& s, std::string_view bytes) {
    std::string decoded;
    ReadDoc(s, OpenDoc(bytes, decoded, nullptr));
}

void ReadGPXFile(Session& s, const std::string& path) {
    s.store.StatusText.set("Lese Datei");
    const MappedFile file(path);
    std::string decoded;
    ReadDoc(s, OpenDoc(file.view(), decoded, &file));
    file.checkIntact();
}

}  // namespace ortelix
