#include <algorithm>
#include <cmath>
#include <filesystem>
#include <limits>
#include <optional>

#include "appformats/ModOziNumbers.h"
#include "appformats/ModuleTop50Karte.h"
#include "appformats/ModuleTop50Ovl.h"
#include "appformats/ModuleTop50OvlStyle.h"
#include "coordinates/Entfernung.h"
#include "core/FileIO.h"
#include "core/FixedDecimals.h"
#include "core/ModulMain.h"
#include "core/ModulShared.h"
#include "core/Session.h"
#include "platform/Platform.h"

namespace ortelix {

namespace {

constexpr size_t kSlice = size_t{1} << 18;

// The lines of the overlay, built once front to back and handed out in
// slices: a million points never sit in memory as a million small strings.
class OvlOut {
public:
    explicit OvlOut(const std::function<void(std::string&)>& emit) : emit_(emit) { out_.reserve(kSlice + 4096); }

    void section() {
        ++symbols_;
        out_ += "[Symbol ";
        AppendInt(out_, symbols_);
        out_ += "]\r\n";
    }
    void key(const char* k, long long v) {
        out_ += k;
        out_ += '=';
        AppendInt(out_, v);
        out_ += "\r\n";
    }
    void text(const char* k, std::string_view utf8) {
        out_ += k;
        out_ += '=';
        // One line a key: a line break inside a name would end the key.
        const size_t from = out_.size();
        AppendCp1252(out_, utf8);
        for (size_t i = from; i < out_.size(); ++i)
            if (out_[i] == '\r' || out_[i] == '\n') out_[i] = ' ';
        out_ += "\r\n";
    }
    void raw(std::string_view line) {
        out_ += line;
        out_ += "\r\n";
    }
    // "XKoord<i>=" and "YKoord<i>=" with eight decimals; no index when i < 0.
    void koord(double lon, double lat, long long i = -1) {
        char buf[900];
        char* e = buf;
        e = Put(e, "XKoord", i);
        e = PutFixed(e, lon, 8);
        e = Put(e, "\r\nYKoord", i);
        e = PutFixed(e, lat, 8);
        *e++ = '\r';
        *e++ = '\n';
        out_.append(buf, e);
        if (out_.size() >= kSlice) flush();
    }
    void fixed(const char* k, double v) {
        out_ += k;
        out_ += '=';
        AppendFixed(out_, v, 8);
        out_ += "\r\n";
    }
    void flush() {
        if (!out_.empty()) emit_(out_);
        out_.clear();
    }
    int symbols() const { return symbols_; }

private:
    static char* Put(char* e, const char* k, long long i) {
        const size_t n = std::char_traits<char>::length(k);
        e = std::copy(k, k + n, e);
        if (i >= 0) {
            char digits[24];
            char* d = digits + sizeof digits;
            do {
                *--d = static_cast<char>('0' + i % 10);
                i /= 10;
            } while (i > 0);
            e = std::copy(d, digits + sizeof digits, e);
        }
        *e++ = '=';
        return e;
    }

    const std::function<void(std::string&)>& emit_;
    std::string out_;
    int symbols_ = 0;
};

struct Extent {
    double west = std::numeric_limits<double>::infinity(), east = -west, south = west, north = -west;
    void add(double lon, double lat) {
        west = std::min(west, lon);
        east = std::max(east, lon);
        south = std::min(south, lat);
        north = std::max(north, lat);
    }
    bool empty() const { return west > east; }
};

Extent DataExtent(const DataStore& d) {
    Extent e;
    for (const Track& t : d.Tracks)
        for (const TrackPoint& p : t.Points) e.add(p.Lon, p.Lat);
    for (const Route& r : d.Routes)
        for (const GeoPoint& p : r.Points) e.add(p.Lon, p.Lat);
    for (const GeoPoint& p : d.WayPoints) e.add(p.Lon, p.Lat);
    return e;
}

void LineHeader(OvlOut& o, const OvlLine& l, size_t points) {
    o.section();
    o.key("Typ", 3);
    o.key("Group", 1);
    o.key("Col", l.col);
    o.key("Zoom", l.zoom);
    o.key("Size", l.size);
    o.key("Art", 1);
    o.key("Punkte", static_cast<long long>(points));
}

void TextSymbol(OvlOut& o, const OvlText& t, double lon, double lat, std::string_view text) {
    o.section();
    o.key("Typ", 2);
    o.key("Group", t.group);
    o.key("Col", t.col);
    o.key("Area", t.area);
    o.key("Zoom", t.zoom);
    o.key("Size", t.size);
    o.key("Font", t.font);
    o.key("Dir", 100);
    o.koord(lon + t.offsetLon, lat + t.offsetLat);
    o.text("Text", text);
}

}  // namespace

OvlCounts Top50OvlProduce(Session& s, const OvlPlace& place, const std::function<void(std::string&)>& emit) {
    const DataStore& d = s.store;
    const OvlStyle st = OvlStyleFromOptions(s.options);
    OvlCounts c;
    OvlOut o(emit);
    int64_t polygonPoints = 0;

    // Tracks: the nth track takes colour set ((n - 1) mod 5) + 1.
    for (size_t n = 0; n < d.Tracks.size(); ++n) {
        const Track& t = d.Tracks[n];
        const OvlLine& l = st.trackSets[n % 5];
        if (!l.drawn || t.Points.empty()) continue;
        LineHeader(o, l, t.Points.size());
        long long i = 0;
        for (const TrackPoint& p : t.Points) {
            o.koord(p.Lon, p.Lat, i++);
            if ((++polygonPoints & 0xFFF) == 0) {
                s.store.StatusText.set("Overlay Polygonpunkt: ", polygonPoints);
                s.progress();
            }
        }
        ++c.lines;
    }
    for (const Route& r : d.Routes) {
        if (!st.route.drawn || r.Points.empty()) continue;
        LineHeader(o, st.route, r.Points.size());
        long long i = 0;
        for (const GeoPoint& p : r.Points) o.koord(p.Lon, p.Lat, i++);
        polygonPoints += i;
        ++c.lines;
    }

    // Arrows stand at each point but the last and point to the next one:
    // 0 is east and the angle runs counter-clockwise.
    if (st.arrows) {
        int64_t arrows = 0;
        for (const Route& r : d.Routes) {
            double azimut = 0;
            for (size_t i = 1; i < r.Points.size(); ++i) {
                const GeoPoint& a = r.Points[i - 1];
                const GeoPoint& b = r.Points[i];
                Entfernung(a.Lon, a.Lat, b.Lon, b.Lat, azimut);
                o.section();
                o.key("Typ", st.arrow.typ);
                o.key("Group", st.arrow.group);
                o.key("Width", st.arrow.width);
                o.key("Height", st.arrow.height);
                o.key("Dir", ArrowDir(azimut));
                o.key("Col", st.route.col);
                o.key("Zoom", st.route.zoom);
                o.key("Size", 101);
                o.key("Area", 2);
                o.koord(a.Lon, a.Lat);
                s.store.StatusText.set("OVL Richtungspfeile: ", ++arrows);
            }
        }
    }

    // A track's or route's name stands at its first point, in its line colour.
    for (size_t n = 0; n < d.Tracks.size(); ++n) {
        const Track& t = d.Tracks[n];
        if (!st.trackText.shown || t.Points.empty() || t.Name.empty()) continue;
        OvlText tt = st.trackText;
        tt.col = st.trackSets[n % 5].col;
        TextSymbol(o, tt, t.Points.front().Lon, t.Points.front().Lat, t.Name);
        s.store.StatusText.set("OVL Text: ", ++c.texts);
    }
    for (const Route& r : d.Routes) {
        if (!st.routeText.shown || r.Points.empty() || r.Name.empty()) continue;
        TextSymbol(o, st.routeText, r.Points.front().Lon, r.Points.front().Lat, r.Name);
        s.store.StatusText.set("OVL Text: ", ++c.texts);
    }

    for (const Flaeche& f : d.Flaechen) {
        o.section();
        o.key("Typ", 4);
        o.key("Group", 1);
        o.key("Art", 1);
        o.key("Col", st.areaCol);
        o.key("Area", 8);
        o.key("Zoom", 1);
        o.key("Size", st.areaSize);
        o.key("Punkte", 4);
        // West/north, east/north, east/south, west/south.
        o.koord(f.West, f.North, 0);
        o.koord(f.East, f.North, 1);
        o.koord(f.East, f.South, 2);
        o.koord(f.West, f.South, 3);
        ++c.areas;
    }

    for (const GeoPoint& p : d.WayPoints) {
        o.section();
        if (st.symbolTyp == 1) {
            o.key("Typ", 1);
            o.key("Group", st.group);
            o.key("Width", 44);
            o.key("Height", 44);
            o.key("Dir", 100);
            o.key("Zoom", st.bitmapZoom);
            o.key("Trans", 2);
            o.key("TransByte", 2);
            o.text("Path", place.picturePath);
        } else {
            o.key("Typ", st.symbolTyp);
            o.key("Group", st.group);
            o.key("Width", st.symbolSize);
            o.key("Height", st.symbolSize);
            o.key("Dir", 100);
            o.key("Art", 1);
            o.key("Col", st.waypointCol);
            o.key("Zoom", 1);
            o.key("Size", 102);
            o.key("Area", 2);
        }
        o.koord(p.Lon, p.Lat);
        s.store.StatusText.set("OVL Symbole: ", ++c.points);
    }
    // Name, description and information, waypoint by waypoint.
    for (const GeoPoint& p : d.WayPoints) {
        const std::string_view texts[3] = {p.Name, p.Desc, p.Cmt};
        for (int k = 0; k < 3; ++k) {
            if (!st.waypointText[k].shown || texts[k].empty()) continue;
            TextSymbol(o, st.waypointText[k], p.Lon, p.Lat, texts[k]);
            s.store.StatusText.set("OVL Text: ", ++c.texts);
        }
    }

    c.symbols = o.symbols();
    if (c.symbols == 0) return c;  // nothing was emitted: the file stays empty

    o.raw("[Overlay]");
    o.key("Symbols", c.symbols);
    o.raw("[MapLage]");
    o.text("MapName", place.mapName);
    o.key("DimmFc", 100);
    o.key("ZoomFc", 100);
    double lon = place.centreLon, lat = place.centreLat;
    if (!place.hasCentre) {
        const Extent e = DataExtent(d);
        lon = e.empty() ? 0 : (e.west + e.east) / 2;
        lat = e.empty() ? 0 : (e.south + e.north) / 2;
    }
    o.fixed("CenterLat", lat);
    o.fixed("CenterLong", lon);
    o.key("RefOn", 1);
    o.fixed("RefLat", lat);
    o.fixed("RefLong", lon);
    o.flush();
    return c;
}

std::string Top50OvlText(Session& s, const OvlPlace& place, OvlCounts* counts) {
    std::string all;
    const OvlCounts c = Top50OvlProduce(s, place, [&](std::string& part) { all += part; });
    if (counts) *counts = c;
    return all;
}

void Top50OvlSchreiben(Session& s, const std::string& file) {
    if (file.empty()) return;
    OvlPlace place;
    // The chosen map is settled before the write (the map choice runs then);
    // centre and reference are its point when automatic.
    place.mapName = Top50MapName(s);
    if (s.options.Check[0]) {
        if (const std::optional<KartenPunkt> p = AutomatischerPunkt(s)) {
            place.hasCentre = true;
            place.centreLon = p->Lon;
            place.centreLat = p->Lat;
        }
    }
    if (!s.store.WayPoints.empty() && OvlStyleFromOptions(s.options).symbolTyp == 1) {
        const FileChoice pic = FileDialog(s, kOvlPictureTitle, kOvlPictureFilter, 1, DialogMode::Open);
        place.picturePath = TopBilderSichern(pic.path, {}, file);
    }
    s.platform.setBusy(true);
    SafeWriter w(file);
    const OvlCounts c = Top50OvlProduce(s, place, [&](std::string& part) { w.writeSlice(part); });
    w.commit();
    s.platform.setBusy(false);
    if (c.symbols == 0) {
        s.NothingWritten = true;
        s.platform.messageBox(kOvlNoSymbols, kOvlNoSymbolsTitle, Buttons::Ok, Icon::Information);
        return;
    }
    std::string done = "Fertig: LOG=";
    AppendInt(done, c.lines);
    done += "; Punkte=";
    AppendInt(done, c.points);
    done += "; Texte=";
    AppendInt(done, c.texts);
    done += "; Flächen=";
    AppendInt(done, c.areas);
    s.store.StatusText.set(done);
}

std::string TopBilderSichern(const std::string& picture, const std::string& bitmapFolder, const std::string& target) {
    namespace fs = std::filesystem;
    if (picture.empty()) return {};
    const fs::path source(picture);
    if (!bitmapFolder.empty()) {
        std::error_code ec;
        const fs::path folder = fs::weakly_canonical(bitmapFolder, ec);
        const fs::path parent = fs::weakly_canonical(source.parent_path(), ec);
        if (!ec && parent == folder) return picture;
    }
    fs::path name = source.filename();
    if (!name.has_extension()) name += ".bmp";
    const fs::path dir = fs::path(target).parent_path() / "bitmap";
    std::error_code ec;
    fs::create_directories(dir, ec);
    if (ec) throw FileError("Der Ordner " + dir.string() + " kann nicht angelegt werden");
    const fs::path copy = dir / name;
    const std::string bytes = ReadFileBytes(picture);
    SafeWriter w(copy.string());
    w.write(bytes);
    w.commit();
    return copy.string();
}

std::string KartenCheckOvlText(const std::string& baseName, const std::vector<OvlRechteck>& teile,
                               const std::string& mapName) {
    std::string all;
    const std::function<void(std::string&)> emit = [&](std::string& part) { all += part; };
    OvlOut o(emit);
    const std::string base = SplitPath(baseName, 1);
    for (size_t i = 0; i < teile.size(); ++i) {
        const OvlRechteck& r = teile[i];
        o.section();
        o.key("Typ", 4);
        o.key("Group", 1);
        o.key("Art", 1);
        o.key("Col", 1);
        o.key("Area", 8);
        o.key("Zoom", 1);
        o.key("Size", 105);
        o.key("Punkte", 4);
        o.koord(r.west, r.north, 0);
        o.koord(r.east, r.north, 1);
        o.koord(r.east, r.south, 2);
        o.koord(r.west, r.south, 3);
        o.section();
        o.key("Typ", 2);
        o.key("Group", 2);
        o.key("Col", 3);
        o.key("Area", 2);
        o.key("Zoom", 1);
        o.key("Size", 116);
        o.key("Font", 1);
        o.key("Dir", 100);
        o.koord((r.west + r.east) / 2, (r.north + r.south) / 2);
        std::string number = base + "_";
        if (i + 1 < 10) number += '0';
        AppendInt(number, static_cast<long long>(i + 1));
        o.text("Text", number);
    }
    o.raw("[Overlay]");
    o.key("Symbols", o.symbols());
    o.raw("[MapLage]");
    o.text("MapName", mapName);
    o.key("DimmFc", 100);
    o.key("ZoomFc", 100);
    o.flush();
    return all;
}

void KartenCheckOvl(const std::string& baseName, const std::vector<OvlRechteck>& teile, const std::string& mapName) {
    SafeWriter w(baseName + "_Check.ovl");
    w.write(KartenCheckOvlText(baseName, teile, mapName));
    w.commit();
}

}  // namespace ortelix
