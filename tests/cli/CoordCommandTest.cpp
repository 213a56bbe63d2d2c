// `ortelix coord` run as a program: one line per result, shortest numbers,
// stdin mode without coordinates, German messages and exit codes.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>
#include <sys/wait.h>

namespace ortelix {
namespace {

struct CoordRun {
    std::string out;
    int code = -1;
};

CoordRun Coord(const std::string& args, const std::string& input = "") {
    const std::string cmd = (input.empty() ? std::string() : "printf '" + input + "' | ") +
                            "XDG_CONFIG_HOME=/tmp/ortelix-coord-test-config ASAN_OPTIONS=detect_leaks=0 '" +
                            ORTELIX_BINARY + "' coord " + args + (input.empty() ? " </dev/null" : "") + " 2>&1";
    CoordRun r;
    FILE* p = popen(cmd.c_str(), "r");
    if (!p) return r;
    std::array<char, 4096> buf;
    size_t n;
    while ((n = fread(buf.data(), 1, buf.size(), p)) > 0) r.out.append(buf.data(), n);
    const int status = pclose(p);
    r.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return r;
}

TEST(CoordCommand, ConversionsPrintOneLineEach) {
    CoordRun r = Coord("wgs84-utm 9 0");
    EXPECT_EQ(r.code, 0);
    EXPECT_EQ(r.out, "32N 0500000 0000000\n");
    // The shortest text that reads back as the same double: no padding, no exponent for these.
    r = Coord("distance 9 50 9 50");
    EXPECT_EQ(r.out, "0 0\n");
    r = Coord("wgs84-gk 9 50");
    ASSERT_EQ(r.code, 0);
    double R = 0, H = 0;
    ASSERT_EQ(std::sscanf(r.out.c_str(), "%lf %lf", &R, &H), 2);
    EXPECT_NEAR(R, 3500075.3, 0.1);
    EXPECT_NEAR(H, 5540409.5, 0.1);
    r = Coord("wgs84-grid 8.5 47.37 --system 3");
    EXPECT_EQ(r.out.substr(0, 7), "680165 ");
    r = Coord("utm-wgs84 32N 500000 0");  // the text may come in words
    EXPECT_EQ(r.out.substr(0, 2), "9 ");
    r = Coord("wgs84-gk -3.5 40.2");  // negative numbers are values, not flags
    EXPECT_EQ(r.code, 0);
    EXPECT_EQ(r.out[0], '-');
}

TEST(CoordCommand, DatumsByNameAndGeoid) {
    CoordRun r = Coord("datum-wgs84 9 50 --datum ETRS89");
    EXPECT_EQ(r.code, 0);
    double lon = 0, lat = 0;
    ASSERT_EQ(std::sscanf(r.out.c_str(), "%lf %lf", &lon, &lat), 2);
    EXPECT_NEAR(lon, 9, 1e-6);
    EXPECT_NEAR(lat, 50, 1e-6);
    r = Coord("wgs84-datum 9 50 --datum 'Potsdam (DHDN)'");
    ASSERT_EQ(std::sscanf(r.out.c_str(), "%lf %lf", &lon, &lat), 2);
    EXPECT_NEAR(lon, 9.0011, 2e-4);  // DHDN lies about 100 m east and north
    EXPECT_NEAR(lat, 50.0012, 2e-4);
    r = Coord("datum-wgs84 9 50 --datum Atlantis");
    EXPECT_EQ(r.code, 2);
    EXPECT_EQ(r.out, "Unbekanntes Datum: Atlantis\n");
    r = Coord("geoid 9 50");
    EXPECT_EQ(r.out, "48.24\n");
}

TEST(CoordCommand, StandardInputAndWrongInput) {
    CoordRun r = Coord("distance", "9 50 9 50\\n\\n9 50 10 50\\nx 1 2 3\\n");
    EXPECT_EQ(r.code, 1);
    EXPECT_EQ(r.out.substr(0, 4), "0 0\n");
    EXPECT_NE(r.out.find(" 90\n"), std::string::npos);
    EXPECT_NE(r.out.find("Keine Zahl: x"), std::string::npos);
    r = Coord("wgs84-grid 8 47");
    EXPECT_EQ(r.code, 2);
    EXPECT_EQ(r.out, "--system erwartet 1, 2 oder 3\n");
    r = Coord("wgs84-gk 9");
    EXPECT_EQ(r.code, 2);
    EXPECT_EQ(r.out, "wgs84-gk erwartet 2 Zahlen\n");
    EXPECT_EQ(Coord("nach-mars 1 2").code, 2);
}

}  // namespace
}  // namespace ortelix
