// The corner sidecars of other map programs: _Kali.loc, .gmi, .kal, .geo,
// .cal_Kompass, .mcx. Each target keeps its own pixel convention: .kal and
// .mcx name the far corner (w, h), .gmi and .geo the last pixel (w-1, h-1).
#include "mapexport/Kalibrierung.h"

#include "core/ModulShared.h"

namespace ortelix {

namespace {

void Line(std::string& out, std::string_view text) {
    out += text;
    out += "\r\n";
}

std::string F6(double v) { return FormatFixed(v, 6); }
std::string F8(double v) { return FormatFixed(v, 8); }
std::string Whole(double v) { return std::to_string(static_cast<long>(v)); }

}  // namespace

std::string KaliLocText(const Kalibrierung& k) {
    std::string out;
    Line(out, "<?xml version=\"1.0\"?><loc version=\"1.0\" src=\"Ortelix\">");
    Line(out, "<waypoint>");
    Line(out, "<name id=\"oben links\"><![CDATA[oben links]]></name>");
    Line(out, "<coord lat=\"" + F6(k.BreiteNord) + "\" lon=\"" + F6(k.LaengeWest) + "\"/>");
    Line(out, "</waypoint>");
    Line(out, "<waypoint>");
    Line(out, "<name id=\"unten rechts\"><![CDATA[unten rechts]]></name>");
    Line(out, "<coord lat=\"" + F6(k.BreiteSued) + "\" lon=\"" + F6(k.LaengeOst) + "\"/>");
    Line(out, "</waypoint>");
    Line(out, "</loc>");
    return out;
}

std::string GmiText(const Kalibrierung& k) {
    const long w = static_cast<long>(k.BildBreite), h = static_cast<long>(k.BildHoehe);
    std::string out;
    Line(out, "Map Calibration data file v2.0");
    Line(out, "\\Storage Card\\Maps\\" + SplitPath(k.BildDatei, 1) + ".gmi");
    Line(out, std::to_string(w));
    Line(out, std::to_string(h));
    Line(out, "0;0;" + F6(k.LaengeWest) + ";" + F6(k.BreiteNord));
    Line(out, std::to_string(w - 1) + ";" + std::to_string(h - 1) + ";" + F6(k.LaengeOst) + ";" + F6(k.BreiteSued));
    return out;
}

std::string KalText(const Kalibrierung& k) {
    const KartenAbmessung a = BerechneKalibrierung(k.KartenMeridian, k);
    const std::string w = Whole(k.BildBreite), h = Whole(k.BildHoehe);
    struct Punkt {
        double lon, lat;
        std::string pixel;
    };
    const Punkt punkte[4] = {{k.LaengeWest, k.BreiteNord, "0,0"},
                             {k.LaengeOst, k.BreiteSued, w + "," + h},
                             {a.LaengeOR, a.BreiteOR, w + ",0"},
                             {a.LaengeUL, a.BreiteUL, "0," + h}};
    std::string out;
    Line(out, "[Map]");
    Line(out, "Bitmap = " + SplitPath(k.BildDatei, 2));
    Line(out, "Size = SIZE(" + w + "," + h + ")");
    for (int i = 0; i < 4; ++i) {
        Line(out, "[Calibration Point " + std::to_string(i + 1) + "]");
        Line(out, "Longitude = " + F8(punkte[i].lon));
        Line(out, "Latitude = " + F8(punkte[i].lat));
        Line(out, "Pixel = POINT(" + punkte[i].pixel + ")");
    }
    return out;
}

std::string GeoText(const Kalibrierung& k) {
    const KartenAbmessung a = BerechneKalibrierung(k.KartenMeridian, k);
    const std::string w1 = std::to_string(static_cast<long>(k.BildBreite) - 1);
    const std::string h1 = std::to_string(static_cast<long>(k.BildHoehe) - 1);
    auto rp = [](int n, double lat, double lon, const std::string& row, const std::string& col) {
        return "rp" + std::to_string(n) + "=\"" + F8(lat) + "," + F8(lon) + "," + row + "," + col + "\"";
    };
    std::string out;
    Line(out, rp(0, k.BreiteNord, k.LaengeWest, "0", "0"));
    Line(out, rp(1, a.BreiteOR, a.LaengeOR, "0", w1));
    Line(out, rp(2, k.BreiteSued, k.LaengeOst, h1, w1));
    Line(out, rp(3, a.BreiteUL, a.LaengeUL, h1, "0"));
    return out;
}

std::string CalKompassText(const Kalibrierung& k) {
    const KartenAbmessung a = BerechneKalibrierung(k.KartenMeridian, k);
    auto satz = [](const char* id, double lon, double lat, const char* text) {
        return std::string("$GPM") + id + ",1," + F8(lon) + "," + F8(lat) + ",," + text + "*";
    };
    std::string out;
    Line(out, "$GPMAP," + SplitPath(k.BildDatei, 2) + "*");
    Line(out, satz("TL", k.LaengeWest, k.BreiteNord, "nord oben"));
    Line(out, satz("TR", a.LaengeOR, a.BreiteOR, "ost rechts"));
    Line(out, satz("BR", k.LaengeOst, k.BreiteSued, "süd unten"));
    Line(out, satz("BL", a.LaengeUL, a.BreiteUL, "west links"));
    return out;
}

std::string McxText(const Kalibrierung& k, const std::string& extension) {
    const KartenAbmessung a = BerechneKalibrierung(k.KartenMeridian, k);
    const std::string w = Whole(k.BildBreite), h = Whole(k.BildHoehe);
    const std::string name = SplitPath(k.BildDatei, 1);
    const std::string file = extension.empty() ? SplitPath(k.BildDatei, 2) : name + "." + extension;
    auto ref = [](std::string& out, const char* title, const std::string& x, const std::string& y, double lon,
                  double lat) {
        Line(out, std::string("   <RefPoint name=\"Reference Point ") + title + "\">");
        Line(out, "      <RasterPosition x=\"" + x + "\" y=\"" + y + "\" />");
        Line(out, "      <GeoPosition longitude=\"" + F8(lon) + "\"  latitude=\"" + F8(lat) + "\" />");
        Line(out, "   </RefPoint>");
    };
    std::string out;
    Line(out, "<MapCalibrationData>");
    Line(out, " <Name>" + name + "</Name>");
    Line(out, " <File>" + file + "</File>");
    Line(out, " <Size width=\"" + w + "\" height=\"" + h + "\" />");
    Line(out, " <RefPoints>");
    ref(out, "OL", "0", "0", k.LaengeWest, k.BreiteNord);
    ref(out, "UR", w, h, k.LaengeOst, k.BreiteSued);
    ref(out, "OR", w, "0", a.LaengeOR, a.BreiteOR);
    ref(out, "UL", "0", h, a.LaengeUL, a.BreiteUL);
    Line(out, " </RefPoints>");
    Line(out, "</MapCalibrationData>");
    return out;
}

}  // namespace ortelix
