// The planning command: the frame and meridian of the export type, then the
// cut and the sort of the plan.
#include "mapexport/ModKarteFlaeche.h"

#include <array>
#include <filesystem>

#include "platform/Platform.h"

namespace ortelix {

KartenFrame FrameFuerTyp(int kartenTyp, KartenFrame current) {
    switch (kartenTyp) {
    case 1: return KartenFrame::Top50;
    case 2: return KartenFrame::Tk25;
    case 3: return KartenFrame::MagicMaps;
    case 4:
    case 7: return KartenFrame::Swiss;
    case 5: return KartenFrame::GoogleEarth;
    case 6: return KartenFrame::OziMap;
    default: return current;  // the area readers leave the frame shown
    }
}

double MeridianFuerTyp(const Options& o, int kartenTyp) {
    switch (kartenTyp) {
    case 2: return 9;  // Tk25 Hessen is drawn in the Top50 map "HE"
    case 3: return o.MapExpCheck[18] != 0 ? 12 : 9;
    case 4:
    case 7: return 7.439583;  // the Swiss grid's meridian at Bern
    case 5: return 1000;
    case 6: return 9;
    default: return 0;  // the Top50 map's, asked for, or the .map's
    }
}

double SwissMeterProPixel(int listRow) {
    static constexpr std::array<double, 6> kMpp{2, 5, 20, 30, 100, 200};
    return listRow >= 0 && listRow < static_cast<int>(kMpp.size()) ? kMpp[static_cast<size_t>(listRow)] : kMpp[0];
}

void OXTempLeeren(Session& s) {
    const std::string folder = s.platform.tempFolder();
    if (folder.empty()) return;
    namespace fs = std::filesystem;
    std::error_code ec;
    for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
        std::error_code kind;
        // A file that cannot be removed stays: the export overwrites it or says so.
        if (it->is_regular_file(kind)) fs::remove(it->path(), kind);
    }
}

size_t KartePlanen(Session& s, int kartenTyp, bool meridianGiven) {
    Options& o = s.options;
    if (o.MapExpCheck[11] != 0 && o.MapExpCheck[5] != 0) o.ZahlInput[0] = o.ZahlInput[7];
    OXTempLeeren(s);
    s.plan.Frame = FrameFuerTyp(kartenTyp, s.plan.Frame);
    const double m = MeridianFuerTyp(o, kartenTyp);
    if (!meridianGiven && m != 0) s.plan.KartenMeridian = m;
    if (kartenTyp == 4 || kartenTyp == 7) s.plan.MeterProPixel = SwissMeterProPixel(o.MapExpList[0]);
    TeileAlleFlaechen(s, s.plan.KartenMeridian);
    SortiereKarten(s);
    s.plan.TeilNummer = s.plan.KartenTeilListe.empty() ? 0 : 1;
    return s.plan.KartenTeilListe.size();
}

}  // namespace ortelix
