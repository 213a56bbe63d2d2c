#include "editor/TrackWalk.h"

#include <algorithm>

#include "coordinates/Entfernung.h"
#include "core/WholeNumber.h"
#include "editor/CellFormats.h"

namespace ortelix {

namespace {

constexpr double kStayMetres = 100;
constexpr int64_t kPauseSeconds = 5 * 60;   // a stay must last longer than this
constexpr int64_t kSpeedSeconds = 10;       // speed evaluations at least this far apart

int64_t MomentSeconds(const TrackPoint& p) {
    return static_cast<int64_t>(p.Date_.valueOr(0)) * kSecondsPerDay + p.Time_.valueOr(0);
}

Span SpanOf(int64_t seconds) { return static_cast<int32_t>(std::clamp<int64_t>(seconds, -2147483647, 2147483647)); }

// km per hour; the old value stays where the time is 0 (the first point, or
// pauses that take the whole time).
void Average(double& into, double km, int64_t seconds) {
    if (seconds != 0) into = km / (static_cast<double>(seconds) / 3600.0);
}

}  // namespace

double TrackPointStat(TrackRun& run, const TrackPoint& p, int64_t i, TrackStep& out) {
    const int64_t moment = MomentSeconds(p);
    if (i == 1) {
        run = TrackRun{};
        run.StartTime = run.SpeedTime = run.AnchorTime = moment;
        run.PrevLon = run.AnchorLon = p.Lon;
        run.PrevLat = run.AnchorLat = p.Lat;
    } else {
        run.Metres += Entfernung(run.PrevLon, run.PrevLat, p.Lon, p.Lat, out.course);
        run.PrevLon = p.Lon;
        run.PrevLat = p.Lat;
    }
    // The anchor's course overwrites the step's: the course handed back is
    // the one from the last place the track was seen to move.
    const double abstand = Entfernung(run.AnchorLon, run.AnchorLat, p.Lon, p.Lat, out.course);
    if (abstand > kStayMetres) {
        run.AnchorGap = moment - run.AnchorTime;
        if (run.AnchorGap > kPauseSeconds) {
            out.pause = run.AnchorGap;
            out.pauseRow = run.AnchorRow + (i - run.AnchorRow) / 2;  // the middle of the stay
        }
        run.AnchorLon = p.Lon;
        run.AnchorLat = p.Lat;
        run.AnchorRow = i;
        run.AnchorTime = moment;
    }
    out.duration = moment - run.StartTime;
    if (moment > run.SpeedTime + kSpeedSeconds) {
        const double strecke = (run.Metres - run.SpeedMetres) / 1000;
        const double stunden = static_cast<double>(moment - run.SpeedTime) / 3600.0;
        if (stunden > 0) run.SpeedKmh = strecke / stunden;
        run.SpeedTime = moment;
        run.SpeedMetres = run.Metres;
    }
    return run.Metres / 1000;
}

TrackTable FillTrackTable(Track& track, int64_t erster, int64_t zeilen) {
    TrackTable t;
    std::vector<TrackPoint>& pts = track.Points;
    const int64_t n = static_cast<int64_t>(pts.size());
    t.erster = std::clamp<int64_t>(erster, 0, n);
    t.zeilen = std::clamp<int64_t>(zeilen, 0, n - t.erster);
    t.rows.resize(static_cast<size_t>(t.zeilen));

    TrackSum& sum = t.sum;
    TrackRun run;
    TrackStep step;
    TrackRowStat row;
    for (int64_t i = 1; i <= n; ++i) {
        TrackPoint& p = pts[static_cast<size_t>(i - 1)];
        // An altitude of exactly 0 (or none) never takes part in the span.
        const int32_t alt = p.Alt.valueOr(0);
        if (alt != 0) {
            if (sum.MinAlt == 0 || alt < sum.MinAlt) sum.MinAlt = alt;
            if (sum.MaxAlt == 0 || alt > sum.MaxAlt) sum.MaxAlt = alt;
        }
        row.km = TrackPointStat(run, p, i, step);
        if (i == 1) sum.Moment = GermanMoment(run.StartTime);
        row.duration = step.duration;
        p.DistKm = row.km;
        p.Duration = SpanOf(step.duration);
        if (step.pauseRow > 0) {
            pts[static_cast<size_t>(step.pauseRow - 1)].PauseTime = SpanOf(step.pause);
            // Pause rows only grow, so a pause is new when its row is.
            if (step.pauseRow <= t.zeilen && (t.pauses.empty() || t.pauses.back().row != step.pauseRow))
                t.pauses.push_back({step.pauseRow, step.pause});
        }
        if (i > 1) pts[static_cast<size_t>(i - 2)].StepCourse = static_cast<int16_t>(WholeWithin(step.course, 32767));
        if (step.pauseRow > sum.PauseRow) {
            sum.PauseSum += step.pause;
            sum.PauseRow = step.pauseRow;
        }
        row.heightSpan = sum.MaxAlt - sum.MinAlt;
        Average(row.average, row.km, step.duration);
        Average(row.averageMoving, row.km, step.duration - sum.PauseSum);
        const int64_t r = i - t.erster;
        if (r > 0 && r <= t.zeilen) t.rows[static_cast<size_t>(r - 1)] = row;
    }
    t.last = row;
    return t;
}

}  // namespace ortelix
