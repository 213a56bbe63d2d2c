// The waypoint filter, entry by entry of List(8), and the date choice.
#include <gtest/gtest.h>

#include "core/FilterSettings.h"
#include "core/ReadFilter.h"
#include "core/TrackWayPoints.h"
#include "core/FilterTestTrack.h"

namespace ortelix {
namespace {

using test::FilterSession;
using test::LatAt;
using test::LonAt;

GeoPointIn At(double lon, double lat, const char* name = "w") {
    GeoPointIn g;
    g.lon = lon;
    g.lat = lat;
    g.name = name;
    return g;
}

TEST(ReadFilterWayPoint, AllEntryTakesEveryPointAndRefusalsOnlyCount) {
    FilterSession f;
    AddWayPoint(f.s, At(0, 0));
    EXPECT_EQ(f.s.store.WayPoints.size(), 1u);

    f.s.options.List[8] = 2;  // the corners of the design: 0°10'..0°35' E, 50°30.5'..51°10' N
    AddWayPoint(f.s, At(5, 50.8));
    EXPECT_EQ(f.s.store.SkippedWayPoints, 1);
    EXPECT_EQ(f.s.store.WayPointCount, 1);
    EXPECT_EQ(f.s.store.WayPoints.size(), 1u);
    EXPECT_EQ(f.s.store.StatusText.text(), "Lese Wegepunkte: 1");
}

TEST(ReadFilterWayPoint, InsideTheCoordinatesIsABoxOfDegreesAndMinutes) {
    FilterSession f;
    Options& o = f.s.options;
    o.List[8] = 2;
    const Box b = WayPointFilterCorners(o);
    EXPECT_DOUBLE_EQ(b.West, 10.0 / 60);
    EXPECT_DOUBLE_EQ(b.North, 51 + 10.0 / 60);
    EXPECT_DOUBLE_EQ(b.East, 35.0 / 60);
    EXPECT_DOUBLE_EQ(b.South, 50 + 30.5 / 60);
    EXPECT_TRUE(WayPointWanted(f.s, 0.3, 50.8));
    EXPECT_TRUE(WayPointWanted(f.s, 10.0 / 60, 50.8));  // the edge belongs to the box
    EXPECT_FALSE(WayPointWanted(f.s, 0.6, 50.8));
    EXPECT_FALSE(WayPointWanted(f.s, 0.3, 50.5));
    EXPECT_FALSE(WayPointWanted(f.s, 0.3, 51.2));
    o.KarteKoordInput[12] = "1";  // east now 1°35'
    EXPECT_TRUE(WayPointWanted(f.s, 0.6, 50.8));
}

TEST(ReadFilterWayPoint, AroundAPointRefusesTheVeryCentre) {
    FilterSession f;
    Options& o = f.s.options;
    o.List[8] = 3;
    o.KarteKoordInput[16] = "10";
    o.KarteKoordInput[17] = "0";
    o.KarteKoordInput[18] = "50";
    o.KarteKoordInput[19] = "0";  // centre 10° E, 50° N; radius 1 km
    EXPECT_FALSE(WayPointWanted(f.s, 10, 50));
    EXPECT_TRUE(WayPointWanted(f.s, LonAt(0, 500), LatAt(500)));
    EXPECT_TRUE(WayPointWanted(f.s, LonAt(990, 0), LatAt(0)));
    EXPECT_FALSE(WayPointWanted(f.s, LonAt(0, 1010), LatAt(1010)));
    o.KarteKoordInput[20] = "2,5";  // a comma counts as the decimal point
    EXPECT_TRUE(WayPointWanted(f.s, LonAt(0, 2400), LatAt(2400)));
}

TEST(ReadFilterWayPoint, InsideTheAreasReadSoFar) {
    FilterSession f;
    f.s.options.List[8] = 1;
    EXPECT_FALSE(WayPointWanted(f.s, 10.5, 50.5));  // no area read: nothing lies in one
    Flaeche& a = NewFlaeche(f.s.store);
    a.West = 10;
    a.East = 11;
    a.North = 51;
    a.South = 50;
    EXPECT_TRUE(WayPointWanted(f.s, 10.5, 50.5));  // the regions follow the new area
    EXPECT_FALSE(WayPointWanted(f.s, 11.5, 50.5));
    Flaeche& b = NewFlaeche(f.s.store);
    b.West = 11;
    b.East = 12;
    b.North = 51;
    b.South = 50;
    EXPECT_TRUE(WayPointWanted(f.s, 11.5, 50.5));
}

TEST(ReadFilterWayPoint, Top50MapBoxIsEmptyUntilAMapIsChosen) {
    FilterSession f;
    f.s.options.List[8] = 4;
    EXPECT_FALSE(WayPointWanted(f.s, 10.5, 50.5));
}

TEST(ReadFilterWayPoint, TrackBoxIsWidenedOnEachSide) {
    FilterSession f;
    f.s.options.List[8] = 5;
    f.s.store.TrackRouteBox = {10, 50, 11, 51};
    EXPECT_TRUE(WayPointWanted(f.s, 9.9994, 50.5));
    EXPECT_FALSE(WayPointWanted(f.s, 9.9992, 50.5));
    EXPECT_TRUE(WayPointWanted(f.s, 11.0006, 50.5));
    EXPECT_FALSE(WayPointWanted(f.s, 11.0008, 50.5));
    EXPECT_TRUE(WayPointWanted(f.s, 10.5, 51.0044));
    EXPECT_FALSE(WayPointWanted(f.s, 10.5, 51.0045));
    EXPECT_TRUE(WayPointWanted(f.s, 10.5, 49.99554));
    EXPECT_FALSE(WayPointWanted(f.s, 10.5, 49.99553));
}

TEST(ReadFilterWayPoint, AlongTheTrackSearchesEveryTrackInOrder) {
    FilterSession f;
    f.s.options.Check[14] = 1;  // a gap makes a second track
    f.add(test::PointAt(0, 0, 0));
    f.add(test::PointAt(5000, 0, 60));
    f.add(test::PointAt(20000, 0, 7200));
    ASSERT_EQ(f.s.store.Tracks.size(), 2u);
    f.s.options.List[8] = 6;
    EXPECT_TRUE(WayPointWanted(f.s, LonAt(900, 20000), LatAt(20000)));
    EXPECT_EQ(f.s.store.StatusText.text(), "Prüfe WayPoint: 2-");
    EXPECT_FALSE(f.platform.busy);
    EXPECT_TRUE(WayPointWanted(f.s, LonAt(0, 4500), LatAt(4500)));
    EXPECT_EQ(f.s.store.StatusText.text(), "Prüfe WayPoint: 1-");
    EXPECT_FALSE(WayPointWanted(f.s, LonAt(1100, 20000), LatAt(20000)));
    EXPECT_FALSE(WayPointWanted(f.s, LonAt(0, 12000), LatAt(12000)));  // between the points
}

TEST(ReadFilterWayPoint, ClockTextsOfSpans) {
    EXPECT_EQ(HourMinutes(301, false), "0:05");
    EXPECT_EQ(HourMinutes(360, true), "00:06");
    EXPECT_EQ(HourMinutes(13 * 3600 + 59, true), "13:00");
    EXPECT_EQ(HourMinutesSeconds(3723), "1:02:03");
    EXPECT_EQ(HourMinutes(25 * 3600, false), "1:00");  // a time of day: hours wrap at 24
}

TEST(DateChoice, SeveralDatesAreAskedAndOnlyTheTickedPass) {
    FilterSession f;
    NoteDate(f.s, test::kDay);
    NoteDate(f.s, test::kDay);
    NoteDate(f.s, Date());
    NoteDate(f.s, test::kDay + 1);
    EXPECT_EQ(f.s.store.StatusText.text(), "Suche Datum 2");
    NoteDate(f.s, test::kDay);
    EXPECT_EQ(f.s.dates.Dates.size(), 2u);

    f.platform.dateAnswer = {false, true};
    AskDates(f.s);
    EXPECT_EQ(f.platform.datesAsked, (std::vector<std::string>{"2006-02-16", "2006-02-17"}));
    EXPECT_EQ(f.s.store.StatusText.text(), "Warte auf Eingabe");
    EXPECT_FALSE(DateChosen(f.s, test::kDay));
    EXPECT_TRUE(DateChosen(f.s, test::kDay + 1));
    EXPECT_TRUE(DateChosen(f.s, Date()));
    ClearDates(f.s);
    EXPECT_TRUE(DateChosen(f.s, test::kDay));
}

TEST(DateChoice, OneDateIsNotAskedAndNoTickLetsAllPass) {
    FilterSession f;
    NoteDate(f.s, test::kDay);
    AskDates(f.s);
    EXPECT_TRUE(f.platform.datesAsked.empty());
    EXPECT_TRUE(DateChosen(f.s, test::kDay));
    EXPECT_FALSE(DateChosen(f.s, test::kDay + 1));

    NoteDate(f.s, test::kDay + 1);
    f.platform.dateAnswer = {false, false};
    AskDates(f.s);
    EXPECT_EQ(f.platform.datesAsked.size(), 2u);
    EXPECT_TRUE(f.s.dates.Dates.empty());
    EXPECT_TRUE(DateChosen(f.s, test::kDay + 7));
}

}  // namespace
}  // namespace ortelix
