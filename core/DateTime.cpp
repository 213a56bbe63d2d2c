#include "core/DateTime.h"

namespace ortelix {

namespace {
// Howard Hinnant's days_from_civil, shifted so that 1899-12-30 is day 0.

int64_t DaysFromCivil(int64_t y, unsigned m, unsigned d) {
    y -= m <= 2;
    const int64_t era = (y >= 0 ? y : y - 399) / 400;
    const unsigned yoe = static_cast<unsigned>(y - era * 400);
    const unsigned doy = (153 * (m > 2 ? m - 3 : m + 9) + 2) / 5 + d - 1;
    const unsigned doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + static_cast<int64_t>(doe) - 719468;  // days since 1970-01-01
}
}  // namespace

int32_t SerialFromCivil(int year, int month, int day) {
    // 1970-01-01 is serial day 25569.
    return static_cast<int32_t>(DaysFromCivil(year, static_cast<unsigned>(month), static_cast<unsigned>(day)) + 25569);
}

CivilDate CivilFromSerial(int32_t serial) {
    int64_t z = static_cast<int64_t>(serial) - 25569 + 719468;
    const int64_t era = (z >= 0 ? z : z - 146096) / 146097;
    const unsigned doe = static_cast<unsigned>(z - era * 146097);
    const unsigned yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const int64_t y = static_cast<int64_t>(yoe) + era * 400;
    const unsigned doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const unsigned mp = (5 * doy + 2) / 153;
    const unsigned d = doy - (153 * mp + 2) / 5 + 1;
    const unsigned m = mp < 10 ? mp + 3 : mp - 9;
    return {static_cast<int>(y + (m <= 2)), static_cast<int>(m), static_cast<int>(d)};
}

bool ValidCivil(int year, int month, int day) {
    if (year < 1 || year > 9999 || month < 1 || month > 12 || day < 1) return false;
    static constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    const int last = kDays[month - 1] + (month == 2 && leap ? 1 : 0);
    return day <= last;
}


}  // namespace ortelix
