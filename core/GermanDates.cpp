#include "core/GermanDates.h"

#include <charconv>

namespace ortelix {

namespace {
void PutTwo(std::string& out, int v) {
    out += static_cast<char>('0' + v / 10 % 10);
    out += static_cast<char>('0' + v % 10);
}
}  // namespace

std::string GermanDate(Date d) {
    std::string out;
    if (!d.has()) return out;
    const CivilDate c = CivilFromSerial(*d);
    PutTwo(out, c.day);
    out += '.';
    PutTwo(out, c.month);
    out += '.';
    if (c.year >= 0 && c.year < 1000) {
        PutTwo(out, c.year / 100);
        PutTwo(out, c.year % 100);
    } else {
        char buf[16];
        const auto r = std::to_chars(buf, buf + sizeof buf, c.year);
        out.append(buf, r.ptr);
    }
    return out;
}

std::string GermanTime(Time t) {
    std::string out;
    if (!t.has()) return out;
    const int s = ((*t % kSecondsPerDay) + kSecondsPerDay) % kSecondsPerDay;
    PutTwo(out, s / 3600);
    out += ':';
    PutTwo(out, s / 60 % 60);
    out += ':';
    PutTwo(out, s % 60);
    return out;
}

}  // namespace ortelix
