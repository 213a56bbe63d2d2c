// The walk along a source: the point bar, the boxes filled from a point, and
// the steps of the automatic run.
#include <algorithm>

#include "coordinates/Entfernung.h"
#include "core/GermanDates.h"
#include "core/ModulShared.h"
#include "core/Session.h"
#include "simulator/SimBoxes.h"
#include "simulator/SimEngine.h"
#include "simulator/SimVersatz.h"

namespace ortelix {

namespace {
// Arrival: a point nearer than this counts as reached, whatever the step.
constexpr double kAnkunftMeter = 10;
}  // namespace

void SimEngine::SimPunkt() {
    auswahl.quelle = quelle();
    const int n = ElementAnzahl(s_.store, auswahl);
    if (n == 0) {
        // Nothing to show: the boxes keep what they hold.
        HScrollMaxValue = 1;
        HScrollNMEA = 1;
        anzeige.LabelMinPoints = anzeige.LabelMaxPoints = anzeige.LabelCountPoints = "0";
        anzeige.LabelDist.clear();
        anzeige.LabelWinkel.clear();
        anzeige.LabelName.clear();
        anzeige.LabelDesc.clear();
        return;
    }
    HScrollMaxValue = std::min(n, kHScrollMax);
    HScrollNMEA = std::clamp(HScrollNMEA, HScrollMin, HScrollMaxValue);
    punkt(HScrollNMEA);
}

void SimEngine::punkt(int index) {
    const SimElement e = ElementAt(s_.store, auswahl, index);
    // The position as the display shows it, to six decimals.
    positionSchreiben(BoxZahl(FormatFixed(e.lon, 6)), BoxZahl(FormatFixed(e.lat, 6)));
    auto& o = s_.options;
    // A field that the record lacks leaves its box empty; a field that this
    // kind of record does not have (the speed of a route point) leaves the box
    // as the user set it.
    if (auswahl.quelle == SimQuelle::Track) {
        const OptDouble speed = e.speed.empty() ? ersatzSpeed : e.speed;
        o.NMEABox[5] = speed.empty() ? std::string() : BoxText(*speed);
    }
    o.NMEABox[6] = e.course.empty() ? std::string() : FormatFixed(*e.course, 0);
    o.NMEABox[4] = e.alt.empty() ? std::string() : FormatFixed(*e.alt, 0);
    o.NMEABoxDate = e.date.empty() ? std::string() : GermanDate(e.date);
    o.NMEABoxTime = e.time.empty() ? std::string() : GermanTime(e.time);
    const bool named = auswahl.quelle != SimQuelle::Track;
    anzeige.LabelName = named ? e.name : std::string();
    anzeige.LabelDesc = named ? e.desc : std::string();
    anzeige.LabelDist.clear();
    anzeige.LabelWinkel.clear();
    if (index < ElementAnzahl(s_.store, auswahl)) {
        const SimElement next = ElementAt(s_.store, auswahl, index + 1);
        double azimut = 0;
        const double dist = Entfernung(e.lon, e.lat, next.lon, next.lat, azimut);
        anzeige.LabelDist = FormatFixed(dist, 0) + " m";
        anzeige.LabelWinkel = FormatFixed(azimut, 0) + "°";
    }
    anzeige.LabelMinPoints = std::to_string(HScrollMin);
    anzeige.LabelMaxPoints = std::to_string(HScrollMaxValue);
    anzeige.LabelCountPoints = std::to_string(index);
}

void SimEngine::positionSchreiben(double lon, double lat) {
    auto& box = s_.options.NMEABox;
    GradMinutenSchreiben(lon, box[0], box[1]);
    GradMinutenSchreiben(lat, box[2], box[3]);
}

void SimEngine::SimWeiter() {
    timers.TimerWeiter.intervalMs = WeiterIntervall(BoxZahl(s_.options.NMEASimFaktor));
    auto& box = s_.options.NMEABox;
    const SimBoxWerte w = BoxenLesen(s_);
    double lon = w.lon, lat = w.lat;
    double east = 0, north = 0;
    auswahl.quelle = quelle();
    if (auswahl.quelle == SimQuelle::Direkt) {
        SimVersatz(1, w.course, w.speed, east, north);
        positionSchreiben(lon + east, lat + north);
        return;
    }
    const int n = std::min(ElementAnzahl(s_.store, auswahl), kHScrollMax);
    if (HScrollNMEA >= n) {
        SimRunOff();
        return;
    }
    const SimElement ziel = ElementAt(s_.store, auswahl, HScrollNMEA + 1);
    double course = w.course;
    const double dist = Entfernung(lon, lat, ziel.lon, ziel.lat, course);
    box[6] = FormatFixed(course, 0);
    const double schritt = w.speed * 1000 / 3600;  // metres in one simulated second
    if (dist < schritt || dist <= kAnkunftMeter) {
        // Arrived: the bar moves on and the boxes take the point. The rest of
        // the step is not carried into the next leg.
        ++HScrollNMEA;
        punkt(HScrollNMEA);
        return;
    }
    SimVersatz(1, course, w.speed, east, north);
    double newLon = lon + east, newLat = lat + north;
    // The fixed degree scale may carry a step past the point: then the step
    // ends on it.
    if (Entfernung(newLon, newLat, ziel.lon, ziel.lat) > dist) {
        newLon = ziel.lon;
        newLat = ziel.lat;
    }
    positionSchreiben(newLon, newLat);
}

}  // namespace ortelix
