// The menus "Übertragen" and "Umbenennen": what each transfer makes, with
// its names and colours, and the renames of routes and waypoints.
#include <gtest/gtest.h>

#include "core/ModulShared.h"
#include "core/Session.h"
#include "editor/BulkRename.h"
#include "editor/BulkTransfer.h"
#include "editor/EditorTestSupport.h"
#include "editor/ModuleEditor.h"
#include "fake/FakePlatform.h"

namespace ortelix {
namespace {

using testing::GeoAt;
using testing::PointAt;

class Transfers : public ::testing::Test {
protected:
    void SetUp() override {
        Track t{"Tour", {}};
        // 1 km north in 10 minutes, then a stay of 10 minutes, then on.
        t.Points = {PointAt(0, 3600, 100), PointAt(1000, 4200, 110), PointAt(1000, 4800, 110),
                    PointAt(2000, 5400, 120)};
        t.Points[1].Course = 7;
        s.store.Tracks.push_back(t);
        GeoPoint a = GeoAt(0, 0, "A");
        a.Desc = "erste";
        a.Cmt = "info";
        a.Alt = 321;
        a.ForeColor = 5;
        s.store.Routes.push_back({"R", {a, GeoAt(0, 500, "B")}});
        s.store.WayPoints = {GeoAt(0, 0, "W1"), GeoAt(100, 0, "W2")};
        s.store.WayPoints[0].BackColor = 77;
    }
    FakePlatform p;
    Session s{p};
    ModuleEditor ed{s};
};

TEST_F(Transfers, TrackpointToWaypointTellsKilometresDurationAndPause) {
    ed.showTrack(0);
    ASSERT_TRUE(TrackpointZuWaypoint(s, ed, 2));
    ASSERT_EQ(s.store.WayPoints.size(), 3u);
    const GeoPoint& w = s.store.WayPoints.back();
    EXPECT_EQ(w.Name, "Tour  1.0 km");
    EXPECT_EQ(w.Desc, "0:10:00 (Dauer) ");  // no pause in this row: the blank ends it
    EXPECT_EQ(*w.Alt, 110);
    EXPECT_EQ(*w.Course, 7);
    EXPECT_EQ(*w.Time_, 4200);
    EXPECT_EQ(*w.ForeColor, 16777215);
    EXPECT_EQ(*w.BackColor, 16711680);
    // The position as the grid shows it, to six decimals.
    EXPECT_EQ(w.Lat, LeadingNumber(ed.cellText(2, 2)));
    EXPECT_NEAR(w.Lat, s.store.Tracks[0].Points[1].Lat, 1e-6);
    // A row that shows a pause names it behind the duration.
    int pauseRow = 0;
    for (int r = 1; r <= ed.rowCount(); ++r)
        if (!ed.cellText(r, 12).empty()) pauseRow = r;
    ASSERT_GT(pauseRow, 0);
    ASSERT_TRUE(TrackpointZuWaypoint(s, ed, pauseRow));
    EXPECT_EQ(s.store.WayPoints.back().Desc, ed.cellText(pauseRow, 11) + " (Dauer) " + ed.cellText(pauseRow, 12) + " (Pause)");
    EXPECT_FALSE(TrackpointZuWaypoint(s, ed, 9));
}

TEST_F(Transfers, WholeElementsCarryTheirFieldsNamesAndColours) {
    ed.showTrack(0);
    ASSERT_TRUE(TrackZuWaypoint(s, ed));
    ASSERT_EQ(s.store.WayPoints.size(), 6u);
    EXPECT_EQ(s.store.WayPoints[2].Name, "T1P1");
    EXPECT_EQ(s.store.WayPoints[5].Name, "T1P4");
    EXPECT_EQ(*s.store.WayPoints[5].Alt, 120);
    EXPECT_EQ(*s.store.WayPoints[5].BackColor, 16711680);

    ASSERT_TRUE(TrackZuRoute(s, ed));
    ASSERT_EQ(s.store.Routes.size(), 2u);
    const Route& fromTrack = s.store.Routes[1];
    ASSERT_EQ(fromTrack.Points.size(), 4u);
    EXPECT_EQ(fromTrack.Points[3].Name, "T1P4");
    EXPECT_EQ(fromTrack.Points[3].Desc, "");
    EXPECT_EQ(*fromTrack.Points[1].Course, 7);
    EXPECT_TRUE(fromTrack.Points[0].ForeColor.empty());

    ed.showRoute(0);
    ASSERT_TRUE(RoutepointZuWaypoint(s, ed, 1));
    EXPECT_EQ(s.store.WayPoints.back().Cmt, "info");
    EXPECT_EQ(*s.store.WayPoints.back().ForeColor, 5);  // one to one, colours too
    ASSERT_TRUE(RouteZuWaypoint(s, ed));
    EXPECT_EQ(s.store.WayPoints.back().Name, "B");
    EXPECT_EQ(*s.store.WayPoints.back().ForeColor, 16777215);
    EXPECT_EQ(s.store.WayPoints[s.store.WayPoints.size() - 2].Desc, "erste");

    ASSERT_TRUE(RouteZuTrack(s, ed));
    ASSERT_EQ(s.store.Tracks.size(), 2u);
    const Track& fromRoute = s.store.Tracks[1];
    ASSERT_EQ(fromRoute.Points.size(), 2u);
    EXPECT_EQ(*fromRoute.Points[0].Alt, 321);
    EXPECT_TRUE(fromRoute.Points[0].Speed.empty());
    EXPECT_TRUE(fromRoute.Points[0].Sat.empty());
    EXPECT_NEAR(fromRoute.Points[1].DistKm, 0.5, 0.001);

    ed.showWayPoints();
    const size_t n = s.store.WayPoints.size();
    ASSERT_TRUE(WaypointZuRoute(s, ed));
    const Route& fromWps = s.store.Routes.back();
    ASSERT_EQ(fromWps.Points.size(), n);
    EXPECT_EQ(fromWps.Points[0].Name, "W1");
    EXPECT_TRUE(fromWps.Points[0].BackColor.empty());  // the colours stay behind

    // An empty track makes no route.
    s.store.Tracks.push_back({"leer", {}});
    ed.showTrack(2);
    const size_t routes = s.store.Routes.size();
    EXPECT_FALSE(TrackZuRoute(s, ed));
    EXPECT_EQ(s.store.Routes.size(), routes);
}

TEST_F(Transfers, RenamesOfRoutesAndWaypoints) {
    ed.showTrack(0);
    EXPECT_FALSE(NameBeschreibungTauschen(s, ed));  // tracks have no names
    EXPECT_EQ(s.store.Tracks[0].Name, "Tour");

    ed.showRoute(0);
    ASSERT_TRUE(NameBeschreibungTauschen(s, ed));
    EXPECT_EQ(s.store.Routes[0].Points[0].Name, "erste");
    EXPECT_EQ(s.store.Routes[0].Points[0].Desc, "A");
    ASSERT_TRUE(NameWirdBeschreibung(s, ed));  // the caption reads the other way round
    EXPECT_EQ(s.store.Routes[0].Points[0].Name, "A");
    EXPECT_EQ(p.messages.back().text, "Sollen wirklich alle Namen überschrieben werden?");
    EXPECT_EQ(p.messages.back().title, "Editor Route");
    s.store.Routes[0].Points[1].Name = "Bäh";
    ASSERT_TRUE(BeschreibungWirdName(s, ed));
    EXPECT_EQ(s.store.Routes[0].Points[1].Desc, "Bäh");
    EXPECT_EQ(p.messages.back().text, "Sollen wirklich alle Beschreibungen überschrieben werden?");
    ASSERT_TRUE(LfdNummerAlsName(s, ed));
    EXPECT_EQ(s.store.Routes[0].Points[0].Name, "R01P001");
    EXPECT_EQ(s.store.Routes[0].Points[1].Name, "R01P002");

    ed.showWayPoints();
    s.store.WayPoints.resize(1500);
    p.answers = {Answer::No};
    EXPECT_FALSE(LfdNummerAlsName(s, ed));
    EXPECT_EQ(s.store.WayPoints[0].Name, "W1");
    ASSERT_TRUE(LfdNummerAlsName(s, ed));
    EXPECT_EQ(s.store.WayPoints[0].Name, "WP001");
    EXPECT_EQ(s.store.WayPoints[1499].Name, "WP1500");  // the format is a minimum
}

TEST_F(Transfers, NamesAreCutByCharactersAndUmlautsAndCharsetsConverted) {
    ed.showWayPoints();
    s.store.WayPoints[0].Name = "Überlingen Süd";
    s.store.WayPoints[0].Desc = "Straße Ärger öde";
    s.store.WayPoints[1].Name = "Gipfel";
    p.inputs = {"0"};
    EXPECT_FALSE(NamenKuerzen(s, ed));  // 0 changes nothing
    EXPECT_EQ(s.store.WayPoints[0].Name, "Überlingen Süd");
    p.inputs = {"3"};
    ASSERT_TRUE(NamenKuerzen(s, ed));
    EXPECT_EQ(s.store.WayPoints[0].Name, "Übe");  // three characters, not three bytes
    EXPECT_EQ(s.store.WayPoints[1].Name, "Gip");
    EXPECT_EQ(p.messages.back().text, "Sollen wirklich alle Namen gekürzt werden?");

    s.store.WayPoints[0].Name = "Überlingen Süd";
    ASSERT_TRUE(UmlauteErsetzen(s, ed));
    EXPECT_EQ(s.store.WayPoints[0].Name, "Ueberlingen Sued");
    EXPECT_EQ(s.store.WayPoints[0].Desc, "Strasse Aerger oede");

    // "ü" read as Latin-1 bytes of UTF-8 (Ã¼) folds back into one character,
    // and the way back writes it as those two characters again.
    s.store.WayPoints[1].Name = "M\xC3\x83\xC2\xBC" "nchen";  // "MÃ¼nchen"
    ASSERT_TRUE(Utf8ZuAscii(s, ed));
    EXPECT_EQ(s.store.WayPoints[1].Name, "München");
    ASSERT_TRUE(AsciiZuUtf8(s, ed));
    EXPECT_EQ(s.store.WayPoints[1].Name, "M\xC3\x83\xC2\xBC" "nchen");
}

TEST_F(Transfers, TrackNamesFromTheirFirstDate) {
    s.store.Tracks.push_back({"ohne", {}});
    p.inputs = {"Tour"};
    ASSERT_TRUE(TracknameAusDatum(s, ed));
    EXPECT_EQ(s.store.Tracks[0].Name, "Tour_2006-02-16");
    EXPECT_EQ(s.store.Tracks[1].Name, "ohne");  // no point, no date
    EXPECT_EQ(p.messages.back().title, "Neue Tracknamen");
    p.answers = {Answer::No};
    EXPECT_FALSE(TracknameAusDatum(s, ed));
}

}  // namespace
}  // namespace ortelix
