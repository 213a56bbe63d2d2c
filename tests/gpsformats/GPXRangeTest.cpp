// Numbers no receiver gives: not finite, or far outside the earth. The
// reader hands them to the store as they are (never through an integer), and
// the store refuses the point and counts it.
#include <gtest/gtest.h>

#include <cmath>

#include "core/Session.h"
#include "fake/FakePlatform.h"
#include "gpsformats/GPX.h"

namespace ortelix {
namespace {

TEST(GPXRange, AbsurdNumbersAreRefusedPerPoint) {
    FakePlatform platform;
    Session s(platform);
    s.options.List[7] = 1;  // all points
    ReadGPXText(s, "<gpx>"
                   "<wpt lat=\"nan\" lon=\"1\"><name>a</name></wpt>"
                   "<wpt lat=\"1e309\" lon=\"1\"><name>b</name></wpt>"
                   "<wpt lat=\"1\" lon=\"-INF\"><name>c</name></wpt>"
                   "<wpt lat=\"91\" lon=\"1\"><name>d</name></wpt>"
                   "<wpt lat=\"-47.25\" lon=\"-170.5\"><name>gut</name></wpt>"
                   "<wp><lon>NaN</lon><lat>1</lat><name>e</name></wp>"
                   "<rte><rtept lat=\"1\" lon=\"1e309\"/><rtept lat=\"2\" lon=\"3\"/><rtept lat=\"-91\" lon=\"3\"/></rte>"
                   "<route><rwp><lon>inf</lon><lat>1</lat></rwp></route>"
                   "<trk><trkseg>"
                   "<trkpt lat=\"nan\" lon=\"nan\"/><trkpt lat=\"10\" lon=\"361\"/><trkpt lat=\"1e309\" lon=\"1\"/>"
                   "<trkpt lat=\"-90\" lon=\"-180\"><ele>-12</ele></trkpt>"
                   "<trkpt lat=\"5\" lon=\"5\"><ele>1e309</ele><speed>1e400</speed><course>1e400</course></trkpt>"
                   "</trkseg></trk></gpx>");
    ASSERT_EQ(s.store.WayPoints.size(), 1u);
    EXPECT_EQ(s.store.WayPoints[0].Name, "gut");
    EXPECT_EQ(s.store.SkippedWayPoints, 5);
    ASSERT_EQ(s.store.Routes.size(), 2u);
    ASSERT_EQ(s.store.Routes[0].Points.size(), 1u);
    EXPECT_EQ(s.store.Routes[0].Points[0].Lon, 3);
    EXPECT_TRUE(s.store.Routes[1].Points.empty());
    EXPECT_EQ(s.store.SkippedRoutePoints, 3);
    ASSERT_EQ(s.store.Tracks.size(), 1u);
    const auto& p = s.store.Tracks[0].Points;
    ASSERT_GE(p.size(), 1u);
    EXPECT_EQ(p[0].Lat, -90);
    EXPECT_EQ(*p[0].Alt, -12);
    // Absurd heights, speeds and courses either refuse the point or leave
    // the field empty (a speed may be cut to the highest one read); they
    // never arrive as what they say.
    if (p.size() == 2) {
        EXPECT_EQ(s.store.SkippedTrackPoints, 3);
        EXPECT_TRUE(p[1].Alt.empty());
        EXPECT_TRUE(p[1].Course.empty());
        EXPECT_TRUE(p[1].Speed.empty() || (*p[1].Speed >= 0 && *p[1].Speed <= 2000 * 3.6)) << *p[1].Speed;
    } else {
        EXPECT_EQ(p.size(), 1u);
        EXPECT_EQ(s.store.SkippedTrackPoints, 4);
    }
    for (const auto& w : s.store.WayPoints) EXPECT_TRUE(std::isfinite(w.Lat) && std::isfinite(w.Lon));
}

}  // namespace
}  // namespace ortelix
