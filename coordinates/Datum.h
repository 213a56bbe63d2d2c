#pragma once
// Datum transformation: seven-parameter Helmert through earth-centred
// cartesian coordinates, the datum table of helmert.dat and the fixed
// Potsdam shift of the Gauss-Krueger routines. Longitude first everywhere.
#include <string>
#include <string_view>
#include <vector>

#include "core/CoordinateState.h"

namespace ortelix {

class Session;

// The rows of a helmert.dat text; comments ("#") and empty lines skipped.
std::vector<Datum> ParseHelmert(std::string_view text);
// Reads helmert.dat of the program folder into the session's table; on a
// failure shows "Die Helmert-Parameter können nicht eingelesen werden." and
// leaves the table empty. Returns false then.
bool HelmertEinlesen(Session& s);

// The entries of the datum list: "Name (Region)" per row, in file order.
std::vector<std::string> DatumEintraege(const CoordinateState& c);

// What the datum frame shows for the selected row.
struct HelmertAnzeige {
    std::vector<std::string> detail;  // twelve lines, "Helmert-Parameter" first
    std::string caption;              // "Name (Region)", or "WGS 84" when not transforming
};
HelmertAnzeige HelmertAnzeigen(const Session& s);

// The selected row (datum list List(44) + 1); nullptr when none is selected.
const Datum* SelectedDatum(const Session& s);
// A row by its name, its "Name (Region)" entry (both ignoring case) or its
// 1-based row number; nullptr when none matches.
const Datum* FindDatum(const std::vector<Datum>& liste, std::string_view name);

// From the selected datum to WGS 84. Runs when the check box "Koordinaten von
// und nach WGS84 transformieren" is set or erzwingen is true, and a datum is
// selected; otherwise copies the input.
void DatumNachWGS84(const Session& s, double lon, double lat, double& lonW, double& latW, bool erzwingen);
// From WGS 84 to the selected datum. When it does not run, the output values
// are copied back into the input variables, as callers hand in the same ones.
void WGS84NachDatum(const Session& s, double& lonW, double& latW, double& lon, double& lat, bool erzwingen);

// The same arithmetic for one given row, whatever the settings say.
void DatumToWGS84(const Datum& d, double lon, double lat, double& lonW, double& latW);
void WGS84ToDatum(const Datum& d, double lonW, double latW, double& lon, double& lat);

// The fixed Potsdam (DHDN, Bessel) shift of the Gauss-Krueger routines.
void WGS84NachPotsdam(double lonW, double latW, double& lon, double& lat);
void PotsdamNachWGS84(double lon, double lat, double& lonW, double& latW);

void GeoNachKartesisch(double lon, double lat, double& X, double& Y, double& Z, double a, double b, double h);
// Six fixed rounds, no convergence test; the height is dropped.
void KartesischNachGeo(double X, double Y, double Z, double& lon, double& lat, double a, double b);
// Small-angle form; rotations in seconds of arc.
void HelmertTransformation(double X, double Y, double Z, double& X2, double& Y2, double& Z2, double dx, double dy,
                           double dz, double rx, double ry, double rz, double m);
// Earth-centred WGS 84 position (m) and velocity (m/s) to latitude,
// longitude, height (m), speed (km/h) and compass course (degrees).
void EcefNachGeo(double X, double Y, double Z, double Vx, double Vy, double Vz, double& lat, double& lon,
                 double& hoehe, double& speed, double& kurs);

}  // namespace ortelix
