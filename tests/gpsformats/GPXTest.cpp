// GPX: reading both vocabularies, the writer's fixed lines, round trips,
// broken files, and the check against gpsbabel.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "commands/CommandTable.h"
#include "core/Failure.h"
#include "core/FileIO.h"
#include "core/ModulShared.h"
#include "core/ReadFilter.h"
#include "core/Session.h"
#include "fake/FakePlatform.h"
#include "gpsformats/ElementScan.h"
#include "gpsformats/GPX.h"

namespace fs = std::filesystem;

namespace ortelix {
namespace {

class GPX : public ::testing::Test {
protected:
    void SetUp() override {
        dir = fs::temp_directory_path() / ("ortelix-gpx-" + std::to_string(::getpid()) + "-" +
                                           ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::create_directories(dir);
        s.options.List[7] = 1;  // all points
    }
    void TearDown() override { fs::remove_all(dir); }
    std::string Write(const std::string& name, const std::string& text) {
        const std::string p = (dir / name).string();
        std::ofstream(p, std::ios::binary) << text;
        return p;
    }
    FakePlatform platform;
    Session s{platform};
    fs::path dir;
};

TEST_F(GPX, ReadsTracksRoutesWaypointsWithTheirFields) {
    ReadGPXText(s, R"(<?xml version="1.0"?>
<GPX><wpt lat="48.5" lon="11.25"><ele>519.7</ele><time>2006-02-16T16:23:10Z</time>
<name>Gipfel &amp; Hütte</name><cmt>c</cmt><desc><![CDATA[<b>fett</b>]]></desc></wpt>
<rte><name>Runde</name><rtept lat="48.1" lon="11.1"><name>A</name><course>370</course></rtept>
<rtept lat="48.2" lon="11.2"><ele>-150</ele></rtept></rte>
<trk><name>Tour</name><trkseg>
<trkpt lat="48.3" lon="11.7"><ele>500</ele><speed>1.9</speed><course>725</course><time>2006-02-16T10:00:00Z</time><sat>7</sat><fix>3d</fix></trkpt>
<trkpt lon="11.8"><ele>1</ele></trkpt>
<TRKPT LAT="48.4" LON="11.9"><time>kaputt</time></TRKPT>
</trkseg><trkseg></trkseg><trkseg><trkpt lat='1' lon='2'/></trkseg></trk></GPX>)");
    ASSERT_EQ(s.store.WayPoints.size(), 1u);
    const GeoPoint& w = s.store.WayPoints[0];
    EXPECT_EQ(w.Name, "Gipfel & Hütte");
    EXPECT_EQ(w.Desc, "<b>fett</b>");
    EXPECT_EQ(w.Cmt, "c");
    EXPECT_EQ(*w.Alt, 519);
    EXPECT_EQ(*w.Date_, 38764);
    EXPECT_EQ(*w.Time_, 16 * 3600 + 23 * 60 + 10);

    ASSERT_EQ(s.store.Routes.size(), 1u);
    EXPECT_EQ(s.store.Routes[0].Name, "Runde");
    ASSERT_EQ(s.store.Routes[0].Points.size(), 2u);
    EXPECT_EQ(*s.store.Routes[0].Points[0].Course, 10);
    EXPECT_TRUE(s.store.Routes[0].Points[1].Alt.empty());  // below -100 is no altitude

    // Each segment with content starts a track; the point without lat is skipped silently.
    ASSERT_EQ(s.store.Tracks.size(), 2u);
    EXPECT_EQ(s.store.Tracks[0].Name, "Tour");
    EXPECT_EQ(s.store.Tracks[1].Name, "Tour");
    const auto& pts = s.store.Tracks[0].Points;
    ASSERT_EQ(pts.size(), 2u);
    EXPECT_DOUBLE_EQ(*pts[0].Speed, 3.6);  // whole metres per second, then km/h
    EXPECT_EQ(*pts[0].Course, 5);
    EXPECT_EQ(*pts[0].Sat, 7);
    EXPECT_EQ(pts[0].Fix.view(), "3d");
    EXPECT_EQ(*pts[0].Time_, 36000);
    EXPECT_TRUE(pts[1].Date_.empty());  // an unreadable time leaves the point without date and time
    EXPECT_TRUE(pts[1].Time_.empty());
    EXPECT_EQ(s.store.Tracks[1].Points.size(), 1u);
    EXPECT_EQ(s.store.StatusText.text(), "Fertig");
}

TEST_F(GPX, ShortVocabulary) {
    ReadGPXText(s, "<gpx><track><name>Kurz</name><trp><lon>11,5</lon><lat>48.25</lat><speed>12.7</speed>"
                   "<alt>300</alt><course>45</course><date>16.02.2006</date><time>10:00:05</time></trp></track>"
                   "<route><name>R</name><rwp><lon>1</lon><lat>2</lat><name>P</name><description>D</description>"
                   "<info>I</info></rwp></route><wp><lon>3</lon><lat>4</lat><name>W</name><alt>7</alt></wp></gpx>");
    ASSERT_EQ(s.store.Tracks.size(), 1u);
    const TrackPoint& t = s.store.Tracks[0].Points.at(0);
    EXPECT_EQ(t.Lon, 11.5);
    EXPECT_EQ(*t.Speed, 12);  // no unit conversion in the short form
    EXPECT_EQ(*t.Date_, 38764);
    EXPECT_EQ(*t.Time_, 36005);
    const GeoPoint& r = s.store.Routes.at(0).Points.at(0);
    EXPECT_EQ(r.Desc, "D");
    EXPECT_EQ(r.Cmt, "I");
    EXPECT_EQ(s.store.WayPoints.at(0).Name, "W");
    EXPECT_EQ(*s.store.WayPoints.at(0).Alt, 7);
}

TEST_F(GPX, AppendTracksJoinsSegmentsAndFiles) {
    s.options.Check[12] = 1;  // "Tracks anhängen"
    const std::string one = "<gpx><trk><name>A</name><trkseg><trkpt lat=\"1\" lon=\"1\"></trkpt></trkseg>"
                            "<trkseg><trkpt lat=\"2\" lon=\"2\"></trkpt></trkseg></trk></gpx>";
    ReadGPXText(s, one);
    ReadGPXText(s, one);
    ASSERT_EQ(s.store.Tracks.size(), 1u);
    EXPECT_EQ(s.store.Tracks[0].Points.size(), 4u);
}

TEST_F(GPX, WriterLinesAndEmptyNames) {
    GeoPointIn w;
    w.lon = 11.123456;
    w.lat = 48.123456;
    w.name = "Müller";
    w.alt = 0.0;  // 0 is written, empty is not
    w.date = 38764;
    w.time = 59590;
    AddWayPoint(s, w);
    NewRoute(s.store, "");
    s.store.Routes[0].Name.clear();
    GeoPointIn r;
    r.lon = 1;
    r.lat = 2;
    AddRoutePoint(s.store, r);
    s.store.Routes[0].Name.clear();
    TrackPointIn t;
    t.lon = 11.5;
    t.lat = 48.5;
    t.speed = 5.0;
    t.course = 90;
    t.sat = "7";
    t.fix = "3d";
    AddTrackPoint(s, t);
    s.store.Tracks[0].Name.clear();
    NewTrack(s.store, "leer");  // a track without points writes nothing
    const std::string text = GPXFileText(s);
    EXPECT_EQ(text.substr(0, 62), "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" standalone=\"yes\"?>\r\n");
    EXPECT_NE(text.find("version=\"1.0\"\r\ncreator=\"Ortelix\">\r\n\r\n<wpt"), std::string::npos);
    EXPECT_NE(text.find("<wpt lat=\"48.123456\" lon=\"11.123456\">\r\n  <ele>0</ele>\r\n"
                        "  <time>2006-02-16T16:33:10Z</time>\r\n  <name>M\xFCller</name>\r\n</wpt>\r\n\r\n"),
              std::string::npos);
    EXPECT_NE(text.find("<rte>\r\n<name>Route 1</name>\r\n<number>1</number>\r\n<rtept lat=\"2.000000\" lon=\"1.000000\">"
                        "\r\n</rtept>\r\n</rte>"),
              std::string::npos);
    EXPECT_NE(text.find("<name>Track 1</name>"), std::string::npos);
    EXPECT_NE(text.find("  <course>90</course>\r\n  <speed>1.39</speed>\r\n  <sat>7</sat>\r\n</trkpt>"),
              std::string::npos);
    EXPECT_EQ(text.find("<fix>"), std::string::npos);  // read, never written
    EXPECT_EQ(text.find("leer"), std::string::npos);
    EXPECT_EQ(text.substr(text.size() - 10), "\r\n</gpx>\r\n");
    EXPECT_EQ(text.find('\n', 0), text.find("\r\n", 0) + 1);
}

TEST_F(GPX, RoundTripKeepsEveryField) {
    TrackPointIn t;
    t.lon = 11.5;
    t.lat = 48.5;
    t.alt = 500;
    t.speed = 36.0;
    t.course = 270;
    t.date = 38764;
    t.time = 3600;
    t.sat = "9";
    AddTrackPoint(s, t);
    TrackPointIn bare;
    bare.lon = -70.25;
    bare.lat = -33.5;
    AddTrackPoint(s, bare);
    GeoPointIn w;
    w.lon = 2.5;
    w.lat = 41.25;
    w.name = "N";
    w.desc = "D";
    w.cmt = "C";
    w.alt = -50;
    AddWayPoint(s, w);
    const std::string path = (dir / "rt.gpx").string();
    WriteGPXFile(s, path);

    FakePlatform p2;
    Session back(p2);
    back.options.List[7] = 1;
    ReadGPXFile(back, path);
    ASSERT_EQ(back.store.Tracks.size(), 1u);
    const auto& pts = back.store.Tracks[0].Points;
    ASSERT_EQ(pts.size(), 2u);
    EXPECT_EQ(pts[0].Lon, 11.5);
    EXPECT_EQ(*pts[0].Alt, 500);
    EXPECT_DOUBLE_EQ(*pts[0].Speed, 36.0);
    EXPECT_EQ(*pts[0].Course, 270);
    EXPECT_EQ(*pts[0].Date_, 38764);
    EXPECT_EQ(*pts[0].Time_, 3600);
    EXPECT_EQ(*pts[0].Sat, 9);
    EXPECT_TRUE(pts[1].Alt.empty() && pts[1].Speed.empty() && pts[1].Course.empty() && pts[1].Date_.empty());
    EXPECT_EQ(pts[1].Lat, -33.5);
    const GeoPoint& wb = back.store.WayPoints.at(0);
    EXPECT_EQ(wb.Name + wb.Desc + wb.Cmt, "NDC");
    EXPECT_EQ(*wb.Alt, -50);
}

TEST_F(GPX, DeclaredLatin1IsDecoded) {
    ReadGPXText(s, "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><gpx><wpt lat=\"1\" lon=\"2\"><name>M\xFCnchen</name></wpt></gpx>");
    EXPECT_EQ(s.store.WayPoints.at(0).Name, "M\xC3\xBCnchen");
}

TEST_F(GPX, BrokenFileKeepsWhatWasReadAndFailureMessages) {
    // A closing tag missing in the middle: the points before it are kept.
    ReadGPXText(s, "<gpx><wpt lat=\"1\" lon=\"1\"><name>a</name></wpt><wpt lat=\"2\" lon=\"2\"><name>b</name>"
                   "<trk><trkseg><trkpt lat=\"3\"");
    EXPECT_EQ(s.store.WayPoints.size(), 1u);

    const bool ok = RunReader(s, "GPX-Datei einlesen", [&] { ReadGPXFile(s, (dir / "fehlt.gpx").string()); });
    EXPECT_FALSE(ok);
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].title, "GPX-Datei einlesen");
    EXPECT_EQ(platform.messages[0].text,
              "Die Daten können nicht eingelesen werden.\r\n\r\nUrsache: Datei oder Pfad nicht gefunden");
    EXPECT_EQ(s.store.WayPoints.size(), 1u);
    EXPECT_EQ(s.store.StatusText.text(), "Fertig");
}

TEST_F(GPX, FailedWriteLeavesTheTargetAlone) {
    const std::string target = Write("alt.gpx", "bisher");
    fs::permissions(dir, fs::perms::owner_read | fs::perms::owner_exec);  // no new file can be made here
    const bool ok = RunWriter(s, "GPX-Datei speichern", [&] { WriteGPXFile(s, target); });
    fs::permissions(dir, fs::perms::owner_all);
    if (::geteuid() == 0) GTEST_SKIP() << "root writes anywhere";
    EXPECT_FALSE(ok);
    EXPECT_EQ(ReadFileBytes(target), "bisher");
    EXPECT_EQ(platform.messages.at(0).text.rfind("Die Daten können nicht gespeichert werden.\r\n\r\nUrsache: ", 0), 0u);
}

TEST_F(GPX, WriteIntoMissingFolderFailsWithoutTrace) {
    const bool ok = RunWriter(s, "GPX-Datei speichern", [&] { WriteGPXFile(s, (dir / "nein" / "x.gpx").string()); });
    EXPECT_FALSE(ok);
    EXPECT_FALSE(fs::exists(dir / "nein"));
    EXPECT_EQ(platform.messages.at(0).text,
              "Die Daten können nicht gespeichert werden.\r\n\r\nUrsache: Datei oder Pfad nicht gefunden");
}

// gpsbabel reads what we write and finds the same points; we read what it writes.
TEST_F(GPX, AgreesWithGpsbabel) {
    if (std::system("gpsbabel -V >/dev/null 2>&1") != 0) GTEST_SKIP() << "gpsbabel missing";
    for (int i = 0; i < 3; ++i) {
        TrackPointIn t;
        t.lon = 11.0 + i * 0.001;
        t.lat = 48.0 + i * 0.002;
        t.alt = 400 + i;
        t.date = 38764;
        t.time = 36000 + i;
        AddTrackPoint(s, t);
    }
    GeoPointIn w;
    w.lon = 7.5;
    w.lat = 47.5;
    w.name = "Basel";
    w.alt = 260;
    AddWayPoint(s, w);
    const std::string ours = (dir / "ours.gpx").string();
    WriteGPXFile(s, ours);
    std::string table;
    for (const char* kind : {"-w", "-t"}) {
        const std::string csv = (dir / "babel.csv").string();
        const std::string cmd = std::string("gpsbabel ") + kind + " -i gpx -f " + ours + " -o unicsv,utc=0 -F " + csv;
        ASSERT_EQ(std::system(cmd.c_str()), 0);
        table += ReadFileBytes(csv);
    }
    EXPECT_NE(table.find("1,47.500000,7.500000,\"Basel\",260.0"), std::string::npos) << table;
    EXPECT_NE(table.find("3,48.004000,11.002000,402.0,2006/02/16,10:00:02"), std::string::npos) << table;
    EXPECT_NE(table.find("2006/02/16,10:00:02"), std::string::npos) << table;

    const std::string theirs = (dir / "theirs.gpx").string();
    const std::string back = "gpsbabel -t -w -i gpx -f " + ours + " -o gpx -F " + theirs + " 2>&1";
    ASSERT_EQ(std::system(back.c_str()), 0);
    FakePlatform p2;
    Session again(p2);
    again.options.List[7] = 1;
    ReadGPXFile(again, theirs);
    ASSERT_EQ(again.store.Tracks.size(), 1u);
    const auto& pts = again.store.Tracks[0].Points;
    ASSERT_EQ(pts.size(), 3u);
    for (size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(pts[i].Lon, s.store.Tracks[0].Points[i].Lon);
        EXPECT_EQ(pts[i].Lat, s.store.Tracks[0].Points[i].Lat);
        EXPECT_EQ(*pts[i].Alt, 400 + static_cast<int>(i));
        EXPECT_EQ(*pts[i].Time_, 36000 + static_cast<int>(i));
    }
    EXPECT_EQ(again.store.WayPoints.at(0).Name, "Basel");
}

TEST_F(GPX, CommandTableFindsGpxByNameAndExtension) {
    ASSERT_NE(FindFormat("gpx", CommandKind::Read), nullptr);
    EXPECT_EQ(FindFormat("gpx", CommandKind::Write)->run, &WriteGPXFile);
    EXPECT_EQ(BatchReader("gpx")->run, &ReadGPXFile);
    EXPECT_EQ(BatchReader("doc"), nullptr);
}

}  // namespace
}  // namespace ortelix

namespace ortelix {
namespace {

// The dates of a file are offered once, from the first time of each point;
// only the chosen days are read.
TEST(GPXDates, SeveralDaysAreOfferedAndOnlyTheChosenRead) {
    FakePlatform platform;
    Session s(platform);
    s.options.List[7] = 1;
    platform.dateAnswer = {false, true};
    ReadGPXText(s, "<gpx><trk><trkseg>"
                   "<trkpt lat=\"1\" lon=\"1\"><time>2006-02-16T10:00:00Z</time></trkpt>"
                   "<trkpt lat=\"2\" lon=\"2\"><TIME><![CDATA[2006-02-17T10:00:00Z]]></TIME><time>2007-01-01T00:00:00Z</time></trkpt>"
                   "<trkpt lat=\"3\" lon=\"3\"/>"
                   "<trkpt lat=\"4\" lon=\"4\"><time>2006-02-16T11:00:00Z</time></trkpt>"
                   "</trkseg></trk><track><trp><lon>5</lon><lat>5</lat><date>17.02.2006</date></trp></track></gpx>");
    ASSERT_EQ(platform.datesAsked.size(), 2u);
    ASSERT_EQ(s.store.Tracks.size(), 2u);
    ASSERT_EQ(s.store.Tracks[0].Points.size(), 2u);  // the 17th, and the point without a time
    EXPECT_EQ(s.store.Tracks[0].Points[0].Lat, 2);
    EXPECT_EQ(s.store.Tracks[0].Points[1].Lat, 3);
    EXPECT_EQ(s.store.Tracks[1].Points.size(), 1u);
    EXPECT_EQ(s.store.SkippedTrackPoints, 2);
    EXPECT_TRUE(s.dates.Dates.empty());  // cleared after the read
}

}  // namespace
}  // namespace ortelix

namespace ortelix {
namespace {

TEST(GPXAttributes, FoundAsWordsBeforeAnEqualsSign) {
    bool found = false;
    EXPECT_EQ(AttributeValue(" lat=\"48.5\" lon = '11'", "lon", found), "11");
    EXPECT_TRUE(found);
    EXPECT_EQ(AttributeValue(" LAT=\"1\"", "lat", found), "1");
    EXPECT_EQ(AttributeValue(" xlat=\"1\" lat=\"2\"", "lat", found), "2");  // a longer name is another attribute
    EXPECT_EQ(AttributeValue(" lat=2 lat=\"3\"", "lat", found), "");      // the first is unquoted: no value
    EXPECT_FALSE(found);
    EXPECT_EQ(AttributeValue(" lon=\"1\"", "lat", found), "");
    EXPECT_FALSE(found);
    EXPECT_EQ(AttributeValue(" lat=\"open", "lat", found), "");
    EXPECT_FALSE(found);
}

}  // namespace
}  // namespace ortelix
