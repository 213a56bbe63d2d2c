// Cross-checks with real peers: gpsd's decoder (gpsdecode, with its JSON
// reports and its data report) and gpsbabel read the logs that we
// write with the values we meant; we read the log that gpsbabel writes.
//
// Speeds: our knots are km/h / 1.8532 (the reader multiplies by the same
// number), gpsd and gpsbabel count the standard knot of 1.852 km/h. What a
// sentence means is its knots field; so gpsd's metres per second are turned
// back into that field with the standard knot (m/s / 0.514444) and compared
// with the knots that we meant to write (our km/h / 1.8532, to a tenth).
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <map>

#include "fake/Tools.h"
#include "core/FileIO.h"
#include "core/ModulArray.h"
#include "core/Session.h"
#include "fake/FakePlatform.h"
#include "fake/TestFiles.h"
#include "gpsformats/Nmea.h"

namespace ortelix {
namespace {

using testtools::CommandOutput;
using testtools::HaveTool;

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    size_t pos = 0;
    while (pos < text.size()) {
        size_t e = text.find('\n', pos);
        if (e == std::string::npos) e = text.size();
        std::string l = text.substr(pos, e - pos);
        if (!l.empty() && l.back() == '\r') l.pop_back();
        if (!l.empty()) lines.push_back(l);
        pos = e + 1;
    }
    return lines;
}

// The number behind `key` ("lat=" or "\"lat\":") in a line; NaN without one.
double NumberAfter(const std::string& line, const std::string& key) {
    const size_t at = line.find(key);
    if (at == std::string::npos) return std::nan("");
    return std::strtod(line.c_str() + at + key.size(), nullptr);
}

std::string TextAfter(const std::string& line, const std::string& key, char end) {
    const size_t at = line.find(key);
    if (at == std::string::npos) return {};
    const size_t from = at + key.size();
    return line.substr(from, line.find(end, from) - from);
}

TrackPoint Point(double lon, double lat, int alt, double kmh, int course, int32_t date, int32_t time) {
    TrackPoint p;
    p.Lon = lon;
    p.Lat = lat;
    p.Alt = alt;
    p.Speed = kmh;
    p.Course = static_cast<int16_t>(course);
    p.Date_ = date;
    p.Time_ = time;
    return p;
}

const int32_t kDay = SerialFromCivil(2023, 7, 14);

class NmeaPeers : public ::testing::Test {
protected:
    void SetUp() override {
        dir = testfiles::FreshFolder("gpsformats", std::string("nmea-peers-") +
                                     ::testing::UnitTest::GetInstance()->current_test_info()->name());
        // Both hemispheres, a course that is negative in the store, speeds
        // whose knots end on every tenth.
        Track t{"peer", {}};
        t.Points.push_back(Point(-12.5, 52.25, 35, 100, 270, kDay, 8 * 3600 + 5 * 60 + 9));
        t.Points.push_back(Point(11.516667, 48.1173, 545, 41.3, 84, kDay, 8 * 3600 + 5 * 60 + 10));
        t.Points.push_back(Point(151.2093, -33.8688, 12, 7.7, 359, kDay, 8 * 3600 + 5 * 60 + 11));
        t.Points.push_back(Point(-70.6483, -33.4489, 570, 0, -90, kDay + 1, 0));
        s.store.Tracks.push_back(t);
        s.options.NMEABox[7] = "-47,5";
        log = (dir / "ours.nmea").string();
        WriteNmeaLog(s, log, kNmeaPlain, 1);
    }
    const std::vector<TrackPoint>& Meant() const { return s.store.Tracks[0].Points; }
    // The knots field that we meant to write for a point.
    static double Knots(const TrackPoint& p) { return std::round(*p.Speed / 1.8532 * 10) / 10; }
    static double Course(const TrackPoint& p) { return *p.Course < 0 ? *p.Course + 360 : *p.Course; }

    FakePlatform p;
    Session s{p};
    std::filesystem::path dir;
    std::string log;
};

TEST_F(NmeaPeers, GpsdecodeTakesEverySentenceAndReportsWhatWeMeant) {
    if (!HaveTool("gpsdecode")) GTEST_SKIP() << "gpsdecode (gpsd-clients) is not installed";
    const std::vector<std::string> ours = Lines(ReadFileBytes(log));
    ASSERT_EQ(ours.size(), 4u * 7);
    // -v echoes every packet that passed gpsd's framing and checksum test,
    // and puts its JSON reports between them: a TPV at the end of each
    // cycle once a first RMC has given the year.
    std::vector<std::string> echoed;
    std::map<std::string, std::string> tpvByTime;
    for (const std::string& l : Lines(CommandOutput("gpsdecode -v < '" + log + "'"))) {
        if (l[0] == '$') echoed.push_back(l);
        else if (l.find("\"class\":\"TPV\"") != std::string::npos) tpvByTime[TextAfter(l, "\"time\":\"", '"')] = l;
    }
    EXPECT_EQ(echoed, ours);
    const char* times[] = {"2023-07-14T08:05:09.000Z", "2023-07-14T08:05:10.000Z", "2023-07-14T08:05:11.000Z",
                           "2023-07-15T00:00:00.000Z"};
    ASSERT_GE(tpvByTime.size(), 3u);
    for (size_t i = 0; i < Meant().size(); ++i) {
        if (i == 0 && tpvByTime.count(times[0]) == 0) continue;  // before the first year
        ASSERT_EQ(tpvByTime.count(times[i]), 1u) << times[i];
        const TrackPoint& m = Meant()[i];
        const std::string& tpv = tpvByTime[times[i]];
        // Positions to the 1/10000 minute of the sentences.
        EXPECT_NEAR(NumberAfter(tpv, "\"lat\":"), m.Lat, 1e-6) << tpv;
        EXPECT_NEAR(NumberAfter(tpv, "\"lon\":"), m.Lon, 1e-6) << tpv;
        EXPECT_NEAR(NumberAfter(tpv, "\"altMSL\":"), *m.Alt, 1e-9) << tpv;
        EXPECT_NEAR(NumberAfter(tpv, "\"geoidSep\":"), 47.5, 1e-9) << tpv;
        EXPECT_NEAR(NumberAfter(tpv, "\"speed\":") / 0.514444, Knots(m), 0.05) << tpv;
        EXPECT_NEAR(NumberAfter(tpv, "\"track\":"), Course(m), 1e-9) << tpv;
    }

    // Its data report of every RMC, VTG and GGA, the first cycle's too:
    // positions to the two decimals it prints, speed in m/s and course.
    const std::string report = CommandOutput("gpsdecode -D 6 < '" + log + "' 2>&1 >/dev/null");
    EXPECT_EQ(report.find("bad checksum"), std::string::npos) << report;
    std::vector<std::string> rmc, vtg, gga;
    for (const std::string& l : Lines(report)) {
        if (l.find("NMEA0183: RMC: ") != std::string::npos) rmc.push_back(l);
        if (l.find("NMEA0183: VTG: ") != std::string::npos) vtg.push_back(l);
        if (l.find("NMEA0183: GGA: ") != std::string::npos) gga.push_back(l);
    }
    ASSERT_EQ(rmc.size(), Meant().size()) << report;
    ASSERT_EQ(vtg.size(), Meant().size());
    ASSERT_EQ(gga.size(), Meant().size());
    for (size_t i = 0; i < Meant().size(); ++i) {
        const TrackPoint& m = Meant()[i];
        EXPECT_NEAR(NumberAfter(rmc[i], " lat="), m.Lat, 0.006) << rmc[i];
        EXPECT_NEAR(NumberAfter(rmc[i], " lon="), m.Lon, 0.006) << rmc[i];
        EXPECT_NEAR(NumberAfter(rmc[i], " speed=") / 0.514444, Knots(m), 0.05) << rmc[i];
        EXPECT_NEAR(NumberAfter(rmc[i], " track="), Course(m), 1e-9) << rmc[i];
        EXPECT_NEAR(NumberAfter(vtg[i], "course(T)="), Course(m), 1e-9) << vtg[i];
        EXPECT_NEAR(NumberAfter(vtg[i], "speed=") / 0.514444, Knots(m), 0.05) << vtg[i];
        EXPECT_NEAR(NumberAfter(gga[i], " altMSL="), *m.Alt, 1e-9) << gga[i];
    }
    EXPECT_NE(rmc[0].find("ddmmyy=140723 hhmmss=080509.00"), std::string::npos) << rmc[0];
    EXPECT_NE(rmc[3].find("ddmmyy=150723 hhmmss=000000.00"), std::string::npos) << rmc[3];
}

TEST_F(NmeaPeers, GpsbabelReadsOurLog) {
    if (!HaveTool("gpsbabel")) GTEST_SKIP() << "gpsbabel is not installed";
    const std::string gpx = CommandOutput("gpsbabel -i nmea -f '" + log + "' -o gpx -F -");
    std::vector<std::string> points;
    for (size_t at = gpx.find("<trkpt "); at != std::string::npos; at = gpx.find("<trkpt ", at + 1))
        points.push_back(gpx.substr(at, gpx.find("</trkpt>", at) - at));
    // gpsbabel joins the GGA and the RMC of one second into one point.
    ASSERT_EQ(points.size(), Meant().size()) << gpx;
    const char* times[] = {"2023-07-14T08:05:09Z", "2023-07-14T08:05:10Z", "2023-07-14T08:05:11Z",
                           "2023-07-15T00:00:00Z"};
    for (size_t i = 0; i < Meant().size(); ++i) {
        const TrackPoint& m = Meant()[i];
        const std::string& g = points[i];
        EXPECT_NEAR(NumberAfter(g, "lat=\""), m.Lat, 1e-6) << g;
        EXPECT_NEAR(NumberAfter(g, "lon=\""), m.Lon, 1e-6) << g;
        EXPECT_NEAR(NumberAfter(g, "<ele>"), *m.Alt, 1e-9) << g;
        EXPECT_EQ(TextAfter(g, "<time>", '<'), times[i]);
        EXPECT_NEAR(NumberAfter(g, "<speed>") / 0.514444, Knots(m), 0.05) << g;
        EXPECT_NEAR(NumberAfter(g, "<course>"), Course(m), 1e-9) << g;
        EXPECT_EQ(TextAfter(g, "<sat>", '<'), "10");
    }
}

TEST_F(NmeaPeers, WeReadGpsbabelsLog) {
    if (!HaveTool("gpsbabel")) GTEST_SKIP() << "gpsbabel is not installed";
    const std::string gpx = testfiles::Put(dir / "in.gpx",
        "<?xml version=\"1.0\"?>\n<gpx version=\"1.0\" creator=\"t\" xmlns=\"http://www.topografix.com/GPX/1/0\">\n"
        "<trk><name>a</name><trkseg>\n"
        "<trkpt lat=\"50.123456\" lon=\"9.654321\"><ele>123.4</ele><time>2024-03-01T23:59:58Z</time></trkpt>\n"
        "<trkpt lat=\"50.124456\" lon=\"9.655321\"><ele>125.0</ele><time>2024-03-02T00:00:05Z</time></trkpt>\n"
        "<trkpt lat=\"-33.5\" lon=\"-70.25\"><ele>500</ele><time>2024-03-02T10:11:12Z</time></trkpt>\n"
        "</trkseg></trk></gpx>\n");
    const std::string theirs = (dir / "theirs.nmea").string();
    ASSERT_EQ(std::system(("gpsbabel -i gpx -f '" + gpx + "' -o nmea -F '" + theirs + "'").c_str()), 0);

    // gpsbabel marks the fixes invalid ("V", quality 0): the reader takes
    // them as they stand. Both sentences of a point give one each.
    Session r(p);
    r.options.Check[21] = 0;
    r.options.Check[7] = 1;  // gpsbabel's checksums are right
    p.dateAnswer.clear();
    ReadNmeaLog(r, theirs, true);
    EXPECT_EQ(p.datesAsked, (std::vector<std::string>{"2024-03-01", "2024-03-02"}));
    ASSERT_EQ(r.store.Tracks.size(), 1u);
    const std::vector<TrackPoint>& got = r.store.Tracks[0].Points;
    ASSERT_EQ(got.size(), 6u);
    struct Want {
        double lat, lon;
        int alt;
        int32_t date, time;
    } want[] = {{50.123456, 9.654321, 123, SerialFromCivil(2024, 3, 1), 23 * 3600 + 59 * 60 + 58},
                {50.124456, 9.655321, 125, SerialFromCivil(2024, 3, 2), 5},
                {-33.5, -70.25, 500, SerialFromCivil(2024, 3, 2), 10 * 3600 + 11 * 60 + 12}};
    for (size_t i = 0; i < got.size(); ++i) {
        const Want& w = want[i / 2];
        // gpsbabel writes thousandths of a minute: 1.7e-5 degrees.
        EXPECT_NEAR(got[i].Lat, w.lat, 2e-5) << i;
        EXPECT_NEAR(got[i].Lon, w.lon, 2e-5) << i;
        EXPECT_EQ(*got[i].Date_, w.date) << i;
        EXPECT_EQ(*got[i].Time_, w.time) << i;
    }
    // Its RMC comes first, then the GGA with the altitude.
    EXPECT_TRUE(got[0].Alt.empty());
    EXPECT_EQ(*got[1].Alt, 123);
    EXPECT_EQ(*got[5].Alt, 500);
    EXPECT_DOUBLE_EQ(*got[0].Speed, 0);
}

}  // namespace
}  // namespace ortelix
