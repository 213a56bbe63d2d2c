#pragma once
// The simulator: a computer that looks like a GPS receiver on a serial port.
// Every half second it sends one cycle of sentences for the position in the
// boxes; an automatic run moves that position along a track, a route or the
// waypoints, or by speed and course alone, faster than real time if asked.
// The engine belongs to whoever drives it (the form, the command line, a
// test) and reads its boxes from the session's options.
#include <array>
#include <string>

#include "simulator/NmeaSentences.h"
#include "simulator/SimQuelle.h"
#include "simulator/SimTimers.h"

namespace ortelix {

class Session;

inline constexpr const char* kSimSettings = "4800,n,8,1";
inline constexpr const char* kSimTitle = "NMEA Simulator";
inline constexpr const char* kPortFailed = "Die Schnittstelle kann nicht geöffnet werden";
inline constexpr const char* kPortError = "Die Schnittstellenfehler";
// The point bar's limit: the points beyond it are out of reach.
inline constexpr int kHScrollMax = 32767;

// What the form shows besides the boxes.
struct SimAnzeige {
    // LabelNMEAPar: longitude, latitude, speed, direction, height, geoid,
    // date and time as the last cycle sent them.
    std::array<std::string, 8> LabelNMEAPar;
    std::string LabelMinPoints, LabelMaxPoints, LabelCountPoints;
    std::string LabelDist, LabelWinkel;  // to the next point
    std::string LabelName, LabelDesc;    // of a route point or waypoint
    std::string Status;                  // the status bar: device ":=" settings
    bool Sendet = false;                 // the sending indicator, lit for TimerFlash
};

// The device of a port text. A path stays as it is; "COM" and a number, or a
// number alone, is the n-th serial port of the machine, /dev/ttyS(n-1); any
// other name is one in /dev. Empty when the text names nothing.
std::string SimPortPfad(const std::string& text);

class SimEngine {
public:
    explicit SimEngine(Session& s);

    SimFix fix;
    bool SimRun = false;
    SimAuswahl auswahl;  // the source's track and route; its kind is the option buttons'
    int HScrollNMEA = 1, HScrollMin = 1, HScrollMaxValue = 1;
    SimAnzeige anzeige;
    SimTimers timers;
    // The speed for points whose record holds none (the command line's
    // --speed). Empty, such a point leaves the speed box empty, and a run
    // stands there until the user types a speed.
    OptDouble ersatzSpeed;
    long long zyklen = 0;        // cycles sent since the engine was made
    long long schreibFehler = 0;  // cycles the port refused

    bool portOffen() const { return portOffen_; }
    const std::string& geraet() const { return geraet_; }

    // Opens the port of the port text and starts sending. False, after the
    // message, when the port cannot be opened; the engine then stays idle.
    bool SimStart(const std::string& portText);
    // Stops sending and the run, closes the port, clears the status.
    void SimStop();
    // The automatic run; it starts sending first when the port is closed.
    bool SimRunOn(const std::string& portText);
    void SimRunOff();

    // Fills the boxes from the point of the bar in the chosen source.
    void SimPunkt();
    // One cycle of sending.
    void SimZyklus();
    // One step of the automatic run.
    void SimWeiter();
    // Arrow keys (37 left, 38 up, 39 right, 40 down) in "Direkt".
    void Taste(int keyCode);
    // One reading of the joystick in "Direkt".
    void JoyStick();
    // The time of the shown point into the track filter's time window.
    void CutVon();
    void CutBis();

    // Runs every timer that is due on the platform clock.
    void Tick();
    // Sleeps on the platform until the next timer and runs it.
    void Warte();

private:
    SimQuelle quelle() const;
    void punkt(int index);
    void positionSchreiben(double lon, double lat);

    Session& s_;
    bool portOffen_ = false;
    std::string geraet_;
};

}  // namespace ortelix
