// The plan's order. A stable sort by the same exchange rule as the viewers
// expect (a bubble sort would give the same order, in quadratic time); the
// records move whole, so their numbers stay as they were.
#include <algorithm>

#include "core/Session.h"
#include "mapexport/ModKarteFlaeche.h"

namespace ortelix {

int ZeilenSort(const Session& s) {
    const KartenFrame f = s.plan.Frame;
    if (f == KartenFrame::Tk25 || f == KartenFrame::MagicMaps) return 2;
    if (f == KartenFrame::Top50 && s.options.MapExpCheck[16] == 0) return 2;
    return 1;
}

void SortiereKarten(Session& s) {
    s.store.StatusText.set("Sortiere Karten");
    auto& liste = s.plan.KartenTeilListe;
    if (ZeilenSort(s) == 2) {
        std::stable_sort(liste.begin(), liste.end(),
                         [](const KartenTeil& a, const KartenTeil& b) { return a.BreiteNord > b.BreiteNord; });
    } else {
        // Grouped by map, so the viewer changes its map as seldom as it can.
        std::stable_sort(liste.begin(), liste.end(), [](const KartenTeil& a, const KartenTeil& b) {
            const int c = a.KartenName.compare(b.KartenName);
            return c != 0 ? c < 0 : a.BreiteNord > b.BreiteNord;
        });
    }
    s.store.StatusText.set("Fertig");
}

}  // namespace ortelix
