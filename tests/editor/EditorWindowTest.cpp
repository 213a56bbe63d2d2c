// The window of 15,000 rows over long sources, and the running values that
// reach into later windows.
#include <gtest/gtest.h>

#include "core/Session.h"
#include "editor/EditorTestSupport.h"
#include "editor/EditorWindow.h"
#include "editor/ModuleEditor.h"
#include "fake/FakePlatform.h"

namespace ortelix {
namespace {

using testing::PointAt;

Track StraightTrack(int n) {
    Track t{"lang", {}};
    t.Points.reserve(static_cast<size_t>(n));
    for (int i = 0; i < n; ++i) t.Points.push_back(PointAt(10.0 * i, i));
    return t;
}

TEST(EditorWindow, WindowNumbersAreHeldToTheSource) {
    struct Case {
        int seite;
        int64_t n;
        int wantSeite;
        int64_t wantErster;
        int wantZeilen;
    };
    const Case cases[] = {
        {0, 30001, 0, 0, 15000},      {1, 30001, 1, 15000, 15000}, {2, 30001, 2, 30000, 1},
        {3, 30001, 2, 30000, 1},      {-4, 30001, 0, 0, 15000},    {1, 15000, 1, 15000, 0},
        {2, 15000, 1, 15000, 0},      {0, 0, 0, 0, 0},             {5, 0, 0, 0, 0},
        {0, 14999, 0, 0, 14999},      {1, 15001, 1, 15000, 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::to_string(c.seite) + " of " + std::to_string(c.n));
        int seite = c.seite;
        const EditorWindow w = WindowFor(seite, c.n);
        EXPECT_EQ(seite, c.wantSeite);
        EXPECT_EQ(w.erster, c.wantErster);
        EXPECT_EQ(w.zeilen, c.wantZeilen);
    }
}

TEST(EditorWindow, ShiftButtonsWalkThroughALongTrackWithItsRunningValues) {
    FakePlatform p;
    Session s(p);
    s.store.Tracks.push_back(StraightTrack(30001));
    ModuleEditor ed(s);
    ed.showTrack(0);
    EXPECT_EQ(ed.seite(), 0);
    EXPECT_EQ(ed.rowCount(), 15000);
    EXPECT_EQ(ed.cellText(15000, 0), "15000");
    EXPECT_EQ(ed.cellText(15001, 0), "");

    ed.nextWindow();
    EXPECT_EQ(ed.seite(), 1);
    EXPECT_EQ(ed.rowCount(), 15000);
    EXPECT_EQ(ed.erster(), 15000);
    EXPECT_EQ(ed.cellText(1, 0), "15001");
    // The walk covered the points before the window: 15,000 steps of 10 m.
    EXPECT_EQ(ed.cellText(1, 10), "150.000");
    EXPECT_EQ(ed.cellText(1, 11), "4:10:00");
    EXPECT_EQ(ed.cellText(1, 14), "36.0");

    ed.nextWindow();
    EXPECT_EQ(ed.seite(), 2);
    EXPECT_EQ(ed.rowCount(), 1);
    EXPECT_EQ(ed.cellText(1, 0), "30001");
    EXPECT_EQ(ed.cellText(1, 10), "300.000");
    ed.nextWindow();  // window 3 falls back to 2
    EXPECT_EQ(ed.seite(), 2);
    EXPECT_EQ(ed.rowCount(), 1);

    for (int k = 0; k < 5; ++k) ed.previousWindow();
    EXPECT_EQ(ed.seite(), 0);
    EXPECT_EQ(ed.cellText(1, 0), "1");

    // A fill asked for window 3 corrects the number it was given.
    int seite = 3;
    ed.FillTrackGrid(0, seite);
    EXPECT_EQ(seite, 2);
    // A track of exactly 15,000 points has an empty second window.
    s.store.Tracks.push_back(StraightTrack(15000));
    seite = 1;
    ed.FillTrackGrid(1, seite);
    EXPECT_EQ(seite, 1);
    EXPECT_EQ(ed.erster(), 15000);
    EXPECT_EQ(ed.rowCount(), 0);
    EXPECT_EQ(ed.cellText(0, 1), "Längengrad");
    EXPECT_EQ(ed.WriteGridCell("5", 1, 1), "");
    // The walk still ran over the whole track.
    EXPECT_NEAR(s.store.Tracks[1].Points.back().DistKm, 149.99, 1e-6);
}

// A pause is told in the row of its middle point's own number, also in a
// later window: there it lands in that row number, or nowhere.
TEST(EditorWindow, PauseTextsOfALaterWindowLandInTheRowOfTheirNumber) {
    FakePlatform p;
    Session s(p);
    Track t{"stau", {}};
    int clock = 0;
    auto step = [&](double north, int seconds) {
        clock += seconds;
        t.Points.push_back(PointAt(north, clock));
    };
    // Points 1..4 one minute apart, 500 m each; points 5..9 stand still for
    // 10 minutes each at 1500 m; point 10 leaves after 3060 s at the anchor
    // (point 4): the pause is told at 4 + 6 / 2 = 7.
    for (int i = 0; i < 4; ++i) step(500.0 * i, 60);
    for (int i = 0; i < 5; ++i) step(1500, 600);
    step(3000, 60);
    // Then up to 15,000 points moving 30 m in 2 s (the anchor moves every
    // 120 m), and a second stay: the anchor is point 14,999, points
    // 15,001..15,010 stand 60 m from it, and point 15,011 leaves 662 s after
    // it: told at 14,999 + 12 / 2 = 15,005.
    while (t.Points.size() < 15000) step(3000 + 30.0 * static_cast<double>(t.Points.size()), 2);
    const double at = 3000 + 30.0 * 15000;
    for (int i = 0; i < 10; ++i) step(at, 60);
    step(at + 1000, 60);
    s.store.Tracks.push_back(t);

    ModuleEditor ed(s);
    ed.showTrack(0);
    EXPECT_EQ(ed.cellText(7, 12), "0:51");
    EXPECT_EQ(ed.cellText(8, 12), "");
    ed.nextWindow();
    ASSERT_EQ(ed.rowCount(), 11);
    // Row 7 of this window is point 15,007, yet it shows the pause of point 7;
    // the pause of the second stay belongs to row 15,005 and shows nowhere.
    EXPECT_EQ(ed.cellText(7, 12), "0:51");
    for (int r = 1; r <= 11; ++r)
        if (r != 7) {
            EXPECT_EQ(ed.cellText(r, 12), "") << r;
        }
    // Its point holds it nonetheless, and the average without pauses counts it.
    EXPECT_EQ(s.store.Tracks[0].Points[15004].PauseTime, Span(662));
    EXPECT_EQ(ed.trackTotals().pauseSeconds, 3060 + 662);
}

}  // namespace
}  // namespace ortelix
