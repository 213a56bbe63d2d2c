#pragma once
// The height profile of one track as data: the lines that the track analysis
// window draws, in the profile's own units. One unit across is 100 metres of
// track, one unit down is a metre of altitude, 0 m on the bottom edge (y = 500).
// The height range is fixed; altitudes above 500 m leave the surface at the top.
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "core/ModulArray.h"
#include "editor/ModuleEditor.h"

namespace ortelix {

class Session;

// Colours as the drawing routines of the original layout give them: 0x00BBGGRR.
inline constexpr int32_t kProfilBlue = 16711680;
inline constexpr int32_t kProfilGreen = 65280;
inline constexpr int32_t kProfilRed = 255;

inline constexpr int kProfilHeight = 500;

struct ProfilLine {
    int x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    int32_t colour = 0;
    friend bool operator==(const ProfilLine&, const ProfilLine&) = default;
};

struct ProfilDrawing {
    int width = 0;  // whole part of the track's length in km times 10
    int height = kProfilHeight;
    // Height marks (blue), then kilometre marks (green), then the track (red),
    // in drawing order.
    std::vector<ProfilLine> lines;
};

// The drawing of a track whose DistKm values are filled. A step that stays on
// the same profile unit as the one before draws nothing and is left out.
// Built in one go without giving the event loop time: a command of the main
// form run meanwhile could clear the track under the walk. A million points
// take a few milliseconds; the drawing's time is spent in the window's paint.
ProfilDrawing ProfilOf(const Track& track);

// TrackProfil: the drawing of track `track` (0-based). The editor's track
// fill runs first, so that the lengths are there: the grid shows that track
// afterwards (in the window it showed, if it showed that track). Empty
// (width 0, no lines) when there is no such track or it has no points.
ProfilDrawing TrackProfil(Session& session, ModuleEditor& editor, int track);

// The totals shown beside the profile, caption and text per line. Unlike the
// grid's columns, durations count every hour ("277:46:40" for 11 days):
// a total is read as a sum, not as a time of day.
std::vector<std::pair<std::string, std::string>> TotalsLines(const TrackTotals& totals);

}  // namespace ortelix
