// One cycle of sending: the port, the boxes read with their rules, the
// limits, the date and time, and the labels of what was sent.
#include <gtest/gtest.h>

#include "coordinates/Geoid.h"
#include "core/ModulShared.h"
#include "core/Settings.h"
#include "simulator/SimTestSupport.h"

namespace ortelix {
namespace {

using simtest::Sim;

TEST(SimCycle, PortOpensAt4800BaudAndSendsEveryHalfSecondUntilStopped) {
    Sim sim;
    EXPECT_EQ(SimPortPfad("/dev/pts/3"), "/dev/pts/3");
    EXPECT_EQ(SimPortPfad(" COM1 "), "/dev/ttyS0");
    EXPECT_EQ(SimPortPfad("com4"), "/dev/ttyS3");
    EXPECT_EQ(SimPortPfad("2"), "/dev/ttyS1");
    EXPECT_EQ(SimPortPfad("ttyUSB0"), "/dev/ttyUSB0");
    EXPECT_EQ(SimPortPfad("COM0"), "");
    EXPECT_EQ(SimPortPfad(""), "");

    sim.engine.SimZyklus();  // no port: nothing happens
    EXPECT_EQ(sim.engine.zyklen, 0);
    ASSERT_TRUE(sim.engine.SimStart("COM1"));
    EXPECT_EQ(sim.platform.serialDevice, "/dev/ttyS0");
    EXPECT_EQ(sim.engine.anzeige.Status, "/dev/ttyS0:=4800,n,8,1");
    EXPECT_EQ(sim.session.options.ComPort, "COM1");
    sim.runUntil(0.49);
    EXPECT_TRUE(sim.platform.serialBytes.empty());
    sim.runUntil(0.5);
    EXPECT_EQ(sim.engine.zyklen, 1);
    EXPECT_TRUE(sim.engine.anzeige.Sendet);  // lit by the send...
    sim.runUntil(0.8);
    EXPECT_FALSE(sim.engine.anzeige.Sendet);  // ...for 300 ms
    sim.runUntil(2.0);
    EXPECT_EQ(sim.engine.zyklen, 4);
    EXPECT_EQ(sim.sentences("$GP").size(), 4u * 7u);

    sim.engine.SimStop();
    EXPECT_FALSE(sim.platform.serialIsOpen);
    EXPECT_TRUE(sim.engine.anzeige.Status.empty());
    sim.runUntil(5.0);
    EXPECT_EQ(sim.engine.zyklen, 4);
    EXPECT_TRUE(sim.platform.messages.empty());
    sim.engine.SimStop();  // a second stop closes nothing
    EXPECT_TRUE(sim.platform.messages.empty());

    // A device that fails while closing is told; the port counts as closed.
    ASSERT_TRUE(sim.engine.SimStart("COM2"));
    sim.platform.serialCloseFails = true;
    sim.engine.SimStop();
    ASSERT_EQ(sim.platform.messages.size(), 1u);
    EXPECT_EQ(sim.platform.messages[0].text, "Die Schnittstellenfehler");
    EXPECT_FALSE(sim.engine.portOffen());
}

TEST(SimCycle, TheResetChoosesDirectInput) {
    Options o;
    WaehleQuelle(o, SimQuelle::Route);
    EXPECT_EQ(o.OptionNMEA, (std::array<int, 4>{0, 1, 0, 0}));
    EXPECT_EQ(GewaehlteQuelle(o), SimQuelle::Route);
    // The reset sets "Waypoint" and then "Direkt": one group, the last wins.
    ResetSettings(o, false);
    EXPECT_EQ(GewaehlteQuelle(o), SimQuelle::Direkt);
    o.OptionNMEA = {0, 0, 0, 0};
    EXPECT_EQ(GewaehlteQuelle(o), SimQuelle::Track);
}

TEST(SimCycle, APortThatCannotBeOpenedIsToldAndStaysIdle) {
    Sim sim;
    sim.platform.serialOpenFails = true;
    EXPECT_FALSE(sim.engine.SimRunOn("/dev/ttyUSB9"));
    ASSERT_EQ(sim.platform.messages.size(), 1u);
    EXPECT_EQ(sim.platform.messages[0].text, "Die Schnittstelle kann nicht geöffnet werden");
    EXPECT_FALSE(sim.engine.portOffen());
    EXPECT_FALSE(sim.engine.SimRun);
    EXPECT_FALSE(sim.engine.timers.TimerNMEA.enabled);
    EXPECT_FALSE(sim.engine.timers.TimerWeiter.enabled);
    EXPECT_TRUE(sim.engine.anzeige.Status.empty());
    sim.runUntil(3.0);
    EXPECT_EQ(sim.engine.zyklen, 0);
    // A port text that names nothing is the same failure.
    sim.platform.serialOpenFails = false;
    EXPECT_FALSE(sim.engine.SimStart(""));
    EXPECT_EQ(sim.platform.messages.size(), 2u);
    // Starting again on an open port closes it first.
    ASSERT_TRUE(sim.engine.SimStart("/dev/pts/1"));
    ASSERT_TRUE(sim.engine.SimStart("/dev/pts/2"));
    EXPECT_EQ(sim.platform.serialDevice, "/dev/pts/2");
    EXPECT_EQ(sim.engine.geraet(), "/dev/pts/2");
}

TEST(SimCycle, AltitudeAbove9000AndSpeedAbove2000SendSpeedZero) {
    Sim sim;
    ASSERT_TRUE(sim.engine.SimStart("/dev/pts/1"));
    sim.box(4) = "9500";
    sim.box(5) = "100";
    sim.box(6) = "45";
    sim.engine.SimZyklus();
    std::string gga = sim.sentences("$GPGGA").back(), rmc = sim.sentences("$GPRMC").back(),
                vtg = sim.sentences("$GPVTG").back();
    EXPECT_EQ(Sim::field(gga, 9), "9500.0");
    EXPECT_EQ(Sim::field(rmc, 7), "000.0");
    EXPECT_EQ(Sim::field(vtg, 7), "000.0");
    EXPECT_EQ(Sim::field(rmc, 8), "045.0");  // the course is still sent
    EXPECT_EQ(sim.engine.anzeige.LabelNMEAPar[2], "0.0");

    sim.box(4) = "9000";  // at the limit it still moves
    sim.engine.SimZyklus();
    EXPECT_EQ(Sim::field(sim.sentences("$GPVTG").back(), 7), "100.0");
    sim.box(5) = "2500";
    sim.engine.SimZyklus();
    EXPECT_EQ(Sim::field(sim.sentences("$GPVTG").back(), 7), "000.0");
    sim.box(5) = "2000";
    sim.engine.SimZyklus();
    rmc = sim.sentences("$GPRMC").back();
    EXPECT_EQ(Sim::field(sim.sentences("$GPVTG").back(), 7), "2000.0");
    EXPECT_EQ(Sim::field(rmc, 7), "1079.2");  // 2000 / 1.8532
}

TEST(SimCycle, BoxesAreReadWithTheCommaRuleAndTheSignOfTheDegrees) {
    Sim sim;
    ASSERT_TRUE(sim.engine.SimStart("/dev/pts/1"));
    sim.session.options.NMEABox = {"-12", "30,5", "-0", "15", "35,46", "100", "-90", "-47,3"};
    sim.engine.SimZyklus();
    EXPECT_DOUBLE_EQ(sim.engine.fix.SimLon, -12 - 30.5 / 60);
    EXPECT_DOUBLE_EQ(sim.engine.fix.SimLat, -0.25);  // "-0" keeps the minutes south
    EXPECT_DOUBLE_EQ(sim.engine.fix.SimAlt, 35.46);
    EXPECT_DOUBLE_EQ(sim.engine.fix.SimCourse, 270);
    EXPECT_DOUBLE_EQ(*sim.engine.fix.SimGeoid, 47.3);
    const std::string gga = sim.sentences("$GPGGA").back();
    EXPECT_EQ(Sim::field(gga, 2), "0015.0000");
    EXPECT_EQ(Sim::field(gga, 3), "S");
    EXPECT_EQ(Sim::field(gga, 4), "01230.5000");
    EXPECT_EQ(Sim::field(gga, 5), "W");
    EXPECT_EQ(Sim::field(gga, 11), "47.3");
    auto& par = sim.engine.anzeige.LabelNMEAPar;
    EXPECT_EQ(par[0], "-12.508333");
    EXPECT_EQ(par[1], "-0.250000");
    EXPECT_EQ(par[3], "270.0");
    EXPECT_EQ(par[4], "35.5");
    EXPECT_EQ(par[5], "47.3");

    // An empty degrees box is 0, so minutes alone lie east; an empty geoid box
    // leaves the field empty; a course past 360 folds.
    sim.session.options.NMEABox = {"", "30", "50", "", "", "", "400", ""};
    sim.engine.SimZyklus();
    EXPECT_DOUBLE_EQ(sim.engine.fix.SimLon, 0.5);
    EXPECT_DOUBLE_EQ(sim.engine.fix.SimLat, 50);
    EXPECT_DOUBLE_EQ(sim.engine.fix.SimCourse, 40);
    EXPECT_TRUE(sim.engine.fix.SimGeoid.empty());
    EXPECT_EQ(Sim::field(sim.sentences("$GPGGA").back(), 11), "");
    EXPECT_EQ(sim.engine.anzeige.LabelNMEAPar[5], "");
}

TEST(SimCycle, GeoidCheckFillsBox7WithTheOppositeSign) {
    Sim sim;
    ASSERT_TRUE(GeoidLaden(sim.session));
    ASSERT_TRUE(sim.engine.SimStart("/dev/pts/1"));
    sim.session.options.NMEASimCheckBox[0] = 1;
    sim.session.options.NMEABox = {"10", "0", "50", "0", "100", "0", "0", ""};
    const double n = GeoidHoehe(sim.session, 10, 50);
    ASSERT_GT(n, 40);  // central Europe lies some 47 m above the ellipsoid
    sim.engine.SimZyklus();
    EXPECT_EQ(sim.box(7), FormatPoint(-n, "0.0"));
    EXPECT_EQ(Sim::field(sim.sentences("$GPGGA").back(), 11), FormatPoint(n, "0.0"));
    // Off, the box is what the user typed.
    sim.session.options.NMEASimCheckBox[0] = 0;
    sim.box(7) = "-12";
    sim.engine.SimZyklus();
    EXPECT_EQ(Sim::field(sim.sentences("$GPGGA").back(), 11), "12.0");
}

TEST(SimCycle, DateAndTimeComeFromTheBoxesOrTheClock) {
    Sim sim;  // the fake's wall clock: 2024-06-01 12:00:00 at 0 s
    ASSERT_TRUE(sim.engine.SimStart("/dev/pts/1"));
    sim.quelle(SimQuelle::Track);
    sim.session.options.NMEABoxDate = "16.02.2006";
    sim.session.options.NMEABoxTime = "08:15:30";
    sim.engine.SimZyklus();
    std::string rmc = sim.sentences("$GPRMC").back();
    EXPECT_EQ(Sim::field(rmc, 1), "081530.00");
    EXPECT_EQ(Sim::field(rmc, 9), "160206");
    EXPECT_EQ(sim.engine.anzeige.LabelNMEAPar[6], "16.02.2006");
    EXPECT_EQ(sim.engine.anzeige.LabelNMEAPar[7], "08:15:30");

    // Not a date and not a time: today and now.
    sim.session.options.NMEABoxDate = "gestern";
    sim.session.options.NMEABoxTime = "25:00:00";
    sim.platform.clock = 90;
    sim.engine.SimZyklus();
    rmc = sim.sentences("$GPRMC").back();
    EXPECT_EQ(Sim::field(rmc, 1), "120130.00");
    EXPECT_EQ(Sim::field(rmc, 9), "010624");

    // "Direkt": today, and the clock plus the whole hours of the time box.
    sim.quelle(SimQuelle::Direkt);
    sim.session.options.NMEABoxDate = "16.02.2006";
    sim.session.options.NMEABoxTime = "-2";
    sim.engine.SimZyklus();
    rmc = sim.sentences("$GPRMC").back();
    EXPECT_EQ(Sim::field(rmc, 1), "100130.00");
    EXPECT_EQ(Sim::field(rmc, 9), "010624");
    sim.session.options.NMEABoxTime = "13:45:00";  // as a clock text: its hours
    sim.engine.SimZyklus();
    EXPECT_EQ(Sim::field(sim.sentences("$GPRMC").back(), 1), "010130.00");
}

TEST(SimCycle, ArrowKeysAndJoystickSteerOnlyInDirectMode) {
    Sim sim;
    sim.quelle(SimQuelle::Track);
    sim.box(5) = "10";
    sim.box(6) = "90";
    sim.engine.Taste(38);
    EXPECT_EQ(sim.box(5), "10");
    sim.quelle(SimQuelle::Direkt);
    sim.engine.Taste(38);
    sim.engine.Taste(38);
    EXPECT_EQ(sim.box(5), "12");
    sim.engine.Taste(39);
    EXPECT_EQ(sim.box(6), "91");
    sim.engine.Taste(37);
    sim.engine.Taste(37);
    EXPECT_EQ(sim.box(6), "89");
    sim.box(5) = "1,5";
    sim.engine.Taste(40);
    EXPECT_EQ(sim.box(5), "0.5");
    sim.engine.Taste(40);
    EXPECT_EQ(sim.box(5), "0");  // stops at 0

    // The joystick, read every 100 ms: at rest or within 30 percent nothing;
    // pushed fully forward 3 km/h a reading.
    sim.box(5) = "10";
    sim.platform.joystickPresent = true;
    sim.platform.joyX = 32768 + 9830;  // 29 percent right
    sim.platform.joyY = 32768 - 9830;  // 29 percent forward
    sim.runUntil(1.0);
    EXPECT_EQ(sim.box(5), "10");
    EXPECT_EQ(sim.box(6), "89");
    sim.platform.joyX = 32768;
    sim.platform.joyY = 0;
    sim.runUntil(1.5);
    EXPECT_EQ(sim.box(5), "25");  // five readings of +3
    sim.platform.joyY = 32768;
    sim.platform.joyX = 65535;  // 99 percent right: 3.3 a reading, kept whole
    sim.runUntil(1.6);
    EXPECT_EQ(sim.box(6), "92");
    sim.quelle(SimQuelle::Track);
    sim.runUntil(2.6);
    EXPECT_EQ(sim.box(6), "92");
}

TEST(SimCycle, JoyStickDeadZoneAndScale) {
    const JoyStickWirkung rest = JoyStickSchritt(32768, 32768, 50, 180);
    EXPECT_FALSE(rest.speedChanged);
    EXPECT_FALSE(rest.courseChanged);
    EXPECT_EQ(rest.speed, 50);
    const JoyStickWirkung edge = JoyStickSchritt(32768 + 10200, 32768 - 10200, 50, 180);  // 31 percent
    EXPECT_TRUE(edge.speedChanged);
    EXPECT_TRUE(edge.courseChanged);
    EXPECT_EQ(edge.speed, 51);   // 50 + 31 / 30
    EXPECT_EQ(edge.course, 181);
    const JoyStickWirkung thirty = JoyStickSchritt(32768 + 9831, 32768 + 9831, 50, 180);  // 30 percent
    EXPECT_FALSE(thirty.speedChanged);
    EXPECT_FALSE(thirty.courseChanged);
    const JoyStickWirkung back = JoyStickSchritt(0, 65535, 10, 180);
    EXPECT_EQ(back.speed, 6);     // 10 - 99 / 30, whole part
    EXPECT_EQ(back.course, 176);  // 180 - 100 / 30
    EXPECT_EQ(JoyStickSchritt(32768, 65535, 2, 0).speed, 0);
}

TEST(SimCycle, CutCopiesTheTimeOfThePointIntoTheTrackFilter) {
    Sim sim;
    TrackPointIn p;
    NewTrack(sim.session.store, "T");
    for (int i = 0; i < 3; ++i) {
        p.lon = 10;
        p.lat = 50 + i * 0.001;
        p.date = SerialFromCivil(2024, 5, 1);
        p.time = 7 * 3600 + i * 600;
        StoreTrackPoint(sim.session.store, p);
    }
    sim.quelle(SimQuelle::Track);
    sim.engine.HScrollNMEA = 2;
    sim.engine.SimPunkt();
    EXPECT_EQ(sim.session.options.NMEABoxTime, "07:10:00");
    EXPECT_EQ(sim.session.options.NMEABoxDate, "01.05.2024");
    sim.engine.CutVon();
    sim.engine.HScrollNMEA = 3;
    sim.engine.SimPunkt();
    sim.engine.CutBis();
    EXPECT_EQ(sim.session.options.TextZeit[0], "07:10:00");
    EXPECT_EQ(sim.session.options.TextZeit[1], "07:20:00");
    // A point without a time empties the box, and a cut then changes nothing.
    sim.session.options.NMEABoxTime.clear();
    sim.engine.CutVon();
    EXPECT_EQ(sim.session.options.TextZeit[0], "07:10:00");
}

}  // namespace
}  // namespace ortelix
