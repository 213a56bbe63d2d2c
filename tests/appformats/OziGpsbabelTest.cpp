// Cross-checks with a real peer: gpsbabel reads the OziExplorer files that we
// write, and we read the ones that gpsbabel writes.
#include "fake/Tools.h"
#include "OziTestSupport.h"

#include <cstdio>

#include "appformats/ModOziRoute.h"
#include "appformats/ModOziTrack.h"
#include "appformats/ModOziWaypoint.h"
#include "core/ModulArray.h"

namespace ortelix {
namespace {

using testtools::CommandOutput;
using testtools::HaveTool;

// gpsbabel's unicsv output as rows of fields, the header row first; quotes dropped.
std::vector<std::vector<std::string>> Csv(const std::string& text) {
    std::vector<std::vector<std::string>> rows;
    size_t pos = 0;
    while (pos < text.size()) {
        size_t end = text.find('\n', pos);
        if (end == std::string::npos) end = text.size();
        std::string line = text.substr(pos, end - pos);
        if (!line.empty() && line.back() == '\r') line.pop_back();
        pos = end + 1;
        if (line.empty()) continue;
        std::vector<std::string> fields(1);
        bool quoted = false;
        for (char c : line) {
            if (c == '"') quoted = !quoted;
            else if (c == ',' && !quoted) fields.emplace_back();
            else fields.back() += c;
        }
        rows.push_back(std::move(fields));
    }
    return rows;
}

std::string Column(const std::vector<std::vector<std::string>>& rows, size_t row, const std::string& name) {
    const auto& head = rows.at(0);
    for (size_t i = 0; i < head.size(); ++i)
        if (head[i] == name) return i < rows.at(row).size() ? rows.at(row)[i] : std::string();
    return "<no column " + name + ">";
}

class OziGpsbabel : public OziTest {
protected:
    void SetUp() override {
        OziTest::SetUp();
        if (!HaveTool("gpsbabel")) GTEST_SKIP() << "gpsbabel is not installed";
    }
    std::vector<std::vector<std::string>> Babel(const std::string& flag, const std::string& file) {
        return Csv(CommandOutput("gpsbabel " + flag + " -i ozi -f '" + path(file) + "' -o unicsv,utc=0 -F - 2>/dev/null"));
    }
};

TEST_F(OziGpsbabel, ReadsOurWaypoints) {
    GeoPoint a = MakePoint(8.2, 50.1, "Haus, Hof", "Straße", 100);
    a.Date_ = 38000;
    a.Time_ = 41265;
    store().WayPoints.push_back(a);
    store().WayPoints.push_back(MakePoint(-1.25, -0.5, "Zwei", "", OptInt()));
    store().WayPoints.push_back(MakePoint(13.404954, 52.520008, "Höhe null", "", 0));
    OziWegepunkteSchreiben(*session, path("w.wpt"));
    const auto rows = Babel("-w", "w.wpt");
    ASSERT_EQ(rows.size(), 4u) << read("w.wpt");
    EXPECT_EQ(Column(rows, 1, "Latitude"), "50.100000");
    EXPECT_EQ(Column(rows, 1, "Longitude"), "8.200000");
    EXPECT_EQ(Column(rows, 1, "Name"), "Haus\xC3\x91 Hof");  // gpsbabel shows code 209 as we do
    EXPECT_EQ(Column(rows, 1, "Description"), "Stra\xC3\x9F" "e");
    EXPECT_NEAR(std::stod(Column(rows, 1, "Altitude")), 100, 0.5);
    EXPECT_EQ(Column(rows, 1, "Date"), "2004/01/14");
    EXPECT_EQ(Column(rows, 1, "Time").substr(0, 8), "11:27:45");  // 41265 s and a few ms
    EXPECT_EQ(Column(rows, 2, "Latitude"), "-0.500000");
    EXPECT_EQ(Column(rows, 2, "Altitude"), "");  // -777 is no altitude for gpsbabel too
    EXPECT_EQ(Column(rows, 3, "Name"), "H\xC3\xB6he null");
    EXPECT_EQ(Column(rows, 3, "Altitude"), "0.0");
}

TEST_F(OziGpsbabel, ReadsOurTrack) {
    NewTrack(store(), "T");
    for (int i = 0; i < 50; ++i) {
        TrackPoint& p = store().Tracks[0].Points.emplace_back();
        p.Lon = 11.5 + i * 0.001;
        p.Lat = 48.1 - i * 0.0007;
        if (i % 7) p.Alt = 500 + i;
        p.Date_ = 39000;
        p.Time_ = 36000 + i;
    }
    OziTrackSchreiben(*session, path("t.plt"), 1);
    const auto rows = Babel("-t", "t.plt");
    ASSERT_EQ(rows.size(), 51u);
    for (size_t i = 0; i < 50; ++i) {
        const TrackPoint& p = store().Tracks[0].Points[i];
        EXPECT_NEAR(std::stod(Column(rows, i + 1, "Latitude")), p.Lat, 1e-6) << i;
        EXPECT_NEAR(std::stod(Column(rows, i + 1, "Longitude")), p.Lon, 1e-6) << i;
        if (p.Alt.empty()) EXPECT_EQ(Column(rows, i + 1, "Altitude"), "") << i;
        else EXPECT_NEAR(std::stod(Column(rows, i + 1, "Altitude")), *p.Alt, 1.0) << i;
        EXPECT_EQ(Column(rows, i + 1, "Date"), "2006/10/10") << i;
    }
    // gpsbabel takes the whole seconds of the day fraction rounded down and
    // then milliseconds from the fraction's leading digits, so its times read
    // ours, and its own files, only to within a second.
    for (size_t i : {size_t(1), size_t(50)}) {
        const std::string t = Column(rows, i, "Time");
        ASSERT_GE(t.size(), 8u);
        const double seconds = std::stoi(t.substr(0, 2)) * 3600 + std::stoi(t.substr(3, 2)) * 60 + std::stod(t.substr(6));
        EXPECT_NEAR(seconds, 36000 + static_cast<double>(i - 1), 1.0) << t;
    }
}

TEST_F(OziGpsbabel, ReadsOurRoutesWithoutThePlaceholder) {
    Route& r1 = store().Routes.emplace_back();
    r1.Points = {MakePoint(8.2, 50.1, "A"), MakePoint(8.3, 50.2, "B")};
    Route& r2 = store().Routes.emplace_back();
    r2.Points = {MakePoint(9.2, 51.1, "C")};
    OziRouteSchreiben(*session, path("r.rte"));
    const auto rows = Babel("-r", "r.rte");
    ASSERT_EQ(rows.size(), 4u);
    EXPECT_EQ(Column(rows, 1, "Name"), "A");
    EXPECT_EQ(Column(rows, 3, "Name"), "C");
    EXPECT_EQ(Column(rows, 3, "Latitude"), "51.100000");
    EXPECT_EQ(Column(rows, 3, "Longitude"), "9.200000");
}

TEST_F(OziGpsbabel, WeReadWhatGpsbabelWrites) {
    write("in.gpx",
          "<?xml version=\"1.0\"?>\n<gpx version=\"1.0\" creator=\"t\" xmlns=\"http://www.topografix.com/GPX/1/0\">\n"
          "<wpt lat=\"50.1\" lon=\"8.2\"><ele>100</ele><name>Eins</name><desc>Beschr</desc>"
          "<time>2004-01-14T11:27:45Z</time></wpt>\n"
          "<wpt lat=\"-33.25\" lon=\"-70.5\"><name>Zwei</name></wpt>\n"
          "<rte><name>R1</name><rtept lat=\"50.1\" lon=\"8.2\"><name>A</name></rtept>"
          "<rtept lat=\"50.2\" lon=\"8.3\"><name>B</name></rtept></rte>\n"
          "<rte><name>R2</name><rtept lat=\"51.1\" lon=\"9.2\"><name>C</name></rtept></rte>\n"
          "<trk><name>T1</name><trkseg>"
          "<trkpt lat=\"50.123456\" lon=\"8.123456\"><ele>149.4</ele><time>2004-01-14T11:27:45Z</time></trkpt>"
          "<trkpt lat=\"50.2\" lon=\"8.2\"></trkpt>"
          "<trkpt lat=\"50.3\" lon=\"8.3\"><ele>0</ele><time>2004-01-14T11:28:00Z</time></trkpt>"
          "</trkseg></trk>\n</gpx>\n");
    ASSERT_EQ(std::system(("gpsbabel -i gpx -f '" + path("in.gpx") + "' -o ozi -F '" + path("babel") + "'").c_str()), 0);
    OziWegepunkteLesen(*session, path("babel.wpt"));
    OziTrackLesen(*session, path("babel.plt"));
    OziRouteLesen(*session, path("babel.rte"));

    const auto& w = store().WayPoints;
    ASSERT_EQ(w.size(), 2u);
    EXPECT_EQ(w[0].Name, "Eins");
    EXPECT_EQ(w[0].Desc, "Beschr");
    EXPECT_DOUBLE_EQ(w[0].Lat, 50.1);
    EXPECT_DOUBLE_EQ(w[0].Lon, 8.2);
    EXPECT_EQ(w[0].Alt, OptInt(100));
    EXPECT_EQ(w[0].Date_, Date(38000));
    EXPECT_EQ(w[0].Time_, Time(41265));
    EXPECT_DOUBLE_EQ(w[1].Lat, -33.25);
    EXPECT_DOUBLE_EQ(w[1].Lon, -70.5);
    EXPECT_TRUE(w[1].Alt.empty());

    ASSERT_EQ(store().Tracks.size(), 1u);
    const auto& t = store().Tracks[0].Points;
    ASSERT_EQ(t.size(), 3u);
    EXPECT_DOUBLE_EQ(t[0].Lat, 50.123456);
    EXPECT_EQ(t[0].Alt, OptInt(149));
    EXPECT_EQ(t[0].Time_, Time(41265));
    EXPECT_TRUE(t[1].Alt.empty());
    EXPECT_TRUE(t[1].Date_.empty());
    EXPECT_EQ(t[2].Alt, OptInt(0));
    EXPECT_EQ(t[2].Time_, Time(41280));

    ASSERT_EQ(store().Routes.size(), 2u);
    ASSERT_EQ(store().Routes[0].Points.size(), 2u);
    EXPECT_EQ(store().Routes[0].Points[1].Name, "B");
    EXPECT_DOUBLE_EQ(store().Routes[0].Points[1].Lon, 8.3);
    ASSERT_EQ(store().Routes[1].Points.size(), 1u);
    EXPECT_EQ(store().Routes[1].Points[0].Name, "C");
}

}  // namespace
}  // namespace ortelix
