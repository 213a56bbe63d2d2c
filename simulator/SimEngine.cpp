#include "simulator/SimEngine.h"

#include <cctype>
#include <charconv>
#include <cmath>

#include "core/GermanDates.h"
#include "core/ModulShared.h"
#include "core/Session.h"
#include "platform/Platform.h"
#include "simulator/JoyStick.h"
#include "simulator/SimBoxes.h"

namespace ortelix {

std::string SimPortPfad(const std::string& text) {
    const std::string_view t = Trim(text);
    if (t.empty()) return {};
    if (t[0] == '/') return std::string(t);
    std::string_view digits = t;
    if (t.size() > 3 && LowerAscii(t.substr(0, 3)) == "com") digits = t.substr(3);
    int n = 0;
    const auto r = std::from_chars(digits.data(), digits.data() + digits.size(), n);
    if (r.ec == std::errc() && r.ptr == digits.data() + digits.size()) {
        if (n < 1) return {};
        return "/dev/ttyS" + std::to_string(n - 1);
    }
    return "/dev/" + std::string(t);
}

SimEngine::SimEngine(Session& s) : s_(s) {
    auswahl.quelle = quelle();
    timers.TimerJoyStick.start(s_.platform.now());
}

SimQuelle SimEngine::quelle() const { return GewaehlteQuelle(s_.options); }

bool SimEngine::SimStart(const std::string& portText) {
    if (portOffen_) SimStop();
    s_.options.ComPort = portText;
    const std::string device = SimPortPfad(portText);
    if (device.empty() || !s_.platform.serialOpen(device, kSimSettings)) {
        s_.platform.messageBox(kPortFailed, kSimTitle, Buttons::Ok, Icon::Critical);
        return false;
    }
    portOffen_ = true;
    geraet_ = device;
    anzeige.Status = device + ":=" + kSimSettings;
    timers.TimerNMEA.start(s_.platform.now());
    return true;
}

void SimEngine::SimStop() {
    SimRunOff();
    timers.TimerNMEA.stop();
    timers.TimerFlash.stop();
    anzeige.Sendet = false;
    const bool offen = portOffen_;
    portOffen_ = false;
    anzeige.Status.clear();
    if (!offen) return;
    s_.platform.serialClose();
    if (s_.platform.serialCloseFailed()) s_.platform.messageBox(kPortError, kSimTitle, Buttons::Ok, Icon::Critical);
}

bool SimEngine::SimRunOn(const std::string& portText) {
    if (!portOffen_ && !SimStart(portText)) return false;
    SimRun = true;
    timers.TimerWeiter.intervalMs = WeiterIntervall(BoxZahl(s_.options.NMEASimFaktor));
    timers.TimerWeiter.start(s_.platform.now());
    return true;
}

void SimEngine::SimRunOff() {
    SimRun = false;
    timers.TimerWeiter.stop();
}

void SimEngine::SimZyklus() {
    if (!portOffen_) return;
    const SimBoxWerte w = BoxenLesen(s_);
    const double localNow = s_.platform.localNow();
    FixAusBoxen(fix, w, s_.options.NMEABoxDate, s_.options.NMEABoxTime, quelle() == SimQuelle::Direkt, localNow);
    const std::string text = NmeaSatz(fix, localNow);
    auto& par = anzeige.LabelNMEAPar;
    par[0] = FormatFixed(fix.SimLon, 6);
    par[1] = FormatFixed(fix.SimLat, 6);
    par[2] = FormatPoint(fix.SimSpeed, "0.0");
    par[3] = FormatPoint(fix.SimCourse, "0.0");
    par[4] = FormatPoint(fix.SimAlt, "0.0");
    par[5] = fix.SimGeoid.empty() ? std::string() : FormatPoint(*fix.SimGeoid, "0.0");
    par[6] = GermanDate(fix.SimDate);
    par[7] = GermanTime(fix.SimTime);
    // A port that refuses a cycle does not stop the sending: the next cycle
    // tries again (a receiver unplugged for a moment).
    if (!s_.platform.serialWrite(text)) ++schreibFehler;
    anzeige.Sendet = true;
    timers.TimerFlash.stop();
    timers.TimerFlash.start(s_.platform.now());
    ++zyklen;
}

void SimEngine::Taste(int keyCode) {
    if (quelle() != SimQuelle::Direkt) return;
    auto& box = s_.options.NMEABox;
    switch (keyCode) {
        case 38: box[5] = BoxText(BoxZahl(box[5]) + 1); break;
        case 40: box[5] = BoxText(std::max(0.0, BoxZahl(box[5]) - 1)); break;
        case 37: box[6] = BoxText(BoxZahl(box[6]) - 1); break;
        case 39: box[6] = BoxText(BoxZahl(box[6]) + 1); break;
        default: break;
    }
}

void SimEngine::JoyStick() {
    if (quelle() != SimQuelle::Direkt) return;
    int x = 0, y = 0, buttons = 0;
    if (!s_.platform.joystick(x, y, buttons)) return;
    auto& box = s_.options.NMEABox;
    const JoyStickWirkung w = JoyStickSchritt(x, y, BoxZahl(box[5]), BoxZahl(box[6]));
    if (w.speedChanged) box[5] = BoxText(w.speed);
    if (w.courseChanged) box[6] = BoxText(w.course);
}

void SimEngine::CutVon() {
    const Time t = ParseClock(s_.options.NMEABoxTime);
    if (!t.empty()) s_.options.TextZeit[0] = IsoTime(*t);
}

void SimEngine::CutBis() {
    const Time t = ParseClock(s_.options.NMEABoxTime);
    if (!t.empty()) s_.options.TextZeit[1] = IsoTime(*t);
}

void SimEngine::Tick() {
    const double now = s_.platform.now();
    if (timers.TimerNMEA.fire(now)) SimZyklus();
    if (timers.TimerWeiter.fire(now) && SimRun) SimWeiter();
    if (timers.TimerFlash.fire(now)) {
        anzeige.Sendet = false;
        timers.TimerFlash.stop();
    }
    if (timers.TimerJoyStick.fire(now)) JoyStick();
}

void SimEngine::Warte() {
    const double due = timers.nextDue();
    if (!std::isfinite(due)) return;
    const double wait = due - s_.platform.now();
    if (wait > 0) s_.platform.sleep(wait);
    Tick();
}

}  // namespace ortelix
