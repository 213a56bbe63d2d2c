// The store's counters, names, slot reuse and bounding boxes.
#include <gtest/gtest.h>

#include <cmath>

#include "core/ModulArray.h"
#include "core/ReadFilter.h"
#include "core/Session.h"
#include "fake/FakePlatform.h"

namespace ortelix {
namespace {

TrackPointIn Pt(double lon, double lat) {
    TrackPointIn p;
    p.lon = lon;
    p.lat = lat;
    return p;
}

TEST(Store, TrackPointIsSmall) { EXPECT_LE(sizeof(TrackPoint), 64u); }

TEST(Store, NewTrackReusesAnEmptyLastTrackAndNamesByPreference) {
    DataStore s;
    NewTrack(s, "erste");
    NewTrack(s, "zweite");  // the first has no point yet: reused, name kept
    ASSERT_EQ(s.Tracks.size(), 1u);
    EXPECT_EQ(s.Tracks[0].Name, "erste");
    StoreTrackPoint(s, Pt(11, 48));
    s.PendingName = "datei";
    NewTrack(s);
    EXPECT_EQ(s.Tracks.back().Name, "datei");
    StoreTrackPoint(s, Pt(11, 48));
    s.PendingName.clear();
    NewTrack(s);
    EXPECT_EQ(s.Tracks.back().Name, "T3");
    EXPECT_EQ(s.TrackCount, 3);

    NewRoute(s);
    EXPECT_EQ(s.Routes.back().Name, "R_1");
    EXPECT_EQ(s.RouteCount, 1);
}

TEST(Store, PointsAreRoundedCountedAndBoxed) {
    FakePlatform p;
    Session s(p);
    TrackPointIn t = Pt(11.5, 48.25);
    t.alt = 512.5;   // halves go to even
    t.course = 90.6;
    t.sat = "07";
    t.fix = "dgps";
    AddTrackPoint(s, t);
    t = Pt(12.0, 47.0);
    t.alt = 513.5;
    AddTrackPoint(s, t);
    const auto& pts = s.store.Tracks.at(0).Points;
    ASSERT_EQ(pts.size(), 2u);
    EXPECT_EQ(*pts[0].Alt, 512);
    EXPECT_EQ(*pts[1].Alt, 514);
    EXPECT_EQ(*pts[0].Course, 91);
    EXPECT_EQ(*pts[0].Sat, 7);
    EXPECT_EQ(pts[0].Fix.view(), "dgps");
    EXPECT_TRUE(pts[1].Speed.empty());
    EXPECT_EQ(s.store.TrackPointsRead, 2);
    EXPECT_EQ(s.store.StatusText.text(), "Lese Trackpunkte: 2");
    EXPECT_EQ(s.store.TrackRouteBox, (Box{11.5, 47.0, 12.0, 48.25}));

    GeoPointIn r;
    r.lon = 10;
    r.lat = 50;
    r.alt = -3.5;
    AddRoutePoint(s.store, r);
    EXPECT_EQ(s.store.RouteCount, 1);
    EXPECT_EQ(*s.store.Routes[0].Points[0].Alt, -4);
    EXPECT_EQ(s.store.TrackRouteBox, (Box{10, 47.0, 12.0, 50}));
    EXPECT_EQ(s.store.StatusText.text(), "Lese Wegepunkte: 1");
}

TEST(Store, WayPointsColoursZeroPointAndListName) {
    FakePlatform p;
    Session s(p);
    s.store.PendingName = "liste";
    GeoPointIn w;
    w.lon = 0;
    w.lat = 0;
    w.foreColor = 5;
    w.backColor = 5;
    AddWayPoint(s, w);
    ASSERT_EQ(s.store.WayPoints.size(), 1u);
    EXPECT_EQ(*s.store.WayPoints[0].ForeColor, 0);
    EXPECT_EQ(*s.store.WayPoints[0].BackColor, 65535);
    EXPECT_EQ(s.store.WayPointBox, Box{});  // 0,0 does not move the box
    EXPECT_EQ(s.store.WayPointListName, "liste");

    w.lon = 8;
    w.lat = -2;
    w.foreColor = 255;
    w.backColor = OptInt();
    AddWayPoint(s, w);
    EXPECT_EQ(*s.store.WayPoints[1].ForeColor, 255);
    EXPECT_TRUE(s.store.WayPoints[1].BackColor.empty());
    EXPECT_EQ(s.store.WayPointCount, 2);
    EXPECT_EQ(s.store.WayPointBox, (Box{8, -2, 8, -2}));
}

TEST(Store, UpdateBoxOverwritesSidesAtExactlyZero) {
    Box b;
    UpdateBox(b, -1, 0.5);
    UpdateBox(b, 2, 1);
    EXPECT_EQ(b, (Box{-1, 0.5, 2, 1}));
    Box z{0, 40, 5, 45};  // a real west side at 0 is taken by the next point
    UpdateBox(z, 3, 42);
    EXPECT_EQ(z.West, 3);
    UpdateBox(z, 0, 0);
    EXPECT_EQ(z.West, 3);
}

TEST(Store, GrowAndClear) {
    FakePlatform p;
    Session s(p);
    EXPECT_EQ(GrowWayPoints(s.store, 3), 0u);
    EXPECT_EQ(GrowWayPoints(s.store, 2), 3u);
    EXPECT_EQ(s.store.WayPoints.size(), 5u);
    EXPECT_EQ(s.store.WayPointCount, 0);  // reserving counts nothing
    AddTrackPoint(s, Pt(1, 1));
    s.store.SkippedWayPoints = 4;
    NewFlaeche(s.store);
    ClearStore(s.store);
    EXPECT_TRUE(s.store.WayPoints.empty());
    EXPECT_TRUE(s.store.Tracks.empty());
    EXPECT_TRUE(s.store.Flaechen.empty());
    EXPECT_EQ(s.store.TrackPointsRead + s.store.SkippedWayPoints + s.store.FlaecheCount + s.store.TrackCount, 0);
    EXPECT_EQ(s.store.TrackRouteBox, Box{});
    EXPECT_EQ(s.store.StatusText.text(), "");
}

TEST(Store, ReplaceLastTrackPointKeepsCountsAndCanDropTimeData) {
    FakePlatform p;
    Session s(p);
    AddTrackPoint(s, Pt(1, 1));
    TrackPointIn n = Pt(2, 2);
    n.date = 38764;
    n.time = 3600;
    n.speed = 12.5;
    n.alt = 99.4;
    ReplaceLastTrackPoint(s.store, n, true);
    const TrackPoint& t = s.store.Tracks[0].Points.back();
    EXPECT_EQ(t.Lon, 2);
    EXPECT_EQ(*t.Alt, 99);
    EXPECT_TRUE(t.Date_.empty());
    EXPECT_TRUE(t.Time_.empty());
    EXPECT_TRUE(t.Speed.empty());
    EXPECT_EQ(s.store.Tracks[0].Points.size(), 1u);
}

// Numbers no receiver gives: every entry of the store refuses a position or
// altitude that is not finite or off the earth and counts it; a speed or
// course out of range only empties its field. The filters never see them.
TEST(Store, NumbersOffTheEarthAreRefusedAtEveryEntry) {
    FakePlatform p;
    Session s(p);
    s.options.List[7] = 0;  // "Optimal": a NaN would poison the kept point
    s.options.Check[14] = 1;  // the gap test measures with every point
    s.options.KarteKoordInput[2] = "5";
    s.options.KarteKoordInput[3] = "300";
    const double nan = std::nan(""), inf = HUGE_VAL;
    const double bad[][2] = {{nan, 48}, {11, nan}, {inf, 48}, {11, -inf}, {11, 90.000001},
                             {11, -91},  {360.5, 0}, {-361, 0}, {1e308, 1e308}};
    for (const auto& b : bad) {
        AddTrackPoint(s, Pt(b[0], b[1]));
        AppendTrackPoint(s, Pt(b[0], b[1]));
        GeoPointIn g;
        g.lon = b[0];
        g.lat = b[1];
        AddWayPoint(s, g);
        AddRoutePoint(s.store, g);
    }
    for (double alt : {inf, -inf, 1.0e6 + 1, -2.0e6}) {
        TrackPointIn t = Pt(11, 48);
        t.alt = alt;
        AddTrackPoint(s, t);
        GeoPointIn g;
        g.lon = 11;
        g.lat = 48;
        g.alt = alt;
        AddWayPoint(s, g);
        AddRoutePoint(s.store, g);
    }
    EXPECT_EQ(s.store.SkippedTrackPoints, 9 * 2 + 4);
    EXPECT_EQ(s.store.SkippedWayPoints, 9 + 4);
    EXPECT_EQ(s.store.SkippedRoutePoints, 9 + 4);
    EXPECT_TRUE(s.store.Tracks.empty());
    EXPECT_TRUE(s.store.WayPoints.empty());
    EXPECT_TRUE(s.store.Routes.empty());
    EXPECT_TRUE(s.trackFilter.KeptLon.empty());  // the reduction never took a bad point
    EXPECT_EQ(s.store.TrackRouteBox, Box{});

    // The edges of the earth and of the 0..360 convention are kept.
    s.options.Check[14] = 0;
    s.options.List[7] = 1;
    TrackPointIn edge = Pt(360, -90);
    edge.alt = -1.0e6;
    edge.speed = -1.0;   // "unknown" in some formats: emptied
    edge.course = 999;   // likewise
    AddTrackPoint(s, edge);
    TrackPointIn fine = Pt(-360, 90);
    fine.speed = 1.0e5;
    fine.course = -360;
    AppendTrackPoint(s, fine);
    TrackPointIn fast = Pt(-180, 0.5);
    fast.speed = inf;
    fast.course = nan;
    AppendTrackPoint(s, fast);
    ASSERT_EQ(s.store.Tracks.size(), 1u);
    const auto& t = s.store.Tracks[0].Points;
    ASSERT_EQ(t.size(), 3u);
    EXPECT_EQ(*t[0].Alt, -1000000);
    EXPECT_TRUE(t[0].Speed.empty());
    EXPECT_TRUE(t[0].Course.empty());
    EXPECT_EQ(*t[1].Speed, 1.0e5);
    EXPECT_EQ(*t[1].Course, -360);
    EXPECT_TRUE(t.back().Speed.empty());
    GeoPointIn g;
    g.lon = -360;
    g.lat = 90;
    g.alt = 1.0e6;
    g.course = 720.5;
    AddWayPoint(s, g);
    AddRoutePoint(s.store, g);
    ASSERT_EQ(s.store.WayPoints.size(), 1u);
    EXPECT_EQ(*s.store.WayPoints[0].Alt, 1000000);
    EXPECT_TRUE(s.store.WayPoints[0].Course.empty());
    ASSERT_EQ(s.store.RoutePointTotal(), 1);
    EXPECT_TRUE(s.store.Routes[0].Points[0].Course.empty());
    EXPECT_EQ(s.store.SkippedTrackPoints, 9 * 2 + 4);

    ClearStore(s.store);
    EXPECT_EQ(s.store.SkippedRoutePoints, 0);
}

// Rounding to whole numbers never takes the undefined cast.
TEST(Store, RoundWholeHoldsAtTheEndsOfItsRange) {
    EXPECT_EQ(RoundWhole(2.5), 2);
    EXPECT_EQ(RoundWhole(3.5), 4);
    EXPECT_EQ(RoundWhole(-2.5), -2);
    EXPECT_EQ(RoundWhole(2147483646.4), 2147483646);
    EXPECT_EQ(RoundWhole(1e300), 2147483647);
    EXPECT_EQ(RoundWhole(-HUGE_VAL), -2147483647);
    EXPECT_EQ(RoundWhole(std::nan("")), 0);
}

}  // namespace
}  // namespace ortelix
