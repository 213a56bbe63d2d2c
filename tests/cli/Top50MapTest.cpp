// `ortelix top50-map LON LAT`: the code of the point and the row of names.dat.
#include <fstream>
#include <sstream>

#include "cli/CliTestSupport.h"

namespace ortelix::testing {
namespace {

class Top50MapTest : public CliTest {};

// The row of the shipped names.dat whose map code is given, as it stands (trimmed).
std::string ShippedRow(const std::string& mapCode) {
    std::ifstream f(std::string(ORTELIX_DATA_DIR) + "/names.dat");
    std::string line;
    while (std::getline(f, line)) {
        if (line.empty() || line[0] == '#') continue;
        if (line.find("| " + mapCode + " |") != std::string::npos) return line;
    }
    return "?";
}

TEST_F(Top50MapTest, PrintsTheCodeAndTheChosenRow) {
    CliResult r = Ortelix("top50-map 8.68 50.11");  // Frankfurt
    EXPECT_EQ(r.code, 0) << r.out;
    EXPECT_EQ(r.out, "HE\t" + ShippedRow("TOP50_HE") + "\n");
    r = Ortelix("top50-map 14.32 47");
    EXPECT_EQ(r.out, "AUO\t" + ShippedRow("OEK50_OST") + "\n");
    r = Ortelix("top50-map 13.74 51.05");  // Dresden: SN, not the Sachsen-Anhalt row before it
    EXPECT_EQ(r.out, "SN\t" + ShippedRow("TOP50_SN") + "\n");
    r = Ortelix("top50-map 2.35 48.85");  // Paris: none of the bands, the overview
    EXPECT_EQ(r.code, 0);
    EXPECT_EQ(r.out, "KEINE\t" + ShippedRow("UEBERSICHT_1M") + "\n");
}

TEST_F(Top50MapTest, ACodeWithoutARowPrintsAloneAndFails) {
    // The program beside a data folder whose table lacks Saxony.
    const std::filesystem::path bin = dir / "bin";
    std::filesystem::create_directories(bin / "data");
    std::filesystem::copy_file(ORTELIX_BINARY, bin / "ortelix");
    std::ofstream(bin / "data" / "names.dat") << "Top50 Hessen | H | 50000 | 51.66 | 49.39 | 10.24 | 7.77 | P | 9\n";
    auto run = [&](const std::string& args) {
        const std::string cmd = "XDG_CONFIG_HOME=" + (dir / "cfg").string() + " XDG_CACHE_HOME=" +
                                (dir / "cache").string() + " " + (bin / "ortelix").string() + " " + args + " 2>&1";
        CliResult r;
        FILE* p = ::popen(cmd.c_str(), "r");
        char buf[4096];
        size_t n;
        while ((n = std::fread(buf, 1, sizeof buf, p)) > 0) r.out.append(buf, n);
        const int status = ::pclose(p);
        r.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        return r;
    };
    CliResult r = run("top50-map 13.74 51.05");
    EXPECT_EQ(r.code, 1);
    EXPECT_EQ(r.out, "SN\n");
    r = run("top50-map 8.68 50.11");
    EXPECT_EQ(r.code, 0);
    EXPECT_EQ(r.out, "HE\tTop50 Hessen | H | 50000 | 51.66 | 49.39 | 10.24 | 7.77 | P | 9\n");
    // Without a table: the message, then the code alone.
    std::filesystem::remove(bin / "data" / "names.dat");
    r = run("top50-map 8.68 50.11");
    EXPECT_EQ(r.code, 1);
    EXPECT_NE(r.out.find("Die Kartendaten können nicht eingelesen werden."), std::string::npos) << r.out;
    EXPECT_EQ(r.out.substr(r.out.size() - 3), "HE\n");

    r = Ortelix("top50-map 10");
    EXPECT_EQ(r.code, 2);
    r = Ortelix("top50-map zehn 50");
    EXPECT_EQ(r.code, 2);
}

}  // namespace
}  // namespace ortelix::testing
