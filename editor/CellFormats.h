#pragma once
// The texts of the editor's cells: German dates and times, durations, and
// stored numbers as the grid shows them.
#include <cstdint>
#include <string>

#include "core/DateTime.h"
#include "core/GermanDates.h"
#include "core/Optional.h"

namespace ortelix {

// "16.02.2006 16:23:10".
std::string GermanMoment(int64_t seconds);
// "h:nn:ss" and "h:nn": hours without days, so 25 hours read as 1:00:00.
std::string DurationText(int64_t seconds);
std::string PauseText(int64_t seconds);
// A stored number as text: whole numbers without decimals, others with up
// to 15 significant digits and a point; "" when empty.
std::string NumberText(double v);
std::string NumberText(OptDouble v);
std::string NumberText(OptInt v);
std::string NumberText(OptShort v);

}  // namespace ortelix
