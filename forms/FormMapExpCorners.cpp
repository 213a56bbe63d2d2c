#include "forms/FormMapExpCorners.h"

#include <cmath>

#include "core/FixedDecimals.h"
#include "core/ModulShared.h"
#include "core/Session.h"

namespace ortelix {

namespace {
// Degrees and minutes carry the same sign, so that their sum is the edge.
void Split(double v, std::string& grad, std::string& minuten) {
    const double g = std::trunc(v);
    grad.clear();
    minuten.clear();
    AppendFixed(grad, g, 0);
    AppendFixed(minuten, (v - g) * 60, 5);
}
}  // namespace

std::array<std::string, 8> EckenFelder(const KartenTeil& t) {
    std::array<std::string, 8> f;
    Split(t.BreiteNord, f[0], f[1]);
    Split(t.LaengeWest, f[2], f[3]);
    Split(t.BreiteSued, f[4], f[5]);
    Split(t.LaengeOst, f[6], f[7]);
    return f;
}

size_t EckenUebernehmen(Session& s, size_t nr) {
    const Options& o = s.options;
    auto& teile = s.plan.KartenTeilListe;
    if (teile.empty()) {
        teile.emplace_back();
        nr = 1;
    }
    if (nr < 1 || nr > teile.size()) return 0;
    auto wert = [&o](size_t i) {
        return ParseCoordinate(o.MapExpKoordInput[i]) + ParseCoordinate(o.MapExpKoordInput[i + 1]) / 60;
    };
    KartenTeil& t = teile[nr - 1];
    t.BreiteNord = wert(0);
    t.LaengeWest = wert(2);
    t.BreiteSued = wert(4);
    t.LaengeOst = wert(6);
    s.plan.TeilNummer = static_cast<int>(nr);
    return nr;
}

bool TeilLoeschen(Session& s, size_t nr) {
    auto& teile = s.plan.KartenTeilListe;
    if (teile.size() < 2 || nr < 1 || nr > teile.size()) return false;
    teile.erase(teile.begin() + static_cast<std::ptrdiff_t>(nr - 1));
    if (static_cast<size_t>(s.plan.TeilNummer) > teile.size()) s.plan.TeilNummer = static_cast<int>(teile.size());
    return true;
}

}  // namespace ortelix
