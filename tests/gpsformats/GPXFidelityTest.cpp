// What the GPX reader makes of files from elsewhere: UTF-16 and mislabelled
// charsets, times without a date, positions that are missing.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "core/ModulShared.h"
#include "core/ReadFilter.h"
#include "core/Session.h"
#include "fake/FakePlatform.h"
#include "fake/TestFiles.h"
#include "gpsformats/GPX.h"

namespace fs = std::filesystem;

namespace ortelix {
namespace {

class GPXFidelity : public ::testing::Test {
protected:
    void SetUp() override { s.options.List[7] = 1; }  // all points
    std::string Write(const std::string& bytes) {
        const fs::path p = fs::temp_directory_path() /
                           ("ortelix-gpxfid-" + std::to_string(::getpid()) + "-" +
                            ::testing::UnitTest::GetInstance()->current_test_info()->name() + ".gpx");
        std::ofstream(p, std::ios::binary) << bytes;
        paths.push_back(p);
        return p.string();
    }
    void TearDown() override {
        for (const auto& p : paths) fs::remove(p);
    }
    FakePlatform platform;
    Session s{platform};
    std::vector<fs::path> paths;
};

// UTF-8 text (ASCII and the characters below) as UTF-16 units in either order.
std::string AsUtf16(const std::u16string& text, bool big, bool mark) {
    return testfiles::Utf16Bytes(mark ? u"\uFEFF" + text : text, big);
}

TEST_F(GPXFidelity, Utf16FilesAreDecodedAndRead) {
    const std::u16string doc =
        u"<?xml version=\"1.0\" encoding=\"UTF-16\"?>\r\n<gpx><wpt lat=\"47.5\" lon=\"8.5\"><name>Z\u00FCrich \U0001F5FA</name>"
        u"</wpt><trk><name>Tour \u20AC</name><trkseg><trkpt lat=\"47.1\" lon=\"8.1\"><ele>400</ele></trkpt>"
        u"<trkpt lat=\"47.2\" lon=\"8.2\"/></trkseg></trk></gpx>";
    struct Case {
        bool big, mark;
    };
    for (const Case c : {Case{false, true}, Case{true, true}, Case{false, false}, Case{true, false}}) {
        FakePlatform p;
        Session t(p);
        t.options.List[7] = 1;
        ReadGPXFile(t, Write(AsUtf16(doc, c.big, c.mark)));
        SCOPED_TRACE(std::string(c.big ? "big" : "little") + (c.mark ? " with mark" : " without mark"));
        ASSERT_EQ(t.store.WayPoints.size(), 1u);
        EXPECT_EQ(t.store.WayPoints[0].Name, "Z\xC3\xBCrich \xF0\x9F\x97\xBA");
        EXPECT_EQ(t.store.WayPoints[0].Lat, 47.5);
        ASSERT_EQ(t.store.Tracks.size(), 1u);
        EXPECT_EQ(t.store.Tracks[0].Name, "Tour \xE2\x82\xAC");
        ASSERT_EQ(t.store.Tracks[0].Points.size(), 2u);
        EXPECT_EQ(*t.store.Tracks[0].Points[0].Alt, 400);
        EXPECT_EQ(t.store.Tracks[0].Points[1].Lon, 8.2);
    }
}

TEST_F(GPXFidelity, InvalidUtf8IsReadAsWindows1252) {
    // Declared UTF-8 (or nothing) but written by a single-byte program, with
    // one good UTF-8 umlaut among them: nothing is dropped.
    for (const std::string head : {"<?xml version=\"1.0\" encoding=\"UTF-8\"?>", ""}) {
        FakePlatform p;
        Session t(p);
        ReadGPXFile(t, Write(head + "<gpx><wpt lat=\"1\" lon=\"2\"><name>M\xFCnchen \x80 5</name>"
                                    "<desc>Stra\xC3\x9F" "e</desc></wpt></gpx>"));
        ASSERT_EQ(t.store.WayPoints.size(), 1u);
        EXPECT_EQ(t.store.WayPoints[0].Name, "M\xC3\xBCnchen \xE2\x82\xAC 5");
        EXPECT_EQ(t.store.WayPoints[0].Desc, "Stra\xC3\x9F" "e");
    }
}

TEST_F(GPXFidelity, TimeWithoutDateKeepsTheTime) {
    ReadGPXText(s, "<gpx><wpt lat=\"1\" lon=\"1\"><time>12:34:56Z</time></wpt>"
                   "<wpt lat=\"2\" lon=\"2\"><time>2006-13-45T12:00:00Z</time></wpt>"
                   "<rte><rtept lat=\"3\" lon=\"3\"><time>T08:09:10</time></rtept></rte>"
                   "<trk><trkseg>"
                   "<trkpt lat=\"4\" lon=\"4\"><time>T23:59:59Z</time></trkpt>"
                   "<trkpt lat=\"5\" lon=\"5\"><time> 07:00:01 </time></trkpt>"
                   "<trkpt lat=\"6\" lon=\"6\"><time>kaputt</time></trkpt>"
                   "<trkpt lat=\"7\" lon=\"7\"><time>2006-02-16T01:02:03Z</time></trkpt>"
                   "</trkseg></trk></gpx>");
    ASSERT_EQ(s.store.WayPoints.size(), 2u);
    EXPECT_TRUE(s.store.WayPoints[0].Date_.empty());
    EXPECT_EQ(*s.store.WayPoints[0].Time_, 12 * 3600 + 34 * 60 + 56);
    // A date that cannot be read takes its time with it.
    EXPECT_TRUE(s.store.WayPoints[1].Date_.empty());
    EXPECT_TRUE(s.store.WayPoints[1].Time_.empty());
    EXPECT_EQ(*s.store.Routes.at(0).Points.at(0).Time_, 8 * 3600 + 9 * 60 + 10);
    const auto& p = s.store.Tracks.at(0).Points;
    ASSERT_EQ(p.size(), 4u);
    EXPECT_TRUE(p[0].Date_.empty());
    EXPECT_EQ(*p[0].Time_, 86399);
    EXPECT_EQ(*p[1].Time_, 7 * 3600 + 1);
    EXPECT_TRUE(p[2].Time_.empty() && p[2].Date_.empty());
    EXPECT_EQ(*p[3].Date_, 38764);
    EXPECT_EQ(*p[3].Time_, 3723);
}

TEST_F(GPXFidelity, ElementsWithoutPositionAreNotTaken) {
    // The short vocabulary's lon and lat are children: a point lacking one of
    // them (or holding it empty) has no position and never lands at 0/0.
    ReadGPXText(s, "<gpx><wp><name>ohne</name></wp><wp><lon>3</lon><name>halb</name></wp>"
                   "<wp><lon> </lon><lat>4</lat><name>leer</name></wp>"
                   "<wp><lon>7,5</lon><lat>4</lat><name>gut</name></wp>"
                   "<route><name>R</name><rwp><name>ohne</name></rwp><rwp><lon>1</lon><lat>2</lat></rwp></route>"
                   "<track><trp><lat>48</lat></trp><trp><lon>11</lon><lat>48</lat></trp></track>"
                   "<wpt lon=\"1\"><name>ohne lat</name></wpt><wpt lat=\"\" lon=\"1\"/></gpx>");
    ASSERT_EQ(s.store.WayPoints.size(), 1u);
    EXPECT_EQ(s.store.WayPoints[0].Name, "gut");
    EXPECT_EQ(s.store.WayPoints[0].Lon, 7.5);
    ASSERT_EQ(s.store.Routes.size(), 1u);
    ASSERT_EQ(s.store.Routes[0].Points.size(), 1u);
    EXPECT_EQ(s.store.Routes[0].Points[0].Lat, 2);
    ASSERT_EQ(s.store.Tracks.size(), 1u);
    ASSERT_EQ(s.store.Tracks[0].Points.size(), 1u);
    EXPECT_EQ(s.store.Tracks[0].Points[0].Lon, 11);
    // Points without a position are passed over silently, as GPX points without lat are.
    EXPECT_EQ(s.store.SkippedWayPoints, 0);
    EXPECT_EQ(s.store.SkippedTrackPoints, 0);
}


TEST_F(GPXFidelity, SingleByteCharsetsReachEveryKeptText) {
    // The scan walks the bytes as they stand; each text the store keeps is
    // decoded: names of tracks, routes and points, descriptions, the fix.
    ReadGPXFile(s, Write("<?xml version='1.0' encoding='windows-1252'?>\n<gpx>"
                         "<wpt lat=\"1\" lon=\"1\"><name>K\xF6ln \x80</name><cmt>&#252; &amp; \xFC</cmt></wpt>"
                         "<rte><name>R\xE4tsel</name><rtept lat=\"2\" lon=\"2\"><desc>\x93zitiert\x94</desc></rtept></rte>"
                         "<trk><name>Gr\xFCn</name><trkseg><trkpt lat=\"3\" lon=\"3\"><fix>\xB2" "d</fix></trkpt></trkseg></trk>"
                         "<track><name>\xDF</name><trp><lon>4</lon><lat>4</lat><fix>\xE9</fix></trp></track></gpx>"));
    ASSERT_EQ(s.store.WayPoints.size(), 1u);
    EXPECT_EQ(s.store.WayPoints[0].Name, "K\xC3\xB6ln \xE2\x82\xAC");
    EXPECT_EQ(s.store.WayPoints[0].Cmt, "\xC3\xBC & \xC3\xBC");  // a reference and a byte, the same letter
    ASSERT_EQ(s.store.Routes.size(), 1u);
    EXPECT_EQ(s.store.Routes[0].Name, "R\xC3\xA4tsel");
    EXPECT_EQ(s.store.Routes[0].Points.at(0).Desc, "\xE2\x80\x9Czitiert\xE2\x80\x9D");
    ASSERT_EQ(s.store.Tracks.size(), 2u);
    EXPECT_EQ(s.store.Tracks[0].Name, "Gr\xC3\xBCn");
    EXPECT_EQ(s.store.Tracks[0].Points.at(0).Fix.view(), "\xC2\xB2" "d");
    EXPECT_EQ(s.store.Tracks[1].Name, "\xC3\x9F");
    EXPECT_EQ(s.store.Tracks[1].Points.at(0).Fix.view(), "\xC3\xA9");
}

TEST_F(GPXFidelity, EveryTimeTheReaderSeesIsOfferedInTheDateChoice) {
    // Times in CDATA, with blanks, or behind an unclosed child: the date
    // choice offers the same days the points then carry, so a point is never
    // refused for a day that was not offered.
    platform.dateAnswer = {true, false, true};
    ReadGPXText(s, "<gpx><trk><trkseg>"
                   "<trkpt lat=\"1\" lon=\"1\"><time><![CDATA[2006-02-16T10:00:00Z]]></time></trkpt>"
                   "<trkpt lat=\"2\" lon=\"2\"><time>\n 2006-02-17T10:00:00Z </time></trkpt>"
                   "<trkpt lat=\"3\" lon=\"3\"><time>2006-02-18T10:00:00Z<b/></time></trkpt>"
                   "<trkpt lat=\"4\" lon=\"4\"><time>2006-02-19T10:00:00Z</trkpt>"
                   "</trkseg></trk></gpx>");
    ASSERT_EQ(platform.datesAsked.size(), 3u);
    EXPECT_EQ(platform.datesAsked[0], "2006-02-16");
    EXPECT_EQ(platform.datesAsked[1], "2006-02-17");
    EXPECT_EQ(platform.datesAsked[2], "2006-02-18");
    ASSERT_EQ(s.store.Tracks.size(), 1u);
    const auto& p = s.store.Tracks[0].Points;
    ASSERT_EQ(p.size(), 3u);  // the 17th is not wanted; the point with an unclosed time has no date
    EXPECT_EQ(p[0].Lat, 1);
    EXPECT_EQ(p[1].Lat, 3);
    EXPECT_EQ(p[2].Lat, 4);
    EXPECT_TRUE(p[2].Date_.empty());
    EXPECT_EQ(s.store.SkippedTrackPoints, 1);
}


TEST_F(GPXFidelity, TimesOfPointsFollowTheTextRoutines) {
    // Every form a time may take, in runs and alternating, against ParseDate
    // and ParseTime: a date that cannot be read leaves both empty, a text that
    // holds only a time keeps it.
    const std::string texts[] = {"2006-02-16T10:00:00Z", "2006-02-16T10:00:01Z", "2006-02-17t23:59:59",
                                 "2006-02-16T10:00:02.5Z", "2006-02-16T24:00:00Z", "2006-02-16T10:60:00Z",
                                 "2006-02-16T10:00:60Z", "2006-13-16T10:00:00Z", "2006-02-30T10:00:00Z",
                                 "2004-02-29T01:02:03Z", "2005-02-29T01:02:03Z", "2006-02-16T10:00:00+02:00",
                                 "2006-02-16 10:00:00", "2006-02-16", "T10:11:12", "10:11:12Z", "2006-2-16T10:00:00Z",
                                 "16.02.2006", "2006-02-16T1:00:00Z", "2006-02-16T10:00Z", "0001-01-01T00:00:00Z",
                                 "9999-12-31T23:59:59Z", "2006-02-1xT10:00:00Z", "2006-02-16T10:0x:00Z"};
    std::string gpx = "<gpx><trk><trkseg>";
    std::vector<std::string> used;
    for (int round = 0; round < 3; ++round)
        for (const std::string& t : texts) {
            gpx += "<trkpt lat=\"" + std::to_string(1 + used.size() * 0.001) + "\" lon=\"1\"><time>" + t + "</time></trkpt>";
            used.push_back(t);
        }
    gpx += "</trkseg></trk></gpx>";
    ReadGPXText(s, gpx);
    ASSERT_EQ(s.store.Tracks.size(), 1u);
    const auto& p = s.store.Tracks[0].Points;
    ASSERT_EQ(p.size(), used.size());
    for (size_t i = 0; i < used.size(); ++i) {
        const std::string& t = used[i];
        const Date date = ParseDate(t);
        const bool timeOnly = t[0] == 'T' || t.find_first_of("tT") == std::string::npos;
        const Time time = (date.has() || timeOnly) ? ParseTime(t) : Time();
        EXPECT_EQ(p[i].Date_, date) << t;
        EXPECT_EQ(p[i].Time_, time) << t;
    }
}

}  // namespace
}  // namespace ortelix
