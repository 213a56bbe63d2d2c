#pragma once
// The one distance measure of the program (track lengths, speeds, areas,
// map scales) and the routines built on it.

namespace ortelix {

// Geodetic distance in metres: Andoyer for far points, a plane with the mean
// radius for near ones. azimut gets the course in whole degrees from point 1
// to point 2, measured with fixed metres-per-degree factors of 50 degrees
// north; it stays as it came in when the points are less than a metre apart.
double Entfernung(double lon1, double lat1, double lon2, double lat2, double& azimut);
// The same without the course.
double Entfernung(double lon1, double lat1, double lon2, double lat2);
// The course alone, as Entfernung gives it in azimut ("current" when the
// points are less than a metre apart).
double Azimut(double lon1, double lat1, double lon2, double lat2, double current);
// Entfernung(...) > metres, decided without the exact cosine unless the
// distance lies within a hair of the limit: the same answer, quicker.
bool WeiterAls(double lon1, double lat1, double lon2, double lat2, double metres);

// The point at a course (degrees) and a distance (metres).
void PunktVersetzen(double lon, double lat, double& lon2, double& lat2, double azimut, double strecke);

// The measure of a rectangular map part from its top left (lon1, lat1) and
// bottom right (lon2, lat2) corner. modus 1000 or 2000: corners unchanged;
// any other modus is a central meridian, and the corners are squared on its
// Gauss-Krueger grid.
struct KartenMass {
    double lon1 = 0, lat1 = 0, lon2 = 0, lat2 = 0;  // corners, WGS 84
    double breiteKm = 0, hoeheKm = 0;
    double meterProPixelX = 0, meterProPixelY = 0;  // 0 when no pixels were given
};
KartenMass KartenMasse(double modus, double breite, double hoehe, double lon1, double lat1, double lon2, double lat2);

}  // namespace ortelix
