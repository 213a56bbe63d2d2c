// The automatic run in virtual time: speed and course move the position by
// the simulator's fixed degree scale, one simulated second per tick.
#include <gtest/gtest.h>

#include <cmath>

#include "coordinates/Entfernung.h"
#include "simulator/SimTestSupport.h"

namespace ortelix {
namespace {

using simtest::Sim;

TEST(SimRun, DirectRunNorthAt60KmhMovesTheDegreesOfOneSecondPerTick) {
    Sim sim;
    sim.quelle(SimQuelle::Direkt);
    sim.box(5) = "60";
    sim.box(6) = "0";
    ASSERT_TRUE(sim.engine.SimRunOn("/dev/pts/7"));
    EXPECT_EQ(sim.platform.serialDevice, "/dev/pts/7");
    EXPECT_EQ(sim.platform.serialSettings, "4800,n,8,1");
    EXPECT_EQ(sim.engine.timers.TimerWeiter.intervalMs, 1000);

    sim.runUntil(1.0);
    // 60 km/h for one second is 16.67 m, by 111.25 km per degree 0.00014981.
    EXPECT_NEAR(sim.lat() - 50, 0.00014981, 1e-8);
    EXPECT_NEAR(sim.lon(), 10, 1e-12);
    sim.runUntil(3.0);
    EXPECT_NEAR(sim.lat() - 50, 3 * 0.00014981, 3e-8);

    // What the port got at 3.5 s: the position after three steps.
    sim.runUntil(3.5);
    const std::string gga = sim.sentences("$GPGGA").back();
    EXPECT_EQ(Sim::field(gga, 2), "5000.0270");  // 3 * 0.0089886 minutes
    EXPECT_EQ(Sim::field(gga, 4), "01000.0000");
    EXPECT_EQ(sim.sentences("$GPGGA").size(), 7u);  // a cycle each half second
}

TEST(SimRun, TimeFactorShortensTheTickButNotTheStep) {
    Sim sim;
    sim.quelle(SimQuelle::Direkt);
    sim.box(5) = "60";
    sim.box(6) = "90";
    sim.session.options.NMEASimFaktor = "10";
    ASSERT_TRUE(sim.engine.SimRunOn("/dev/pts/7"));
    EXPECT_EQ(sim.engine.timers.TimerWeiter.intervalMs, 100);
    sim.runUntil(1.0);
    // Ten ticks in one second, each a second's way east: 16.67 m per tick by
    // 71.42 km per degree.
    EXPECT_NEAR(sim.lon() - 10, 10 * 16.6666667 * 0.01400112 / 1000, 2e-9);
    EXPECT_NEAR(sim.lat(), 50, 1e-12);

    // A factor read with a comma, and the whole part of the milliseconds.
    sim.session.options.NMEASimFaktor = "2,5";
    sim.runUntil(1.1);
    EXPECT_EQ(sim.engine.timers.TimerWeiter.intervalMs, 400);
    EXPECT_EQ(WeiterIntervall(3), 333);
    EXPECT_EQ(WeiterIntervall(0), 1000);   // no factor: real time
    EXPECT_EQ(WeiterIntervall(-4), 1000);
    EXPECT_EQ(WeiterIntervall(5000), 1);   // never a tick of 0 ms
}

TEST(SimRun, TrackRunReachesPointsAndStopsAtTheEndWhileSendingGoesOn) {
    Sim sim;
    // Three points 22 m apart going north, at 18 km/h (5 m a step): 17, 12
    // and 7 m are left after three steps, and 7 m is within the 10 m of an
    // arrival although a step is shorter.
    const double d = 22 / 111250.0;  // degrees north of 22 m by the simulator's scale
    simtest::AddTrack(sim.session.store, {{10, 50}, {10, 50 + d}, {10, 50 + 2 * d}}, 18);
    sim.quelle(SimQuelle::Track);
    sim.engine.SimPunkt();
    EXPECT_EQ(sim.engine.HScrollMaxValue, 3);
    EXPECT_EQ(sim.box(5), "18");
    EXPECT_EQ(sim.engine.anzeige.LabelMaxPoints, "3");
    EXPECT_EQ(sim.engine.anzeige.LabelCountPoints, "1");
    EXPECT_EQ(sim.engine.anzeige.LabelDist, "22 m");
    EXPECT_EQ(sim.engine.anzeige.LabelWinkel, "0°");

    ASSERT_TRUE(sim.engine.SimRunOn("/dev/pts/7"));
    sim.runUntil(1.0);
    EXPECT_EQ(sim.engine.HScrollNMEA, 1);
    EXPECT_EQ(sim.box(6), "0");  // the course to the next point
    EXPECT_NEAR(sim.lat() - 50, 5 * 0.00898861 / 1000, 1e-8);
    sim.runUntil(3.0);
    EXPECT_EQ(sim.engine.HScrollNMEA, 1);
    sim.runUntil(4.0);
    EXPECT_EQ(sim.engine.HScrollNMEA, 2);
    EXPECT_EQ(sim.engine.anzeige.LabelCountPoints, "2");
    EXPECT_NEAR(sim.lat(), 50 + d, 1e-6);
    sim.runUntil(8.0);
    EXPECT_EQ(sim.engine.HScrollNMEA, 3);
    EXPECT_TRUE(sim.engine.SimRun);
    sim.runUntil(9.0);
    EXPECT_FALSE(sim.engine.SimRun);  // the run ended at the end of the track
    EXPECT_FALSE(sim.engine.timers.TimerWeiter.enabled);
    EXPECT_TRUE(sim.engine.portOffen());  // the sending did not
    const long long sent = sim.engine.zyklen;
    sim.runUntil(11.0);
    EXPECT_EQ(sim.engine.zyklen, sent + 4);
    const std::string gga = sim.sentences("$GPGGA").back();
    EXPECT_EQ(Sim::field(gga, 2), "5000.0238");  // the last point, 44 m north, to six decimals of a degree
    EXPECT_NEAR(sim.lat(), 50 + 2 * d, 1e-6);
}

TEST(SimRun, TrackPointsWithoutSpeedTakeTheStandInSpeedOrStand) {
    Sim sim;
    const double d = 30 / 111250.0;
    NewTrack(sim.session.store, "ohne");
    for (int i = 0; i < 3; ++i) {
        TrackPointIn p;
        p.lon = 10;
        p.lat = 50 + i * d;
        if (i == 1) p.speed = 72;
        StoreTrackPoint(sim.session.store, p);
    }
    sim.quelle(SimQuelle::Track);
    sim.box(5) = "50";
    sim.engine.SimPunkt();
    EXPECT_EQ(sim.box(5), "");  // the record has no speed: the box is empty
    sim.engine.SimWeiter();
    EXPECT_NEAR(sim.lat(), 50, 1e-9);  // and the run stands
    EXPECT_EQ(sim.engine.HScrollNMEA, 1);

    sim.engine.ersatzSpeed = 36;
    sim.engine.SimPunkt();
    EXPECT_EQ(sim.box(5), "36");
    sim.engine.SimWeiter();
    EXPECT_NEAR(sim.lat() - 50, 10 * 0.00898861 / 1000, 1e-9);
    sim.engine.SimWeiter();
    sim.engine.SimWeiter();  // 10 m left: arrived
    EXPECT_EQ(sim.engine.HScrollNMEA, 2);
    EXPECT_EQ(sim.box(5), "72");  // a point's own speed wins
    sim.engine.SimWeiter();
    sim.engine.SimWeiter();
    EXPECT_EQ(sim.engine.HScrollNMEA, 3);
    EXPECT_EQ(sim.box(5), "36");
}

TEST(SimRun, ArrivalWhenTheStepIsLongerThanTheWayLeft) {
    Sim sim;
    // 100 m apart; 180 km/h covers 50 m a second: out 50 m, then arrived,
    // not carried past the point.
    const double d = 100 / 111250.0;
    simtest::AddRoute(sim.session.store, {{10, 50}, {10, 50 + d}, {10 + d, 50 + d}});
    sim.quelle(SimQuelle::Route);
    sim.engine.SimPunkt();
    EXPECT_EQ(sim.engine.anzeige.LabelName, "P1");
    EXPECT_EQ(sim.engine.anzeige.LabelDesc, "Punkt 1");
    sim.box(5) = "180";  // a route point has no speed: the box keeps the user's
    sim.engine.SimWeiter();
    EXPECT_EQ(sim.engine.HScrollNMEA, 1);
    EXPECT_GT(sim.lat(), 50);
    EXPECT_LT(sim.lat(), 50 + d);
    sim.engine.SimWeiter();  // a hair under 50 m left: nearer than a step
    EXPECT_EQ(sim.engine.HScrollNMEA, 2);
    EXPECT_EQ(sim.engine.anzeige.LabelName, "P2");
    EXPECT_NEAR(sim.lat(), 50 + d, 1e-6);
    EXPECT_NEAR(sim.lon(), 10, 1e-6);
    EXPECT_EQ(sim.box(5), "180");
    // The next leg goes east.
    sim.engine.SimWeiter();
    EXPECT_EQ(sim.box(6), "90");
    EXPECT_GT(sim.lon(), 10);
}

TEST(SimRun, AStepThatLeavesTheTargetFartherEndsOnTheTarget) {
    Sim sim;
    // Across the date line the course by the fixed degree scale points the
    // long way round (west), while the target lies 111 km to the east: a step
    // west only takes the position away, so it ends on the target.
    simtest::AddRoute(sim.session.store, {{179.5, 0}, {-179.5, 0}});
    sim.quelle(SimQuelle::Route);
    sim.engine.SimPunkt();
    sim.box(5) = "36";  // 10 m a second
    ASSERT_NEAR(Entfernung(179.5, 0, -179.5, 0), 111300, 200);
    sim.engine.SimWeiter();
    EXPECT_EQ(sim.box(6), "270");
    EXPECT_EQ(sim.engine.HScrollNMEA, 1);
    EXPECT_NEAR(sim.lon(), -179.5, 1e-9);
    sim.engine.SimWeiter();  // now on it: arrived
    EXPECT_EQ(sim.engine.HScrollNMEA, 2);
}

TEST(SimRun, EmptySourceLeavesTheBoxesAndARunEndsAtOnce) {
    Sim sim;
    sim.quelle(SimQuelle::Track);
    sim.box(0) = "7";
    sim.engine.SimPunkt();
    EXPECT_EQ(sim.box(0), "7");
    EXPECT_EQ(sim.engine.anzeige.LabelMaxPoints, "0");
    ASSERT_TRUE(sim.engine.SimRunOn("/dev/pts/7"));
    sim.runUntil(1.0);
    EXPECT_FALSE(sim.engine.SimRun);
    EXPECT_EQ(sim.box(0), "7");
    EXPECT_TRUE(sim.engine.portOffen());
}

}  // namespace
}  // namespace ortelix
