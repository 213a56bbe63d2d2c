// The track view's computed columns and the derived fields the walk writes,
// against a track whose lengths and times are known.
#include <gtest/gtest.h>

#include "core/ModulShared.h"
#include "core/Session.h"
#include "editor/CellFormats.h"
#include "editor/ModuleEditor.h"
#include "editor/TrackWalk.h"
#include "editor/EditorTestSupport.h"
#include "fake/FakePlatform.h"

namespace ortelix {
namespace {

using testing::PointAt;

class TrackStatistics : public ::testing::Test {
protected:
    Track& AddTrack(std::vector<TrackPoint> pts) {
        s.store.Tracks.push_back({"T", std::move(pts)});
        return s.store.Tracks.back();
    }
    std::string Cell(int row, int col) { return ed.cellText(row, col); }
    FakePlatform p;
    Session s{p};
    ModuleEditor ed{s};
};

// Eight points: two steps of 500 m a minute each, a stay of 14 min 40 s
// (wandering 30 m and back), then two more steps of 500 m.
//   point   north  seconds  alt
//   1       0      0        100
//   2       500    60       0     (0 takes no part in the span)
//   3       1000   120      120   anchor of the stay
//   4       1000   300      -
//   5       1030   600      90
//   6       1000   900      -
//   7       1500   1000     -     leaves the stay: 880 s since point 3
//   8       2000   1060     -
TEST_F(TrackStatistics, HandMadeTrackGivesLengthsDurationsPauseAndAverages) {
    Track& t = AddTrack({PointAt(0, 0, 100), PointAt(500, 60, 0), PointAt(1000, 120, 120), PointAt(1000, 300),
                         PointAt(1030, 600, 90), PointAt(1000, 900), PointAt(1500, 1000), PointAt(2000, 1060)});
    for (TrackPoint& q : t.Points) q.PauseTime = 1;  // what a reader may have left; overwritten only at the pause
    ed.showTrack(0);
    ASSERT_EQ(ed.rowCount(), 8);
    EXPECT_FALSE(p.busy);

    const double metres[] = {0, 500, 1000, 1000, 1030, 1060, 1560, 2060};
    const int seconds[] = {0, 60, 120, 300, 600, 900, 1000, 1060};
    const int pauseSoFar[] = {0, 0, 0, 0, 0, 0, 880, 880};
    const char* span[] = {"0", "0", "20", "20", "30", "30", "30", "30"};
    for (int i = 0; i < 8; ++i) {
        SCOPED_TRACE(i + 1);
        const TrackPoint& q = t.Points[static_cast<size_t>(i)];
        EXPECT_NEAR(q.DistKm, metres[i] / 1000, 1e-9);
        EXPECT_EQ(q.Duration, Span(seconds[i]));
        EXPECT_EQ(Cell(i + 1, 0), std::to_string(i + 1));
        EXPECT_EQ(Cell(i + 1, 10), FormatFixed(metres[i] / 1000, 3));
        EXPECT_EQ(Cell(i + 1, 13), span[i]);
        // Averages by hand: km over hours, and over the hours less the pauses
        // counted so far. The first row has no time and keeps 0.
        const double hours = seconds[i] / 3600.0, moving = (seconds[i] - pauseSoFar[i]) / 3600.0;
        EXPECT_EQ(Cell(i + 1, 14), i == 0 ? "0.0" : FormatFixed(metres[i] / 1000 / hours, 1));
        EXPECT_EQ(Cell(i + 1, 15), i == 0 ? "0.0" : FormatFixed(metres[i] / 1000 / moving, 1));
    }
    // The values themselves, written out once so that a wrong rule cannot hide
    // behind the same arithmetic: 1.03 km in 10 min, 1.56 km in 1000 s of
    // which 880 were a pause, 2.06 km in 1060 s.
    EXPECT_EQ(Cell(5, 14), "6.2");
    EXPECT_EQ(Cell(7, 14), "5.6");
    EXPECT_EQ(Cell(7, 15), "46.8");
    EXPECT_EQ(Cell(8, 14), "7.0");
    EXPECT_EQ(Cell(8, 15), "41.2");
    EXPECT_EQ(Cell(8, 11), "0:17:40");
    EXPECT_EQ(Cell(4, 11), "0:05:00");

    // The pause is told in the middle of the stay: 3 + (7 - 3) / 2 = row 5,
    // and nowhere else; its point holds its length.
    for (int r = 1; r <= 8; ++r) EXPECT_EQ(Cell(r, 12), r == 5 ? "0:14" : "") << r;
    EXPECT_EQ(t.Points[4].PauseTime, Span(880));
    EXPECT_EQ(t.Points[3].PauseTime, Span(1));

    // The course goes one point back: point 6 (south from 5, at the anchor)
    // lands on point 5, point 7 (north from the anchor) on point 6; the last
    // point's is left alone.
    EXPECT_EQ(t.Points[4].StepCourse, OptShort(180));
    EXPECT_EQ(t.Points[5].StepCourse, OptShort(0));
    EXPECT_TRUE(t.Points[7].StepCourse.empty());

    const TrackTotals tot = ed.trackTotals();
    EXPECT_EQ(tot.points, 8);
    EXPECT_NEAR(tot.lengthKm, 2.06, 1e-9);
    EXPECT_EQ(tot.durationSeconds, 1060);
    EXPECT_EQ(tot.pauseSeconds, 880);
    EXPECT_EQ(tot.minAlt, 90);
    EXPECT_EQ(tot.maxAlt, 120);
    EXPECT_NEAR(tot.averageMovingKmh, 2.06 / (180 / 3600.0), 1e-9);
    EXPECT_EQ(ed.trackSum().Moment, "16.02.2006 00:00:00");
}

TEST_F(TrackStatistics, AltitudesOfZeroNeverTakePartInTheSpan) {
    AddTrack({PointAt(0, 0, 0), PointAt(10, 10, 0), PointAt(20, 20, 0)});
    AddTrack({PointAt(0, 0, 0), PointAt(10, 10, 80), PointAt(20, 20, 0), PointAt(30, 30, 50), PointAt(40, 40, -20)});
    ed.showTrack(0);
    for (int r = 1; r <= 3; ++r) EXPECT_EQ(Cell(r, 13), "0");
    ed.showTrack(1);
    EXPECT_EQ(Cell(2, 13), "0");   // 80 alone
    EXPECT_EQ(Cell(3, 13), "0");   // the 0 is no new lowest
    EXPECT_EQ(Cell(4, 13), "30");  // 50..80
    EXPECT_EQ(Cell(5, 13), "100"); // -20..80
}

// A stay within 100 m is a pause only once the track leaves the circle, and
// only when it lasted longer than five minutes.
TEST_F(TrackStatistics, PausesAreToldWhenTheAnchorIsLeftAndOnlyAfterMoreThanFiveMinutes) {
    // 500 m in a minute moves the anchor to point 2; 90 m and 10 minutes later
    // the track is still within the circle.
    Track& t = AddTrack({PointAt(0, 0), PointAt(500, 60), PointAt(590, 660)});
    ed.showTrack(0);
    for (int r = 1; r <= 3; ++r) EXPECT_EQ(Cell(r, 12), "") << r;
    EXPECT_EQ(Cell(3, 15), Cell(3, 14));  // no pause counted

    // 200 m from the anchor: the stay since point 2 (660 s) is told halfway,
    // 2 + (4 - 2) / 2 = row 3.
    t.Points.push_back(PointAt(700, 720));
    ed.refill();
    for (int r = 1; r <= 4; ++r) EXPECT_EQ(Cell(r, 12), r == 3 ? "0:11" : "") << r;
    EXPECT_EQ(Cell(4, 15), FormatFixed(0.7 / (60 / 3600.0), 1));

    // Exactly five minutes is no pause; one second more is.
    AddTrack({PointAt(0, 0), PointAt(200, 300), PointAt(400, 360)});
    ed.showTrack(1);
    for (int r = 1; r <= 3; ++r) EXPECT_EQ(Cell(r, 12), "") << r;
    AddTrack({PointAt(0, 0), PointAt(200, 301), PointAt(400, 361)});
    ed.showTrack(2);
    EXPECT_EQ(Cell(1, 12), "0:05");  // the first anchor counts as row 0: 0 + 2 / 2
    EXPECT_EQ(s.store.Tracks[2].Points[0].PauseTime, Span(301));
}

TEST_F(TrackStatistics, DurationsShowNoDaysAndTheSpeedOfTheWalkWaitsTenSeconds) {
    EXPECT_EQ(DurationText(25 * 3600 + 61), "1:01:01");
    EXPECT_EQ(DurationText(10 * 3600), "10:00:00");
    EXPECT_EQ(PauseText(3600 + 59 * 60 + 59), "1:59");
    EXPECT_EQ(DurationText(-6 * 3600), "6:00:00");
    // Stored numbers: whole ones bare, others to 15 digits with a point.
    EXPECT_EQ(NumberText(3.5 * 3.6), "12.6");
    EXPECT_EQ(NumberText(OptDouble(2000)), "2000");
    EXPECT_EQ(NumberText(OptDouble(-0.0)), "0");
    EXPECT_EQ(NumberText(OptDouble()), "");
    EXPECT_EQ(NumberText(OptInt(-100)), "-100");
    EXPECT_EQ(GermanDate(SerialFromCivil(812, 3, 1)), "01.03.0812");
    EXPECT_EQ(GermanTime(Time(0)), "00:00:00");
    EXPECT_EQ(GermanMoment(-1), "29.12.1899 23:59:59");

    // TrackRun's own speed: evaluated only when more than ten seconds have
    // passed since the last evaluation, then over the whole stretch since.
    TrackRun run;
    TrackStep step;
    TrackPointStat(run, PointAt(0, 0), 1, step);
    TrackPointStat(run, PointAt(100, 10), 2, step);
    EXPECT_EQ(run.SpeedKmh, 0);  // exactly 10 s: not yet
    TrackPointStat(run, PointAt(200, 20), 3, step);
    EXPECT_NEAR(run.SpeedKmh, 0.2 / (20 / 3600.0), 1e-6);
    EXPECT_EQ(run.SpeedTime, SerialFromCivil(2006, 2, 16) * int64_t{86400} + 20);
}

}  // namespace
}  // namespace ortelix
