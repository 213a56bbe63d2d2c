// The editor's own clipboard, the route view's columns one row higher, and
// the list boxes.
#include <gtest/gtest.h>

#include "core/ModulShared.h"
#include "core/Session.h"
#include "editor/EditorTestSupport.h"
#include "editor/ModuleEditor.h"
#include "fake/FakePlatform.h"

namespace ortelix {
namespace {

using testing::GeoAt;
using testing::kBaseLon;

class EditorGrid : public ::testing::Test {
protected:
    void SetUp() override {
        // East 2000 m on the parallel, then north 1000 m, then back south 300 m.
        s.store.Routes.push_back({"R", {GeoAt(0, 0, "A"), GeoAt(0, 2000, "B"), GeoAt(1000, 2000, "C"),
                                        GeoAt(700, 2000, "D")}});
        ed.showRoute(0);
    }
    const GeoPoint& Rp(int i) { return s.store.Routes[0].Points[static_cast<size_t>(i)]; }
    FakePlatform p;
    Session s{p};
    ModuleEditor ed{s};
};

TEST_F(EditorGrid, RouteRowsTellTheWayToTheNextPoint) {
    ASSERT_EQ(ed.rowCount(), 4);
    EXPECT_EQ(ed.heading(11), "Abschnitt");
    EXPECT_EQ(ed.heading(12), "Richtung");
    const char* strecke[] = {"0.0", "2.0", "3.0", "3.3"};
    const char* abschnitt[] = {"2.000", "1.000", "0.300", ""};
    const char* richtung[] = {"90", "0", "180", ""};
    for (int r = 1; r <= 4; ++r) {
        SCOPED_TRACE(r);
        EXPECT_EQ(ed.cellText(r, 10), strecke[r - 1]);
        EXPECT_EQ(ed.cellText(r, 11), abschnitt[r - 1]);
        EXPECT_EQ(ed.cellText(r, 12), richtung[r - 1]);
    }
    EXPECT_TRUE(ed.isComputed(11));
    EXPECT_FALSE(ed.isComputed(3));
    EXPECT_EQ(ed.cellText(3, 3), "C");
}

TEST_F(EditorGrid, RouteWindowsKeepTheSectionToThePointBeyondTheWindow) {
    Route& r = s.store.Routes[0];
    r.Points.clear();
    for (int i = 0; i < 15002; ++i) r.Points.push_back(GeoAt(100.0 * i, 0, "P"));
    ed.showRoute(0);
    EXPECT_EQ(ed.cellText(15000, 11), "0.100");  // to point 15,001 in the next window
    ed.nextWindow();
    ASSERT_EQ(ed.rowCount(), 2);
    EXPECT_EQ(ed.cellText(1, 0), "15001");
    EXPECT_EQ(ed.cellText(1, 10), "1500.0");
    EXPECT_EQ(ed.cellText(1, 11), "0.100");
    EXPECT_EQ(ed.cellText(2, 11), "");
}

TEST_F(EditorGrid, CopyCutDeleteAndPasteKeepTheBlocksShape) {
    // Names and descriptions of rows 1-2 into the clipboard.
    ed.WriteGridCell("a", 1, 4);
    ed.WriteGridCell("b", 2, 4);
    ed.kopieren({2, 4, 1, 3});  // corners in any order
    EXPECT_TRUE(ed.hasCopy());
    EXPECT_EQ(ed.copyText(), ":A:a\r\n:B:b\r\n");

    // Pasted at row 3 the block lands on rows 3 and 4.
    ed.einfuegen(3, 3);
    EXPECT_EQ(Rp(2).Name, "A");
    EXPECT_EQ(Rp(2).Desc, "a");
    EXPECT_EQ(Rp(3).Name, "B");
    EXPECT_EQ(Rp(3).Desc, "b");

    // At the last row only the first block row fits.
    s.store.Routes[0].Points[3].Name = "D";
    s.store.Routes[0].Points[3].Desc = "d";
    s.store.Routes[0].Points[2].Name = "C";
    ed.einfuegen(4, 3);
    EXPECT_EQ(Rp(3).Name, "A");
    EXPECT_EQ(Rp(3).Desc, "a");
    EXPECT_EQ(Rp(2).Name, "C");

    // Pasted at the last column, the second block column is dropped.
    ed.einfuegen(1, 12);
    EXPECT_EQ(ed.cellText(1, 12), "A");
    EXPECT_EQ(ed.cellText(2, 12), "B");
    EXPECT_EQ(Rp(0).Name, "A");

    // Cut takes the texts and empties the cells through the store's checks:
    // a coordinate reads 0 again, a name is empty.
    const std::string lonB = ed.cellText(2, 1);
    EXPECT_EQ(lonB, FormatFixed(kBaseLon + testing::EastDegrees(2000), 6));
    ed.ausschneiden({1, 1, 2, 3});
    EXPECT_EQ(ed.copyText(), ":10.000000:50.000000:A\r\n:" + lonB + ":50.000000:B\r\n");
    EXPECT_EQ(Rp(0).Lon, 0);
    EXPECT_EQ(Rp(0).Name, "");
    EXPECT_EQ(Rp(1).Lat, 0);
    EXPECT_EQ(Rp(2).Name, "C");
    // Pasting it back restores the coordinates to six decimals.
    ed.einfuegen(1, 1);
    EXPECT_EQ(Rp(0).Lon, 10.0);
    EXPECT_EQ(Rp(0).Name, "A");
    EXPECT_EQ(ed.cellText(2, 1), lonB);

    // Delete empties without touching the clipboard.
    const std::string before = ed.copyText();
    ed.loeschen({3, 3, 4, 5});
    EXPECT_EQ(Rp(2).Name, "");
    EXPECT_EQ(Rp(3).Desc, "");
    EXPECT_EQ(ed.copyText(), before);

    // The clipboard outlives a change of view: a route's altitude pasted
    // into a track's altitude column.
    ed.WriteGridCell("321", 1, 6);
    ed.kopieren({1, 6, 1, 6});
    s.store.Tracks.push_back({"T", {testing::PointAt(0, 0), testing::PointAt(10, 1)}});
    ed.showTrack(0);
    ed.einfuegen(2, 5);
    EXPECT_EQ(s.store.Tracks[0].Points[1].Alt, OptInt(321));
    EXPECT_TRUE(s.store.Tracks[0].Points[0].Alt.empty());
}

TEST_F(EditorGrid, ListsCountAndNumberTheElementsAndNamesGoStraightToTheStore) {
    s.store.Tracks.push_back({"Morgen", {}});
    s.store.Tracks.push_back({"Abend", {}});
    s.store.WayPoints.resize(3);
    const EditorLists l = ed.ListsRefresh();
    EXPECT_EQ(l.trackCount, 2);
    EXPECT_EQ(l.routeCount, 1);
    EXPECT_EQ(l.wayPointCount, 3);
    EXPECT_EQ(l.tracks, (std::vector<std::string>{"1", "2"}));
    EXPECT_EQ(l.routes, (std::vector<std::string>{"1"}));
    EXPECT_EQ(ed.trackName(1), "Abend");
    ed.setTrackName(1, "Nacht");
    EXPECT_EQ(s.store.Tracks[1].Name, "Nacht");
    ed.setRouteName(0, "Weg");
    EXPECT_EQ(ed.routeName(0), "Weg");
    EXPECT_EQ(ed.trackName(7), "");
    ed.setTrackName(-1, "x");  // no such track: nothing happens
    EXPECT_EQ(s.store.Tracks[0].Name, "Morgen");
}

}  // namespace
}  // namespace ortelix
