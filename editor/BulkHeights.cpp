#include "editor/BulkHeights.h"

#include "coordinates/Geoid.h"

namespace ortelix {

bool GeoidHoehenkorrektur(Session& s, ModuleEditor& ed) {
    if (!AskYes(s, "Sollen wirklich alle Höhen geändert werden?", "Geoidundulation")) return false;
    ForEachShown(s, ed, [&](auto& p) {
        if (p.Alt.has()) p.Alt = RoundWhole(*p.Alt - GeoidHoehe(s, p.Lon, p.Lat));
    });
    ed.refill();
    return true;
}

bool HoehenwerteKorrigieren(Session& s, ModuleEditor& ed) {
    const char* title = "Korrektur der Höhenangaben";
    const OptDouble wert = AskNumber(s,
                                     "Geben Sie an, um wieviel Meter die Höhenangaben korrigiert werden müssen. In "
                                     "Deutschland beträgt der Korekturwert ca. -48 Metern. Soll kein Wert addiert "
                                     "werden, geben Sie 0 ein.",
                                     title, "0");
    if (!wert) return false;
    const OptDouble faktor = AskNumber(s,
                                       "Geben Sie an, mit welchem Faktor die Höhenangaben multipliziert werden sollen. "
                                       "Soll der Wert unverändert bleiben, geben Sie 1 ein",
                                       title, "1");
    if (!faktor) return false;
    ForEachShown(s, ed, [&](auto& p) {
        if (p.Alt.has()) p.Alt = RoundWhole((*p.Alt + *wert) * *faktor);
    });
    ed.refill();
    return true;
}

}  // namespace ortelix
