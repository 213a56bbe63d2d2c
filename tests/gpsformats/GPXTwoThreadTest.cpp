// A large GPX file's track points are read on a second thread: the store
// must be the same, point for point, as when one thread reads them, under
// the filters that keep state from point to point.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>

#include "core/ModulArray.h"
#include "core/Session.h"
#include "fake/FakePlatform.h"
#include "gpsformats/GPX.h"

namespace ortelix {
namespace {

// Tracks, segments (one empty, one of points without a position), points
// over several days with gaps, CDATA, a time of day alone, a fix in the
// file's Latin-1 and odd numbers: more points than fit in one block.
std::string MixedFile(int points) {
    std::string t = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<gpx>\n";
    uint32_t seed = 12345;
    auto next = [&] { return seed = seed * 1103515245u + 12345u, (seed >> 8) & 0xFFFF; };
    double lat = 48.1, lon = 11.5;
    int second = 0, day = 10;
    t += "<trk><name>Erste &amp; Beste</name>\n<trkseg></trkseg>\n<trkseg>\n";
    for (int i = 0; i < points; ++i) {
        if (i == points / 3) t += "</trkseg>\n<trkseg>\n";
        if (i == points / 2) t += "</trkseg></trk>\n<trk><name>Zweite</name><trkseg>\n";
        const unsigned r = next();
        lat += (static_cast<int>(r % 201) - 100) * 1e-5;
        lon += (static_cast<int>(r / 201 % 201) - 100) * 1e-5;
        second += (r % 97 == 0) ? 900 : 1;  // now and then a pause
        if (second >= 86400) {
            second -= 86400;
            ++day;
        }
        char when[32];
        std::snprintf(when, sizeof when, "2024-06-%02dT%02d:%02d:%02dZ", day, second / 3600, second / 60 % 60,
                      second % 60);
        char pos[64];
        std::snprintf(pos, sizeof pos, "lat=\"%.7f\" lon=\"%.7f\"", lat, lon);
        t += "<trkpt ";
        if (r % 211 == 0) t += "lon=\"11.0\"";  // no position
        else t += pos;
        t += "><ele>" + std::to_string(500 + static_cast<int>(r % 300)) + "." + std::to_string(r % 10) + "</ele>";
        if (r % 5 == 0) t += "<speed>" + std::to_string(r % 40) + ".25</speed>";
        if (r % 7 == 0) t += "<course>" + std::to_string(r % 720) + "</course>";
        if (r % 13 == 0) t += std::string("<time><![CDATA[") + when + "]]></time>";
        else if (r % 101 == 0) t += "<time>12:00:0" + std::to_string(r % 10) + "Z</time>";
        else t += std::string("<time>") + when + "</time>";
        t += "<sat>" + std::to_string(r % 13) + "</sat>";
        t += (r % 3 == 0) ? "<fix>3d</fix>" : (r % 3 == 1) ? "<fix>g\xE9</fix>" : "";
        t += "</trkpt>\n";
    }
    t += "</trkseg>\n<trkseg><trkpt lon=\"1\"/></trkseg></trk>\n</gpx>\n";
    return t;
}

struct Setting {
    int reduction;  // List[7]: 0 "Optimal", 1 "Alle Punkte", 4 "10 m"
    int joinSegments, pauseWayPoints;
};

void ExpectSameStore(const DataStore& a, const DataStore& b) {
    ASSERT_EQ(a.Tracks.size(), b.Tracks.size());
    for (size_t t = 0; t < a.Tracks.size(); ++t) {
        const Track& x = a.Tracks[t];
        const Track& y = b.Tracks[t];
        EXPECT_EQ(x.Name, y.Name);
        ASSERT_EQ(x.Points.size(), y.Points.size()) << t;
        EXPECT_EQ(x.Points.capacity(), y.Points.capacity()) << t;  // reserved from the survey's counts
        for (size_t i = 0; i < x.Points.size(); ++i) {
            const TrackPoint& p = x.Points[i];
            const TrackPoint& q = y.Points[i];
            ASSERT_TRUE(p.Lat == q.Lat && p.Lon == q.Lon && p.DistKm == q.DistKm && p.Speed == q.Speed &&
                        p.Alt == q.Alt && p.Date_ == q.Date_ && p.Time_ == q.Time_ && p.Duration == q.Duration &&
                        p.PauseTime == q.PauseTime && p.Course == q.Course && p.StepCourse == q.StepCourse &&
                        p.Sat == q.Sat && p.Fix == q.Fix)
                << "track " << t << " point " << i;
        }
    }
    ASSERT_EQ(a.WayPoints.size(), b.WayPoints.size());
    for (size_t i = 0; i < a.WayPoints.size(); ++i) EXPECT_EQ(a.WayPoints[i].Name, b.WayPoints[i].Name);
    EXPECT_EQ(a.TrackCount, b.TrackCount);
    EXPECT_EQ(a.TrackPointsRead, b.TrackPointsRead);
    EXPECT_EQ(a.SkippedTrackPoints, b.SkippedTrackPoints);
    EXPECT_EQ(a.StatusText.text(), b.StatusText.text());
}

TEST(GPXTwoThreads, TheStoreIsTheSameAsWithOneThread) {
    constexpr int kPoints = 30000;  // several blocks of the second thread
    const std::string text = MixedFile(kPoints);
    size_t allKept = 0;  // with "Alle Punkte", which comes first
    for (const Setting set : {Setting{1, 0, 0}, Setting{0, 1, 1}, Setting{4, 0, 1}}) {
        SCOPED_TRACE(testing::Message() << "reduction " << set.reduction << " join " << set.joinSegments);
        FakePlatform pa, pb;
        Session one{pa}, two{pb};
        for (Session* s : {&one, &two}) {
            s->options.List[7] = set.reduction;
            s->options.Check[12] = set.joinSegments;
            s->options.Check[18] = set.pauseWayPoints;
        }
        pa.dateAnswer = pb.dateAnswer = {true, false, true};  // the second day left out
        ReadGPXText(one, text);     // small enough for one thread
        ReadGPXText(two, text, 0);  // every size on two
        ASSERT_GE(pa.datesAsked.size(), 3u);
        EXPECT_EQ(pa.datesAsked, pb.datesAsked);
        ExpectSameStore(one.store, two.store);
        EXPECT_EQ(GPXFileText(one), GPXFileText(two));

        // What one thread read is what the file holds, so the comparison means something.
        const DataStore& st = one.store;
        ASSERT_FALSE(st.Tracks.empty());
        EXPECT_EQ(st.Tracks.front().Name, "Erste & Beste");
        size_t kept = 0, latin = 0;
        for (const Track& t : st.Tracks)
            for (const TrackPoint& p : t.Points) {
                ++kept;
                latin += p.Fix.view() == "g\xC3\xA9";
            }
        EXPECT_GT(latin, 0u);
        if (set.reduction == 1) {
            // Every point with a position is kept, but for those of the day left out.
            allKept = kept;
            EXPECT_GT(kept, static_cast<size_t>(kPoints) / 3);
            EXPECT_LT(kept, static_cast<size_t>(kPoints) * 9 / 10);
        } else {
            EXPECT_LT(kept, allKept);  // the reduction thinned the track
            EXPECT_GT(kept, 100u);
        }
        if (!set.joinSegments) {
            // Two segments of the first track, two of the second (the last without a position).
            ASSERT_EQ(st.Tracks.size(), 4u);
            EXPECT_EQ(st.Tracks[2].Name, "Zweite");
            EXPECT_TRUE(st.Tracks[3].Points.empty());
        }
        if (set.joinSegments) {
            EXPECT_EQ(st.Tracks.size(), 1u);
        }
        if (set.pauseWayPoints) {
            EXPECT_GT(st.WayPoints.size(), 10u);  // start and pauses
        } else {
            EXPECT_TRUE(st.WayPoints.empty());
        }
    }
}

TEST(GPXTwoThreads, LatinFixesAndFaultyPointsComeThroughBothWays) {
    const std::string text =
        "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><gpx><trk><name>T</name><trkseg>"
        "<trkpt lat=\"48.5\" lon=\"11.5\"><fix>g\xE9</fix><sat>4</sat></trkpt>"
        "<trkpt lat=\"\" lon=\"11.6\"/>"
        "<trkpt lat=\"nan\" lon=\"11.6\"/>"
        "<trkpt lat=\"48.6\" lon=\"11.7\"><time>2024-06-01T10:00:00Z</time><fix>3d</fix></trkpt>"
        "<trkpt lat=\"48.7\" lon=\"11.8\"><sat>0000000012</sat><fix>differential</fix></trkpt>"
        "<trkpt lat=\"48.8\" lon=\"11.9\"><sat>12345678</sat><fix>12345678</fix></trkpt>"
        "</trkseg></trk></gpx>";
    for (const size_t from : {size_t{1} << 30, size_t{0}}) {
        FakePlatform p;
        Session s{p};
        s.options.List[7] = 1;
        ReadGPXText(s, text, from);
        ASSERT_EQ(s.store.Tracks.size(), 1u) << from;
        const auto& pts = s.store.Tracks[0].Points;
        ASSERT_EQ(pts.size(), 4u) << from;
        EXPECT_EQ(pts[0].Fix.view(), "g\xC3\xA9") << from;  // decoded to UTF-8
        EXPECT_EQ(*pts[0].Sat, 4);
        EXPECT_EQ(pts[1].Fix.view(), "3d");
        EXPECT_EQ(*pts[1].Time_, 36000);
        // Texts longer than the reader's own copies, and as long as they.
        EXPECT_EQ(*pts[2].Sat, 12) << from;
        EXPECT_EQ(pts[2].Fix.view(), "differ") << from;
        EXPECT_EQ(*pts[3].Sat, 12345) << from;  // the count stops growing past four digits
        EXPECT_EQ(pts[3].Fix.view(), "123456") << from;
        EXPECT_EQ(s.store.SkippedTrackPoints, 1) << from;  // the nan; the empty lat is no point at all
    }
}

// The survey of a large file walks its second half on a second thread, from
// a trkpt start tag near the middle, supposing what holds there nearly
// always. Files where it does not hold are surveyed as one thread would.
TEST(GPXTwoThreads, TheSurveysGuessAtTheMiddleIsCheckedAgainstTheFirstHalf) {
    // `before` ends the first half, `after` begins the second with "<trkpt":
    // padded so that the middle falls between them.
    auto file = [](std::string before, const std::string& after) {
        std::string head = "<gpx><trk><name>T</name><trkseg>\n";
        for (int i = 0; i < 20; ++i)
            head += "<trkpt lat=\"48." + std::to_string(i) + "\" lon=\"11\"><time>2024-05-0" +
                    std::to_string(1 + i % 3) + "T10:00:00Z</time></trkpt>\n";
        before = head + before;
        std::string tail = after;
        for (int i = 0; i < 40; ++i) tail += "\n<trkpt lat=\"47\" lon=\"10\"><time>2024-09-09T01:00:00Z</time></trkpt>";
        tail += "</trkseg></trk></gpx>\n";
        EXPECT_LT(before.size(), tail.size());
        before.resize(tail.size(), ' ');  // the middle: where `after` begins
        return before + tail;
    };
    struct Case {
        const char* what;
        std::string text;
        const char* onlyOneThreadNotes;  // a day that the second half alone would judge otherwise
    };
    const Case cases[] = {
        {"a trp open at the middle",
         file("<track><trp><lat>1</lat><lon>2</lon>",
              "<trkpt lat=\"1\" lon=\"2\"/><date>2024-07-01</date></trp></track>"),
         "2024-07-01"},
        {"a point scanned in full past the middle",
         file("<trkpt lat=\"1\" lon=\"2\"><time><![CDATA[2024-06-01T00:00:00Z]]></time>",
              "<trkpt lat=\"3\" lon=\"4\"><time><![CDATA[2024-08-01T00:00:00Z]]></time></trkpt></trkpt>"),
         nullptr},
        {"the same day on both sides in another form",
         file("<trkpt lat=\"1\" lon=\"2\"><time>2024-06-10T10:00:00Z</time></trkpt>",
              "<trkpt lat=\"3\" lon=\"4\"><time>2024-06-10 12:00:00</time></trkpt>"
              "<trkpt lat=\"5\" lon=\"6\"><time>2024-06-10T13:00:00Z</time></trkpt>"),
         nullptr},
        {"nothing unusual",
         file("<trkpt lat=\"1\" lon=\"2\"><time>2024-06-10T10:00:00Z</time></trkpt>",
              "<trkpt lat=\"3\" lon=\"4\"><time>2024-06-11T12:00:00Z</time></trkpt>"),
         nullptr},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        FakePlatform pa, pb;
        Session one{pa}, two{pb};
        one.options.List[7] = two.options.List[7] = 1;
        ReadGPXText(one, c.text, std::string::npos);
        ReadGPXText(two, c.text, 0);
        ASSERT_GE(pa.datesAsked.size(), 4u);
        EXPECT_EQ(pa.datesAsked, pb.datesAsked);
        EXPECT_EQ(pa.datesAsked.back(), "2024-09-09");  // the last point's day, found by the second half
        if (c.onlyOneThreadNotes) {
            EXPECT_NE(std::find(pa.datesAsked.begin(), pa.datesAsked.end(), c.onlyOneThreadNotes), pa.datesAsked.end());
        }
        ExpectSameStore(one.store, two.store);
    }
}

}  // namespace
}  // namespace ortelix
