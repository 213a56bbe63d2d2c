// `ortelix info --points` through the built program: the editor's track
// table for every track, after the usual counts.
#include <gtest/gtest.h>

#include <sstream>

#include "cli/CliTestSupport.h"
#include "core/ModulShared.h"
#include "editor/EditorTestSupport.h"

namespace ortelix {
namespace {

using testing::kBaseLat;
using testing::NorthDegrees;

class InfoPoints : public testing::CliTest {
protected:
    std::string Gpx() {
        auto pt = [](double north, const char* time, const char* ele) {
            std::string s = "<trkpt lat=\"" + FormatFixed(kBaseLat + NorthDegrees(north), 10) + "\" lon=\"10.0\">";
            if (*ele) s += std::string("<ele>") + ele + "</ele>";
            return s + "<time>2006-02-16T" + time + "Z</time></trkpt>\n";
        };
        return File("zwei.gpx", "<?xml version=\"1.0\"?>\n<gpx version=\"1.1\" creator=\"test\">\n"
                                "<trk><name>Runde</name><trkseg>\n" +
                                    pt(0, "10:00:00", "100") + pt(500, "10:01:00", "150") +
                                    pt(1500, "10:04:00", "0") +
                                    "</trkseg></trk>\n<trk><name>Kurz</name><trkseg>\n" + pt(0, "11:00:00", "") +
                                    "</trkseg></trk>\n</gpx>\n");
    }
};

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> out;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) out.push_back(line);
    return out;
}

TEST_F(InfoPoints, PrintsTheTrackTableOfEveryTrackAfterTheCounts) {
    const std::string file = Gpx();
    const testing::CliResult plain = Ortelix("info " + file);
    ASSERT_EQ(plain.code, 0) << plain.out;
    EXPECT_EQ(plain.out.find("Längengrad"), std::string::npos);

    const testing::CliResult r = Ortelix("info --points " + file);
    ASSERT_EQ(r.code, 0) << r.out;
    // The usual output comes first, unchanged.
    ASSERT_EQ(r.out.substr(0, plain.out.size()), plain.out);
    const std::vector<std::string> lines = Lines(r.out.substr(plain.out.size()));
    const std::string heading =
        "\tLängengrad\tBreitengrad\tSpeed\tRicht.\tHöhe\tDatum\tZeit\tSat.\tFix\tStrecke\tDauer\tPause\t Höhe\t"
        "km/h Schnitt\tkm/h o.P.";
    const std::string lat2 = FormatFixed(kBaseLat + NorthDegrees(500), 6);
    const std::string lat3 = FormatFixed(kBaseLat + NorthDegrees(1500), 6);
    // 0.5 km in a minute is 30 km/h; 1.5 km in four minutes 22.5 km/h. The
    // altitude 0 takes no part in the span of 50 m.
    const std::vector<std::string> want = {
        "",
        "Track 1: Runde",
        heading,
        "1\t10.000000\t50.000000\t\t\t100\t16.02.2006\t10:00:00\t\t\t0.000\t0:00:00\t\t0\t0.0\t0.0",
        "2\t10.000000\t" + lat2 + "\t\t\t150\t16.02.2006\t10:01:00\t\t\t0.500\t0:01:00\t\t50\t30.0\t30.0",
        "3\t10.000000\t" + lat3 + "\t\t\t0\t16.02.2006\t10:04:00\t\t\t1.500\t0:04:00\t\t50\t22.5\t22.5",
        "",
        "Track 2: Kurz",
        heading,
        "1\t10.000000\t50.000000\t\t\t\t16.02.2006\t11:00:00\t\t\t0.000\t0:00:00\t\t0\t0.0\t0.0",
    };
    EXPECT_EQ(lines, want);

    // The flag is the command's own; others are still refused.
    EXPECT_EQ(Ortelix("info --punkte " + file).code, 2);
    EXPECT_NE(Ortelix("help").out.find("info [--points]"), std::string::npos);
}

}  // namespace
}  // namespace ortelix
