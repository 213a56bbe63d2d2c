#include <cstdio>

#include "cli/CliCommands.h"
#include "cli/CliSession.h"
#include "core/ModulShared.h"

namespace ortelix {

namespace {
void PrintBox(const char* label, const Box& b) {
    std::printf("%s %s %s %s %s\n", label, FormatFixed(b.West, 6).c_str(), FormatFixed(b.South, 6).c_str(),
                FormatFixed(b.East, 6).c_str(), FormatFixed(b.North, 6).c_str());
}
}  // namespace

int InfoCommand(const std::vector<std::string>& args) {
    CliContext ctx;
    if (!PrepareCli(ctx, args)) {
        std::fprintf(stderr, "%s\n", ctx.error.c_str());
        return 2;
    }
    if (ctx.positional.empty()) {
        std::fprintf(stderr, "Aufruf: ortelix info [--set NAME=WERT]... DATEI...\n");
        return 2;
    }
    bool ok = true;
    for (const std::string& path : ctx.positional) ok = ReadInput(ctx, path, ctx.inputFormat) && ok;
    const DataStore& st = ctx.session->store;
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
    return ok ? 0 : 1;
}

}  // namespace ortelix
