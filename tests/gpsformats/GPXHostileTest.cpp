// Inputs made to cost: each is read once at size n and once at 4n. A linear
// reader takes about four times as long; one that searches the rest of the
// text per record takes sixteen. The values read are checked too, so a
// reader that is fast because it stops early fails as well.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <string>

#include "core/ModulShared.h"
#include "core/Session.h"
#include "fake/FakePlatform.h"
#include "gpsformats/ElementScan.h"
#include "gpsformats/GPX.h"

namespace ortelix {
namespace {

// A waypoint whose name is n times "&x": an "&" that never ends in ";".
std::string AmpersandsWithoutSemicolon(size_t n) {
    std::string t = "<gpx><wpt lat=\"48.5\" lon=\"11.5\"><name>";
    for (size_t i = 0; i < n; ++i) t += "&x";
    return t + "</name></wpt></gpx>";
}

// n track points, each with an <ele> that is never closed.
std::string UnclosedEle(size_t n) {
    std::string t = "<gpx><trk><trkseg>\n";
    for (size_t i = 0; i < n; ++i)
        t += "<trkpt lat=\"48." + std::to_string(100000 + i) + "\" lon=\"11.5\"><ele>5</trkpt>\n";
    return t + "</trkseg></trk></gpx>";
}

// n track points, each on a day of its own (from 1900 on).
std::string DistinctDays(size_t n) {
    std::string t = "<gpx><trk><trkseg>\n";
    for (size_t i = 0; i < n; ++i)
        t += "<trkpt lat=\"48." + std::to_string(100000 + i) + "\" lon=\"11.5\"><time>" + IsoDate(static_cast<int32_t>(i + 2)) +
             "T12:00:00Z</time></trkpt>\n";
    return t + "</trkseg></trk></gpx>";
}

// n segments of one point each, for a reader that appends them to one track.
std::string ManySegments(size_t n) {
    std::string t = "<gpx><trk>\n";
    for (size_t i = 0; i < n; ++i)
        t += "<trkseg><trkpt lat=\"48." + std::to_string(100000 + i) + "\" lon=\"11.5\"/></trkseg>\n";
    return t + "</trk></gpx>";
}

// The best of three reads, in seconds; `check` sees the session of each.
double ReadSeconds(const std::string& text, const std::function<void(const Session&)>& check, bool append = false) {
    double best = 1e9;
    for (int run = 0; run < 3; ++run) {
        FakePlatform platform;
        Session s(platform);
        s.options.List[7] = 1;  // all points
        s.options.Check[12] = append ? 1 : 0;  // "Tracks anhängen"
        const auto t0 = std::chrono::steady_clock::now();
        ReadGPXText(s, text);
        best = std::min(best, std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count());
        check(s);
    }
    return best;
}

// Growth of the cost from n to 4n: about 4 when linear, 16 when quadratic.
// The small size's time is floored so that timer noise on a tiny figure
// cannot fake a large growth, and the bound lies well above 4: the suite
// shares two cores with the build, and caches favour the small input.
void ExpectLinear(const char* what, double small, double large) {
    const double growth = large / std::max(small, 0.005);
    EXPECT_LT(growth, 11.0) << what << ": " << small << " s at n, " << large << " s at 4n";
}

TEST(GPXHostile, EachShapeCostsInProportionToItsSize) {
    {
        const size_t n = 60000;
        auto check = [](size_t count) {
            return [count](const Session& s) {
                ASSERT_EQ(s.store.WayPoints.size(), 1u);
                EXPECT_EQ(s.store.WayPoints[0].Name.size(), 2 * count);  // every "&" kept as it stands
                EXPECT_EQ(s.store.WayPoints[0].Name.substr(0, 4), "&x&x");
            };
        };
        ExpectLinear("'&' without ';'", ReadSeconds(AmpersandsWithoutSemicolon(n), check(n)),
                     ReadSeconds(AmpersandsWithoutSemicolon(4 * n), check(4 * n)));
    }
    {
        const size_t n = 5000;
        auto check = [](size_t count) {
            return [count](const Session& s) {
                ASSERT_EQ(s.store.Tracks.size(), 1u);
                ASSERT_EQ(s.store.Tracks[0].Points.size(), count);
                EXPECT_TRUE(s.store.Tracks[0].Points.back().Alt.empty());  // never closed: no altitude
            };
        };
        ExpectLinear("unclosed <ele>", ReadSeconds(UnclosedEle(n), check(n)), ReadSeconds(UnclosedEle(4 * n), check(4 * n)));
    }
    {
        const size_t n = 5000;
        auto check = [](size_t count) {
            return [count](const Session& s) {
                ASSERT_EQ(s.store.Tracks.size(), 1u);
                ASSERT_EQ(s.store.Tracks[0].Points.size(), count);  // every day offered and ticked
                EXPECT_EQ(*s.store.Tracks[0].Points.back().Date_, static_cast<int32_t>(count + 1));
                EXPECT_TRUE(s.dates.Dates.empty() && s.dates.known.empty());
            };
        };
        ExpectLinear("distinct days", ReadSeconds(DistinctDays(n), check(n)), ReadSeconds(DistinctDays(4 * n), check(4 * n)));
    }
    {
        const size_t n = 5000;
        auto check = [](size_t count) {
            return [count](const Session& s) {
                ASSERT_EQ(s.store.Tracks.size(), 1u);
                EXPECT_EQ(s.store.Tracks[0].Points.size(), count);
            };
        };
        ExpectLinear("segments appended to one track", ReadSeconds(ManySegments(n), check(n), true),
                     ReadSeconds(ManySegments(4 * n), check(4 * n), true));
    }
}

// Shapes aimed at the walk that collects the dates before the reading:
// points never closed whose times are not plain text, start tags whose ">"
// lies far ahead, and points nested in one that closes only at the end.
std::string NeverClosedCdataTimes(size_t n) {
    std::string t = "<gpx><trk><trkseg>";
    for (size_t i = 0; i < n; ++i) t += "<trkpt lat=\"1\" lon=\"1\"><time><![CDATA[2006-02-16T10:00:00Z]]></time>\n";
    return t + "</trkseg></trk></gpx>";
}
std::string FarGreaterThan(size_t n) {
    std::string t = "<gpx><trk><trkseg>";
    for (size_t i = 0; i < n; ++i) t += "<trkpt <time ";
    return t + "></trkseg></trk></gpx>";
}
std::string NestedInOne(size_t n) {
    std::string t = "<gpx><trk><trkseg><trkpt lat=\"2\" lon=\"2\">";
    for (size_t i = 0; i < n; ++i) t += "<trkpt lat=\"1\" lon=\"1\"><time>2006-02-16T10:00:00Z<b/></time>\n";
    return t + "</trkpt></trkseg></trk></gpx>";
}

TEST(GPXHostile, DateWalkCostsInProportionToItsSize) {
    const size_t n = 20000;
    auto none = [](const Session& s) {
        EXPECT_TRUE(s.store.Tracks.empty() || s.store.Tracks[0].Points.empty());
    };
    ExpectLinear("never closed, times in CDATA", ReadSeconds(NeverClosedCdataTimes(n), none),
                 ReadSeconds(NeverClosedCdataTimes(4 * n), none));
    ExpectLinear("'>' far ahead", ReadSeconds(FarGreaterThan(n), none), ReadSeconds(FarGreaterThan(4 * n), none));
    auto one = [](const Session& s) {
        ASSERT_EQ(s.store.Tracks.size(), 1u);
        ASSERT_EQ(s.store.Tracks[0].Points.size(), 1u);  // the outer point, with the first time inside it
        EXPECT_EQ(s.store.Tracks[0].Points[0].Lat, 2);
        EXPECT_EQ(*s.store.Tracks[0].Points[0].Date_, 38764);
    };
    ExpectLinear("points nested in one", ReadSeconds(NestedInOne(n), one), ReadSeconds(NestedInOne(4 * n), one));
}

// Room is made for a segment's points at once, but a count of tags that hold
// no point does not make room for them.
TEST(GPXHostile, RoomForPointsFollowsWhatCanBeKept) {
    FakePlatform platform;
    Session s(platform);
    s.options.List[7] = 1;
    std::string t = "<gpx><trk><trkseg>";
    for (int i = 0; i < 3000; ++i) t += "<trkpt lat=\"48." + std::to_string(1000 + i) + "\" lon=\"11\"/>";
    t += "</trkseg><trkseg><trkpt lat=\"47\" lon=\"11\"/>";
    for (int i = 0; i < 200000; ++i) t += "<trkpt/>";
    t += "</trkseg></trk></gpx>";
    ReadGPXText(s, t);
    ASSERT_EQ(s.store.Tracks.size(), 2u);
    EXPECT_EQ(s.store.Tracks[0].Points.size(), 3000u);
    EXPECT_EQ(s.store.Tracks[0].Points.capacity(), 3000u);  // made once, to the point
    EXPECT_EQ(s.store.Tracks[1].Points.size(), 1u);
    EXPECT_LE(s.store.Tracks[1].Points.capacity(), 200000u * 8 / 24 + 1);  // not 200,001
}

// What the bounded searches must still find: a child closed late in its
// point, a child left open beside closed ones, entities near the look-ahead
// limit.
TEST(GPXHostile, BoundedSearchesKeepTheirResults) {
    FakePlatform platform;
    Session s(platform);
    s.options.List[7] = 1;
    ReadGPXText(s, "<gpx><trk><trkseg>"
                   "<trkpt lat=\"1\" lon=\"1\"><ele>5<time>2006-02-16T10:00:00Z</time><sat>4</sat></trkpt>"
                   "<trkpt lat=\"2\" lon=\"2\"><ele>7<b/>8</ele><ele>9</ele><course>90<speed>3</speed></course></trkpt>"
                   "<trkpt lat=\"3\" lon=\"3\"><ele>1<ele>2</ele></trkpt>"
                   "<trkpt lat=\"4\" lon=\"4\"><ele<sat>6</sat><ele>3</ele></trkpt>"
                   "<trkpt lat=\"5\" lon=\"5\"><speed>4</trkpt><speed>9</speed>"
                   "</trkseg></trk></gpx>");
    ASSERT_EQ(s.store.Tracks.size(), 1u);
    const auto& p = s.store.Tracks[0].Points;
    ASSERT_EQ(p.size(), 5u);
    EXPECT_TRUE(p[0].Alt.empty());      // its <ele> never closes inside the point
    EXPECT_EQ(*p[0].Time_, 36000);      // the children behind it are still read
    EXPECT_EQ(*p[0].Sat, 4);
    EXPECT_EQ(*p[1].Alt, 7);            // the first <ele>, closed behind a tag inside it
    EXPECT_EQ(*p[1].Course, 90);        // a child holding another child
    EXPECT_DOUBLE_EQ(*p[1].Speed, 3 * 3.6);
    EXPECT_EQ(*p[2].Alt, 1);            // "1<ele>2": the first <ele> up to the first </ele>
    EXPECT_EQ(*p[3].Alt, 3);            // "<ele<" opens no element
    EXPECT_EQ(*p[3].Sat, 6);
    EXPECT_TRUE(p[4].Speed.empty());    // the next point's closing tag is not this point's

    EXPECT_EQ(DecodeEntities("a &#x10FFFF; b &#1114111; c"), "a \xF4\x8F\xBF\xBF b \xF4\x8F\xBF\xBF c");
    EXPECT_EQ(DecodeEntities("&#x0010FFFF; &amp"), "&#x0010FFFF; &amp");  // too long, unfinished
    EXPECT_EQ(DecodeEntities("&amp;&lt;&gt;&quot;&apos;&#65;&#x42;"), "&<>\"'AB");
    EXPECT_EQ(DecodeEntities("&&amp;;&#xD800;"), "&&;&#xD800;");  // a surrogate is no character
}

}  // namespace
}  // namespace ortelix
