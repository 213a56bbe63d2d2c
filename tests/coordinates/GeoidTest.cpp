#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "coordinates/Geoid.h"
#include "core/Session.h"
#include "fake/FakePlatform.h"

namespace ortelix {
namespace {

// A grid whose node (row, column) holds row * 1440 + column centimetres
// modulo 30000, so every lookup tells where it landed.
GeoidTable NumberedTable() {
    GeoidTable t;
    t.bytes.resize(721 * 1440 * 2);
    for (size_t i = 0; i < 721 * 1440; ++i) {
        const unsigned v = static_cast<unsigned>(i % 30000);
        t.bytes[2 * i] = static_cast<uint8_t>(v >> 8);
        t.bytes[2 * i + 1] = static_cast<uint8_t>(v & 0xFF);
    }
    t.loaded = true;
    return t;
}

double Node(int row, int column) { return ((row * 1440 + column) % 30000) / 100.0; }

TEST(Geoid, RowsColumnsAndTheNearestNode) {
    const GeoidTable t = NumberedTable();
    EXPECT_EQ(GeoidWert(t, 0, 90), Node(0, 0));        // first row
    EXPECT_EQ(GeoidWert(t, 123.4, 90), Node(0, 494));  // any longitude on the pole row
    EXPECT_EQ(GeoidWert(t, 10, -90), Node(720, 40));   // last row
    EXPECT_EQ(GeoidWert(t, -1, 50), GeoidWert(t, 359, 50));
    EXPECT_EQ(GeoidWert(t, 9, 50), Node(160, 36));
    // 47.125 * 4 = 188.5: half-way falls to the lower node 47; 47.13 to 47.25.
    EXPECT_EQ(GeoidWert(t, 0, 47.125), Node(172, 0));
    EXPECT_EQ(GeoidWert(t, 0, 47.13), Node(171, 0));
    EXPECT_EQ(GeoidWert(t, 0.125, 0), Node(360, 0));
    EXPECT_EQ(GeoidWert(t, 0.13, 0), Node(360, 1));
    // Longitude 359.9 rounds to 360: column 1440 is column 0 of the next row.
    EXPECT_EQ(GeoidWert(t, 359.9, 50), Node(161, 0));
    // Off the earth: 0.
    EXPECT_EQ(GeoidWert(t, 0, 90.01), 0);
    EXPECT_EQ(GeoidWert(t, 0, -90.5), 0);
    EXPECT_EQ(GeoidWert(t, -361, 0), 0);
    EXPECT_EQ(GeoidWert(t, 360.5, 0), 0);
    // Past the end of the table (360 on the last row) is 0, not a stray read.
    EXPECT_EQ(GeoidWert(t, 359.9, -90), 0);
}

// Each node is a 16-bit two's complement number of centimetres: from 32768
// up a stored value is that minus 65536, right down to the lowest geoid.
TEST(Geoid, NegativeValuesAreTwosComplement) {
    GeoidTable t;
    t.bytes.assign(721 * 1440 * 2, 0);
    auto put = [&t](int column, unsigned stored) {
        t.bytes[2 * static_cast<size_t>(column)] = static_cast<uint8_t>(stored >> 8);
        t.bytes[2 * static_cast<size_t>(column) + 1] = static_cast<uint8_t>(stored & 0xFF);
    };
    put(0, 0xFFFF);        // -1 cm
    put(1, 60001);         // -55.35 m
    put(2, 60000);         // -55.36 m, not +600 m
    put(3, 54837);         // -106.99 m, the Indian Ocean low
    put(4, 32768);         // the lowest value of all
    put(5, 32767);         // the highest
    put(6, 65536 - 5875);  // -58.75 m, the Caribbean
    EXPECT_EQ(GeoidWert(t, 0, 90), -0.01);
    EXPECT_EQ(GeoidWert(t, 0.25, 90), -55.35);
    EXPECT_EQ(GeoidWert(t, 0.5, 90), -55.36);
    EXPECT_EQ(GeoidWert(t, 0.75, 90), -106.99);
    EXPECT_EQ(GeoidWert(t, 1.0, 90), -327.68);
    EXPECT_EQ(GeoidWert(t, 1.25, 90), 327.67);
    EXPECT_EQ(GeoidWert(t, 1.5, 90), -58.75);
    EXPECT_EQ(GeoidWert(t, 1.75, 90), 0);
}

// Not a number is off the earth like any other value out of range.
TEST(Geoid, NotANumberIsOffTheEarth) {
    const GeoidTable t = NumberedTable();
    const double nan = std::nan("");
    EXPECT_EQ(GeoidWert(t, nan, 50), 0);
    EXPECT_EQ(GeoidWert(t, 9, nan), 0);
    EXPECT_EQ(GeoidWert(t, HUGE_VAL, 50), 0);
    EXPECT_EQ(GeoidWert(t, 9, -HUGE_VAL), 0);
}

TEST(Geoid, WithoutAFileEveryHeightIsZero) {
    FakePlatform platform;
    platform.dataFolder = "/nonexistent-ortelix-folder";
    Session s(platform);
    EXPECT_FALSE(GeoidLaden(s));
    EXPECT_EQ(GeoidHoehe(s, 9, 50), 0);
    EXPECT_FALSE(s.coords.geoid.loaded);
}

TEST(Geoid, BuiltGridMatchesPROJsModelAtTheNodes) {
    FakePlatform platform;
    Session s(platform);
    if (!std::filesystem::exists(platform.dataFolder + "/geobin.dat")) GTEST_SKIP() << "no geobin.dat built";
    EXPECT_EQ(GeoidHoehe(s, 9, 50), 48.24);  // cct +proj=vgridshift +grids=egm96_15.gtx: 48.236
    EXPECT_TRUE(s.coords.geoid.loaded);
    EXPECT_EQ(s.coords.geoid.bytes.size(), 721u * 1440 * 2);
    EXPECT_EQ(s.store.StatusText.text(), "Lese Datensatz");
    EXPECT_FALSE(platform.busy);
    // The EGM96 extremes (cct at the nodes): -106.991 m south of India,
    // +85.391 m at New Guinea, and the Caribbean lows east of the Antilles.
    EXPECT_EQ(GeoidHoehe(s, 78.75, 4.75), -106.99);
    EXPECT_EQ(GeoidHoehe(s, 147.25, -8.25), 85.39);
    EXPECT_EQ(GeoidHoehe(s, -60, 16), -61.32);
    EXPECT_EQ(GeoidHoehe(s, -59.5, 16), -58.75);
    EXPECT_EQ(GeoidHoehe(s, 0, 90), 13.61);
}

// PROJ's own reading of the model: cct with the vertical grid shift and the
// multiplier 1 prints the undulation in metres. At the nodes our table holds
// it to the centimetre, negative values included.
TEST(Geoid, NodesAgreeWithPROJsCct) {
    FakePlatform platform;
    Session s(platform);
    if (!std::filesystem::exists(platform.dataFolder + "/geobin.dat")) GTEST_SKIP() << "no geobin.dat built";
    if (std::system("command -v cct >/dev/null 2>&1") != 0) GTEST_SKIP() << "no cct (proj-bin)";
    const double nodes[][2] = {{78.75, 4.75}, {-60, 16},     {-59.5, 16},  {9, 50},     {147.25, -8.25},
                               {-66.25, 19.5}, {0, 0},       {180, -45},   {300.5, 16}, {-0.25, -75.5},
                               {100, 10},     {-150, 60.25}, {25.75, -30}, {0, 90},     {359.75, -89.75}};
    std::string input;
    for (const auto& n : nodes) input += std::to_string(n[0]) + " " + std::to_string(n[1]) + " 0\n";
    const std::string in = testing::TempDir() + "geoid-nodes.txt";
    {
        std::FILE* f = std::fopen(in.c_str(), "w");
        ASSERT_NE(f, nullptr);
        std::fputs(input.c_str(), f);
        std::fclose(f);
    }
    const std::string cmd = "cct +proj=vgridshift +grids=egm96_15.gtx +multiplier=1 " + in;
    std::FILE* pipe = ::popen(cmd.c_str(), "r");
    ASSERT_NE(pipe, nullptr);
    int negative = 0;
    for (const auto& n : nodes) {
        double lon = 0, lat = 0, h = 0, t = 0;
        ASSERT_EQ(std::fscanf(pipe, "%lf %lf %lf %lf", &lon, &lat, &h, &t), 4) << n[0] << " " << n[1];
        EXPECT_NEAR(GeoidHoehe(s, n[0], n[1]), h, 0.0051) << n[0] << " " << n[1];
        negative += h < -55.36;
    }
    ::pclose(pipe);
    EXPECT_GE(negative, 4);  // below -55.36 m: values a cut at +600 m would misread
}

}  // namespace
}  // namespace ortelix
