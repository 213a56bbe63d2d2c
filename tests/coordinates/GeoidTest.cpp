#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

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

TEST(Geoid, NegativeValuesAreTwosComplement) {
    GeoidTable t;
    t.bytes.assign(721 * 1440 * 2, 0);
    t.bytes[0] = 0xFF, t.bytes[1] = 0xFF;  // -1 cm
    t.bytes[2] = 0xEA, t.bytes[3] = 0x61;  // 60001: 600.01 is above 600, -55.35
    t.bytes[4] = 0xEA, t.bytes[5] = 0x60;  // 60000: 600.00 is not above 600 and stays
    EXPECT_NEAR(GeoidWert(t, 0, 90), -0.01, 1e-9);
    EXPECT_NEAR(GeoidWert(t, 0.25, 90), -55.35, 1e-9);
    EXPECT_NEAR(GeoidWert(t, 0.5, 90), 600, 1e-9);
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
    // +85.391 m at New Guinea. The sign rule "above 600 m" turns only values
    // down to -55.36 m: the lowest geoid reads as 655.36 - 106.99.
    EXPECT_EQ(GeoidHoehe(s, 78.75, 4.75), 548.37);
    EXPECT_EQ(GeoidHoehe(s, 9.5, -40), GeoidWert(s.coords.geoid, 9.5, -40));
    EXPECT_EQ(GeoidHoehe(s, 147.25, -8.25), 85.39);
    EXPECT_EQ(GeoidHoehe(s, 0, 90), 13.61);
}

}  // namespace
}  // namespace ortelix
