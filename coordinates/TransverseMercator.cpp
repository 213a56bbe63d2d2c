#include "coordinates/TransverseMercator.h"

#include <cmath>

#include "coordinates/Constants.h"

namespace ortelix {
namespace {

double MeridianArc(double a, double e2, double phi) {
    const double e4 = e2 * e2, e6 = e4 * e2;
    return a * ((1 - e2 / 4 - 3 * e4 / 64 - 5 * e6 / 256) * phi -
                (3 * e2 / 8 + 3 * e4 / 32 + 45 * e6 / 1024) * std::sin(2 * phi) +
                (15 * e4 / 256 + 45 * e6 / 1024) * std::sin(4 * phi) - (35 * e6 / 3072) * std::sin(6 * phi));
}

}  // namespace

void TMForward(const TransverseMercator& p, double lon, double lat, double& ost, double& nord) {
    const double a = p.a, b = p.b, k0 = p.k0;
    const double phi = kPi * lat / 180;
    const double lam = kPi * lon / 180;
    const double lam0 = kPi * p.lon0 / 180;
    const double e2 = (a * a - b * b) / (a * a);
    const double ep2 = e2 / (1 - e2);
    const double N = a / std::sqrt(1 - e2 * std::sin(phi) * std::sin(phi));
    const double T = std::tan(phi) * std::tan(phi);
    const double C = ep2 * std::cos(phi) * std::cos(phi);
    const double A = (lam - lam0) * std::cos(phi);
    const double M = MeridianArc(a, e2, phi);
    const double M0 = p.lat0 == 0 ? 0 : MeridianArc(a, e2, kPi * p.lat0 / 180);
    ost = k0 * N *
              (A + (1 - T + C) * std::pow(A, 3) / 6 +
               (5 - 18 * T + T * T + 72 * C - 58 * ep2) * std::pow(A, 5) / 120) +
          p.falseEasting;
    nord = k0 * (M - M0 +
                 N * std::tan(phi) *
                     (A * A / 2 + (5 - T + 9 * C + 4 * C * C) * std::pow(A, 4) / 24 +
                      (61 - 58 * T + T * T + 600 * C - 330 * ep2) * std::pow(A, 6) / 720)) +
           p.falseNorthing;
}

void TMInverse(const TransverseMercator& p, double ost, double nord, double& lon, double& lat) {
    const double a = p.a, b = p.b, k0 = p.k0;
    const double e2 = (a * a - b * b) / (a * a);
    const double ep2 = e2 / (1 - e2);
    const double e4 = e2 * e2, e6 = e4 * e2;
    const double x = ost - p.falseEasting;
    const double M0 = p.lat0 == 0 ? 0 : MeridianArc(a, e2, kPi * p.lat0 / 180);
    const double M = M0 + (nord - p.falseNorthing) / k0;
    const double e1 = (1 - std::sqrt(1 - e2)) / (1 + std::sqrt(1 - e2));
    const double mu = M / (a * (1 - e2 / 4 - 3 * e4 / 64 - 5 * e6 / 256));
    const double phi1 = mu + (3 * e1 / 2 - 27 * std::pow(e1, 3) / 32) * std::sin(2 * mu) +
                        (21 * e1 * e1 / 16 - 55 * std::pow(e1, 4) / 32) * std::sin(4 * mu) +
                        (151 * std::pow(e1, 3) / 96) * std::sin(6 * mu);
    const double s1 = std::sin(phi1), c1 = std::cos(phi1);
    const double C1 = ep2 * c1 * c1;
    const double T1 = std::tan(phi1) * std::tan(phi1);
    const double N1 = a / std::sqrt(1 - e2 * s1 * s1);
    const double R1 = a * (1 - e2) / std::pow(1 - e2 * s1 * s1, 1.5);
    const double D = x / (N1 * k0);
    const double phi =
        phi1 - (N1 * std::tan(phi1) / R1) *
                   (D * D / 2 - (5 + 3 * T1 + 10 * C1 - 4 * C1 * C1 - 9 * ep2) * std::pow(D, 4) / 24 +
                    (61 + 90 * T1 + 298 * C1 + 45 * T1 * T1 - 252 * ep2 - 3 * C1 * C1) * std::pow(D, 6) / 720);
    const double dl = (D - (1 + 2 * T1 + C1) * std::pow(D, 3) / 6 +
                       (5 - 2 * C1 + 28 * T1 - 3 * C1 * C1 + 8 * ep2 + 24 * T1 * T1) * std::pow(D, 5) / 120) /
                      c1;
    lon = p.lon0 + dl * 180 / kPi;
    lat = phi * 180 / kPi;
}

}  // namespace ortelix
