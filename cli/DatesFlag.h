#pragma once
// The flag --dates: the command line's answer to the date choice of a log
// that holds several days.
#include <string>
#include <string_view>

#include "platform/console/ConsolePlatform.h"

namespace ortelix {

// "all" ticks every date (the default), "first" the first date of the file,
// "2006-02-16,2006-02-17" those dates. False with a message on another value.
bool ApplyDatesFlag(ConsolePlatform& platform, std::string_view value, std::string& error);

}  // namespace ortelix
