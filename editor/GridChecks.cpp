#include "editor/GridChecks.h"

#include <cmath>

#include "core/ModulArray.h"
#include "core/ModulShared.h"

namespace ortelix {

double ParseFloat(std::string_view text) { return ParseCoordinate(text); }

// The same rule as the readers' speed field.
OptDouble CheckSpeed(std::string_view text) { return ParseSpeed(text); }

OptShort CheckCourse(std::string_view text) {
    const OptDouble c = ParseCourse(text);
    if (c.empty()) return {};
    return static_cast<int16_t>(*c);
}

// Unlike the readers' altitude, which drops a value below -100, the editor
// holds it at -100.
OptInt CheckAlt(std::string_view text) {
    if (text.empty()) return {};
    const double v = std::floor(LeadingNumber(text));
    if (!std::isfinite(v)) return {};
    if (v < -100) return -100;
    return RoundWhole(v);
}

Date CheckDate(std::string_view text) { return ParseDateValue(text); }

Time CheckTime(std::string_view text) {
    if (text.empty()) return {};
    return ParseClock(text);
}

}  // namespace ortelix
