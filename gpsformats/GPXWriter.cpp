#include <charconv>
#include <string>

#include "core/Charset.h"
#include "core/FixedDecimals.h"
#include "core/FileIO.h"
#include "core/ModulShared.h"
#include "core/Session.h"
#include "gpsformats/GPX.h"
#include "platform/Platform.h"

namespace ortelix {

namespace {

constexpr std::string_view kHeader =
    "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" standalone=\"yes\"?>\r\n"
    "<gpx\r\n"
    " xmlns=\"http://www.topografix.com/GPX/1/0\"\r\n"
    " xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"\r\n"
    " xsi:schemaLocation=\"http://www.topografix.com/GPX/1/0 http://www.topografix.com/GPX/1/0/gpx.xsd\" "
    "version=\"1.0\"\r\n"
    "creator=\"Ortelix\">\r\n"
    "\r\n";

// Appends text that is already UTF-8 as ISO-8859-1 ("?" for what it cannot hold).
void Text(std::string& out, std::string_view utf8) { out += EncodeFromUtf8(utf8, Charset::Latin1); }


void Int(std::string& out, long long v) {
    char buf[24];
    auto r = std::to_chars(buf, buf + sizeof buf, v);
    out.append(buf, r.ptr);
}

void PointStart(std::string& out, std::string_view tag, double lat, double lon) {
    out += '<';
    out += tag;
    out += " lat=\"";
    AppendFixed(out, lat, 6);
    out += "\" lon=\"";
    AppendFixed(out, lon, 6);
    out += "\">\r\n";
}

void Ele(std::string& out, OptInt alt) {
    if (alt.empty()) return;
    out += "  <ele>";
    Int(out, *alt);
    out += "</ele>\r\n";
}

void TimeLine(std::string& out, Date d, Time t) {
    if (d.empty()) return;
    out += "  <time>";
    out += IsoDate(*d);
    out += 'T';
    out += IsoTime(t.valueOr(0));
    out += "Z</time>\r\n";
}

void TextLine(std::string& out, std::string_view tag, std::string_view value) {
    if (value.empty()) return;
    out += "  <";
    out += tag;
    out += '>';
    Text(out, value);
    out += "</";
    out += tag;
    out += ">\r\n";
}

void GeoPointLines(std::string& out, std::string_view tag, const GeoPoint& p) {
    PointStart(out, tag, p.Lat, p.Lon);
    Ele(out, p.Alt);
    TimeLine(out, p.Date_, p.Time_);
    TextLine(out, "name", p.Name);
    TextLine(out, "cmt", p.Cmt);
    TextLine(out, "desc", p.Desc);
    out += "</";
    out += tag;
    out += ">\r\n";
}

void TrackPointLines(std::string& out, const TrackPoint& p) {
    PointStart(out, "trkpt", p.Lat, p.Lon);
    Ele(out, p.Alt);
    TimeLine(out, p.Date_, p.Time_);
    if (p.Course.has()) {
        out += "  <course>";
        Int(out, *p.Course);
        out += "</course>\r\n";
    }
    if (p.Speed.has()) {
        out += "  <speed>";
        AppendFixed(out, *p.Speed * 1000.0 / 3600.0, 2);
        out += "</speed>\r\n";
    }
    if (p.Sat.has()) {
        out += "  <sat>";
        Int(out, *p.Sat);
        out += "</sat>\r\n";
    }
    out += "</trkpt>\r\n";
}

// The writer works in slices so that a large store never sits twice in memory.
template <typename Emit>
void Produce(const Session& s, Emit emit) {
    std::string out;
    out.reserve(1 << 17);
    auto spill = [&] {
        if (out.size() >= (1 << 16)) {
            emit(out);
            out.clear();
        }
    };
    out += kHeader;
    for (const GeoPoint& w : s.store.WayPoints) {
        GeoPointLines(out, "wpt", w);
        out += "\r\n";
        spill();
    }
    size_t number = 0;
    for (const Route& r : s.store.Routes) {
        ++number;
        out += "\r\n<rte>\r\n<name>";
        if (r.Name.empty()) {
            out += "Route ";
            Int(out, static_cast<long long>(number));
        } else {
            Text(out, r.Name);
        }
        out += "</name>\r\n<number>";
        Int(out, static_cast<long long>(number));
        out += "</number>\r\n";
        for (const GeoPoint& p : r.Points) {
            GeoPointLines(out, "rtept", p);
            spill();
        }
        out += "</rte>\r\n";
    }
    number = 0;
    for (const Track& t : s.store.Tracks) {
        ++number;
        if (t.Points.empty()) continue;
        out += "\r\n<trk>\r\n<name>";
        if (t.Name.empty()) {
            out += "Track ";
            Int(out, static_cast<long long>(number));
        } else {
            Text(out, t.Name);
        }
        out += "</name>\r\n<trkseg>\r\n";
        for (const TrackPoint& p : t.Points) {
            TrackPointLines(out, p);
            spill();
        }
        out += "</trkseg>\r\n</trk>\r\n";
    }
    out += "\r\n</gpx>\r\n";
    emit(out);
}

}  // namespace

std::string GPXFileText(const Session& s) {
    std::string all;
    Produce(s, [&](const std::string& part) { all += part; });
    return all;
}

void WriteGPXFile(Session& s, const std::string& path) {
    s.platform.setBusy(true);
    SafeWriter w(path);
    Produce(s, [&](const std::string& part) { w.write(part); });
    w.commit();
    s.platform.setBusy(false);
    s.store.StatusText.set("Fertig");
}

}  // namespace ortelix
