#pragma once
// The shift of one step: how far a given speed and course carry a position
// in a given time, in degrees.

namespace ortelix {

// Degrees per metre east and north. Both are the scale of central Germany
// and hold for the whole simulator wherever the position lies: 1 / 0.01400112
// is 71.42 km per degree east, 1 / 0.00898861 is 111.25 km per degree north.
inline constexpr double kGradOstProKm = 0.01400112;
inline constexpr double kGradNordProKm = 0.00898861;

// `seconds` of travel at `speed` km/h on `course` degrees.
void SimVersatz(double seconds, double course, double speed, double& east, double& north);

}  // namespace ortelix
