// ortelix simulate on a pseudo-terminal: the sentences of the boxes, the run
// along a track to its end, and the calls it refuses.
#include <gtest/gtest.h>

#include "cli/CliTestSupport.h"
#include "cli/SimulateSupport.h"

namespace ortelix {
namespace {

using simcli::PtyReader;

class SimulateCommand : public testing::CliTest {
protected:
    // The sentences of the port's text that start with `head`.
    static std::vector<std::string> Sentences(const std::string& text, const std::string& head) {
        std::vector<std::string> out;
        size_t pos = 0;
        while ((pos = text.find(head, pos)) != std::string::npos) {
            const size_t end = text.find("\r\n", pos);
            if (end == std::string::npos) break;
            out.push_back(text.substr(pos, end - pos));
            pos = end;
        }
        return out;
    }
    static std::string Field(const std::string& s, size_t i) {
        size_t start = 0;
        for (size_t k = 0; k < i; ++k) start = s.find(',', start) + 1;
        return s.substr(start, s.find_first_of(",*", start) - start);
    }
    // Waits a moment for the reader thread to take the last bytes.
    static std::string Settled(PtyReader& pty, size_t sentences) {
        for (int i = 0; i < 40 && Sentences(pty.text(), "$GPGSV,3,3").size() < sentences; ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(25));
        return pty.text();
    }
};

TEST_F(SimulateCommand, SendsTheGivenPositionEveryHalfSecondForTheCycles) {
    PtyReader pty;
    ASSERT_FALSE(pty.name().empty());
    const auto start = std::chrono::steady_clock::now();
    const auto r = Ortelix("simulate --port " + pty.name() +
                           " --lon -12.5 --lat 52.25 --speed 100 --course 270 --alt 35 --cycles 3");
    const double took = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    ASSERT_EQ(r.code, 0) << r.out;
    EXPECT_NE(r.out.find(pty.name() + ":=4800,n,8,1"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("Zyklus 3: "), std::string::npos) << r.out;
    EXPECT_GE(took, 1.4);  // three cycles half a second apart
    const std::string text = Settled(pty, 3);
    const auto gga = Sentences(text, "$GPGGA"), vtg = Sentences(text, "$GPVTG");
    ASSERT_EQ(gga.size(), 3u) << text;
    ASSERT_EQ(vtg.size(), 3u);
    EXPECT_EQ(Field(gga[0], 3), "N");
    EXPECT_EQ(Field(gga[0], 5), "W");
    EXPECT_EQ(Field(gga[0], 9), "35.0");
    EXPECT_EQ(Field(vtg[0], 1), "270.0");
    EXPECT_EQ(Field(vtg[0], 7), "100.0");
    // Direct input moves by speed and course: west, by 27.8 m a second.
    EXPECT_EQ(Field(gga[0], 2), "5215.0000");
    const double first = std::stod(Field(gga[0], 4)), last = std::stod(Field(gga[2], 4));
    EXPECT_GT(last, first);  // the minutes west grow
    EXPECT_NEAR(last - first, 60 * 27.777778 * 0.01400112 / 1000, 0.0002);  // one second apart
}

TEST_F(SimulateCommand, TrackRunStopsAtTheEndOfTheTrackAfterAFinalCycle) {
    PtyReader pty;
    ASSERT_FALSE(pty.name().empty());
    // Three points 100 m apart north, 20 m/s.
    std::string gpx = "<?xml version=\"1.0\"?>\n<gpx version=\"1.0\" creator=\"test\"><trk><name>Nord</name><trkseg>\n";
    for (int i = 0; i < 3; ++i)
        gpx += "<trkpt lat=\"" + std::to_string(50 + i * 0.0009) + "\" lon=\"10.000000\"><speed>20</speed></trkpt>\n";
    gpx += "</trkseg></trk></gpx>\n";
    const std::string track = File("nord.gpx", gpx);
    const auto r = Ortelix("simulate --port " + pty.name() + " --input " + track + " --speedup 8 --until-end");
    ASSERT_EQ(r.code, 0) << r.out;
    EXPECT_NE(r.out.find("Punkt 3 von 3, Ende"), std::string::npos) << r.out;
    const std::string text = Settled(pty, 3);
    const auto gga = Sentences(text, "$GPGGA");
    ASSERT_GE(gga.size(), 3u) << text;
    double previous = 0;
    for (const std::string& s : gga) {
        const double lat = std::stod(Field(s, 2));
        EXPECT_GE(lat, previous) << s;  // never back
        EXPECT_EQ(Field(s, 4), "01000.0000");
        previous = lat;
    }
    // The end is the last point, sent at least twice.
    EXPECT_EQ(Field(gga.back(), 2), "5000.1080");
    EXPECT_EQ(Field(gga[gga.size() - 2], 2), "5000.1080");
    EXPECT_LT(std::stod(Field(gga.front(), 2)), 5000.1080);
    EXPECT_EQ(Field(Sentences(text, "$GPVTG").front(), 7), "072.0");
}

TEST_F(SimulateCommand, SpeedGivenForATrackWithoutSpeedsCarriesTheRunToTheEnd) {
    PtyReader pty;
    ASSERT_FALSE(pty.name().empty());
    const std::string track = File("ohne.gpx",
                                   "<?xml version=\"1.0\"?>\n<gpx version=\"1.1\" creator=\"test\"><trk><trkseg>\n"
                                   "<trkpt lat=\"50.0000\" lon=\"10.0\"/><trkpt lat=\"50.0005\" lon=\"10.0\"/>\n"
                                   "<trkpt lat=\"50.0010\" lon=\"10.0\"/></trkseg></trk></gpx>\n");
    // A run that stood still would never end: the timeout ends the test then.
    const auto r = Ortelix("simulate --port " + pty.name() + " --input " + track + " --speed 90 --speedup 10 --until-end",
                           "", "timeout 30");
    ASSERT_EQ(r.code, 0) << r.out;
    const std::string text = Settled(pty, 3);
    const auto gga = Sentences(text, "$GPGGA");
    ASSERT_FALSE(gga.empty());
    EXPECT_EQ(Field(gga.back(), 2), "5000.0600");
    EXPECT_EQ(Field(Sentences(text, "$GPVTG").back(), 7), "090.0");
}

TEST_F(SimulateCommand, RefusesWhatItCannotDo) {
    auto r = Ortelix("simulate --cycles 1");
    EXPECT_EQ(r.code, 2);
    EXPECT_NE(r.out.find("--port fehlt"), std::string::npos) << r.out;
    r = Ortelix("simulate --port /dev/null --source bahn");
    EXPECT_EQ(r.code, 2);
    EXPECT_NE(r.out.find("Unbekannte Quelle: bahn"), std::string::npos) << r.out;
    r = Ortelix("simulate --port /dev/null --cycles 2 --until-end --source track");
    EXPECT_EQ(r.code, 2);
    r = Ortelix("simulate --port /dev/null --until-end");
    EXPECT_EQ(r.code, 2);  // direct input has no end
    r = Ortelix("simulate --port /dev/null --speed schnell");
    EXPECT_EQ(r.code, 2);
    EXPECT_NE(r.out.find("--speed erwartet eine Zahl: schnell"), std::string::npos) << r.out;
    r = Ortelix("simulate --port /dev/null --speedup 0");
    EXPECT_EQ(r.code, 2);
    r = Ortelix("simulate --port /dev/null --cycles 1 übrig");
    EXPECT_EQ(r.code, 2);

    r = Ortelix("simulate --port " + Path("kein-geraet") + " --cycles 1");
    EXPECT_EQ(r.code, 1);
    EXPECT_NE(r.out.find("Die Schnittstelle kann nicht geöffnet werden"), std::string::npos) << r.out;
    EXPECT_EQ(r.out.find("Zyklus"), std::string::npos) << r.out;

    // A source with nothing in it.
    const std::string wpt = File("leer.gpx", "<?xml version=\"1.0\"?><gpx version=\"1.1\"><wpt lat=\"50\" lon=\"10\"/></gpx>");
    r = Ortelix("simulate --port /dev/null --source route --input " + wpt + " --cycles 1");
    EXPECT_EQ(r.code, 1);
    EXPECT_NE(r.out.find("Keine Daten für die Quelle route"), std::string::npos) << r.out;
}

}  // namespace
}  // namespace ortelix
