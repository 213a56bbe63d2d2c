// What the form shows of one part: its edges and its size in km and pixels.
#include <cmath>

#include "coordinates/GaussKrueger.h"
#include "core/FixedDecimals.h"
#include "core/Session.h"
#include "mapexport/ModKarteFlaeche.h"

namespace ortelix {

namespace {

std::string Ganz(double v) {
    std::string out;
    AppendFixed(out, std::floor(v), 0);
    return out;
}

double MeterProPixel(const Session& s) {
    switch (s.plan.Frame) {
    case KartenFrame::Top50: {
        const int massstab = s.plan.KartenMassstab == 0 ? 50000 : s.plan.KartenMassstab;
        return massstab / 10000.0;
    }
    case KartenFrame::Swiss:
        return s.plan.MeterProPixel;
    default: {
        const double z = s.options.Zahl(0);
        return z <= 0.1 ? 0.1 : z;
    }
    }
}

}  // namespace

KartenTeilAnzeige ZeigeKartenTeil(Session& s, size_t nr) {
    KartenTeilAnzeige a;
    if (nr < 1 || nr > s.plan.KartenTeilListe.size()) return a;
    s.plan.TeilNummer = static_cast<int>(nr);
    const KartenTeil& t = s.plan.KartenTeilListe[nr - 1];
    AppendFixed(a.Grenzen[0], t.LaengeWest, 6);
    AppendFixed(a.Grenzen[1], t.BreiteNord, 6);
    AppendFixed(a.Grenzen[2], t.LaengeOst, 6);
    AppendFixed(a.Grenzen[3], t.BreiteSued, 6);

    double meridian = s.plan.KartenMeridian;
    if (meridian == 1000 || meridian == 2000) meridian = t.LaengeWest;
    double R1, H1, R2, H2;
    GeoNachGKMeridian(t.LaengeWest, t.BreiteNord, meridian, R1, H1);
    GeoNachGKMeridian(t.LaengeOst, t.BreiteSued, meridian, R2, H2);
    const double breiteM = R2 - R1, hoeheM = H1 - H2;
    const double kmOst = std::floor(0.5 + breiteM / 1000), kmNord = std::floor(0.5 + hoeheM / 1000);
    const double mpp = MeterProPixel(s);
    a.Info = Ganz(breiteM / mpp) + "x" + Ganz(hoeheM / mpp) + " Pixel (Ost x Nord) " + Ganz(kmOst) + "x" +
             Ganz(kmNord) + " km " + Ganz(kmOst * kmNord) + " km2 Fläche ";
    return a;
}

}  // namespace ortelix
