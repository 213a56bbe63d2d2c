#pragma once
// The fixed numbers of the coordinate routines. Files written by the program
// depend on them, so they are the program's own values, not the exact ones.
namespace ortelix {

inline constexpr double kPi = 3.14159265358979;  // 15 figures, as all files were made with

inline constexpr double kWgs84A = 6378137;
inline constexpr double kWgs84B = 6356752.31425;
inline constexpr double kBesselA = 6377397.15508;
inline constexpr double kBesselB = 6356078.9629;

// Points are taken to lie this high above the ellipsoid of a datum change.
inline constexpr double kHeightOnDatum = 1335.912;  // towards WGS 84
inline constexpr double kHeightOnWgs84 = 1389.592;  // away from WGS 84

}  // namespace ortelix
