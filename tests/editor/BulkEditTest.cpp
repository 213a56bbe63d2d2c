// The row commands, the TTQV clipboard, the altitude commands and the
// waypoint colours of the editor's menu "Bearbeiten".
#include <gtest/gtest.h>

#include "core/Session.h"
#include "coordinates/Geoid.h"
#include "editor/BulkColours.h"
#include "editor/BulkEdit.h"
#include "editor/BulkHeights.h"
#include "editor/BulkTtqv.h"
#include "editor/EditorTestSupport.h"
#include "editor/ModuleEditor.h"
#include "fake/FakePlatform.h"

namespace ortelix {
namespace {

using testing::GeoAt;
using testing::PointAt;

class BulkEdit : public ::testing::Test {
protected:
    void SetUp() override {
        Track t{"Tour", {}};
        for (int i = 0; i < 5; ++i) t.Points.push_back(PointAt(100.0 * i, 3600 + 60 * i, 100 + i));
        s.store.Tracks.push_back(t);
        s.store.Routes.push_back({"R", {GeoAt(0, 0, "A"), GeoAt(0, 500, "B"), GeoAt(0, 1000, "C")}});
        s.store.WayPoints = {GeoAt(0, 0, "W1"), GeoAt(100, 0, "W2"), GeoAt(200, 0, "W3")};
        ed.showTrack(0);
    }
    std::vector<int> Alts(const Track& t) {
        std::vector<int> out;
        for (const auto& p : t.Points) out.push_back(p.Alt.valueOr(-1));
        return out;
    }
    FakePlatform p;
    Session s{p};
    ModuleEditor ed{s};
};

TEST_F(BulkEdit, RowsAreDeletedAndInsertedInEveryView) {
    ZeileLoeschen(s, ed, {4, 2});  // any order of the ends
    EXPECT_EQ(Alts(s.store.Tracks[0]), (std::vector<int>{100, 104}));
    EXPECT_EQ(ed.rowCount(), 2);
    ZeileLoeschen(s, ed, {1, 2});  // all rows: the track stays, empty
    ASSERT_EQ(s.store.Tracks.size(), 1u);
    EXPECT_TRUE(s.store.Tracks[0].Points.empty());
    EXPECT_EQ(ed.rowCount(), 0);

    ed.showRoute(0);
    ZeileEinfuegen(s, ed, 2);
    ASSERT_EQ(s.store.Routes[0].Points.size(), 4u);
    EXPECT_EQ(s.store.Routes[0].Points[1].Name, "");
    EXPECT_EQ(s.store.Routes[0].Points[1].Lat, 0);
    EXPECT_EQ(s.store.Routes[0].Points[2].Name, "B");
    EXPECT_EQ(ed.cellText(3, 3), "B");

    ed.showWayPoints();
    ZeileEinfuegen(s, ed, 0);  // a row under 1 counts as 1
    EXPECT_EQ(s.store.WayPoints.front().Name, "");
    ZeileLoeschen(s, ed, {1, 2});
    ASSERT_EQ(s.store.WayPoints.size(), 2u);
    EXPECT_EQ(s.store.WayPoints.front().Name, "W2");
}

TEST_F(BulkEdit, AllesLoeschenAsksPerViewAndKeepsTheStoreOnNo) {
    p.answers = {Answer::No};
    EXPECT_FALSE(AllesLoeschen(s, ed));
    EXPECT_EQ(p.messages.back().text, "Soll dieser Track wirklich gelöscht werden?");
    EXPECT_EQ(p.messages.back().title, "Editor Track");
    EXPECT_EQ(s.store.Tracks.size(), 1u);
    EXPECT_TRUE(AllesLoeschen(s, ed));
    EXPECT_TRUE(s.store.Tracks.empty());
    EXPECT_EQ(ed.rowCount(), 0);

    ed.showRoute(0);
    EXPECT_TRUE(AllesLoeschen(s, ed));
    EXPECT_EQ(p.messages.back().title, "Editor Route");
    EXPECT_TRUE(s.store.Routes.empty());

    ed.showWayPoints();
    EXPECT_TRUE(AllesLoeschen(s, ed));
    EXPECT_EQ(p.messages.back().text, "Sollen wirklich alle Waypoints gelöscht werden?");
    EXPECT_TRUE(s.store.WayPoints.empty());
}

TEST_F(BulkEdit, SplittingMovesThePointsFromTheRowOnToANewTrack) {
    ASSERT_TRUE(DatensaetzeTrennen(s, ed, 3));
    ASSERT_EQ(s.store.Tracks.size(), 2u);
    EXPECT_EQ(Alts(s.store.Tracks[0]), (std::vector<int>{100, 101}));
    EXPECT_EQ(Alts(s.store.Tracks[1]), (std::vector<int>{102, 103, 104}));
    EXPECT_EQ(ed.element(), 1);  // the new track is shown
    EXPECT_FALSE(p.busy);

    // At row 1 everything moves and the old track is left empty.
    ASSERT_TRUE(DatensaetzeTrennen(s, ed, 1));
    ASSERT_EQ(s.store.Tracks.size(), 3u);
    EXPECT_TRUE(s.store.Tracks[1].Points.empty());
    EXPECT_EQ(Alts(s.store.Tracks[2]), (std::vector<int>{102, 103, 104}));

    EXPECT_FALSE(DatensaetzeTrennen(s, ed, 0));  // nothing marked
    ed.showWayPoints();
    EXPECT_FALSE(DatensaetzeTrennen(s, ed, 1));

    ed.showRoute(0);
    ASSERT_TRUE(DatensaetzeTrennen(s, ed, 2));
    ASSERT_EQ(s.store.Routes.size(), 2u);
    EXPECT_EQ(s.store.Routes[0].Points.size(), 1u);
    EXPECT_EQ(s.store.Routes[1].Points.front().Name, "B");

    DatensaetzeErweitern(s, ed);
    EXPECT_EQ(s.store.Routes.size(), 3u);
    EXPECT_EQ(ed.element(), 2);
}

TEST_F(BulkEdit, TtqvClipboardRoundTrip) {
    s.store.WayPoints = {GeoPoint{}, GeoPoint{}};
    s.store.WayPoints[0].Lat = 48.5;
    s.store.WayPoints[0].Lon = 11.25;
    s.store.WayPoints[1].Lat = -33.8765432;
    s.store.WayPoints[1].Lon = -70.1234567;
    ed.showWayPoints();
    ASSERT_TRUE(KoordinatenInZwischenablage(s, ed, 1));
    EXPECT_EQ(p.clipboard, "N 48.500000°, O 11.250000 °");
    ASSERT_TRUE(KoordinatenInZwischenablage(s, ed, 2));
    EXPECT_EQ(p.clipboard, "S 33.876543°, W 70.123457 °");

    ASSERT_TRUE(NeuerWaypointAusZwischenablage(s, ed));
    ASSERT_EQ(s.store.WayPoints.size(), 3u);
    const GeoPoint& w = s.store.WayPoints.back();
    EXPECT_EQ(w.Name, "Clip003");
    EXPECT_NEAR(w.Lat, -33.876543, 1e-9);
    EXPECT_NEAR(w.Lon, -70.123457, 1e-9);

    p.clipboard = " \"N 1.5\" , \"O 2.25\" ";  // quotes and blanks are taken off
    ASSERT_TRUE(NeuerWaypointAusZwischenablage(s, ed));
    EXPECT_EQ(s.store.WayPoints.back().Lat, 1.5);
    EXPECT_EQ(s.store.WayPoints.back().Lon, 2.25);
    for (const char* bad : {"E 1.5, O 2", "N 1.5, E 2", "N 1.5 O 2", ""}) {
        p.clipboard = bad;
        EXPECT_FALSE(NeuerWaypointAusZwischenablage(s, ed)) << bad;
    }
    EXPECT_EQ(s.store.WayPoints.size(), 4u);
}

TEST_F(BulkEdit, AltitudesAreCorrectedToWholeMetres) {
    s.store.Tracks[0].Points[0].Alt = {};
    s.store.Tracks[0].Points[1].Alt = 1234;
    p.inputs = {"0", "1"};
    ASSERT_TRUE(HoehenwerteKorrigieren(s, ed));
    EXPECT_EQ(Alts(s.store.Tracks[0]), (std::vector<int>{-1, 1234, 102, 103, 104}));
    p.inputs = {"-48", "1,5"};  // decimal comma
    ASSERT_TRUE(HoehenwerteKorrigieren(s, ed));
    EXPECT_EQ(Alts(s.store.Tracks[0]), (std::vector<int>{-1, 1779, 81, 82, 84}));  // 82.5 to even
    p.inputs = {""};
    EXPECT_FALSE(HoehenwerteKorrigieren(s, ed));

    // Route altitudes with the geoid: a grid of 47.50 m everywhere (big-endian
    // centimetres), so 500 - 47.5 = 452.5 rounds to even.
    ed.showRoute(0);
    for (GeoPoint& g : s.store.Routes[0].Points) g.Alt = 500;
    s.store.Routes[0].Points[2].Alt = {};
    s.coords.geoid.bytes.assign(721 * 1440 * 2, 0);
    for (size_t i = 0; i < 721 * 1440; ++i) {
        s.coords.geoid.bytes[2 * i] = 4750 >> 8;
        s.coords.geoid.bytes[2 * i + 1] = 4750 & 0xFF;
    }
    s.coords.geoid.loaded = true;
    p.answers = {Answer::No};
    EXPECT_FALSE(GeoidHoehenkorrektur(s, ed));
    EXPECT_EQ(*s.store.Routes[0].Points[0].Alt, 500);
    ASSERT_TRUE(GeoidHoehenkorrektur(s, ed));
    EXPECT_EQ(p.messages.back().title, "Geoidundulation");
    EXPECT_EQ(p.messages.back().text, "Sollen wirklich alle Höhen geändert werden?");
    EXPECT_EQ(*s.store.Routes[0].Points[0].Alt, 452);
    EXPECT_EQ(*s.store.Routes[0].Points[1].Alt, 452);
    EXPECT_TRUE(s.store.Routes[0].Points[2].Alt.empty());
}

TEST_F(BulkEdit, WaypointColoursGoOnTheMarkedRowsOnly) {
    ed.showWayPoints();
    EXPECT_FALSE(FarbeWaypoints(s, ed, {0, 0}, 1, 2));
    EXPECT_EQ(p.messages.back().text, "Sie müssen eine oder mehrere Zeilen auswählen!");
    ASSERT_TRUE(FarbeWaypoints(s, ed, {3, 2}, 255, 65280));
    EXPECT_TRUE(s.store.WayPoints[0].ForeColor.empty());
    EXPECT_EQ(*s.store.WayPoints[1].ForeColor, 255);
    EXPECT_EQ(*s.store.WayPoints[2].BackColor, 65280);
    EXPECT_EQ(ed.colourSample(3).back, 65280);
}

}  // namespace
}  // namespace ortelix
