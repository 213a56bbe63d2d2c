#include <cstdio>

#include "cli/CliCommands.h"
#include "cli/CliSession.h"
#include "core/ModulShared.h"
#include "editor/ComputedCells.h"
#include "editor/EditorColumns.h"
#include "editor/EditorFields.h"

namespace ortelix {

namespace {
void PrintBox(const char* label, const Box& b) {
    std::printf("%s %s %s %s %s\n", label, FormatFixed(b.West, 6).c_str(), FormatFixed(b.South, 6).c_str(),
                FormatFixed(b.East, 6).c_str(), FormatFixed(b.North, 6).c_str());
}
// The editor's track table over the whole track at once (the grid shows it
// 15,000 rows at a time): columns 0..15 with their headings, tab-separated.
void PrintTrackTable(Track& track, size_t number) {
    std::string out = "\nTrack " + std::to_string(number) + ": " + track.Name + "\n";
    const auto cols = EditorColumns(EditorView::Track);
    for (size_t c = 0; c < cols.size(); ++c) {
        if (c) out += '\t';
        out += cols[c].heading;
    }
    out += '\n';
    const int64_t n = static_cast<int64_t>(track.Points.size());
    const TrackTable table = FillTrackTable(track, 0, n);
    for (int64_t r = 1; r <= n; ++r) {
        const TrackPoint& p = track.Points[static_cast<size_t>(r - 1)];
        out += std::to_string(r);
        for (int c = 1; c < 10; ++c) (out += '\t') += TrackFieldText(p, c);
        for (int c = 10; c < 16; ++c) (out += '\t') += TrackComputedText(table, r, c);
        out += '\n';
        if (out.size() > (1 << 16)) {
            std::fwrite(out.data(), 1, out.size(), stdout);
            out.clear();
        }
    }
    std::fwrite(out.data(), 1, out.size(), stdout);
}

}  // namespace

int InfoCommand(const std::vector<std::string>& given) {
    // --points belongs to this command alone: the shared flags do not know it.
    std::vector<std::string> args;
    bool points = false;
    for (const std::string& a : given) {
        if (a == "--points") points = true;
        else args.push_back(a);
    }
    CliContext ctx;
    if (!PrepareCli(ctx, args)) {
        std::fprintf(stderr, "%s\n", ctx.error.c_str());
        return 2;
    }
    if (ctx.positional.empty()) {
        std::fprintf(stderr, "Aufruf: ortelix info [--points] [--set NAME=WERT]... DATEI...\n");
        return 2;
    }
    bool ok = true;
    for (const std::string& path : ctx.positional) ok = ReadInput(ctx, path, ctx.inputFormat) && ok;
    DataStore& st = ctx.session->store;
    // The counters of the information frame, with its labels.
    std::printf("Eingelesene Tracks: %d\n", static_cast<int>(st.Tracks.size()));
    std::printf("Eingelesene Trackpunkte: %lld\n", static_cast<long long>(st.TrackPointTotal()));
    std::printf("Überspungene Trackpunkte: %d\n", st.SkippedTrackPoints);
    std::printf("Eingelesene Routen: %d\n", static_cast<int>(st.Routes.size()));
    std::printf("Eingelesene Routenpunkte: %lld\n", static_cast<long long>(st.RoutePointTotal()));
    // The desktop's frame has no such line; the command line tells all it refused.
    std::printf("Übersprungene Routenpunkte: %d\n", st.SkippedRoutePoints);
    std::printf("Eingelesene Wegepunkte: %d\n", static_cast<int>(st.WayPoints.size()));
    std::printf("Übersprungene Wegepunkte: %d\n", st.SkippedWayPoints);
    std::printf("Eingelesene Flächen: %d\n", static_cast<int>(st.Flaechen.size()));
    PrintBox("Track/Route-Bereich (W S O N):", st.TrackRouteBox);
    PrintBox("Wegepunkt-Bereich (W S O N):", st.WayPointBox);
    if (points) {
        std::fflush(stdout);
        for (size_t k = 0; k < st.Tracks.size(); ++k) PrintTrackTable(st.Tracks[k], k + 1);
    }
    return ok ? 0 : 1;
}

}  // namespace ortelix
