#pragma once
// Dates are whole days since 1899-12-30 (the serial day of the file formats);
// times are seconds of the day. A moment is date + time as days in a double.
#include <cstdint>

#include "core/Optional.h"

namespace ortelix {

using Date = OptInt;      // days since 1899-12-30
using Time = OptInt;      // seconds since midnight, 0..86399
using Span = OptInt;      // a duration in seconds

constexpr int kSecondsPerDay = 86400;

struct CivilDate {
    int year = 0, month = 0, day = 0;
};

// Days since 1899-12-30 of a proleptic Gregorian date, and back.
int32_t SerialFromCivil(int year, int month, int day);
CivilDate CivilFromSerial(int32_t serial);
bool ValidCivil(int year, int month, int day);

// The moment of a date and a time as days; an empty time counts as midnight,
// an empty date as day 0, as the arithmetic of the file formats does.
inline double Moment(Date d, Time t) {
    return static_cast<double>(d.valueOr(0)) + static_cast<double>(t.valueOr(0)) / kSecondsPerDay;
}

}  // namespace ortelix
