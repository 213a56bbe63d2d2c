#pragma once
// One line of an NMEA 0183 log as a position fix: GGA, RMC and Magellan's
// PMGNTRK. A plain function of the line, its options and the one thing that
// carries from line to line, the date of the last RMC; the NMEA log reader,
// the TomTom log and the Mobile Navigator log all decode through here.
#include <string_view>

#include "core/DateTime.h"
#include "core/Optional.h"

namespace ortelix {

class Session;
struct GeoidTable;

// What one line gives.
struct NmeaFix {
    double lon = 0, lat = 0;
    OptDouble alt;     // metres; whole when the geoid correction made it
    OptDouble speed;   // km/h, whole
    OptDouble course;  // degrees, whole, 0 to 360
    Date date;
    Time time;
    std::string_view sat, fix;  // GGA's fields as they stand in the line
};

struct NmeaDecodeOptions {
    int hours = 0;                      // added to every time (KarteKoordInput(25))
    bool checksum = false;              // Check(7): a line must carry a right checksum
    bool dropZeroAltitude = false;      // Check(29): an altitude of 0 gives no position
    const GeoidTable* geoid = nullptr;  // Check(21): subtracted from altitudes; null: off
    // False when only the position test, the date and the time are wanted
    // (the first pass of the date choice): speed and course stay empty, and
    // the altitude too unless the altitude test needs it.
    bool wholeFix = true;
};

// The options of a session's table. The geoid table is loaded here when the
// correction is on, so that no line has to ask for it.
NmeaDecodeOptions NmeaOptionsOf(Session& s);

// Carried from line to line: GGA and PMGNTRK lines take the date that the
// last RMC line brought (empty before the first).
struct NmeaDecodeState {
    Date lastDate;
};

// True when the line gives a position; `out` then holds it. A line of
// another kind, with a bad checksum (when asked) or without a position gives
// false and leaves `out` in any state. An RMC line sets `state.lastDate`
// whether or not it gives a position.
bool DecodeNmeaLine(std::string_view line, const NmeaDecodeOptions& o, NmeaDecodeState& state, NmeaFix& out);

// The XOR of the characters between "$" (or the line's start when a lost
// "$" is missing) and "*", against the two characters behind "*" read as a
// hexadecimal number. No "*", or "*" before "$", fails.
bool NmeaChecksumOk(std::string_view line);

// "ddmmyy" as a date; the years 00 to 29 are 2000 to 2029, 30 to 99 the
// 1900s. Empty when it is no date.
Date NmeaDate(std::string_view ddmmyy);
// "hhmmss" with any seconds fraction (cut); empty when it is no time of day.
Time NmeaTime(std::string_view hhmmss);
// "ddmm.mmmm" (or "dddmm.mmmm") as decimal degrees, without the hemisphere.
double NmeaDegrees(std::string_view field);

}  // namespace ortelix
