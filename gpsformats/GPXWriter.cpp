#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
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

// Appends text that is already UTF-8 as ISO-8859-1 character data. "&", "<"
// and ">" go as entities, so that any name gives well-formed XML; a character
// that ISO-8859-1 lacks becomes "?", and so does a control character, which
// XML 1.0 cannot carry in any form.
void Text(std::string& out, std::string_view utf8) {
    for (const char c : EncodeFromUtf8(utf8, Charset::Latin1)) {
        switch (c) {
            case '&': out += "&amp;"; break;
            case '<': out += "&lt;"; break;
            case '>': out += "&gt;"; break;
            case '\t': case '\n': case '\r': out += c; break;
            default: out += (static_cast<unsigned char>(c) < 0x20) ? '?' : c;
        }
    }
}


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

// Puts text at p and returns the end.
char* Put(char* p, std::string_view text) {
    std::memcpy(p, text.data(), text.size());
    return p + text.size();
}

char* PutTwo(char* p, int v) {
    p[0] = static_cast<char>('0' + v / 10 % 10);
    p[1] = static_cast<char>('0' + v % 10);
    return p + 2;
}

// Whole numbers; those of up to four digits (heights, courses, satellites)
// without a library call.
char* PutInt(char* p, long long v) {
    if (v < 0 || v >= 10000) return std::to_chars(p, p + 24, v).ptr;
    const int n = static_cast<int>(v);
    if (n < 10) {
        *p = static_cast<char>('0' + n);
        return p + 1;
    }
    if (n < 100) return PutTwo(p, n);
    if (n < 1000) {
        *p = static_cast<char>('0' + n / 100);
        return PutTwo(p + 1, n % 100);
    }
    return PutTwo(PutTwo(p, n / 100), n % 100);
}

// The date text of a run of points, formed once per day.
struct DayText {
    int32_t serial = -1;
    bool known = false;
    char text[24];
    size_t size = 0;
    std::string_view of(int32_t day) {
        if (!known || day != serial) {
            const CivilDate c = CivilFromSerial(day);
            char* q = text;
            q = (c.year >= 0 && c.year < 10000) ? PutTwo(PutTwo(q, c.year / 100), c.year % 100)
                                                 : std::to_chars(q, q + 12, c.year).ptr;
            *q++ = '-';
            q = PutTwo(q, c.month);
            *q++ = '-';
            q = PutTwo(q, c.day);
            size = static_cast<size_t>(q - text);
            serial = day;
            known = true;
        }
        return {text, size};
    }
};

// Coordinates (6 decimals) and speeds (2) as PutFixed writes them, without
// its exact arithmetic for the values that lie clearly away from a half in
// the last place kept. Below 5e8 the scaled value is a double whose unit in
// the last place is 6e-8 at most: it differs from the exact product, and from
// the product of the value's shortest digits, by less than 2e-7. So when it
// lies more than 1e-6 away from a half, all three round the same way. Values
// near a half, and large or odd ones, go to PutFixed.
template <int Decimals>
char* PutFixedQuick(char* p, double value) {
    static_assert(Decimals == 2 || Decimals == 6);
    constexpr double kScale = Decimals == 6 ? 1e6 : 1e2;
    constexpr uint64_t kUnit = Decimals == 6 ? 1000000 : 100;
    const double x = std::fabs(value) * kScale;
    if (!(x < 5e8)) return PutFixed(p, value, Decimals);
    const double whole = std::floor(x);
    const double frac = x - whole;
    if (std::fabs(frac - 0.5) < 1e-6) return PutFixed(p, value, Decimals);
    const uint64_t q = static_cast<uint64_t>(whole) + (frac > 0.5 ? 1 : 0);
    if (value < 0 && q != 0) *p++ = '-';
    const uint64_t integer = q / kUnit;
    uint64_t fraction = q % kUnit;
    p = std::to_chars(p, p + 24, integer).ptr;
    *p++ = '.';
    for (int i = Decimals - 2; i >= 0; i -= 2) {
        PutTwo(p + i, static_cast<int>(fraction % 100));
        fraction /= 100;
    }
    return p + Decimals;
}

// A track point's lines formed in one buffer: the bulk of a large file.
void TrackPointLines(std::string& out, const TrackPoint& p, DayText& day) {
    char buf[1400];
    char* q = Put(buf, "<trkpt lat=\"");
    q = PutFixedQuick<6>(q, p.Lat);
    q = Put(q, "\" lon=\"");
    q = PutFixedQuick<6>(q, p.Lon);
    q = Put(q, "\">\r\n");
    if (p.Alt.has()) q = Put(PutInt(Put(q, "  <ele>"), *p.Alt), "</ele>\r\n");
    if (p.Date_.has()) {
        const int t = p.Time_.valueOr(0);
        q = Put(Put(q, "  <time>"), day.of(*p.Date_));
        *q++ = 'T';
        q = PutTwo(q, t / 3600 % 24);
        *q++ = ':';
        q = PutTwo(q, t / 60 % 60);
        *q++ = ':';
        q = PutTwo(q, t % 60);
        q = Put(q, "Z</time>\r\n");
    }
    if (p.Course.has()) q = Put(PutInt(Put(q, "  <course>"), *p.Course), "</course>\r\n");
    if (p.Speed.has()) q = Put(PutFixedQuick<2>(Put(q, "  <speed>"), *p.Speed * 1000.0 / 3600.0), "</speed>\r\n");
    if (p.Sat.has()) q = Put(PutInt(Put(q, "  <sat>"), *p.Sat), "</sat>\r\n");
    q = Put(q, "</trkpt>\r\n");
    out.append(buf, q);
}

// The writer works in slices so that a large store never sits twice in
// memory. `emit` takes a slice and leaves the string empty for the next.
template <typename Emit>
void Produce(const Session& s, Emit emit) {
    // Slices of 256 KB: few writes, and a slice still in the cache when the
    // system copies it.
    constexpr size_t kSlice = size_t{1} << 18;
    std::string out;
    out.reserve(kSlice + 4096);
    DayText day;
    auto spill = [&] {
        if (out.size() >= kSlice) {
            emit(out);
            out.clear();
            out.reserve(kSlice + 4096);
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
            TrackPointLines(out, p, day);
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
    Produce(s, [&](std::string& part) { all += part; });
    return all;
}

void WriteGPXFile(Session& s, const std::string& path) {
    s.platform.setBusy(true);
    SafeWriter w(path);
    Produce(s, [&](std::string& part) { w.writeSlice(part); });
    w.commit();
    s.platform.setBusy(false);
    s.store.StatusText.set("Fertig");
}

}  // namespace ortelix
