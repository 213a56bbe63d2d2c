// _Kalibrierung.txt: what a person needs to calibrate the image by hand.
#include <charconv>

#include "mapexport/Kalibrierung.h"

#include "core/ModulShared.h"

namespace ortelix {

namespace {

void Line(std::string& out, std::string_view text) {
    out += text;
    out += "\r\n";
}

// A corner in decimal degrees, degrees and minutes, and degrees, minutes and
// seconds; latitude first in each form.
void Ecke(std::string& out, std::string_view title, double lon, double lat) {
    Line(out, title);
    Line(out, FormatFixed(lat, 6) + " Nord");
    Line(out, FormatFixed(lon, 6) + " Ost");
    Line(out, GradMinuten(lat) + " Nord");
    Line(out, GradMinuten(lon) + " Ost");
    Line(out, GradMinSek(lat) + " Nord");
    Line(out, GradMinSek(lon) + " Ost");
}

// The meridian as the shortest text that reads back as it: "9", "7.5".
std::string Shortest(double v) {
    char buf[64];
    auto r = std::to_chars(buf, buf + sizeof buf, v);
    return std::string(buf, r.ptr);
}

}  // namespace

std::string KalibrierungsBericht(const Kalibrierung& k) {
    const KartenAbmessung a = BerechneKalibrierung(k.KartenMeridian, k);
    const long w = static_cast<long>(k.BildBreite), h = static_cast<long>(k.BildHoehe);
    const char* gap = "\r\n";  // between groups
    std::string out;
    Line(out, "Folgende Angaben werden zur Kalibrierung der Karte benötigt:");
    out += gap;
    Line(out, "Karte: " + SplitPath(k.BildDatei, 2));
    Line(out, SplitPath(k.BildDatei, 3));
    out += gap;
    Line(out, "Kartenbildgröße: " + std::to_string(w) + " x " + std::to_string(h) + " (Pixel breit x hoch)");
    out += gap;
    Line(out, "Kartenmitte = " + FormatFixed((k.BreiteNord + k.BreiteSued) / 2, 6) + " Nord " +
                  FormatFixed((k.LaengeWest + k.LaengeOst) / 2, 6) + " Ost");
    out += gap;
    Ecke(out, "Koordinaten oben links:", k.LaengeWest, k.BreiteNord);
    out += gap;
    Ecke(out, "Koordinaten unten rechts:", k.LaengeOst, k.BreiteSued);
    out += gap;
    if (k.KartenMeridian == 2000) {
        Line(out, "Kartenprojektion: UTM");
        out += gap;
    } else {
        if (k.KartenMeridian == 1000) {
            Line(out, "Kartenprojektion: Latitude/Longitude");
        } else {
            Line(out, "Kartenprojektion: Transverse Mercator, Zentralmeridian " + Shortest(k.KartenMeridian));
        }
        out += gap;
        Ecke(out, "Koordinaten oben rechts:", a.LaengeOR, a.BreiteOR);
        out += gap;
        Ecke(out, "Koordinaten unten links:", a.LaengeUL, a.BreiteUL);
        out += gap;
        if (k.KartenMeridian == 1000) {
            Line(out, "Pixel je Grad:");
            Line(out, "ScaleX=" + FormatFixed(static_cast<double>(w) / (k.LaengeOst - k.LaengeWest), 6));
            Line(out, "ScaleY=" + FormatFixed(static_cast<double>(h) / (k.BreiteNord - k.BreiteSued), 6));
            out += gap;
        }
    }
    Line(out, "KartenHöhe in Km = " + FormatFixed(a.KmHoehe, 3));
    Line(out, "Kartenbreite in Km = " + FormatFixed(a.KmBreite, 3));
    Line(out, "Meter pro Pixel Nord = " + FormatFixed(a.MeterProPixelNord, 2));
    Line(out, "Meter pro Pixel Ost = " + FormatFixed(a.MeterProPixelOst, 2));
    out += gap;
    Line(out, "Longitude = Längengrad = Ost = X-Koordinate");
    Line(out, "Latitude = Breitengrad = Nord = Y-Koordinate");
    return out;
}

}  // namespace ortelix
