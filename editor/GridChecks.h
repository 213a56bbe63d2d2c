#pragma once
// The checks of the editor's cells: each turns the typed text into the value
// to store. Empty text gives empty (except where a number is always read).
#include <string_view>

#include "core/DateTime.h"
#include "core/Optional.h"

namespace ortelix {

// The first comma becomes the decimal point, then the leading number; a
// text without a number gives 0.
double ParseFloat(std::string_view text);
// Whole part (rounded down), held within 0..2000.
OptDouble CheckSpeed(std::string_view text);
// Brought into 0..360 as v - Int(v / 360) * 360, then the whole part
// rounded down: 400 gives 40, -10 gives 350.
OptShort CheckCourse(std::string_view text);
// Whole part rounded down; below -100 gives -100.
OptInt CheckAlt(std::string_view text);
// A text that is a valid date or time gives it; anything else gives empty.
Date CheckDate(std::string_view text);
Time CheckTime(std::string_view text);

}  // namespace ortelix
