#include "simulator/JoyStick.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace ortelix {

namespace {
constexpr double kRuhe = 32768;
constexpr int kTotzone = 30;  // percent
}  // namespace

JoyStickWirkung JoyStickSchritt(int x, int y, double speed, double course) {
    const int dx = static_cast<int>(std::trunc((x - kRuhe) / kRuhe * 100));
    const int dy = -static_cast<int>(std::trunc((y - kRuhe) / kRuhe * 100));
    JoyStickWirkung w;
    w.speed = speed;
    w.course = course;
    if (std::abs(dy) > kTotzone) {
        w.speed = std::max(0.0, std::trunc(speed + dy / 30.0));
        w.speedChanged = true;
    }
    if (std::abs(dx) > kTotzone) {
        w.course = std::trunc(course + dx / 30.0);
        w.courseChanged = true;
    }
    return w;
}

}  // namespace ortelix
