#include "appformats/ModOziMap.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <filesystem>

#include "appformats/ModOziNumbers.h"
#include "coordinates/Entfernung.h"
#include "core/Charset.h"
#include "core/FileIO.h"
#include "core/ModulShared.h"
#include "core/Session.h"
#include "platform/Platform.h"

namespace ortelix {

namespace {

constexpr std::string_view kEmptyPointTail =
    ",xy,     ,     ,in, deg,    ,        ,N,    ,        ,E, grid,   ,           ,           ,N\r\n";

char LatHemisphere(double lat) { return lat < 0 ? 'S' : 'N'; }
char LonHemisphere(double lon) { return lon < 0 ? 'W' : 'E'; }

// Shortest digits of a pixel position: whole numbers without a point.
void AppendPixel(std::string& out, double v) {
    char buf[64];
    auto r = std::to_chars(buf, buf + sizeof buf, v);
    out.append(buf, r.ptr);
}

// ",deg,min,N,deg,min,E, grid,   ,           ,           ,N" of a calibration point.
void PointTail(std::string& out, double lon, double lat) {
    out += OziGrad(lat);
    out += ',';
    out += OziMinuten(lat);
    out += ',';
    out += LatHemisphere(lat);
    out += ',';
    out += OziGrad(lon);
    out += ',';
    out += OziMinuten(lon);
    out += ',';
    out += LonHemisphere(lon);
    out += ", grid,   ,           ,           ,";
    out += LatHemisphere(lat);
    out += "\r\n";
}

std::string ProjectionLine(double modus) {
    if (modus == kModusUTM)
        return "Map Projection,(UTM) Universal Transverse Mercator,PolyCal,No,AutoCalOnly,No,BSBUseWPX,No\r\n";
    if (modus == kModusGeo) return "Map Projection,Latitude/Longitude,PolyCal,No,AutoCalOnly,No,BSBUseWPX,No\r\n";
    return "Map Projection,Transverse Mercator,PolyCal,No,AutoCalOnly,No,BSBUseWPX,No\r\n";
}

std::string SetupLine(double modus) {
    if (modus == kModusUTM || modus == kModusGeo) return "Projection Setup,,,,,,,,,,\r\n";
    // Gauss-Krueger strip: the false easting's leading digits are 5 + 10 m / 3
    // (3 degrees gives 1500000, 9 degrees 3500000).
    std::string out = "Projection Setup,     0.000000000,    ";
    out += FormatFixed(modus, 9);
    out += ",     1.000000000,      ";
    out += FormatFixed(std::floor(5 + 10 * modus / 3), 0);
    out += "00000.00,            0.00,,,,,\r\n";
    return out;
}

// The margin text as Val reads it, dropped when negative or wider than the picture.
double MarginPixels(const OziMapDaten& d) {
    double r = LeadingNumber(d.margin);
    if (!std::isfinite(r) || r < 0) r = 0;
    if (r > d.width || r > d.height) r = 0;
    return r;
}

}  // namespace

std::string OziGrad(double x) {
    std::string s = FormatFixed(std::floor(std::fabs(x)), 0);
    if (s.size() < 4) s.insert(0, 4 - s.size(), ' ');
    return s;
}

std::string OziMinuten(double x) {
    const double a = std::isfinite(x) ? std::fabs(x) : 0;
    // The added millionth keeps a whole minute from losing its decimals; the
    // text is cut, not rounded, so 59.9999999 stays 60 minutes and never carries.
    const double v = (a - std::floor(a)) * 60 + 1000.000001;
    char buf[64];
    auto r = std::to_chars(buf, buf + sizeof buf, v, std::chars_format::fixed, 11);
    std::string_view t(buf, static_cast<size_t>(r.ptr - buf));
    std::string m(t.substr(1, 3));
    m += '.';
    m += t.substr(5, 6);
    if (m[0] == '0' && m[1] == '0') m[0] = m[1] = ' ';
    else if (m[0] == '0') m[0] = ' ';
    return m;
}

std::string OziMapText(const OziMapDaten& d) {
    std::string out;
    out.reserve(4096);
    out += "OziExplorer Map Data File Version 2.2\r\n";
    AppendCp1252(out, SplitPath(d.imageFile, 1));
    out += "\r\n";
    if (!d.imageType.empty()) {
        AppendCp1252(out, SplitPath(d.imageFile, 1) + "." + d.imageType);
    } else {
        AppendCp1252(out, SplitPath(d.imageFile, 2));
    }
    out += "\r\n"
           "1 ,Map Code,\r\n"
           "WGS 84,WGS 84,   0.0000,   0.0000,WGS 84\r\n"
           "Reserved 1\r\n"
           "Reserved 2\r\n"
           "Magnetic Variation,,,E\r\n";
    out += ProjectionLine(d.modus);

    out += "Point01,xy,    1,    1,in, deg,";
    PointTail(out, d.lonL, d.latO);
    out += "Point02,xy, ";
    AppendInt(out, d.width);
    out += ", ";
    AppendInt(out, d.height);
    out += ",in, deg,";
    PointTail(out, d.lonR, d.latU);
    for (int i = 3; i <= 30; ++i) {
        out += "Point";
        out += static_cast<char>('0' + i / 10);
        out += static_cast<char>('0' + i % 10);
        out += kEmptyPointTail;
    }
    out += SetupLine(d.modus);
    out += "Map Feature = MF ; Map Comment = MC     These follow if they exist\r\n"
           "Track File = TF      These follow if they exist\r\n"
           "Moving Map Parameters = MM?    These follow if they exist\r\n"
           "MM0,Yes\r\n"
           "MMPNUM,4\r\n";

    const double r = MarginPixels(d);
    const double w = d.width, h = d.height;
    const double xy[4][2] = {{r, r}, {w - r, r}, {w - r, h - r}, {r, h - r}};
    for (int i = 0; i < 4; ++i) {
        out += "MMPXY,";
        AppendInt(out, i + 1);
        out += ',';
        AppendPixel(out, xy[i][0]);
        out += ',';
        AppendPixel(out, xy[i][1]);
        out += "\r\n";
    }
    const double gx = d.width ? (d.lonR - d.lonL) / d.width : 0;
    const double gy = d.height ? (d.latO - d.latU) / d.height : 0;
    const double ll[4][2] = {{d.lonL + r * gx, d.latO - r * gy},
                             {d.lonR2 - r * gx, d.latO2 - r * gy},
                             {d.lonR - r * gx, d.latU + r * gy},
                             {d.lonL2 + r * gx, d.latU2 + r * gy}};
    for (int i = 0; i < 4; ++i) {
        out += "MMPLL,";
        AppendInt(out, i + 1);
        out += ", ";
        AppendKoordinate(out, ll[i][0]);
        out += ", ";
        AppendKoordinate(out, ll[i][1]);
        out += "\r\n";
    }
    const double diagonal = std::sqrt(w * w + h * h);
    const double metres = Entfernung(d.lonL, d.latO, d.lonR, d.latU);
    out += "MM1B,";
    out += FormatFixed(diagonal > 0 ? metres / diagonal : 0, 6);
    out += "\r\nMOP,Map Open Position,";
    AppendInt(out, d.width / 2);
    out += ',';
    AppendInt(out, d.height / 2);
    out += "\r\nIWH,Map Image Width/Height,";
    AppendInt(out, d.width);
    out += ',';
    AppendInt(out, d.height);
    out += "\r\n";
    return out;
}

void OziMapSchreiben(const OziMapDaten& d) {
    if (d.imageFile.empty()) return;
    SafeWriter w(SplitPath(d.imageFile, 4) + ".map");
    w.write(OziMapText(d));
    w.commit();
}

OziMapInfo OziMapLesenText(std::string_view bytes) {
    OziMapInfo info;
    OziLines lines(bytes);
    std::string_view line;
    lines.skip(1);
    if (lines.next(line)) info.title = DecodeToUtf8(Trim(line), Charset::Windows1252);
    if (lines.next(line)) info.imageFile = DecodeToUtf8(Trim(line), Charset::Windows1252);
    while (lines.next(line)) {
        const OziFields<4> f(line);
        const std::string_view key = Trim(f[1]);
        if (key.size() != 5) continue;
        std::string up(key);
        for (char& c : up) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        if (up != "MMPLL") continue;
        const double n = LeadingNumber(f[2]);
        if (n < 1 || n > 4) continue;
        auto& corner = info.corners[static_cast<size_t>(n) - 1];
        corner[0] = LeadingNumber(f[3]);
        corner[1] = LeadingNumber(f[4]);
    }
    return info;
}

OziMapInfo OziMapLesen(const std::string& file) { return OziMapLesenText(ReadFileBytes(file)); }

namespace {
void AddMapArea(Session& s, const std::string& file) {
    const OziMapInfo info = OziMapLesen(file);
    Flaeche& f = NewFlaeche(s.store);
    f.Name = info.title.empty() ? SplitPath(file, 1) : info.title;
    // Corners 1 and 3 alone give the area, as OziExplorer's own maps are upright.
    f.West = info.corners[0][0];
    f.North = info.corners[0][1];
    f.East = info.corners[2][0];
    f.South = info.corners[2][1];
}
}  // namespace

void OziMapEinlesen(Session& s, const std::string& fileOrFolder) {
    if (fileOrFolder.empty()) return;
    namespace fs = std::filesystem;
    std::error_code ec;
    if (!fs::is_directory(fileOrFolder, ec)) {
        AddMapArea(s, fileOrFolder);
        return;
    }
    for (const std::string& m : FilesWithExtension(fileOrFolder, "map")) {
        if (s.UserAbort) break;
        s.store.StatusText.set("Lese Map-Datei");
        AddMapArea(s, m);
        s.progress();
    }
    s.store.StatusText.set("Fertig");
}

void OziMapEinlesenAuswahl(Session& s, const std::string& file) {
    if (file.empty()) return;
    if (s.DialogFilterIndex != 2) {
        OziMapEinlesen(s, file);
        return;
    }
    const std::string folder = SplitPath(file, 3);
    OziMapEinlesen(s, folder.empty() ? std::string(".") : folder);
}

}  // namespace ortelix
