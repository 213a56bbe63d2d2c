// Writing cells: the checks of each column, the cell showing what the store
// took, Return over a marked range, and cells that have no store field.
#include <gtest/gtest.h>

#include "core/Session.h"
#include "editor/CellEditKeys.h"
#include "editor/EditorTestSupport.h"
#include "editor/GridChecks.h"
#include "editor/ModuleEditor.h"
#include "fake/FakePlatform.h"

namespace ortelix {
namespace {

using testing::GeoAt;
using testing::PointAt;

class CellEditing : public ::testing::Test {
protected:
    void SetUp() override {
        s.store.Tracks.push_back({"T", {PointAt(0, 0, 10), PointAt(100, 60, 20), PointAt(200, 120, 30),
                                        PointAt(300, 180, 40), PointAt(400, 240, 50)}});
        s.store.Routes.push_back({"R", {GeoAt(0, 0, "A"), GeoAt(0, 1000, "B")}});
        s.store.WayPoints = {GeoAt(0, 0, "W1"), GeoAt(10, 0, "W2")};
        s.store.WayPoints[1].ForeColor = 255;
        s.store.WayPoints[1].BackColor = 16711680;
        ed.showTrack(0);
    }
    TrackPoint& Pt(int i) { return s.store.Tracks[0].Points[static_cast<size_t>(i)]; }
    FakePlatform p;
    Session s{p};
    ModuleEditor ed{s};
};

TEST_F(CellEditing, TrackColumnsStoreTheCheckedValueAndShowIt) {
    EXPECT_EQ(ed.WriteGridCell("9,5", 1, 1), "9.500000");
    EXPECT_EQ(Pt(0).Lon, 9.5);
    EXPECT_EQ(ed.WriteGridCell("48,123456789", 1, 2), "48.123457");
    EXPECT_EQ(Pt(0).Lat, 48.123456789);
    EXPECT_EQ(ed.WriteGridCell("Ost", 2, 1), "0.000000");  // no number reads as 0
    EXPECT_EQ(Pt(1).Lon, 0);

    EXPECT_EQ(ed.WriteGridCell("99999", 1, 3), "2000");
    EXPECT_EQ(Pt(0).Speed, OptDouble(2000));
    EXPECT_EQ(ed.WriteGridCell("-3", 2, 3), "0");
    EXPECT_EQ(ed.WriteGridCell("12.9", 3, 3), "12");
    EXPECT_EQ(ed.WriteGridCell("", 4, 3), "");
    EXPECT_TRUE(Pt(3).Speed.empty());

    EXPECT_EQ(ed.WriteGridCell("400", 1, 4), "40");
    EXPECT_EQ(Pt(0).Course, OptShort(40));
    EXPECT_EQ(ed.WriteGridCell("-10", 2, 4), "350");
    EXPECT_EQ(Pt(1).Course, OptShort(350));
    EXPECT_EQ(ed.WriteGridCell("359.9", 3, 4), "359");

    EXPECT_EQ(ed.WriteGridCell("-500", 1, 5), "-100");
    EXPECT_EQ(Pt(0).Alt, OptInt(-100));
    EXPECT_EQ(ed.WriteGridCell("1234.7", 2, 5), "1234");
    EXPECT_EQ(ed.WriteGridCell("0", 3, 5), "0");
    EXPECT_EQ(Pt(2).Alt, OptInt(0));

    EXPECT_EQ(ed.WriteGridCell("24.12.2007", 1, 6), "24.12.2007");
    EXPECT_EQ(Pt(0).Date_, Date(SerialFromCivil(2007, 12, 24)));
    EXPECT_EQ(ed.WriteGridCell("2008-02-29", 2, 6), "29.02.2008");
    EXPECT_EQ(ed.WriteGridCell("31.02.2007", 3, 6), "");  // no such day: the cell empties
    EXPECT_TRUE(Pt(2).Date_.empty());

    EXPECT_EQ(ed.WriteGridCell("7:05", 1, 7), "07:05:00");
    EXPECT_EQ(Pt(0).Time_, Time(7 * 3600 + 5 * 60));
    EXPECT_EQ(ed.WriteGridCell("25:00:00", 2, 7), "");
    EXPECT_TRUE(Pt(1).Time_.empty());

    EXPECT_EQ(ed.WriteGridCell("8", 1, 8), "8");
    EXPECT_EQ(Pt(0).Sat, OptShort(8));
    EXPECT_EQ(ed.WriteGridCell("viele", 2, 8), "0");
    EXPECT_EQ(ed.WriteGridCell("3d", 1, 9), "3");
    EXPECT_EQ(Pt(0).Fix.view(), "3");

    // Outside the grid nothing is written.
    const TrackPoint before = Pt(4);
    EXPECT_EQ(ed.WriteGridCell("1", 0, 1), "");
    EXPECT_EQ(ed.WriteGridCell("1", 6, 1), "");
    EXPECT_EQ(ed.WriteGridCell("1", 5, 16), "");
    EXPECT_EQ(ed.WriteGridCell("1", 5, 0), "");
    EXPECT_EQ(Pt(4).Lon, before.Lon);
    EXPECT_EQ(ed.cellText(5, 0), "5");
}

TEST_F(CellEditing, ComputedCellsKeepATypedTextUntilTheNextFill) {
    const std::string km = ed.cellText(5, 10);
    const double dist = Pt(4).DistKm;
    EXPECT_EQ(ed.WriteGridCell("egal", 5, 10), "egal");
    EXPECT_EQ(ed.cellText(5, 10), "egal");
    EXPECT_EQ(Pt(4).DistKm, dist);
    // An edit of a position leaves the computed columns alone until the next fill.
    ed.WriteGridCell("10,5", 5, 1);
    EXPECT_EQ(ed.cellText(5, 11), "0:04:00");
    ed.refill();
    EXPECT_NE(ed.cellText(5, 10), "egal");
    EXPECT_NE(ed.cellText(5, 10), km);  // 10.5 degrees east is far from the rest
    EXPECT_GT(Pt(4).DistKm, 30.0);
}

TEST_F(CellEditing, ReturnWritesTheTextToEveryMarkedRow) {
    ed.commitRange("777", 4, 2, 5);  // marked from row 4 up to row 2
    EXPECT_EQ(Pt(0).Alt, OptInt(10));
    EXPECT_EQ(Pt(1).Alt, OptInt(777));
    EXPECT_EQ(Pt(2).Alt, OptInt(777));
    EXPECT_EQ(Pt(3).Alt, OptInt(777));
    EXPECT_EQ(Pt(4).Alt, OptInt(50));
    // A range reaching past the grid writes the rows that exist.
    ed.commitRange("45", 0, 99, 4);
    for (int i = 0; i < 5; ++i) EXPECT_EQ(Pt(i).Course, OptShort(45)) << i;
}

TEST_F(CellEditing, RouteAndWaypointColumnsTakeTextsAndTheirChecks) {
    ed.showRoute(0);
    EXPECT_EQ(ed.columnCount(), 13);
    GeoPoint& b = s.store.Routes[0].Points[1];
    EXPECT_EQ(ed.WriteGridCell("Gipfel", 2, 3), "Gipfel");
    EXPECT_EQ(ed.WriteGridCell("steil", 2, 4), "steil");
    EXPECT_EQ(ed.WriteGridCell("Hütte", 2, 5), "Hütte");
    EXPECT_EQ(ed.WriteGridCell("-101.5", 2, 6), "-100");
    EXPECT_EQ(ed.WriteGridCell("725", 2, 7), "5");
    EXPECT_EQ(ed.WriteGridCell("16.02.2006", 2, 8), "16.02.2006");
    EXPECT_EQ(ed.WriteGridCell("16:23:10", 2, 9), "16:23:10");
    EXPECT_EQ(b.Name, "Gipfel");
    EXPECT_EQ(b.Desc, "steil");
    EXPECT_EQ(b.Cmt, "Hütte");
    EXPECT_EQ(b.Alt, OptInt(-100));
    EXPECT_EQ(b.Course, OptShort(5));
    EXPECT_EQ(b.Time_, Time(16 * 3600 + 23 * 60 + 10));

    ed.showWayPoints();
    EXPECT_EQ(ed.columnCount(), 11);
    EXPECT_EQ(ed.heading(0), "Lfd.");
    EXPECT_EQ(ed.cellText(2, 0), "2");
    EXPECT_EQ(ed.cellText(2, 10), "X");
    EXPECT_TRUE(ed.hasColourSample(2, 10));
    EXPECT_FALSE(ed.hasColourSample(2, 9));
    EXPECT_EQ(ed.colourSample(2).fore, 255);
    EXPECT_EQ(ed.colourSample(2).back, 16711680);
    EXPECT_EQ(ed.colourSample(1).back, 65535);  // no colour given: yellow
    EXPECT_EQ(ed.WriteGridCell("1,25", 2, 2), "1.250000");
    EXPECT_EQ(s.store.WayPoints[1].Lat, 1.25);
    EXPECT_EQ(ed.WriteGridCell("Neu", 1, 3), "Neu");
    EXPECT_EQ(s.store.WayPoints[0].Name, "Neu");
}

TEST(GridChecks, EmptyTextGivesEmptyAndNumbersFollowTheWholePartRule) {
    EXPECT_TRUE(CheckSpeed("").empty());
    EXPECT_TRUE(CheckCourse("").empty());
    EXPECT_TRUE(CheckAlt("").empty());
    EXPECT_TRUE(CheckDate("").empty());
    EXPECT_TRUE(CheckTime("").empty());
    EXPECT_EQ(ParseFloat(""), 0);
    EXPECT_EQ(ParseFloat("-0,25 Grad"), -0.25);
    EXPECT_EQ(ParseFloat("1,5,7"), 1.5);
    EXPECT_EQ(CheckSpeed("2000.9"), OptDouble(2000));
    EXPECT_EQ(CheckSpeed("1.9"), OptDouble(1));
    EXPECT_EQ(CheckCourse("-0.5"), OptShort(359));
    EXPECT_EQ(CheckCourse("720"), OptShort(0));
    EXPECT_EQ(CheckAlt("-99.5"), OptInt(-100));  // rounded down first
    EXPECT_EQ(CheckAlt("-100"), OptInt(-100));
    EXPECT_EQ(CheckAlt("99999999999"), OptInt(2147483647));
    EXPECT_TRUE(CheckDate("morgen").empty());
    EXPECT_TRUE(CheckTime("12 Uhr").empty());
}

TEST(CellEditKeys, ModifiersAndControlKeysStayOnTheGridDeleteClearsOthersOpenTheEditor) {
    for (int key : {8, 9, 13, 16, 17, 18}) EXPECT_EQ(GridKeyActionFor(key), GridKeyAction::None) << key;
    EXPECT_EQ(GridKeyActionFor(46), GridKeyAction::Delete);
    for (int key : {32, 48, 57, 65, 90, 113, 187}) EXPECT_EQ(GridKeyActionFor(key), GridKeyAction::Edit) << key;

    const EditStart digit = EditStartFor('7', "12.5");
    EXPECT_EQ(digit.text, "7");
    EXPECT_EQ(digit.caret, 1);
    EXPECT_EQ(EditStartFor('Q', "Name").text, "Q");
    // Keys beside the digits and letters (blank, F2, the comma key) keep the text.
    for (int key : {32, 47, 58, 64, 91, 113, 188}) {
        const EditStart e = EditStartFor(key, "12.5");
        EXPECT_EQ(e.text, "12.5") << key;
        EXPECT_EQ(e.caret, 0) << key;
    }
}

}  // namespace
}  // namespace ortelix
