#pragma once
// The text a GPS receiver sends in one cycle: live sentences for position,
// speed and time, and fixed samples for the satellites. The simulator sends
// it to a serial port; the NMEA log writer puts it into files. The receiver
// always looks healthy: fix kind, satellite count and dilution are constants.
#include <string>
#include <string_view>

#include "core/DateTime.h"
#include "core/Optional.h"

namespace ortelix {

// One simulated fix.
struct SimFix {
    double SimLon = 0;      // degrees, east positive
    double SimLat = 0;      // degrees, north positive
    double SimAlt = 0;      // metres above the ellipsoid
    OptDouble SimGeoid;     // metres between ellipsoid and sea level; empty: the box is empty
    double SimSpeed = 0;    // km/h
    double SimCourse = 0;   // degrees
    Date SimDate;
    Time SimTime;
};

// Knots as the program has always counted them: 1.8532 km/h, not the
// nautical mile's 1.852. The log reader uses the same number on the way
// back, so a speed survives the round trip.
inline constexpr double kKmhPerKnot = 1.8532;

// The XOR of the characters between the leading "$" and the closing "*"
// (the first and the last character of `sentence`), as two capital hex digits.
std::string NmeaPruefsumme(std::string_view sentence);

// The seven sentences of one cycle (GGA, RMC, VTG, GSA and three GSV), each
// ended by CR LF. A fix without a valid date or time takes the date or the
// time of `localNow` (days since 1899-12-30) and keeps it.
std::string NmeaSatz(SimFix& fix, double localNow);
// The same appended to `out`, for writers that fill one buffer.
void AppendNmeaSatz(std::string& out, SimFix& fix, double localNow);

// The GLL sentence of the fix, with its CR LF. Receivers may send it; the
// cycle above does not, since the programs it feeds take position from GGA
// and RMC.
std::string NmeaGllSatz(const SimFix& fix);

}  // namespace ortelix
