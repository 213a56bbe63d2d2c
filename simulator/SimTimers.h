#pragma once
// The simulator's timers on the platform clock: the form ticks them from a
// Qt timer, the command line sleeps until the next one is due, and the tests
// move a virtual clock. A tick that comes late does not fire twice: the next
// one is due an interval later, as with the timers of a window.
#include <algorithm>
#include <limits>

namespace ortelix {

struct SimTimer {
    int intervalMs = 1000;
    bool enabled = false;
    double due = 0;  // seconds on the platform clock

    void start(double now) {
        if (enabled) return;
        enabled = true;
        due = now + intervalMs / 1000.0;
    }
    void stop() { enabled = false; }
    // True when the timer fires at `now`; then the next tick is set.
    bool fire(double now) {
        // A clock that lands a hair short of the tick counts as on it.
        if (!enabled || now < due - 1e-9) return false;
        due += intervalMs / 1000.0;
        if (due <= now) due = now + intervalMs / 1000.0;
        return true;
    }
};

// The four timers of the simulator form.
struct SimTimers {
    SimTimer TimerNMEA{500};      // one cycle of sending
    SimTimer TimerWeiter{1000};   // one step of the automatic run; 1000 / Fach
    SimTimer TimerFlash{300};     // the sending indicator goes dark
    SimTimer TimerJoyStick{100};  // the joystick in "Direkt"

    // When the next enabled timer is due; infinity when none is on.
    double nextDue() const {
        double t = std::numeric_limits<double>::infinity();
        for (const SimTimer* timer : {&TimerNMEA, &TimerWeiter, &TimerFlash, &TimerJoyStick})
            if (timer->enabled) t = std::min(t, timer->due);
        return t;
    }
};

// The interval of TimerWeiter for a time factor: the whole milliseconds of
// 1000 / Fach. A factor of 0 or less counts as 1 (real time), and no tick is
// shorter than a millisecond.
int WeiterIntervall(double fach);

}  // namespace ortelix
