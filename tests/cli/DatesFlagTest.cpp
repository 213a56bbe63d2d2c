// --dates on the command line: the answer to the date choice of a log with
// several days, checked on the flag and through `ortelix convert`.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "cli/DatesFlag.h"

namespace ortelix {
namespace {

namespace fs = std::filesystem;

const std::vector<std::string> kDates = {"2006-02-16", "2006-02-17", "2006-02-18"};

TEST(DatesFlag, AllFirstAndNamedDays) {
    ConsolePlatform p;
    std::string error;
    ASSERT_TRUE(ApplyDatesFlag(p, "all", error));
    EXPECT_EQ(p.chooseDates(kDates), (std::vector<bool>{true, true, true}));
    ASSERT_TRUE(ApplyDatesFlag(p, "first", error));
    EXPECT_EQ(p.chooseDates(kDates), (std::vector<bool>{true, false, false}));
    ASSERT_TRUE(ApplyDatesFlag(p, "2006-02-18,2006-02-16", error));
    EXPECT_EQ(p.chooseDates(kDates), (std::vector<bool>{true, false, true}));
    ASSERT_TRUE(ApplyDatesFlag(p, "all", error));  // a later flag replaces an earlier one
    EXPECT_EQ(p.chooseDates(kDates), (std::vector<bool>{true, true, true}));
    EXPECT_TRUE(error.empty());

    for (const char* bad : {"", "alle", "2006-02-30", "2006-2-16", "2006-02-16,", "16.02.2006"}) {
        error.clear();
        EXPECT_FALSE(ApplyDatesFlag(p, bad, error)) << bad;
        EXPECT_NE(error.find("--dates"), std::string::npos) << bad;
    }
}

std::string Slurp(const fs::path& p) {
    std::ifstream in(p);
    std::stringstream ss;
    ss << in.rdbuf();
    return ss.str();
}

int Count(const std::string& text, const std::string& what) {
    int n = 0;
    for (size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++n;
    return n;
}

TEST(DatesFlag, ConvertKeepsOnlyTheChosenDays) {
    const fs::path dir = fs::path(ORTELIX_BUILD_DIR) / "test-dates-flag";
    fs::remove_all(dir);
    fs::create_directories(dir / "config");
    const fs::path in = dir / "drei.gpx";
    std::ofstream(in) << "<?xml version=\"1.0\"?>\n<gpx version=\"1.0\"><trk><name>Drei</name><trkseg>\n"
                         "<trkpt lat=\"50.000\" lon=\"10\"><time>2006-02-16T10:00:00Z</time></trkpt>\n"
                         "<trkpt lat=\"50.001\" lon=\"10\"><time>2006-02-16T10:01:00Z</time></trkpt>\n"
                         "<trkpt lat=\"50.002\" lon=\"10\"><time>2006-02-17T10:00:00Z</time></trkpt>\n"
                         "<trkpt lat=\"50.003\" lon=\"10\"><time>2006-02-18T10:00:00Z</time></trkpt>\n"
                         "</trkseg></trk></gpx>\n";
    auto convert = [&](const std::string& flags) {
        const fs::path out = dir / "out.gpx";
        fs::remove(out);
        const std::string cmd = "XDG_CONFIG_HOME='" + (dir / "config").string() + "' '" + ORTELIX_BINARY +
                                "' convert '" + in.string() + "' '" + out.string() + "' " + flags + " 2>/dev/null";
        if (std::system(cmd.c_str()) != 0) return -1;
        return Count(Slurp(out), "<trkpt");
    };
    EXPECT_EQ(convert(""), 4);
    EXPECT_EQ(convert("--dates all"), 4);
    EXPECT_EQ(convert("--dates first"), 2);
    EXPECT_EQ(convert("--dates 2006-02-17,2006-02-18"), 2);
    EXPECT_EQ(convert("--set List7=0"), 2);  // "Optimal": the straight line keeps its ends
    EXPECT_EQ(convert("--dates gestern"), -1);
}

}  // namespace
}  // namespace ortelix
