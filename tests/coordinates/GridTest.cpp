#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "coordinates/ModulTransformation.h"

namespace ortelix {
namespace {

TEST(GaussKrueger, StripRoundsHalvesToEven) {
    double R, H;
    GeoNachGK(4.5, 50, R, H);  // 1.5 -> 2
    EXPECT_EQ(std::floor(R / 1e6), 2);
    GeoNachGK(7.5, 50, R, H);  // 2.5 -> 2
    EXPECT_EQ(std::floor(R / 1e6), 2);
    GeoNachGK(7.6, 50, R, H);
    EXPECT_EQ(std::floor(R / 1e6), 3);
    GeoNachGK(10.5, 50, R, H);  // 3.5 -> 4
    EXPECT_EQ(std::floor(R / 1e6), 4);
}

TEST(GaussKrueger, CentralMeridianGivesTheMeridianArc) {
    // On the central meridian y = 0, and the Hochwert is the arc of the
    // meridian: 5540279.542 m at 50 degrees on Bessel (cs2cs +proj=tmerc
    // +ellps=bessel). The fixed factor 6366745.2 instead of 6366742.52 adds
    // 2.68 m per radian of latitude: 2.34 m here.
    double R, H;
    GeoNachGK(9, 50, R, H);
    EXPECT_DOUBLE_EQ(R, 3500000);
    EXPECT_NEAR(H - 5540279.542, 2.34, 0.01);
    // The meridian variant with a foreign strip: R carries meridian / 3 millions.
    GeoNachGKMeridian(9, 50, 12, R, H);
    EXPECT_LT(R, 4500000);
    EXPECT_GT(R, 4500000 - 220000);
}

TEST(GaussKrueger, RoundTripsWithinTheFormulasOwnConsistency) {
    for (double lon = 5.6; lon < 15.5; lon += 0.7) {
        for (double lat = 47.2; lat < 55.2; lat += 0.9) {
            double R, H, lon2, lat2;
            GeoNachGK(lon, lat, R, H);
            GKNachGeo(R, H, lon2, lat2);
            // The inverse divides by the true arc factor, the forward series
            // multiplies by 6366745.2: the way back lands 2 to 3 m north.
            EXPECT_NEAR(lon2, lon, 1e-6) << lon << " " << lat;
            EXPECT_GT(lat2 - lat, 1.5e-5) << lon << " " << lat;
            EXPECT_LT(lat2 - lat, 2.6e-5) << lon << " " << lat;
            // And through WGS 84, with the fixed Potsdam shift both ways.
            WGS84NachGK(lon, lat, R, H);
            GKNachWGS84(R, H, lon2, lat2);
            EXPECT_NEAR(lon2, lon, 2e-6);
            EXPECT_NEAR(lat2, lat, 2.6e-5);
            double R2, H2;
            WGS84NachGK(lon2, lat2, R2, H2);
            EXPECT_NEAR(R2, R, 0.3);
            EXPECT_NEAR(H2, H + 2.5, 0.6);
        }
    }
}

TEST(GaussKrueger, MeridianVariantIgnoresTheLeadingDigit) {
    double R, H, lon, lat, lon2, lat2;
    // 10.2 E lies in strip 3 by rounding; forced onto meridian 12 it is
    // 1.8 degrees west of the middle and R carries 4 millions.
    GeoNachGKMeridian(10.2, 51, 12, R, H);
    EXPECT_EQ(std::floor(R / 1e6), 4);
    EXPECT_NEAR(R - 4500000, -126300, 300);
    GKNachGeoMeridian(R, H, 12, lon, lat);
    EXPECT_NEAR(lon, 10.2, 1e-6);
    EXPECT_NEAR(lat, 51, 2.6e-5);
    // Read with the strip from R it is the same here, on meridian 9 not.
    GKNachGeo(R, H, lon2, lat2);
    EXPECT_EQ(lon2, lon);
    GKNachGeoMeridian(R, H, 9, lon2, lat2);
    EXPECT_GT(std::fabs(lon2 - lon), 1);
    WGS84NachGKMeridian(10.2, 51, 12, R, H);
    GKNachWGS84Meridian(R, H, 12, lon, lat);
    EXPECT_NEAR(lon, 10.2, 2e-6);
    EXPECT_NEAR(lat, 51, 2.6e-5);
}

TEST(O2Text, ReaderAndWriterOrderDiffer) {
    double R, H;
    WGS84NachGK(9, 50, R, H);
    const std::string text = WGS84NachO2(9, 50);
    // Hochwert first, both cut to ten metres.
    EXPECT_EQ(text, std::to_string(static_cast<long>(std::floor(H / 10))) +
                        std::to_string(static_cast<long>(std::floor(R / 10))));
    ASSERT_EQ(text.size(), 12u);
    // The reader takes the first six digits as the Rechtswert: not the same place.
    double lon, lat;
    O2NachWGS84(text, lon, lat);
    EXPECT_GT(std::fabs(lat - 50) + std::fabs(lon - 9), 1);
    // In its own order it finds the place to ten metres.
    const std::string swapped = text.substr(6) + text.substr(0, 6);
    O2NachWGS84(swapped, lon, lat);
    EXPECT_NEAR(lon, 9, 2e-4);
    EXPECT_NEAR(lat, 50, 2e-4);
}

TEST(UTM, BandsAndZones) {
    std::string zone, text;
    double ost, nord;
    const auto zoneOf = [&](double lon, double lat) {
        GeoNachUTM(lon, lat, false, zone, ost, nord, text);
        return zone;
    };
    EXPECT_EQ(zoneOf(9, 84), "32X");
    EXPECT_EQ(zoneOf(9, 84.1), "32Z");
    EXPECT_EQ(zoneOf(9, -80), "32C");
    EXPECT_EQ(zoneOf(9, -80.1), "32Z");
    EXPECT_EQ(zoneOf(9, 72), "33X");  // 72 belongs to X and to the Svalbard zones
    EXPECT_EQ(zoneOf(9, 71.99), "32W");
    EXPECT_EQ(zoneOf(9, 0), "32N");
    EXPECT_EQ(zoneOf(9, -0.01), "32M");
    EXPECT_EQ(zoneOf(5, 60), "32V");   // south-west Norway
    EXPECT_EQ(zoneOf(2.99, 60), "31V");
    EXPECT_EQ(zoneOf(5, 64), "31W");   // upper bound excluded
    EXPECT_EQ(zoneOf(10, 75), "33X");
    EXPECT_EQ(zoneOf(8.99, 75), "31X");
    EXPECT_EQ(zoneOf(21, 75), "35X");
    EXPECT_EQ(zoneOf(41.9, 75), "37X");
    EXPECT_EQ(zoneOf(42, 75), "38X");
    EXPECT_EQ(zoneOf(-153, 20), "5Q");  // no leading zero
    EXPECT_EQ(zoneOf(-180, 20), "1Q");
}

TEST(UTM, TextAndWholeMetres) {
    std::string zone, text;
    double ost, nord;
    GeoNachUTM(9, 0, false, zone, ost, nord, text);
    EXPECT_EQ(text, "32N 0500000 0000000");
    GeoNachUTM(9.5, 50.3, false, zone, ost, nord, text);
    EXPECT_EQ(ost, std::floor(ost));
    EXPECT_EQ(nord, std::floor(nord));
    // PROJ (cs2cs +proj=utm +zone=32 +ellps=WGS84) gives 535609.98 5572106.49.
    EXPECT_EQ(text, "32U 0535610 5572106");
    GeoNachUTM(-58.4, -34.6, false, zone, ost, nord, text);
    EXPECT_EQ(zone, "21H");
    EXPECT_GT(nord, 6000000);  // southern false northing
    double lon, lat;
    UTMNachGeo(text, lon, lat, false);
    EXPECT_NEAR(lon, -58.4, 1e-5);
    EXPECT_NEAR(lat, -34.6, 1e-5);
}

TEST(UTM, ReaderTakesTheThirdCharacterAsBand) {
    double lon, lat;
    UTMNachGeo("32U 0535610 5572106", lon, lat, false);
    EXPECT_NEAR(lon, 9.5, 1e-5);
    EXPECT_NEAR(lat, 50.3, 1e-5);
    // Fixed columns without blanks.
    UTMNachGeo("32U05356105572106", lon, lat, false);
    EXPECT_NEAR(lon, 9.5, 1e-5);
    EXPECT_NEAR(lat, 50.3, 1e-5);
    // "5T" has no third character and reads as southern: far from where it came from.
    std::string zone, text;
    double ost, nord;
    GeoNachUTM(-153, 45, false, zone, ost, nord, text);
    ASSERT_EQ(zone, "5T");
    UTMNachGeo(text, lon, lat, false);
    EXPECT_LT(lat, -40);
    UTMNachGeo("05T" + text.substr(2), lon, lat, false);
    EXPECT_NEAR(lat, 45, 1e-5);
    EXPECT_NEAR(lon, -153, 1e-5);
}

TEST(GridSystems, SwissGridRoundTripAndWholeMetres) {
    // Bern's old observatory: CH1903 600000 / 200000.
    double lon, lat;
    GridNachWGS84(600000, 200000, lon, lat, 3);
    // Published WGS 84 position of the origin: 7.43863 E, 46.95108 N.
    EXPECT_NEAR(lon, 7.43863, 2e-4);
    EXPECT_NEAR(lat, 46.95108, 2e-4);
    double ost, nord;
    WGS84NachGrid(lon, lat, ost, nord, 3);
    EXPECT_EQ(ost, std::floor(ost));
    EXPECT_NEAR(ost, 600000, 2);
    EXPECT_NEAR(nord, 200000, 2);
    // Zurich; cs2cs EPSG:4326 EPSG:21781 (the oblique projection) gives
    // 680165.29 247115.11.
    WGS84NachGrid(8.5, 47.37, ost, nord, 3);
    EXPECT_NEAR(ost, 680165.29, 5);
    EXPECT_NEAR(nord, 247115.11, 5);
}

TEST(GridSystems, SystemOneReadsItsStripOnlyOnTheWayIn) {
    double lon, lat, ost, nord;
    // Into the grid: meridian 0 and false easting 500000, whatever the longitude.
    WGS84NachGrid(0.001, 50, ost, nord, 1);
    EXPECT_NEAR(ost, 500000, 200);
    // Out of it: the strip is the leading digit.
    GridNachWGS84(3500000, 5540847, lon, lat, 1);
    EXPECT_NEAR(lon, 9, 0.01);
    EXPECT_NEAR(lat, 50, 0.01);
    // System 2 has neither origin nor false easting.
    WGS84NachGrid(0, 0.5, ost, nord, 2);
    EXPECT_NEAR(ost, 0, 200);
    EXPECT_NEAR(nord, 55000, 500);
    // An unknown system gives nothing.
    WGS84NachGrid(8, 47, ost, nord, 4);
    EXPECT_EQ(ost, 0);
}

// The grid texts hold whole numbers; from a value far off any grid (or NaN)
// they must be formed without the undefined cast of a double out of range
// (the test build halts on one).
TEST(UTM, TextsOfValuesOffTheEarthAreFormedSafely) {
    std::string zone, text;
    double ost = 0, nord = 0;
    GeoNachUTM(1e308, 0, false, zone, ost, nord, text);
    EXPECT_EQ(zone.substr(0, 7), "1000001");  // the zone number is held, not wrapped
    GeoNachUTM(std::nan(""), std::nan(""), false, zone, ost, nord, text);
    EXPECT_EQ(zone, "1Z");
    EXPECT_EQ(text.substr(0, 3), "1Z ");
    GeoNachUTM(-1e308, -1e308, false, zone, ost, nord, text);
    EXPECT_EQ(text.find("2147483"), std::string::npos);
    EXPECT_EQ(WGS84NachO2(std::nan(""), 50), "00");
    EXPECT_FALSE(WGS84NachO2(1e308, 1e308).empty());
}

}  // namespace
}  // namespace ortelix
