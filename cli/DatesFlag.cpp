#include "cli/DatesFlag.h"

#include <charconv>

#include "core/DateTime.h"
#include "core/ModulShared.h"

namespace ortelix {

namespace {
// "YYYY-MM-DD" exactly, as the date choice names its dates.
bool IsoDay(std::string_view t, int32_t& serial) {
    if (t.size() != 10 || t[4] != '-' || t[7] != '-') return false;
    int y = 0, m = 0, d = 0;
    auto num = [&](size_t at, size_t len, int& v) {
        auto r = std::from_chars(t.data() + at, t.data() + at + len, v);
        return r.ec == std::errc() && r.ptr == t.data() + at + len;
    };
    if (!num(0, 4, y) || !num(5, 2, m) || !num(8, 2, d) || !ValidCivil(y, m, d)) return false;
    serial = SerialFromCivil(y, m, d);
    return true;
}
}  // namespace

bool ApplyDatesFlag(ConsolePlatform& platform, std::string_view value, std::string& error) {
    platform.dateAnswer.clear();
    platform.dateTexts.clear();
    if (value == "all") return true;
    if (value == "first") {
        platform.dateAnswer = {true};
        return true;
    }
    size_t pos = 0;
    while (pos <= value.size()) {
        size_t end = value.find(',', pos);
        if (end == std::string_view::npos) end = value.size();
        int32_t serial = 0;
        if (!IsoDay(value.substr(pos, end - pos), serial)) {
            platform.dateTexts.clear();
            error = "--dates erwartet all, first oder Tage wie 2006-02-16,2006-02-17: " + std::string(value);
            return false;
        }
        platform.dateTexts.push_back(IsoDate(serial));
        pos = end + 1;
    }
    return true;
}

}  // namespace ortelix
