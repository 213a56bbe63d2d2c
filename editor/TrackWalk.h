#pragma once
// The editor's walk along one track: length, duration, pauses, height span
// and averages per point. The walk writes the derived fields of the track
// points (DistKm, Duration, PauseTime of a pause's middle point, StepCourse
// of the point before) and keeps the computed columns of the rows of one
// window. Moments are whole seconds (date * 86400 + time), so that a stay of
// exactly five minutes compares exactly.
#include <cstdint>
#include <string>
#include <vector>

#include "core/ModulArray.h"

namespace ortelix {

// The running state of the walk, reset at the first point.
struct TrackRun {
    double Metres = 0;
    double PrevLon = 0, PrevLat = 0;
    int64_t StartTime = 0;
    double SpeedKmh = 0;
    double SpeedMetres = 0;
    int64_t SpeedTime = 0;
    double AnchorLon = 0, AnchorLat = 0;  // last place where the track was seen to move
    int64_t AnchorTime = 0;
    int64_t AnchorRow = 0;  // 1-based point number of the anchor
    int64_t AnchorGap = 0;  // seconds since the anchor, last measured
};

// The sums of one fill.
struct TrackSum {
    int32_t MinAlt = 0, MaxAlt = 0;  // 0: not yet set; an altitude of 0 never takes part
    int64_t PauseSum = 0;            // seconds
    int64_t PauseRow = 0;            // 1-based point number of the last pause counted
    std::string Moment;              // first point's moment, "16.02.2006 16:23:10"
};

// What TrackPointStat hands back besides the length. pause, pauseRow and
// course keep their values from call to call, as the walk's variables do:
// a pause, once found, is told again at every later point until the next.
struct TrackStep {
    int64_t duration = 0;  // seconds since the first point
    int64_t pause = 0;     // seconds of the last pause found
    int64_t pauseRow = 0;  // 1-based point number halfway through that stay, 0 before any
    double course = 0;     // whole degrees from the anchor (from the previous point when the anchor is too near)
};

// Advances run by point i (1-based; 1 starts the walk); returns the length
// so far in km.
double TrackPointStat(TrackRun& run, const TrackPoint& p, int64_t i, TrackStep& out);

// The computed columns of one grid row.
struct TrackRowStat {
    double km = 0;
    int64_t duration = 0;  // seconds
    int32_t heightSpan = 0;
    double average = 0;        // km/h
    double averageMoving = 0;  // km/h without the pauses so far
};

// A pause as the grid tells it: the text goes to grid row `row`.
struct TrackPause {
    int64_t row = 0;
    int64_t seconds = 0;
};

// The result of a fill over the rows erster+1 .. erster+zeilen of a track.
struct TrackTable {
    int64_t erster = 0;
    int64_t zeilen = 0;
    std::vector<TrackRowStat> rows;  // rows[r - 1] for grid row r
    // Pauses whose row lies in the grid (1..zeilen), ascending by row. The
    // row is the middle point's number itself, not less erster: in a later
    // window a pause shows in the row of that number.
    std::vector<TrackPause> pauses;
    TrackSum sum;
    TrackRowStat last;  // the values of the track's last point
};

// Walks the whole track, writes its derived fields and keeps the computed
// values of the rows erster+1 .. erster+zeilen. zeilen may exceed the grid's
// 15,000 (the command line asks for the whole track at once).
TrackTable FillTrackTable(Track& track, int64_t erster, int64_t zeilen);

// The walk alone: derived fields written, no rows kept.
inline TrackTable WalkTrack(Track& track) { return FillTrackTable(track, 0, 0); }

}  // namespace ortelix
