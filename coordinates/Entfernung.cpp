#include "coordinates/Entfernung.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "coordinates/Constants.h"
#include "coordinates/GaussKrueger.h"

namespace ortelix {
namespace {

constexpr double kRad = 0.017453292519943278;
constexpr double kAndoyerA = 6378.14;               // km
constexpr double kAndoyerF = 0.0033528131778969143;
constexpr double kMeanRadius = 6371.299;            // km
constexpr double kNear = 0.999995;                  // cosine below which points are far

// Degrees of one metre at about 50 degrees north, used for the course everywhere.
constexpr double kLonPerMetre = 0.01400112 / 1000;
constexpr double kLatPerMetre = 0.00898861 / 1000;

// The course in whole degrees as the arc tangent gives it.
double AzimutExact(double ux, double uy, double dx, double dy) {
    const double q = std::fabs(std::atan(ux / uy));
    double a;
    if (dx < 0 && dy < 0) a = kPi + q;
    else if (dy < 0) a = kPi - q;
    else if (dx < 0) a = 6.28318530717958 - q;
    else a = q;
    return std::floor(a * 180 / kPi);
}

// tan(k degrees) for k = 0..90, with the program's pi: the bounds between
// whole degrees of the arc tangent.
const std::array<double, 91>& TanTable() {
    static const std::array<double, 91> table = [] {
        std::array<double, 91> t{};
        for (int k = 0; k <= 90; ++k) t[static_cast<size_t>(k)] = std::tan(k * kPi / 180);
        return t;
    }();
    return table;
}

// Where to start looking in the table for a ratio below 8: for each 1/64,
// the last whole degree whose tangent lies at or below it. Tangents of whole
// degrees lie more than 1/64 apart, so the degree of a ratio is the start or
// the one after it.
constexpr int kSlotsPerUnit = 64, kSlotLimit = 8;
const std::array<uint8_t, kSlotsPerUnit * kSlotLimit>& SlotTable() {
    static const std::array<uint8_t, kSlotsPerUnit * kSlotLimit> table = [] {
        std::array<uint8_t, kSlotsPerUnit * kSlotLimit> s{};
        const auto& t = TanTable();
        size_t k = 0;
        for (size_t i = 0; i < s.size(); ++i) {
            const double low = static_cast<double>(i) / kSlotsPerUnit;
            while (k + 1 < t.size() && t[k + 1] <= low) ++k;
            s[i] = static_cast<uint8_t>(k);
        }
        return s;
    }();
    return table;
}

// The last whole degree whose tangent lies at or below r (r below tan 90).
size_t DegreeOf(double r, const std::array<double, 91>& t) {
    if (r < kSlotLimit) {
        size_t k = SlotTable()[static_cast<size_t>(r * kSlotsPerUnit)];
        if (t[k + 1] <= r) ++k;
        return k;
    }
    return static_cast<size_t>(std::upper_bound(t.begin() + 82, t.end(), r) - t.begin()) - 1;
}

// The whole degrees of the course: found among the table's bounds, which is
// exact unless the ratio lies within a hair of a bound; then the arc tangent
// decides as it always did.
double AzimutDegrees(double ux, double uy, double dx, double dy) {
    const double r = std::fabs(ux / uy);
    const auto& t = TanTable();
    const double margin = 1e-9 * (1 + r * r);  // about 1e-9 radians of course
    if (!(r < t[90] - margin)) return AzimutExact(ux, uy, dx, dy);
    const size_t k = DegreeOf(r, t);
    if (r - t[k] <= margin || t[k + 1] - r <= margin) return AzimutExact(ux, uy, dx, dy);
    const double whole = static_cast<double>(k);
    if (dx < 0 && dy < 0) return 180 + whole;
    if (dy < 0) return 179 - whole;
    if (dx < 0) return 359 - whole;
    return whole;
}

}  // namespace

double Azimut(double lon1, double lat1, double lon2, double lat2, double current) {
    const double dx = (lon2 - lon1) / kLonPerMetre;
    const double dy = (lat2 - lat1) / kLatPerMetre;
    const double d = std::floor(std::sqrt(dx * dx + dy * dy));
    if (d == 0) return current;
    const double ux = dx / d;
    const double uy = dy / d;
    if (uy == 0) {
        if (dx > 0) return 90;
        if (dx < 0) return 270;
        return current;
    }
    return AzimutDegrees(ux, uy, dx, dy);
}

namespace {
}  // namespace

// Measured against geod -I +ellps=WGS84 over Germany (bench/coord-accuracy.sh):
// far branch within 1.0e-5 of the distance up to 600 km; near branch (a
// sphere, points closer than about 20 km) within 2.1e-3 at 100 m.
double Entfernung(double lon1, double lat1, double lon2, double lat2) {
    const double p1 = lat1 * kRad, p2 = lat2 * kRad;
    const double l1 = lon1 * kRad, l2 = lon2 * kRad;
    // Steps along a track are far inside the near branch: when the two points
    // differ by less than kSurelyNear radians in latitude plus longitude, the
    // central angle is below it, and its cosine lies so far above kNear that
    // computing it could not change the branch. The five sines and cosines of
    // the test are then skipped; the result is the same to the last bit.
    constexpr double kSurelyNear = 0.0025;  // cos(0.0025) = 0.999996875 > kNear
    const bool surelyNear = std::fabs(p2 - p1) + std::fabs(l2 - l1) < kSurelyNear;
    const double s = surelyNear ? 1.0 : std::sin(p1) * std::sin(p2) + std::cos(p1) * std::cos(p2) * std::cos(l2 - l1);
    double D;
    if (s < kNear) {
        const double F = (p1 + p2) / 2, G = (p1 - p2) / 2, L = (l1 - l2) / 2;
        const double sinG = std::sin(G) * std::sin(G), cosG = std::cos(G) * std::cos(G);
        const double sinF = std::sin(F) * std::sin(F), cosF = std::cos(F) * std::cos(F);
        const double sinL = std::sin(L) * std::sin(L), cosL = std::cos(L) * std::cos(L);
        const double S = sinG * cosL + cosF * sinL;
        const double C = cosG * cosL + sinF * sinL;
        const double w = std::atan(std::sqrt(S / C));
        const double R = std::sqrt(S * C) / w;
        const double H1 = (3 * R - 1) / (2 * C);
        const double H2 = (3 * R + 1) / (2 * S);
        D = 2 * w * kAndoyerA * (1 + kAndoyerF * H1 * sinF * cosG - kAndoyerF * H2 * cosF * sinG);
    } else {
        const double x = (l2 - l1) * std::cos((p1 + p2) / 2);
        const double y = p2 - p1;
        D = std::sqrt(x * x + y * y) * kMeanRadius;
    }
    return D * 1000;
}

bool WeiterAls(double lon1, double lat1, double lon2, double lat2, double metres) {
    const double p1 = lat1 * kRad, p2 = lat2 * kRad;
    const double l1 = lon1 * kRad, l2 = lon2 * kRad;
    const double mid = (p1 + p2) / 2;
    if (!(std::fabs(p2 - p1) + std::fabs(l2 - l1) < 0.0025) || !(std::fabs(mid) < 1.4))
        return Entfernung(lon1, lat1, lon2, lat2) > metres;
    // The near plane with a cosine by its series (error below 2e-9 up to 1.4
    // radians): the distance is then right to 1e-8, and only a distance within
    // 1e-6 of the limit needs the exact cosine.
    const double z = mid * mid;
    const double c =
        1 + z * (-1.0 / 2 + z * (1.0 / 24 + z * (-1.0 / 720 + z * (1.0 / 40320 + z * (-1.0 / 3628800 + z / 479001600)))));
    const double x = (l2 - l1) * c;
    const double y = p2 - p1;
    const double d = std::sqrt(x * x + y * y) * kMeanRadius * 1000;
    if (std::fabs(d - metres) <= 1e-6 * metres + 1e-9) return Entfernung(lon1, lat1, lon2, lat2) > metres;
    return d > metres;
}

double Entfernung(double lon1, double lat1, double lon2, double lat2, double& azimut) {
    const double d = Entfernung(lon1, lat1, lon2, lat2);
    azimut = Azimut(lon1, lat1, lon2, lat2, azimut);
    return d;
}

void PunktVersetzen(double lon, double lat, double& lon2, double& lat2, double azimut, double strecke) {
    const double a = kPi * azimut / 180;
    const double dO = std::sin(a) * strecke;
    const double dN = std::cos(a) * strecke;
    const double mO = Entfernung(lon, lat, lon + 1, lat);
    const double mN = Entfernung(lon, lat, lon, lat + 1);
    lon2 = lon + dO / mO;
    lat2 = lat + dN / mN;
}

KartenMass KartenMasse(double modus, double breite, double hoehe, double lon1, double lat1, double lon2,
                       double lat2) {
    KartenMass m;
    double breiteM, hoeheM;
    if (modus == 1000 || modus == 2000) {
        m.lon1 = lon1, m.lat1 = lat1, m.lon2 = lon2, m.lat2 = lat2;
        breiteM = Entfernung(lon1, lat1, lon2, lat1);
        hoeheM = Entfernung(lon1, lat1, lon1, lat2);
    } else {
        double R1, H1, R2, H2;
        GeoNachGKMeridian(lon1, lat1, modus, R1, H1);
        GeoNachGKMeridian(lon2, lat2, modus, R2, H2);
        GKNachGeoMeridian(R1, H1, modus, m.lon1, m.lat1);
        GKNachGeoMeridian(R2, H2, modus, m.lon2, m.lat2);
        breiteM = R2 - R1;
        hoeheM = H2 - H1;
    }
    m.breiteKm = breiteM / 1000;
    m.hoeheKm = hoeheM / 1000;
    if (breite != 0 && hoehe != 0) {
        m.meterProPixelX = breiteM / breite;
        m.meterProPixelY = hoeheM / hoehe;
    }
    return m;
}

}  // namespace ortelix
