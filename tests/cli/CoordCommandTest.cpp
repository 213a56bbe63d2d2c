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

// Round values are digits, never an exponent; small ones too.
TEST(CoordCommand, NumbersAreInFixedNotation) {
    CoordRun r = Coord("wgs84-grid 7.4386331481017764 46.95108256251725 --system 3");
    EXPECT_EQ(r.code, 0);
    EXPECT_EQ(r.out, "600000 200000\n");
    r = Coord("distance 0 0 0 10");
    EXPECT_EQ(r.code, 0);
    EXPECT_EQ(r.out.find('e'), std::string::npos) << r.out;
    double d = 0;
    ASSERT_EQ(std::sscanf(r.out.c_str(), "%lf", &d), 1);
    EXPECT_NEAR(d, 1105854.8, 15);  // geod -I on WGS 84; Andoyer's series lies 11 m short here
    r = Coord("gk-wgs84 3500000 0");  // a latitude of a few thousandths
    EXPECT_EQ(r.out.find('e'), std::string::npos) << r.out;
    EXPECT_NE(r.out.find(" 0.00"), std::string::npos) << r.out;
    r = Coord("grid-wgs84 --system 3", "600000 200000\n500000 100000\n");
    EXPECT_EQ(r.code, 0);
    EXPECT_EQ(r.out.find('e'), std::string::npos) << r.out;
}

// Values off the earth are refused with a German message and a non-zero
// exit, for every kind of input; no integer of them is ever formed.
TEST(CoordCommand, ValuesOffTheEarthAreRefused) {
    for (const char* args : {"wgs84-utm 1e308 1e308", "wgs84-utm 9 90.5", "wgs84-gk 400 5", "wgs84-o2 9 -91",
                             "wgs84-grid 1e300 0 --system 3", "geoid 9 1e300", "distance 0 0 1e300 0",
                             "datum-wgs84 -361 0 --datum ETRS89", "gk-wgs84 1e300 5", "grid-wgs84 5 -1e10 --system 1",
                             "offset 9 50 1e300 5", "offset 9 50 90 1e300", "utm-wgs84 32U 9999999999 99999999999",
                             "wgs84-gk 9 50 --meridian 1e300"}) {
        const CoordRun r = Coord(args);
        EXPECT_EQ(r.code, 2) << args;
        EXPECT_TRUE(r.out.find("außerhalb des Bereichs") != std::string::npos ||
                    r.out.find("Kein Meridian") != std::string::npos)
            << args << ": " << r.out;
        EXPECT_EQ(r.out.find("2147483"), std::string::npos) << args;
    }
    const CoordRun r = Coord("wgs84-utm 1e308 1e308");
    EXPECT_EQ(r.out, "Koordinate außerhalb des Bereichs: 1e308 1e308\n");
    // The edges of the range still convert; a line out of range on stdin is
    // reported, the others are converted.
    EXPECT_EQ(Coord("wgs84-utm 360 -80").code, 0);
    const CoordRun lines = Coord("wgs84-utm", "9 0\n9 100\n3 0\n");
    EXPECT_EQ(lines.code, 1);
    EXPECT_EQ(lines.out, "32N 0500000 0000000\nKoordinate außerhalb des Bereichs: 9 100\n31N 0500000 0000000\n");
}

}  // namespace
}  // namespace ortelix
