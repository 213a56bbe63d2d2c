// The plan's order: north to south for one viewer map, by map name first for
// the automatic Top50 choice; equal keys keep their order.
#include <gtest/gtest.h>

#include "core/Session.h"
#include "fake/FakePlatform.h"
#include "mapexport/ModKarteFlaeche.h"

namespace ortelix {
namespace {

KartenTeil Teil(double west, double nord, const char* name) {
    return KartenTeil{west, west + 0.1 / 3, nord - 0.1 / 7, nord, name};
}

std::vector<double> Wests(const Session& s) {
    std::vector<double> out;
    for (const auto& t : s.plan.KartenTeilListe) out.push_back(t.LaengeWest);
    return out;
}

TEST(PlanSort, NorthToSouthForOneMapByNameFirstForTheAutomaticChoice) {
    FakePlatform p;
    Session s(p);
    const std::vector<KartenTeil> plan{Teil(1, 50.0, "B"), Teil(2, 50.2, "A"), Teil(3, 50.0, "A"),
                                       Teil(4, 50.1, "B"), Teil(5, 50.2, "A"), Teil(6, 50.0, "")};
    s.plan.KartenTeilListe = plan;
    s.plan.Frame = KartenFrame::MagicMaps;
    EXPECT_EQ(ZeilenSort(s), 2);
    SortiereKarten(s);
    EXPECT_EQ(Wests(s), (std::vector<double>{2, 5, 4, 1, 3, 6}));
    EXPECT_EQ(s.store.StatusText.text(), "Fertig");

    s.plan.KartenTeilListe = plan;
    s.plan.Frame = KartenFrame::Top50;
    s.options.MapExpCheck[16] = 1;
    EXPECT_EQ(ZeilenSort(s), 1);
    SortiereKarten(s);
    EXPECT_EQ(Wests(s), (std::vector<double>{6, 2, 5, 3, 4, 1}));

    // Top50 with the map fixed by hand, Tk25 sort by rows; the others by name.
    s.options.MapExpCheck[16] = 0;
    EXPECT_EQ(ZeilenSort(s), 2);
    s.plan.Frame = KartenFrame::Tk25;
    EXPECT_EQ(ZeilenSort(s), 2);
    for (KartenFrame f : {KartenFrame::Keiner, KartenFrame::Swiss, KartenFrame::GoogleEarth, KartenFrame::OziMap}) {
        s.plan.Frame = f;
        EXPECT_EQ(ZeilenSort(s), 1);
    }
}

TEST(PlanSort, RecordsMoveWhole) {
    FakePlatform p;
    Session s(p);
    s.plan.KartenTeilListe = {Teil(9.123456789012345, 50.0, "X"), Teil(8.1 / 3, 51.0 / 7, "Y")};
    const KartenTeil second = s.plan.KartenTeilListe[1];
    s.plan.KartenTeilListe[1].BreiteNord = 50 + 2.0 / 3;
    s.plan.Frame = KartenFrame::MagicMaps;
    SortiereKarten(s);
    const KartenTeil& t = s.plan.KartenTeilListe[0];
    EXPECT_EQ(t.BreiteNord, 50 + 2.0 / 3);
    EXPECT_EQ(t.LaengeWest, second.LaengeWest);
    EXPECT_EQ(t.LaengeOst, second.LaengeOst);
    EXPECT_EQ(t.BreiteSued, second.BreiteSued);
    EXPECT_EQ(t.KartenName, "Y");
    EXPECT_EQ(s.plan.KartenTeilListe[1].LaengeWest, 9.123456789012345);
}

}  // namespace
}  // namespace ortelix
