// Cutting the areas into map parts. The frame of a part is a rectangle in
// Transverse Mercator metres, so that it fits the viewer's own grid; the
// degrees are Bessel-series projections of WGS 84 degrees without a datum
// shift, as the map measures of the export use them.
#include <algorithm>
#include <cmath>

#include "coordinates/GaussKrueger.h"
#include "coordinates/ModPointInPolygon.h"
#include "core/Session.h"
#include "mapexport/ModKarteFlaeche.h"
#include "platform/Platform.h"

namespace ortelix {

namespace {

bool IsMarker(double meridian) { return meridian == 1000 || meridian == 2000; }

// The points that give an area's frame: its polygon, or the two corners.
template <typename Visit>
void ForEachPoint(const Flaeche& f, Visit visit) {
    if (!f.Polygon.empty()) {
        for (const auto& p : f.Polygon) visit(p[0], p[1]);
        return;
    }
    visit(f.West, f.North);
    visit(f.East, f.South);
}

void StoreTeil(Session& s, double west, double nord, double ost, double sued, double meridian) {
    KartenTeil t;
    GKNachGeoMeridian(west, nord, meridian, t.LaengeWest, t.BreiteNord);
    GKNachGeoMeridian(ost, sued, meridian, t.LaengeOst, t.BreiteSued);
    // The Top50 name of the centre comes with the Top50 export; other
    // viewers leave it empty.
    s.plan.KartenTeilListe.push_back(std::move(t));
}

// At least one of the corners and of five inner points lies in the area.
bool TeilInFlaeche(const Session& s, const KartenTeil& t) {
    static constexpr double kF[9][2] = {{0, 0}, {1, 0}, {1, 1}, {0, 1}, {0.5, 0.5},
                                        {0.2, 0.2}, {0.8, 0.8}, {0.2, 0.8}, {0.8, 0.2}};
    for (const auto& f : kF) {
        const double lon = t.LaengeWest + f[0] * (t.LaengeOst - t.LaengeWest);
        const double lat = t.BreiteSued + f[1] * (t.BreiteNord - t.BreiteSued);
        if (PunktInFlaeche(s, lon, lat)) return true;
    }
    return false;
}

// Edges of one column (or row) c of n, with half the overlap on inner edges.
void Kanten(double start, double stride, double ueberlappung, size_t c, size_t n, double& lo, double& hi) {
    lo = start + stride * static_cast<double>(c - 1);
    hi = lo + stride;
    if (n > 1 && c < n) hi += ueberlappung / 2;
    if (c > 1) lo -= ueberlappung / 2;
}

}  // namespace

void TeileAlleFlaechen(Session& s, double meridian) {
    s.plan.KartenTeilListe.clear();
    for (size_t i = 0; i < s.store.Flaechen.size(); ++i) {
        const Flaeche& f = s.store.Flaechen[i];
        double m = meridian;
        if (IsMarker(meridian)) m = f.Polygon.empty() ? f.West : f.Polygon.front()[0];
        double west = HUGE_VAL, ost = -HUGE_VAL, sued = HUGE_VAL, nord = -HUGE_VAL;
        ForEachPoint(f, [&](double lon, double lat) {
            double R, H;
            GeoNachGKMeridian(lon, lat, m, R, H);
            west = std::min(west, R);
            ost = std::max(ost, R);
            sued = std::min(sued, H);
            nord = std::max(nord, H);
        });
        TeileFlaeche(s, i + 1, west, ost, sued, nord, m);
    }
}

void TeileFlaeche(Session& s, size_t index, double West, double Ost, double Sued, double Nord, double meridian) {
    Options& o = s.options;
    double seite, ueberlappung;
    if (o.MapExpCheck[5] != 0) {
        const double mpp = std::max(o.Zahl(0), 1.0);
        seite = o.Zahl(1) * mpp;
        ueberlappung = o.Zahl(2) * mpp;
    } else {
        seite = o.Zahl(1) * 1000;
        ueberlappung = o.Zahl(2) * 1000;
    }
    // The step takes the overlap as given; only then is a negative one cut.
    double schritt = seite - ueberlappung;
    if (ueberlappung < 0) {
        ueberlappung = 0;
        o.ZahlInput[2] = "0";
    }
    if (schritt < 1000) {
        schritt = 1000;
        o.ZahlInput[1] = "1";
    }
    if (o.MapExpCheck[11] == 0 || (Ost - West <= schritt && Nord - Sued <= schritt)) {
        StoreTeil(s, West, Nord, Ost, Sued, meridian);
        return;
    }
    const bool innenTest = o.MapExpCheck[2] != 0;
    if (innenTest) FlaecheRegionBauen(s, index);

    // A ceiling that forgives a remainder below a hundred-millionth of a step.
    const auto anzahl = [&](double extent) {
        const double n = std::floor(0.99999999 + extent / schritt);
        return n < 1 ? size_t{1} : static_cast<size_t>(n);
    };
    const size_t spalten = anzahl(Ost - West);
    const size_t zeilen = anzahl(Nord - Sued);
    const double breiteSpalte = (Ost - West) / static_cast<double>(spalten);
    const double hoeheZeile = (Nord - Sued) / static_cast<double>(zeilen);

    s.store.StatusText.set("Teile Karte");
    s.platform.setBusy(true);
    for (size_t r = 1; r <= zeilen; ++r) {
        double sued, nord;
        Kanten(Sued, hoeheZeile, ueberlappung, r, zeilen, sued, nord);
        for (size_t c = 1; c <= spalten; ++c) {
            double west, ost;
            Kanten(West, breiteSpalte, ueberlappung, c, spalten, west, ost);
            KartenTeil t;
            GKNachGeoMeridian(west, nord, meridian, t.LaengeWest, t.BreiteNord);
            GKNachGeoMeridian(ost, sued, meridian, t.LaengeOst, t.BreiteSued);
            // The MagicMaps map test comes with the MagicMaps export.
            if (!innenTest || TeilInFlaeche(s, t)) s.plan.KartenTeilListe.push_back(std::move(t));
            s.progress();
        }
    }
    s.platform.setBusy(false);
    s.store.StatusText.set("Fertig");
}

std::array<std::array<double, 2>, 4> KartenEcken(const KartenTeil& t, double meridian) {
    if (meridian == 1000)
        return {{{t.LaengeWest, t.BreiteNord}, {t.LaengeOst, t.BreiteNord}, {t.LaengeOst, t.BreiteSued},
                 {t.LaengeWest, t.BreiteSued}}};
    const double m = meridian == 2000 ? (t.LaengeOst - t.LaengeWest) * 0.5 + t.LaengeWest : meridian;
    double R1, H1, R2, H2;
    GeoNachGKMeridian(t.LaengeWest, t.BreiteNord, m, R1, H1);
    GeoNachGKMeridian(t.LaengeOst, t.BreiteSued, m, R2, H2);
    std::array<std::array<double, 2>, 4> e{};
    GKNachGeoMeridian(R1, H1, m, e[0][0], e[0][1]);
    GKNachGeoMeridian(R2, H1, m, e[1][0], e[1][1]);
    GKNachGeoMeridian(R2, H2, m, e[2][0], e[2][1]);
    GKNachGeoMeridian(R1, H2, m, e[3][0], e[3][1]);
    return e;
}

}  // namespace ortelix
