#include <gtest/gtest.h>

#include <cmath>

#include "coordinates/Entfernung.h"

namespace ortelix {
namespace {

TEST(Entfernung, FarBranchAgreesWithTheEllipsoid) {
    // geod +ellps=WGS84 -I: Frankfurt - Munich 305.054 km, Berlin - Rome 1182.344 km.
    EXPECT_NEAR(Entfernung(8.6821, 50.1109, 11.5820, 48.1351), 305054, 30);
    EXPECT_NEAR(Entfernung(13.4050, 52.5200, 12.4964, 41.9028), 1182344, 100);
    // Almost a quarter meridian: 10001.955 km.
    EXPECT_NEAR(Entfernung(0, 0, 0, 89.9999), 10001955, 100);
}

TEST(Entfernung, NearBranchUsesThePlaneAndIdenticalPointsGiveZero) {
    // 100 m north on the mean sphere: the plane form exactly.
    const double dLat = 100 / (6371299.0 * 0.017453292519943278);
    EXPECT_NEAR(Entfernung(9, 50, 9, 50 + dLat), 100, 1e-6);
    double azimut = 123;
    EXPECT_EQ(Entfernung(9, 50, 9, 50, azimut), 0);
    EXPECT_EQ(azimut, 123);  // left alone
    // Both branches meet: just either side of the switch they agree closely.
    const double nearEdge = Entfernung(9, 50, 9, 50.18);  // s > 0.999995
    const double farEdge = Entfernung(9, 50, 9, 50.19);
    EXPECT_NEAR(farEdge - nearEdge, 0.01 * 111200, 150);
}

TEST(Entfernung, AzimuthQuadrantsAndAxes) {
    // One kilometre east and north in the fixed factors of the course.
    constexpr double kE = 0.01400112, kN = 0.00898861;
    struct Case {
        double dlon, dlat, azimut;
    };
    for (const Case c : {Case{0, 0.01, 0}, Case{0.01, 0, 90}, Case{0, -0.01, 180}, Case{-0.01, 0, 270},
                         Case{kE, 2 * kN, 26}, Case{kE, -2 * kN, 153}, Case{-kE, -2 * kN, 206},
                         Case{-kE, 2 * kN, 333}}) {
        double azimut = -1;
        Entfernung(9, 50, 9 + c.dlon, 50 + c.dlat, azimut);
        EXPECT_EQ(azimut, c.azimut) << c.dlon << " " << c.dlat;
    }
    // Under one metre of the fixed factors: unchanged.
    double azimut = 77;
    Entfernung(9, 50, 9 + 0.000005, 50 + 0.000005, azimut);
    EXPECT_EQ(azimut, 77);
    // The factors are those of 50 degrees north everywhere: at the equator a
    // course of 45 degrees on the ground shows as less.
    azimut = 0;
    Entfernung(0, 0, 0.01, 0.01, azimut);
    EXPECT_EQ(azimut, 32);
}

TEST(Entfernung, PunktVersetzenGoesBackToItsDistance) {
    for (double az : {0.0, 30.0, 90.0, 200.0, 315.0}) {
        double lon2, lat2, azimut = -1;
        PunktVersetzen(9, 50, lon2, lat2, az, 2000);
        EXPECT_NEAR(Entfernung(9, 50, lon2, lat2, azimut), 2000, 15) << az;
    }
    double lon2, lat2;
    PunktVersetzen(9, 50, lon2, lat2, 90, 1000);
    EXPECT_EQ(lat2, 50 + std::cos(3.14159265358979 / 2) * 1000 / Entfernung(9, 50, 9, 51));
    EXPECT_NEAR(lon2, 9 + 1000 / Entfernung(9, 50, 10, 50), 1e-12);
}

TEST(Entfernung, KartenMasseOnCornersAndOnTheGrid) {
    const KartenMass m = KartenMasse(1000, 1000, 500, 9, 50.1, 9.1, 50);
    EXPECT_EQ(m.lon1, 9);
    EXPECT_EQ(m.lat2, 50);
    EXPECT_NEAR(m.breiteKm, Entfernung(9, 50.1, 9.1, 50.1) / 1000, 1e-12);
    EXPECT_NEAR(m.meterProPixelX, m.breiteKm, 1e-9);  // 1000 pixels: metres = km
    EXPECT_NEAR(m.meterProPixelY, m.hoeheKm * 2, 1e-9);
    const KartenMass g = KartenMasse(9, 0, 0, 9, 50.1, 9.1, 50);
    EXPECT_NEAR(g.breiteKm, 7.15, 0.05);
    EXPECT_NEAR(g.hoeheKm, -11.12, 0.05);  // H2 - H1, downwards
    EXPECT_EQ(g.meterProPixelX, 0);
    EXPECT_NEAR(g.lon1, 9, 1e-6);
}

}  // namespace
}  // namespace ortelix

#include <random>

namespace ortelix {
namespace {

// The branch test in full, as the distance routine defines it.
double NearOrFarReference(double lon1, double lat1, double lon2, double lat2) {
    constexpr double kRad = 0.017453292519943278;
    const double p1 = lat1 * kRad, p2 = lat2 * kRad, l1 = lon1 * kRad, l2 = lon2 * kRad;
    const double s = std::sin(p1) * std::sin(p2) + std::cos(p1) * std::cos(p2) * std::cos(l2 - l1);
    if (s < 0.999995) return -1;  // far: not this test's business
    const double x = (l2 - l1) * std::cos((p1 + p2) / 2);
    const double y = p2 - p1;
    return std::sqrt(x * x + y * y) * 6371.299 * 1000;
}

// Skipping the branch test for short steps must not change a single bit.
TEST(Entfernung, ShortStepsGiveTheSameBitsAsTheFullTest) {
    std::mt19937_64 rng(3);
    std::uniform_real_distribution<double> lat(-85, 85), lon(-180, 180), step(-0.08, 0.08);
    int near = 0;
    for (int i = 0; i < 200000; ++i) {
        const double a = lon(rng), b = lat(rng);
        const double c = a + step(rng), d = b + step(rng);
        const double ref = NearOrFarReference(a, b, c, d);
        if (ref < 0) continue;
        ++near;
        ASSERT_EQ(Entfernung(a, b, c, d), ref) << a << " " << b << " " << c << " " << d;
    }
    EXPECT_GT(near, 100000);
}

}  // namespace
}  // namespace ortelix
