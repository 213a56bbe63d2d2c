#pragma once
// Dates and times as a German desktop shows them: the editor's cells and the
// simulator's boxes and labels.
#include <string>

#include "core/DateTime.h"

namespace ortelix {

// "dd.MM.yyyy", the short date; "" when empty.
std::string GermanDate(Date d);
// "hh:mm:ss", the long time; "" when empty. A value off the day is taken
// modulo a day.
std::string GermanTime(Time t);

}  // namespace ortelix
