#pragma once
// The simulator's input boxes are the single source of truth for the
// position: every cycle and every step reads them, and a step writes its new
// position back. Numbers in them are read with the comma-to-point rule.
#include <array>
#include <string>
#include <string_view>

#include "core/Optional.h"

namespace ortelix {

class Session;
struct SimFix;

// The leading number of a box, its first "," taken as the decimal point;
// 0 for a box without a number.
double BoxZahl(std::string_view text);
// A number written back into a box: up to two decimals, no trailing zeros.
std::string BoxText(double value);

// Degrees from a box of whole degrees and one of minutes. The minutes go the
// way of the degrees' sign: "-0" and "30" are half a degree west, while an
// empty degrees box counts as 0 and so east.
double GradMinutenLesen(std::string_view grad, std::string_view minuten);
// The other way: whole degrees with the sign of the value ("-0" below zero)
// and the rest as minutes with eight decimals: a step of the run, written
// back each second, then loses no more than 0.1 mm.
void GradMinutenSchreiben(double value, std::string& grad, std::string& minuten);

// Whole degrees folded into 0..359 (400 gives 40, -10 gives 350); an empty
// box gives 0.
double KursAusBox(std::string_view text);

// The values of the boxes as one cycle sends them.
struct SimBoxWerte {
    double lon = 0, lat = 0;
    double speed = 0, course = 0, alt = 0;
    OptDouble geoid;  // empty while the geoid box is empty
};

// Reads the boxes. With the geoid check box on, box 7 is first filled with
// the geoid height at the position (as the difference from the ellipsoid to
// sea level, so with the opposite sign). Above 9000 m, and above 2000 km/h,
// the speed is 0.
SimBoxWerte BoxenLesen(Session& s);

// SimLon to SimGeoid of the fix from the values, and its date and time: in
// "Direkt" today and now plus the whole hours of the time box; otherwise the
// date and time boxes where they hold a valid date and time, else today and
// now. `localNow` is the wall clock in days since 1899-12-30.
void FixAusBoxen(SimFix& fix, const SimBoxWerte& w, const std::string& boxDate, const std::string& boxTime,
                 bool direkt, double localNow);

}  // namespace ortelix
