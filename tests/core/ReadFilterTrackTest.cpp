// The track filter, point by point, with distances and times chosen on each
// side of every limit.
#include <gtest/gtest.h>

#include <cmath>

#include "coordinates/Entfernung.h"
#include "core/FilterSettings.h"
#include "core/ReadFilter.h"
#include "core/FilterTestTrack.h"

namespace ortelix {
namespace {

using test::FilterSession;
using test::LatAt;
using test::PointAt;

constexpr int32_t kTen = 10 * 3600;

TEST(ReadFilterTrack, OptimalReplacesCollinearPointsAndCutsStraightRunsAfter500Metres) {
    FilterSession f;
    f.s.options.List[7] = 0;  // "Optimal"
    f.add(PointAt(0));
    f.add(PointAt(30));
    f.add(PointAt(60));  // on the line: replaces the point at 30 m
    ASSERT_EQ(f.points(0), 2u);
    EXPECT_DOUBLE_EQ(f.track(0).Points[1].Lat, LatAt(60));
    EXPECT_EQ(f.s.store.SkippedTrackPoints, 1);

    f.add(PointAt(70));  // 10 m from the kept point: dropped
    EXPECT_EQ(f.points(0), 2u);
    EXPECT_EQ(f.s.store.SkippedTrackPoints, 2);

    for (int north = 90; north <= 480; north += 30) f.add(PointAt(north));  // 14 more on the line
    EXPECT_EQ(f.points(0), 2u);
    EXPECT_EQ(f.s.store.SkippedTrackPoints, 16);
    EXPECT_DOUBLE_EQ(f.track(0).Points[1].Lat, LatAt(480));

    f.add(PointAt(510));  // 510 m from the line's start: kept although straight
    ASSERT_EQ(f.points(0), 3u);
    EXPECT_DOUBLE_EQ(f.track(0).Points[2].Lat, LatAt(510));

    // From 480 m: 4 m aside over 60 m is a course of 3 degrees, 1.6 m off the line.
    f.add(PointAt(540, 4));
    EXPECT_EQ(f.points(0), 3u);
    // 40 m aside over 90 m bends by 20 degrees, 20 m off the line: kept.
    f.add(PointAt(570, 40));
    EXPECT_EQ(f.points(0), 4u);
    EXPECT_EQ(f.s.store.SkippedTrackPoints, 17);
    EXPECT_EQ(f.s.store.TrackPointsRead, 4);
    // The box holds the replacing points as well.
    EXPECT_DOUBLE_EQ(f.s.store.TrackRouteBox.North, LatAt(570));
}

// A point exactly one metre north of (lon, lat), as the distance routine
// measures. Near the equator the latitudes are fine enough to hit 1.0.
double ExactlyOneMetreNorth(double lon, double lat) {
    double candidate = lat + 1 / test::kMetresPerDegree;
    for (int i = 0; i < 2000; ++i) candidate = std::nextafter(candidate, -90.0);
    for (int i = 0; i < 4000; ++i) {
        if (Entfernung(lon, lat, lon, candidate) == 1.0) return candidate;
        candidate = std::nextafter(candidate, 90.0);
    }
    return NAN;
}

TEST(ReadFilterTrack, FixedLimitCountsAsReachedAtExactlyTheLimit) {
    FilterSession f;
    f.s.options.List[7] = 2;  // "1 m"
    TrackPointIn a = PointAt(0);
    a.lon = 0.001;  // on the equator
    a.lat = 0;
    f.add(a);
    TrackPointIn b = a;
    b.lat = ExactlyOneMetreNorth(a.lon, a.lat);
    ASSERT_FALSE(std::isnan(b.lat));
    f.add(b);
    EXPECT_EQ(f.points(0), 2u);

    TrackPointIn c = b;
    c.lat = std::nextafter(ExactlyOneMetreNorth(b.lon, b.lat), 0.0);  // a hair short of 1 m
    ASSERT_LT(Entfernung(b.lon, b.lat, c.lon, c.lat), 1.0);
    f.add(c);
    EXPECT_EQ(f.points(0), 2u);
    EXPECT_EQ(f.s.store.SkippedTrackPoints, 1);

    f.s.options.List[7] = 9;  // "500 m": measured from the kept point, not the skipped ones
    auto north = [&](double metres) {
        TrackPointIn p = b;
        p.lat = b.lat + metres / test::kMetresPerDegree;
        return p;
    };
    f.add(north(300));
    f.add(north(499));
    EXPECT_EQ(f.points(0), 2u);
    f.add(north(502));
    EXPECT_EQ(f.points(0), 3u);
    EXPECT_EQ(f.s.store.SkippedTrackPoints, 3);
}

TEST(ReadFilterTrack, PointAtZeroZeroIsDroppedWithoutCounting) {
    FilterSession f;
    f.add(PointAt(0));
    TrackPointIn zero;
    zero.date = test::kDay;
    f.add(zero);
    AppendTrackPoint(f.s, zero);
    EXPECT_EQ(f.points(0), 1u);
    EXPECT_EQ(f.s.store.TrackPointsRead, 1);
    EXPECT_EQ(f.s.store.SkippedTrackPoints, 0);
}

TEST(ReadFilterTrack, GapSplitReusesTheReadersEmptyTrackAndSetsEndWaypoints) {
    FilterSession f;
    Options& o = f.s.options;
    o.Check[14] = 1;  // split after 5 minutes or 300 km
    o.Check[18] = 1;  // start, end and pause waypoints
    f.s.store.PendingName = "walk";
    NewTrack(f.s.store, "walk");
    // No point before: the gap is endless, but the reader's track is empty and stays.
    f.add(PointAt(0, 0, kTen));
    ASSERT_EQ(f.s.store.Tracks.size(), 1u);
    EXPECT_EQ(f.track(0).Name, "walk");
    EXPECT_EQ(f.s.trackFilter.SplitCounter, 1);
    f.add(PointAt(150, 0, kTen + 60));
    f.add(PointAt(300, 0, kTen + 360));  // exactly 5 minutes later: no split
    ASSERT_EQ(f.s.store.Tracks.size(), 1u);
    f.add(PointAt(450, 0, kTen + 661));  // 5 minutes and 1 second: split
    ASSERT_EQ(f.s.store.Tracks.size(), 2u);
    EXPECT_EQ(f.points(0), 3u);
    EXPECT_EQ(f.track(1).Name, "walk_2");
    f.add(PointAt(280000, 0, kTen + 700));  // 280 km on: no split
    f.add(PointAt(600000, 0, kTen + 760));  // 320 km on: split
    ASSERT_EQ(f.s.store.Tracks.size(), 3u);
    EXPECT_EQ(f.track(2).Name, "walk_3");

    const auto& w = f.s.store.WayPoints;
    ASSERT_EQ(w.size(), 5u);
    EXPECT_EQ(w[0].Name, "Start walk");
    EXPECT_EQ(*w[0].ForeColor, 255);
    EXPECT_EQ(*w[0].BackColor, 65280);
    EXPECT_EQ(w[1].Name, "Ende walk 0.3 km");
    EXPECT_EQ(w[1].Desc, "walk Strecke:0.3 km Dauer:00:06 Std:Min");
    EXPECT_EQ(*w[1].ForeColor, 16777215);
    EXPECT_EQ(*w[1].BackColor, 255);
    EXPECT_DOUBLE_EQ(w[1].Lat, LatAt(300));
    EXPECT_EQ(w[2].Name, "Start walk_2");
    EXPECT_EQ(w[3].Name, "Ende walk_2 279.7 km");  // 279.55 km on the sphere, 279.7 on the ellipsoid
    EXPECT_EQ(w[4].Name, "Start walk_3");
    EXPECT_EQ(f.s.store.StatusText.text(), "Lese Trackpunkte: 1");
}

TEST(ReadFilterTrack, GapSplitWithoutFileNameNumbersTheTracks) {
    FilterSession f;
    f.s.options.Check[14] = 1;
    f.add(PointAt(0, 0, kTen));
    f.add(PointAt(10, 0, kTen + 3600));
    ASSERT_EQ(f.s.store.Tracks.size(), 2u);
    EXPECT_EQ(f.track(0).Name, "T1_1");
    EXPECT_EQ(f.track(1).Name, "T2_2");
    EXPECT_TRUE(f.s.store.WayPoints.empty());  // no end waypoint without Check(18)
}

TEST(ReadFilterTrack, SizeSplitLimitBelowOneCountsAsOne) {
    FilterSession f;
    f.s.options.Check[6] = 1;
    f.s.options.KarteKoordInput[1] = "0";
    for (int i = 0; i < 5; ++i) f.add(PointAt(50.0 * i, 0, kTen + 10 * i));
    ASSERT_EQ(f.s.store.Tracks.size(), 3u);
    EXPECT_EQ(f.track(0).Name, "T1");
    EXPECT_EQ(f.track(1).Name, "T1_1");
    EXPECT_EQ(f.track(2).Name, "T1_1_2");
    EXPECT_EQ(f.points(0), 2u);
    EXPECT_EQ(f.points(1), 2u);
    EXPECT_EQ(f.points(2), 1u);
    // Each part starts its statistics afresh.
    EXPECT_EQ(f.track(1).Points[0].DistKm, 0);
    EXPECT_TRUE(f.track(1).Points[0].Duration.empty());
    EXPECT_EQ(*f.track(1).Points[1].Duration, 10);
}

TEST(ReadFilterTrack, PauseIsAStayOfMoreThanFiveMinutesWithin100Metres) {
    FilterSession f;
    f.s.options.Check[18] = 1;
    f.s.options.KarteKoordInput[0] = "0.9";  // the whole number: any pause gets a waypoint
    f.s.store.PendingName = "walk";
    f.add(PointAt(0, 0, kTen));
    f.add(PointAt(200, 0, kTen + 60));   // moves on: the anchor follows
    f.add(PointAt(210, 0, kTen + 120));  // stands
    f.add(PointAt(400, 0, kTen + 360));  // left after exactly 5 minutes: no pause
    f.add(PointAt(420, 0, kTen + 400));  // stands
    f.add(PointAt(600, 0, kTen + 661));  // left after 5 minutes and 1 second: a pause
    const Track& t = f.track(0);
    ASSERT_EQ(t.Points.size(), 6u);
    EXPECT_EQ(*t.Points[3].PauseTime, 0);
    EXPECT_EQ(*t.Points[5].PauseTime, 301);
    EXPECT_EQ(*t.Points[5].Duration, 661);
    EXPECT_EQ(*t.Points[5].StepCourse, 0);  // due north from the anchor
    EXPECT_NEAR(t.Points[5].DistKm, 0.6, 1e-6);
    EXPECT_NEAR(f.s.trackStats.TotalMetres, 600, 1e-6);

    const auto& w = f.s.store.WayPoints;
    ASSERT_EQ(w.size(), 2u);
    EXPECT_EQ(w[0].Name, "Start walk");
    EXPECT_TRUE(w[0].Desc.empty());
    EXPECT_EQ(w[1].Name, "0.6 km 0:05 Pause walk");
    EXPECT_EQ(w[1].Desc, "0:05:01 Pause");
    EXPECT_EQ(*w[1].ForeColor, 16777215);
    EXPECT_EQ(*w[1].BackColor, 16711680);
    EXPECT_EQ(*w[1].Alt, 100);

    // A ten-minute pause is summed but stays below a 15-minute limit.
    f.s.options.KarteKoordInput[0] = "15";
    f.add(PointAt(610, 0, kTen + 700));
    f.add(PointAt(800, 0, kTen + 1261));
    EXPECT_EQ(*f.track(0).Points[7].PauseTime, 901);
    EXPECT_EQ(f.s.store.WayPoints.size(), 2u);
    EXPECT_EQ(f.s.store.StatusText.text(), "Lese Trackpunkte: 8");
}

TEST(ReadFilterTrack, TimeWindowComparesTheTimeOfDayOnly) {
    FilterSession f;
    Options& o = f.s.options;
    o.Check[9] = 1;
    o.TextZeit[0] = "10:00:00";
    o.TextZeit[1] = "12:00:00";
    f.add(PointAt(0, 0, 9 * 3600));  // the reduction's first point comes before the window
    f.add(PointAt(100, 0, kTen - 1));
    f.add(PointAt(200, 0, kTen));
    f.add(PointAt(300, 0, 12 * 3600));
    f.add(PointAt(400, 0, 12 * 3600 + 1));
    f.add(PointAt(500, 0, 11 * 3600, test::kDay + 1));  // the next day's morning
    f.add(PointAt(600, 0, 13 * 3600, test::kDay + 1));
    EXPECT_EQ(f.points(0), 4u);
    EXPECT_EQ(f.s.store.SkippedTrackPoints, 3);

    // A window across midnight holds no time of day: start is after end.
    o.TextZeit[0] = "22:00:00";
    o.TextZeit[1] = "02:00:00";
    f.add(PointAt(700, 0, 23 * 3600));
    f.add(PointAt(800, 0, 1 * 3600));
    EXPECT_EQ(f.points(0), 4u);
    // A text that is no time switches the window off.
    o.TextZeit[1] = "spät";
    f.add(PointAt(900, 0, 23 * 3600));
    EXPECT_EQ(f.points(0), 5u);
}

TEST(ReadFilterTrack, WithoutTimeDataPointsKeepOnlyPositionAndLength) {
    FilterSession f;
    f.s.options.Check[8] = 1;
    f.s.options.List[7] = 0;
    f.add(PointAt(0, 0, kTen));
    f.add(PointAt(100, 0, kTen + 60));
    f.add(PointAt(200, 0, kTen + 120));  // replaces the second point
    ASSERT_EQ(f.points(0), 2u);
    for (const TrackPoint& p : f.track(0).Points) {
        EXPECT_TRUE(p.Date_.empty());
        EXPECT_TRUE(p.Time_.empty());
        EXPECT_TRUE(p.Speed.empty());
        EXPECT_TRUE(p.Duration.empty());
        EXPECT_TRUE(p.PauseTime.empty());
        EXPECT_EQ(*p.Alt, 100);
    }
    EXPECT_NEAR(f.track(0).Points[1].DistKm, 0.1, 1e-9);
}

TEST(ReadFilterTrack, RegionTestRefusesPointsOutsideTheMapArea) {
    FilterSession f;
    f.s.options.Check[11] = 1;
    TrackPointIn p = PointAt(0);
    f.add(p);
    p.lon = 40.5;
    f.add(p);
    p.lon = 10;
    p.lat = 59.01;
    f.add(p);
    p.lat = 14.9;
    f.add(p);
    p.lat = 59;
    p.lon = -10;  // the limits themselves lie inside
    f.add(p);
    EXPECT_EQ(f.points(0), 2u);
    EXPECT_EQ(f.s.store.SkippedTrackPoints, 3);
}

TEST(ReadFilterTrack, KeptPointSurvivesClearStore) {
    FilterSession f;
    f.s.options.List[7] = 0;
    f.add(PointAt(0));
    f.add(PointAt(30));
    ClearStore(f.s.store);
    f.add(PointAt(40));  // 10 m from the last file's kept point
    EXPECT_TRUE(f.s.store.Tracks.empty());
    EXPECT_EQ(f.s.store.SkippedTrackPoints, 1);
    EXPECT_DOUBLE_EQ(*f.s.trackFilter.KeptLat, LatAt(30));
}

TEST(ReadFilterTrack, UnchosenDatesAreCountedAsSkipped) {
    FilterSession f;
    NoteDate(f.s, test::kDay);
    NoteDate(f.s, test::kDay + 1);
    f.platform.dateAnswer = {false, true};
    AskDates(f.s);
    f.add(PointAt(0, 0, kTen));
    f.add(PointAt(100, 0, kTen, test::kDay + 1));
    TrackPointIn undated = PointAt(200);
    undated.date.reset();
    f.add(undated);  // cannot be judged by its date: kept
    EXPECT_EQ(f.points(0), 2u);
    EXPECT_EQ(f.s.store.SkippedTrackPoints, 1);
}

TEST(ReadFilterTrack, ReductionEntries) {
    Options o;
    const double metres[] = {0, 0, 1, 5, 10, 25, 50, 100, 250, 500};
    for (int i = 1; i < 10; ++i) {
        o.List[7] = i;
        EXPECT_FALSE(ReductionSetting(o).optimal);
        EXPECT_EQ(ReductionSetting(o).limitMetres, metres[i]);
    }
    o.List[7] = 0;
    EXPECT_TRUE(ReductionSetting(o).optimal);
    o.List[7] = 10;  // no such entry: every point
    EXPECT_EQ(ReductionSetting(o).limitMetres, 0);
    EXPECT_FALSE(ReductionSetting(o).optimal);
}

}  // namespace
}  // namespace ortelix

namespace ortelix::test {
namespace {

// The course of a point is the one from the anchor; back at the anchor itself
// it is the course of the last step instead.
TEST(ReadFilterTrack, StepCourseFromTheAnchorOrElseFromTheLastPoint) {
    FilterSession f;
    f.add(PointAt(0, 0, 0));
    f.add(PointAt(0, 150, 10));  // east: the anchor moves here
    f.add(PointAt(50, 150, 20));  // 50 m north, the anchor stays
    f.add(PointAt(0, 150, 30));   // back on the anchor: the step south counts
    const Track& t = f.track(0);
    ASSERT_EQ(t.Points.size(), 4u);
    EXPECT_EQ(*t.Points[1].StepCourse, 90);
    EXPECT_EQ(*t.Points[2].StepCourse, 0);
    EXPECT_EQ(*t.Points[3].StepCourse, 180);
}

// The forms write whatever is typed into a field: the filters must read any
// text and any index without overflow (the test build halts on undefined
// behaviour) and behave as their nearest sensible value.
TEST(ReadFilterTrack, HostileOptionValuesOverflowNothing) {
    FilterSession f;
    Options& o = f.s.options;
    o.List[7] = 2147483647;  // no such entry: no reduction
    o.List[8] = -2147483647 - 1;
    o.List[44] = 2147483647;
    o.Check[18] = 1;
    o.KarteKoordInput[0] = "1e300";  // a pause longer than any
    o.Check[6] = 1;
    o.KarteKoordInput[1] = "-1e300";  // below 1 counts as 1
    o.Check[14] = 1;
    o.KarteKoordInput[2] = "1e309";
    o.KarteKoordInput[3] = "-1e309";
    o.KarteKoordInput[20] = "1e300";
    for (int i = 0; i < 4; ++i) f.add(PointAt(100.0 * i, 0, i * 3600));
    EXPECT_EQ(PauseLimitSeconds(o), int64_t{60} << 40);
    EXPECT_EQ(ReductionSetting(o).limitMetres, 0);
    EXPECT_FALSE(ReductionSetting(o).optimal);
    // Every point made a track of its own, split by size; none was lost.
    EXPECT_EQ(f.s.store.TrackPointsRead, 4);
    EXPECT_EQ(f.s.store.SkippedTrackPoints, 0);
    // Start and end waypoints of the tracks, no pause waypoint: no pause is that long.
    ASSERT_FALSE(f.s.store.WayPoints.empty());
    for (const GeoPoint& w : f.s.store.WayPoints)
        EXPECT_TRUE(w.Name.rfind("Start ", 0) == 0 || w.Name.rfind("Ende ", 0) == 0) << w.Name;
}

}  // namespace
}  // namespace ortelix::test
