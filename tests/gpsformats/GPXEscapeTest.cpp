// Names with markup characters: what we write is well-formed XML that xmllint
// and gpsbabel accept, and reads back as the same names.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "core/FileIO.h"
#include "core/ReadFilter.h"
#include "core/Session.h"
#include "fake/FakePlatform.h"
#include "gpsformats/GPX.h"

namespace fs = std::filesystem;

namespace ortelix {
namespace {

bool Have(const char* probe) { return std::system(probe) == 0; }

class GPXEscape : public ::testing::Test {
protected:
    void SetUp() override {
        dir = fs::temp_directory_path() / ("ortelix-gpxesc-" + std::to_string(::getpid()));
        fs::create_directories(dir);
        s.options.List[7] = 1;
        GeoPointIn w;
        w.lon = 8.4;
        w.lat = 49.0;
        w.name = "Baden & Eis";
        w.desc = "a<b>c ]]> \"q\" 'a'";
        w.cmt = "M\xC3\xBCller & S\xC3\xB6hne";
        AddWayPoint(s, w);
        NewRoute(s.store, "R<1> & R>2");
        GeoPointIn r;
        r.lon = 8.5;
        r.lat = 49.1;
        r.name = "&amp; steht so da";
        AddRoutePoint(s.store, r);
        NewTrack(s.store, "<trk>&</trk>");
        TrackPointIn t;
        t.lon = 8.6;
        t.lat = 49.2;
        AddTrackPoint(s, t);
    }
    void TearDown() override { fs::remove_all(dir); }
    // Reads a file into a fresh session and checks every name.
    void ExpectNames(const std::string& path) {
        FakePlatform p;
        Session back(p);
        back.options.List[7] = 1;
        ReadGPXFile(back, path);
        ASSERT_EQ(back.store.WayPoints.size(), 1u);
        EXPECT_EQ(back.store.WayPoints[0].Name, "Baden & Eis");
        EXPECT_EQ(back.store.WayPoints[0].Desc, "a<b>c ]]> \"q\" 'a'");
        EXPECT_EQ(back.store.WayPoints[0].Cmt, "M\xC3\xBCller & S\xC3\xB6hne");
        ASSERT_EQ(back.store.Routes.size(), 1u);
        EXPECT_EQ(back.store.Routes[0].Name, "R<1> & R>2");
        ASSERT_EQ(back.store.Routes[0].Points.size(), 1u);
        EXPECT_EQ(back.store.Routes[0].Points[0].Name, "&amp; steht so da");
        ASSERT_EQ(back.store.Tracks.size(), 1u);
        EXPECT_EQ(back.store.Tracks[0].Name, "<trk>&</trk>");
        EXPECT_EQ(back.store.Tracks[0].Points.size(), 1u);
    }
    FakePlatform platform;
    Session s{platform};
    fs::path dir;
};

TEST_F(GPXEscape, MarkupCharactersAreWrittenAsEntities) {
    const std::string text = GPXFileText(s);
    EXPECT_NE(text.find("<name>Baden &amp; Eis</name>"), std::string::npos);
    EXPECT_NE(text.find("<desc>a&lt;b&gt;c ]]&gt; \"q\" 'a'</desc>"), std::string::npos);
    EXPECT_NE(text.find("<cmt>M\xFCller &amp; S\xF6hne</cmt>"), std::string::npos);
    EXPECT_NE(text.find("<name>R&lt;1&gt; &amp; R&gt;2</name>"), std::string::npos);
    EXPECT_NE(text.find("<name>&amp;amp; steht so da</name>"), std::string::npos);
    EXPECT_NE(text.find("<name>&lt;trk&gt;&amp;&lt;/trk&gt;</name>"), std::string::npos);
    // Nothing else is touched: the markup of the file itself stays.
    EXPECT_EQ(text.find("&amp;lt;"), std::string::npos);
    const std::string path = (dir / "esc.gpx").string();
    WriteGPXFile(s, path);
    ExpectNames(path);
}

TEST_F(GPXEscape, ControlCharactersBecomeQuestionMarks) {
    s.store.WayPoints[0].Name = std::string("a\x01" "b\tc\x1F");
    const std::string text = GPXFileText(s);
    EXPECT_NE(text.find("<name>a?b\tc?</name>"), std::string::npos);
}

TEST_F(GPXEscape, XmllintAndGpsbabelAcceptTheFile) {
    s.store.WayPoints[0].Name += std::string(" \x02");  // a control character too
    const std::string ours = (dir / "ours.gpx").string();
    WriteGPXFile(s, ours);
    if (!Have("xmllint --version >/dev/null 2>&1")) GTEST_SKIP() << "xmllint missing";
    const std::string lint = "xmllint --noout " + ours + " 2>&1";
    EXPECT_EQ(std::system(lint.c_str()), 0) << "xmllint refuses " << ours;
    s.store.WayPoints[0].Name = "Baden & Eis";
    WriteGPXFile(s, ours);
    EXPECT_EQ(std::system(lint.c_str()), 0);
    if (!Have("gpsbabel -V >/dev/null 2>&1")) GTEST_SKIP() << "gpsbabel missing";
    const std::string theirs = (dir / "theirs.gpx").string();
    const std::string babel = "gpsbabel -w -r -t -i gpx -f " + ours + " -o gpx -F " + theirs + " 2>&1";
    ASSERT_EQ(std::system(babel.c_str()), 0);
    // gpsbabel understood the entities: its own file gives the same names.
    ExpectNames(theirs);
    EXPECT_NE(ReadFileBytes(theirs).find("Baden &amp; Eis"), std::string::npos);
}

}  // namespace
}  // namespace ortelix
