// Cross-checks with a real peer and with the built program: gpsbabel reads
// the overlays we write and we read the ones it writes; `ortelix convert`
// takes "ovl" both ways.
#include "fake/Tools.h"
#include "OziTestSupport.h"

#include <cstdio>
#include <cstdlib>

#include "appformats/ModuleTop50Ovl.h"
#include "cli/CliTestSupport.h"
#include "commands/CommandRun.h"
#include "commands/CommandTable.h"
#include "core/Settings.h"

namespace ortelix {
namespace {

using testtools::CommandOutput;
using testtools::HaveTool;

// The lat/lon attributes of every element `tag` of a GPX text, in order.
std::vector<std::pair<double, double>> GpxPoints(const std::string& gpx, const std::string& tag) {
    std::vector<std::pair<double, double>> out;
    const std::string open = "<" + tag + " ";
    for (size_t pos = gpx.find(open); pos != std::string::npos; pos = gpx.find(open, pos + 1)) {
        const size_t end = gpx.find('>', pos);
        const std::string el = gpx.substr(pos, end - pos);
        const size_t la = el.find("lat=\""), lo = el.find("lon=\"");
        if (la == std::string::npos || lo == std::string::npos) continue;
        out.emplace_back(std::atof(el.c_str() + lo + 5), std::atof(el.c_str() + la + 5));
    }
    return out;
}

class Top50OvlPeers : public OziTest {
protected:
    void SetUp() override {
        OziTest::SetUp();
        if (!HaveTool("gpsbabel")) GTEST_SKIP() << "gpsbabel is not installed";
        ResetSettings(session->options, false);
    }
};

TEST_F(Top50OvlPeers, GpsbabelReadsOurLinesAndShapes) {
    NewTrack(store(), "Tour");
    const double pts[][2] = {{11.123456, 48.1}, {11.2, 48.15}, {11.25, 48.2}, {11.3, 48.175}};
    for (auto& q : pts) {
        TrackPoint p;
        p.Lon = q[0];
        p.Lat = q[1];
        store().Tracks[0].Points.push_back(p);
    }
    store().WayPoints.push_back(MakePoint(9.5, 50.25, "Kreis"));
    store().WayPoints.push_back(MakePoint(9.75, 50.5, "Zweiter"));
    for (int symbol : {2, 3}) {  // "Kreis" (Typ=6), "Dreieck" (Typ=7)
        session->options.List[25] = symbol;
        const std::string file = "ours" + std::to_string(symbol) + ".ovl";
        ASSERT_TRUE(WriteFileWith(*session, *FindCommand("MenAusgangTop50OVL"), path(file)));
        const std::string gpx = CommandOutput("gpsbabel -i ggv_ovl -f '" + path(file) + "' -o gpx -F - 2>&1");
        const auto line = GpxPoints(gpx, "trkpt");
        ASSERT_EQ(line.size(), 4u) << gpx;
        for (size_t i = 0; i < 4; ++i) {
            EXPECT_NEAR(line[i].first, pts[i][0], 1e-8);
            EXPECT_NEAR(line[i].second, pts[i][1], 1e-8);
        }
        // gpsbabel takes shapes as waypoints and leaves the texts out.
        const auto wpts = GpxPoints(gpx, "wpt");
        ASSERT_EQ(wpts.size(), 2u) << gpx;
        EXPECT_NEAR(wpts[0].first, 9.5, 1e-8);
        EXPECT_NEAR(wpts[1].second, 50.5, 1e-8);
    }
}

TEST_F(Top50OvlPeers, WeReadWhatGpsbabelWrites) {
    write("in.gpx",
          "<?xml version=\"1.0\"?><gpx version=\"1.1\" creator=\"t\" xmlns=\"http://www.topografix.com/GPX/1/1\">"
          "<wpt lat=\"48.1\" lon=\"11.5\"><name>A</name></wpt><wpt lat=\"47.9\" lon=\"11.25\"><name>B</name></wpt>"
          "<trk><name>T</name><trkseg><trkpt lat=\"48.0\" lon=\"11.0\"/><trkpt lat=\"48.01\" lon=\"11.02\"/>"
          "<trkpt lat=\"48.02\" lon=\"11.03\"/></trkseg></trk></gpx>");
    ASSERT_EQ(std::system(("gpsbabel -i gpx -f '" + path("in.gpx") + "' -o ggv_ovl -F '" + path("babel.ovl") + "'").c_str()),
              0);
    ASSERT_EQ(ReadFileWith(*session, *FindCommand("MenEinTop50OVL"), path("babel.ovl")), ReadOutcome::Read);
    ASSERT_EQ(store().Routes.size(), 1u);
    EXPECT_EQ(store().Routes[0].Name, "R1-babel");
    ASSERT_EQ(store().Routes[0].Points.size(), 3u);
    EXPECT_DOUBLE_EQ(store().Routes[0].Points[2].Lon, 11.03);
    EXPECT_DOUBLE_EQ(store().Routes[0].Points[2].Lat, 48.02);
    ASSERT_EQ(store().WayPoints.size(), 2u);
    EXPECT_DOUBLE_EQ(store().WayPoints[1].Lon, 11.25);
    EXPECT_DOUBLE_EQ(store().WayPoints[1].Lat, 47.9);
    EXPECT_EQ(store().WayPoints[0].Desc, "Kreis");  // gpsbabel's symbols are circles
}

class Top50OvlCli : public testing::CliTest {};

TEST_F(Top50OvlCli, ConvertWritesAndReadsOvl) {
    const std::string gpx = File("t.gpx",
                                 "<?xml version=\"1.0\"?><gpx version=\"1.1\" creator=\"t\">"
                                 "<trk><name>Runde</name><trkseg><trkpt lat=\"50.0\" lon=\"8.0\"/>"
                                 "<trkpt lat=\"50.1\" lon=\"8.1\"/></trkseg></trk></gpx>");
    const auto w = Ortelix("convert '" + gpx + "' '" + Path("t.ovl") + "'");
    ASSERT_EQ(w.code, 0) << w.out;
    std::ifstream f(Path("t.ovl"), std::ios::binary);
    const std::string ovl((std::istreambuf_iterator<char>(f)), {});
    EXPECT_EQ(ovl.rfind("[Symbol 1]\r\nTyp=3\r\n", 0), 0u) << ovl;
    EXPECT_NE(ovl.find("XKoord1=8.10000000\r\nYKoord1=50.10000000\r\n"), std::string::npos);
    EXPECT_NE(ovl.find("Text=Runde\r\n"), std::string::npos);

    const auto r = Ortelix("convert -i ovl '" + Path("t.ovl") + "' -o gpx '" + Path("back.gpx") + "'");
    ASSERT_EQ(r.code, 0) << r.out;
    std::ifstream g(Path("back.gpx"), std::ios::binary);
    const std::string back((std::istreambuf_iterator<char>(g)), {});
    EXPECT_NE(back.find("R1-t"), std::string::npos) << back;
    EXPECT_EQ(GpxPoints(back, "rtept").size(), 2u);

    File("bin.ovl", std::string("DOMGVCRD\0\0\0", 11));
    const auto bad = Ortelix("convert '" + Path("bin.ovl") + "' '" + Path("x.gpx") + "'");
    EXPECT_EQ(bad.code, 1);
    EXPECT_NE(bad.out.find("Die Daten k\xC3\xB6nnen nicht eingelesen werden."), std::string::npos) << bad.out;
    EXPECT_FALSE(std::filesystem::exists(Path("x.gpx")));
}

}  // namespace
}  // namespace ortelix
