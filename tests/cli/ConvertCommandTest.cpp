// `ortelix convert`, `info` and `formats` as a user runs them.
#include <gtest/gtest.h>

#include "CliTestSupport.h"
#include "core/FileIO.h"

namespace {

using Cli = ortelix::testing::CliTest;
using Result = ortelix::testing::CliResult;

TEST_F(Cli, ConvertReadsEveryInputIntoOneStore) {
    const std::string a = File("a.gpx", "<gpx><wpt lat=\"48\" lon=\"11\"><name>A</name></wpt></gpx>");
    const std::string b = File("b.GPX", "<gpx><trk><trkseg><trkpt lat=\"47\" lon=\"10\"></trkpt></trkseg></trk></gpx>");
    const std::string out = (dir / "out.gpx").string();
    const Result r = Ortelix("convert " + a + " " + b + " " + out);
    ASSERT_EQ(r.code, 0) << r.out;
    const std::string text = ortelix::ReadFileBytes(out);
    EXPECT_NE(text.find("<name>A</name>"), std::string::npos);
    EXPECT_NE(text.find("<name>b</name>"), std::string::npos);  // the track takes the file's base name

    const Result info = Ortelix("info " + out);
    ASSERT_EQ(info.code, 0) << info.out;
    EXPECT_NE(info.out.find("Eingelesene Tracks: 1\n"), std::string::npos) << info.out;
    EXPECT_NE(info.out.find("Eingelesene Wegepunkte: 1\n"), std::string::npos);
    EXPECT_NE(info.out.find("Track/Route-Bereich (W S O N): 10.000000 47.000000 10.000000 47.000000"),
              std::string::npos);
}

TEST_F(Cli, AppendOptionBySet) {
    const std::string a = File("a.gpx", "<gpx><trk><trkseg><trkpt lat=\"1\" lon=\"1\"></trkpt></trkseg>"
                                        "<trkseg><trkpt lat=\"2\" lon=\"2\"></trkpt></trkseg></trk></gpx>");
    EXPECT_NE(Ortelix("info " + a).out.find("Eingelesene Tracks: 2"), std::string::npos);
    EXPECT_NE(Ortelix("info --set Check12=1 " + a).out.find("Eingelesene Tracks: 1"), std::string::npos);
    const Result bad = Ortelix("info --set Gibtsnicht3=1 " + a);
    EXPECT_EQ(bad.code, 2);
    EXPECT_NE(bad.out.find("Gibtsnicht3"), std::string::npos);
}

TEST_F(Cli, FailuresGiveTheMessageAndANonZeroCode) {
    const std::string out = (dir / "out.gpx").string();
    Result r = Ortelix("convert " + (dir / "fehlt.gpx").string() + " " + out);
    EXPECT_EQ(r.code, 1);
    EXPECT_NE(r.out.find("Die Daten können nicht eingelesen werden.\n\nUrsache: Datei oder Pfad nicht gefunden"),
              std::string::npos)
        << r.out;
    r = Ortelix("convert " + File("x.gpx", "<gpx/>") + " " + (dir / "out.unbekannt").string());
    EXPECT_EQ(r.code, 2);
    EXPECT_NE(r.out.find("kein Schreibformat"), std::string::npos);
    EXPECT_EQ(Ortelix("zaubern").code, 2);
    r = Ortelix("formats");
    EXPECT_EQ(r.code, 0);
    EXPECT_NE(r.out.find("gpx"), std::string::npos);
    EXPECT_EQ(Ortelix("help").code, 0);
}

}  // namespace
