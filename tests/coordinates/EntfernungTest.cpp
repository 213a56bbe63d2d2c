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

namespace ortelix {
namespace {

// The course as the arc tangent defines it, for comparison.
double AzimutReference(double lon1, double lat1, double lon2, double lat2, double current) {
    const double pi = 3.14159265358979;
    const double dx = (lon2 - lon1) / (0.01400112 / 1000);
    const double dy = (lat2 - lat1) / (0.00898861 / 1000);
    const double d = std::floor(std::sqrt(dx * dx + dy * dy));
    if (d == 0) return current;
    const double ux = dx / d, uy = dy / d;
    if (uy == 0) return dx > 0 ? 90 : dx < 0 ? 270 : current;
    const double q = std::fabs(std::atan(ux / uy));
    double a;
    if (dx < 0 && dy < 0) a = pi + q;
    else if (dy < 0) a = pi - q;
    else if (dx < 0) a = 6.28318530717958 - q;
    else a = q;
    return std::floor(a * 180 / pi);
}

// The table of whole degrees must give the arc tangent's answer everywhere,
// on the bounds between degrees too.
TEST(Entfernung, CourseByTableEqualsTheArcTangent) {
    std::mt19937_64 rng(11);
    std::uniform_real_distribution<double> lat(-60, 60), lon(-170, 170), step(-0.02, 0.02), deg(0, 360);
    for (int i = 0; i < 200000; ++i) {
        const double a = lon(rng), b = lat(rng);
        double c, d;
        if (i % 2 == 0) {
            c = a + step(rng);
            d = b + step(rng);
        } else {  // exactly on a whole degree, as the metres-per-degree factors see it
            const double course = std::floor(deg(rng)) * 3.14159265358979 / 180;
            const double metres = 10 + 1000 * (rng() % 100) / 100.0;
            c = a + std::sin(course) * metres * (0.01400112 / 1000);
            d = b + std::cos(course) * metres * (0.00898861 / 1000);
        }
        ASSERT_EQ(Azimut(a, b, c, d, -1), AzimutReference(a, b, c, d, -1)) << a << " " << b << " " << c << " " << d;
    }
    EXPECT_EQ(Azimut(10, 50, 10, 50, 7), 7);
    EXPECT_EQ(Azimut(10, 50, 10.1, 50, 7), 90);
}

// The quick limit test answers as the distance does, right at the limit too.
TEST(Entfernung, LimitTestAgreesWithTheDistance) {
    std::mt19937_64 rng(12);
    std::uniform_real_distribution<double> lat(-85, 85), lon(-180, 180), course(0, 6.283), jitter(-1e-7, 1e-7);
    for (int i = 0; i < 200000; ++i) {
        const double a = lon(rng), b = lat(rng), k = course(rng);
        // points about 100 m away, some a hair on either side of the limit
        const double m = 100 + (i % 3 == 0 ? jitter(rng) : (static_cast<double>(rng() % 2000) - 1000) / 10);
        const double c = a + std::sin(k) * m / (111194.9 * std::cos(b * 0.0174532925));
        const double d = b + std::cos(k) * m / 111194.9;
        ASSERT_EQ(WeiterAls(a, b, c, d, 100), Entfernung(a, b, c, d) > 100) << a << " " << b << " " << c << " " << d;
    }
}

}  // namespace
}  // namespace ortelix
