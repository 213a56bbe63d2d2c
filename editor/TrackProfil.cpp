#include "editor/TrackProfil.h"

#include <cmath>

#include "core/ModulShared.h"
#include "core/Session.h"
#include "editor/ModuleEditor.h"

namespace ortelix {

namespace {

// The whole part as the drawing takes it: rounded down, held inside the int
// range so that a length or altitude far off cannot reach an undefined cast.
int WholePart(double v) {
    if (!(v > -2e9)) return -2000000000;
    if (v > 2e9) return 2000000000;
    return static_cast<int>(std::floor(v));
}

}  // namespace

ProfilDrawing ProfilOf(const Track& track) {
    ProfilDrawing d;
    if (track.Points.empty()) return d;
    d.width = WholePart(track.Points.back().DistKm * 10);
    const int h = d.height;

    for (int y = h; y >= 0; y -= 100) d.lines.push_back({0, y, 10, y, kProfilBlue});
    for (int x = 0; x <= d.width; x += 10) d.lines.push_back({x, h - 50, x, h, kProfilGreen});

    int atX = 0, atY = h;
    bool first = true;
    for (const TrackPoint& p : track.Points) {
        const int x = WholePart(p.DistKm * 10);
        const int y = h - p.Alt.valueOr(0);  // an empty altitude is drawn as 0 m
        // The first line is drawn even when it has no length: it marks the start.
        if (first || x != atX || y != atY) d.lines.push_back({atX, atY, x, y, kProfilRed});
        first = false;
        atX = x;
        atY = y;
    }
    return d;
}

ProfilDrawing TrackProfil(Session& session, ModuleEditor& editor, int track) {
    if (track < 0 || static_cast<size_t>(track) >= session.store.Tracks.size()) return {};
    int seite = editor.view() == EditorView::Track && editor.element() == track ? editor.seite() : 0;
    editor.FillTrackGrid(track, seite);
    return ProfilOf(session.store.Tracks[static_cast<size_t>(track)]);
}

namespace {

std::string TwoDigits(int64_t v) { return (v < 10 ? "0" : "") + std::to_string(v); }

std::string AllHours(int64_t seconds) {
    const char* sign = seconds < 0 ? "-" : "";
    const int64_t s = seconds < 0 ? -seconds : seconds;
    return sign + std::to_string(s / 3600) + ":" + TwoDigits(s / 60 % 60) + ":" + TwoDigits(s % 60);
}

}  // namespace

std::vector<std::pair<std::string, std::string>> TotalsLines(const TrackTotals& t) {
    return {{"Punkte:", std::to_string(t.points)},
            {"Länge:", FormatFixed(t.lengthKm, 3) + " km"},
            {"Dauer:", AllHours(t.durationSeconds)},
            {"Pausen:", AllHours(t.pauseSeconds)},
            {"Dauer o.P.:", AllHours(t.durationSeconds - t.pauseSeconds)},
            {"Schnitt:", FormatFixed(t.averageKmh, 1) + " km/h"},
            {"Schnitt o.P.:", FormatFixed(t.averageMovingKmh, 1) + " km/h"},
            {"Höhe min.:", std::to_string(t.minAlt) + " m"},
            {"Höhe max.:", std::to_string(t.maxAlt) + " m"},
            {"Höhenspanne:", std::to_string(t.maxAlt - t.minAlt) + " m"}};
}

}  // namespace ortelix
