#include "simulator/SimBoxes.h"

#include <cmath>

#include "coordinates/Geoid.h"
#include "core/ModulShared.h"
#include "core/Session.h"
#include "simulator/NmeaSentences.h"

namespace ortelix {

namespace {
constexpr double kHoechsteHoehe = 9000;         // metres: above it the simulated craft stands still
constexpr double kHoechsteGeschwindigkeit = 2000;  // km/h
}  // namespace

double BoxZahl(std::string_view text) {
    const size_t comma = text.find(',');
    if (comma == std::string_view::npos) return LeadingNumber(text);
    std::string point(text);
    point[comma] = '.';
    const double v = LeadingNumber(point);
    return std::isfinite(v) ? v : 0;
}

std::string BoxText(double value) { return FormatPoint(value, "0.##"); }

double GradMinutenLesen(std::string_view grad, std::string_view minuten) {
    const double g = BoxZahl(grad);
    const double m = BoxZahl(minuten) / 60;
    return std::signbit(g) ? g - m : g + m;
}

void GradMinutenSchreiben(double value, std::string& grad, std::string& minuten) {
    const double whole = std::trunc(value);
    grad = value < 0 && whole == 0 ? "-0" : FormatFixed(whole, 0);
    minuten = FormatFixed((std::fabs(value) - std::fabs(whole)) * 60, 8);
}

double KursAusBox(std::string_view text) {
    const double v = BoxZahl(text);
    return std::floor(v - 360.0 * std::floor(v / 360.0));
}

SimBoxWerte BoxenLesen(Session& s) {
    auto& box = s.options.NMEABox;
    SimBoxWerte w;
    w.lon = GradMinutenLesen(box[0], box[1]);
    w.lat = GradMinutenLesen(box[2], box[3]);
    w.course = KursAusBox(box[6]);
    w.speed = BoxZahl(box[5]);
    w.alt = BoxZahl(box[4]);
    if (s.options.NMEASimCheckBox[0] == 1) box[7] = FormatPoint(-GeoidHoehe(s, w.lon, w.lat), "0.0");
    if (!box[7].empty()) w.geoid = -BoxZahl(box[7]);
    if (w.alt > kHoechsteHoehe) w.speed = 0;
    if (w.speed > kHoechsteGeschwindigkeit) w.speed = 0;
    return w;
}

void FixAusBoxen(SimFix& fix, const SimBoxWerte& w, const std::string& boxDate, const std::string& boxTime,
                 bool direkt, double localNow) {
    fix.SimLon = w.lon;
    fix.SimLat = w.lat;
    fix.SimSpeed = w.speed;
    fix.SimCourse = w.course;
    fix.SimAlt = w.alt;
    fix.SimGeoid = w.geoid;
    const double today = std::floor(localNow);
    const int jetzt = static_cast<int>(std::llround((localNow - today) * kSecondsPerDay)) % kSecondsPerDay;
    if (direkt) {
        // The time box holds an offset of whole hours from the system clock
        // (a receiver's time is UTC, the computer's clock local).
        const Time asClock = ParseClock(boxTime);
        const double hours = asClock.empty() ? std::trunc(BoxZahl(boxTime)) : *asClock / 3600;
        const long long shifted = jetzt + static_cast<long long>(std::fmod(hours, 24.0)) * 3600;
        fix.SimDate = static_cast<int>(today);
        fix.SimTime = static_cast<int>(((shifted % kSecondsPerDay) + kSecondsPerDay) % kSecondsPerDay);
        return;
    }
    const Date d = boxDate.empty() ? Date() : ParseDate(boxDate);
    const Time t = ParseClock(boxTime);
    fix.SimDate = d.empty() ? Date(static_cast<int>(today)) : d;
    fix.SimTime = t.empty() ? Time(jetzt) : t;
}

}  // namespace ortelix
