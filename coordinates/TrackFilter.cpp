// The track filter between every track reader and the store: region test,
// reduction, time window, date choice, gap and size splits, statistics and
// pause waypoints, in that order. It lives beside the distance routine that it
// measures with; its interface is core/ReadFilter.h.
#include <cmath>
#include <limits>
#include <string>

#include "coordinates/Constants.h"
#include "coordinates/Entfernung.h"
#include "coordinates/TrackStats.h"
#include "core/FilterSettings.h"
#include "core/ReadFilter.h"
#include "core/TrackWayPoints.h"

namespace ortelix {

namespace {

constexpr double kOptimalMinMetres = 20;    // closer points are dropped
constexpr double kOptimalMaxDeviation = 5;  // metres off the straight line
constexpr double kOptimalMaxRun = 500;      // a straight run is cut after this

void Skip(Session& s) { ++s.store.SkippedTrackPoints; }

// A point whose position or altitude no receiver gives (core/ModulArray.h)
// is refused before any filter measures with it. Speed and course out of
// range are emptied where the point is stored.
bool InRange(const TrackPointIn& p) { return PositionInRange(p.lon, p.lat) && AltitudeInRange(p.alt); }

void AppendInRange(Session& s, const TrackPointIn& p);

// "Optimal": keeps a point where the line bends or has run 500 metres;
// otherwise the new point replaces the last one on the straight line.
void OptimalReduction(Session& s, const TrackPointIn& n) {
    TrackFilterState& f = s.trackFilter;
    if (Entfernung(*f.KeptLon, *f.KeptLat, n.lon, n.lat) < kOptimalMinMetres) {
        Skip(s);
        return;
    }
    if (f.BeforeKeptLon.empty() || f.BeforeKeptLat.empty()) {
        f.BeforeKeptLon = f.KeptLon;
        f.BeforeKeptLat = f.KeptLat;
        f.KeptLon = n.lon;
        f.KeptLat = n.lat;
        AppendInRange(s, n);
        return;
    }
    double courseToNew = 0, courseToKept = 0;
    const double toNew = Entfernung(*f.BeforeKeptLon, *f.BeforeKeptLat, n.lon, n.lat, courseToNew);
    const double toKept = Entfernung(*f.BeforeKeptLon, *f.BeforeKeptLat, *f.KeptLon, *f.KeptLat, courseToKept);
    const double deviation = std::fabs(toKept * std::sin((courseToNew - courseToKept) * kPi / 180));
    if (deviation > kOptimalMaxDeviation || toNew > kOptimalMaxRun) {
        AppendInRange(s, n);
        f.BeforeKeptLon = f.KeptLon;
        f.BeforeKeptLat = f.KeptLat;
    } else {
        ReplaceLastTrackPoint(s.store, n, s.options.Check[8] != 0);
        // The box holds every point of the tracks, the replacing one too.
        if (!s.store.Tracks.empty() && !s.store.Tracks.back().Points.empty())
            UpdateBox(s.store.TrackRouteBox, n.lon, n.lat);
        Skip(s);
    }
    f.KeptLon = n.lon;
    f.KeptLat = n.lat;
}

// Ends the current track at a gap: an end waypoint when pause waypoints are
// on, then a new track "<file>_<n>" (or "T<number>_<n>").
void SplitAtGap(Session& s) {
    DataStore& st = s.store;
    if (!st.Tracks.empty() && !st.Tracks.back().Points.empty() && s.options.Check[18] != 0) {
        const Track& t = st.Tracks.back();
        AddWayPoint(s, EndWayPoint(t.Name, t.Points.back()));
    }
    const int counter = ++s.trackFilter.SplitCounter;
    std::string name = st.PendingName.empty() ? "T" + std::to_string(st.Tracks.size() + 1) : st.PendingName;
    name += '_';
    name += std::to_string(counter);
    NewTrack(st, name);
}

// Whether the time or the distance since the previous point calls for a split.
// The previous point moves on at every call.
bool GapSplitWanted(Session& s, const TrackPointIn& p, int64_t moment) {
    TrackFilterState& f = s.trackFilter;
    const GapLimits gap = GapSetting(s.options);
    bool wanted = false;
    if (gap.on) {
        // Before the first point there is no previous moment: the gap is endless.
        const double minutes = f.PrevMoment.empty() ? std::numeric_limits<double>::infinity()
                                                    : static_cast<double>(std::llabs(moment - *f.PrevMoment)) / 60.0;
        wanted = minutes > gap.minutes || Entfernung(f.PrevLon, f.PrevLat, p.lon, p.lat) > gap.metres;
    }
    f.PrevLon = p.lon;
    f.PrevLat = p.lat;
    f.PrevMoment = moment;
    return wanted;
}

}  // namespace

void AddTrackPoint(Session& s, const TrackPointIn& p) {
    const Options& o = s.options;
    TrackFilterState& f = s.trackFilter;
    if (!InRange(p) || OutsideRegion(o, p.lon, p.lat)) {
        Skip(s);
        return;
    }
    if (f.KeptLon.empty() || f.KeptLat.empty()) {  // the reduction's first point is always kept
        f.KeptLon = p.lon;
        f.KeptLat = p.lat;
        AppendInRange(s, p);
        return;
    }
    const Reduction r = ReductionSetting(o);
    if (OutsideTimeWindow(o, p.time)) {
        Skip(s);
        return;
    }
    if (r.optimal) {
        OptimalReduction(s, p);
        return;
    }
    // Every distance is at least 0: "Alle Punkte" needs no measure.
    if (r.limitMetres <= 0 || Entfernung(*f.KeptLon, *f.KeptLat, p.lon, p.lat) >= r.limitMetres) {
        AppendInRange(s, p);
        f.KeptLon = p.lon;
        f.KeptLat = p.lat;
    } else {
        Skip(s);
    }
}

void AppendTrackPoint(Session& s, const TrackPointIn& p) {
    if (!InRange(p)) {
        Skip(s);
        return;
    }
    AppendInRange(s, p);
}

namespace {
void AppendInRange(Session& s, const TrackPointIn& p) {
    if (p.lon == 0 && p.lat == 0) return;
    if (!DateChosen(s, p.date)) {
        Skip(s);
        return;
    }
    DataStore& st = s.store;
    const Options& o = s.options;
    const int64_t moment = MomentSeconds(p.date, p.time);

    if (GapSplitWanted(s, p, moment)) SplitAtGap(s);

    const double sizeLimit = SplitSizeLimit(o);
    if (sizeLimit > 0 && !st.Tracks.empty() && static_cast<double>(st.Tracks.back().Points.size()) > sizeLimit) {
        const int counter = ++s.trackFilter.SplitCounter;
        NewTrack(st, st.Tracks.back().Name + "_" + std::to_string(counter));
    }

    TrackPoint& tp = StoreTrackPoint(st, p);
    Track& t = st.Tracks.back();
    const bool first = t.Points.size() == 1;
    const int64_t pause = TrackStats(s.trackStats, tp, first, moment);

    if (o.Check[8] != 0) {
        tp.Date_.reset();
        tp.Time_.reset();
        tp.Speed.reset();
        tp.Duration.reset();
        tp.PauseTime.reset();
    }

    const int64_t pauseLimit = PauseLimitSeconds(o);
    if (pauseLimit >= 0 && (first || pause > pauseLimit)) {
        AddWayPoint(s, first ? StartWayPoint(t.Name, tp) : PauseWayPoint(t.Name, tp, pause));
        // The track point's progress text is the last word.
        st.StatusText.set("Lese Trackpunkte: ", static_cast<int64_t>(t.Points.size()));
    }
}

}  // namespace

}  // namespace ortelix
