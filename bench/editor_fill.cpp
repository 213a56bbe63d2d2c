// What the editor's track view costs on a long track: the fill (the walk
// over every point, which writes the derived fields, plus the window's
// rows) of a 1,000,000-point track, and the cells of one visible screen
// (40 rows x 16 columns) asked one at a time, as the table view does, at a
// window deep in the track.
#include <benchmark/benchmark.h>

#include <cmath>
#include <string>

#include "core/Session.h"
#include "editor/ModuleEditor.h"
#include "fuzz/FuzzPlatform.h"

namespace {

using namespace ortelix;

constexpr int kPoints = 1000000;

// The fuzzers' silent platform; the local clock is given here too, so that
// this builds whether or not that platform names it yet.
class BenchPlatform : public FuzzPlatform {
public:
    double localNow() override { return 0; }
};

// A walk north-east at about 18 km/h, a fix a second, with a stay of ten
// minutes every 5,000 points so that pauses are found and told.
void AddLongTrack(Session& s) {
    Track t{"Lang", {}};
    t.Points.resize(kPoints);
    double lon = 10.0, lat = 50.0;
    int64_t moment = int64_t{SerialFromCivil(2006, 2, 16)} * kSecondsPerDay;
    for (int i = 0; i < kPoints; ++i) {
        TrackPoint& p = t.Points[static_cast<size_t>(i)];
        const bool staying = i % 5000 < 60;
        if (!staying) {
            lon += 0.00005 * (1 + 0.3 * std::sin(i * 0.01));
            lat += 0.00003;
        }
        moment += staying ? 10 : 1;
        p.Lon = lon;
        p.Lat = lat;
        p.Alt = 200 + static_cast<int32_t>(100 * std::sin(i * 0.0005));
        p.Date_ = static_cast<int32_t>(moment / kSecondsPerDay);
        p.Time_ = static_cast<int32_t>(moment % kSecondsPerDay);
        p.Speed = 18.0;
        p.Course = 60;
        p.Sat = 8;
        p.Fix = InlineText<6>("3d");
    }
    s.store.Tracks.push_back(std::move(t));
}

void BM_TrackFill(benchmark::State& state) {
    BenchPlatform p;
    Session s(p);
    AddLongTrack(s);
    ModuleEditor ed(s);
    const int window = static_cast<int>(state.range(0));
    for (auto _ : state) {
        int seite = window;
        ed.FillTrackGrid(0, seite);
        benchmark::DoNotOptimize(ed.rowCount());
    }
    state.counters["points/s"] = benchmark::Counter(static_cast<double>(kPoints), benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK(BM_TrackFill)->Arg(0)->Arg(60)->Unit(benchmark::kMillisecond);

void BM_VisibleScreen(benchmark::State& state) {
    BenchPlatform p;
    Session s(p);
    AddLongTrack(s);
    ModuleEditor ed(s);
    int seite = 60;  // points 900,001 .. 915,000
    ed.FillTrackGrid(0, seite);
    const int top = 7000;
    size_t chars = 0;
    for (auto _ : state) {
        for (int r = top; r < top + 40; ++r)
            for (int c = 0; c < ed.columnCount(); ++c) chars += ed.cellText(r, c).size();
        benchmark::DoNotOptimize(chars);
    }
    state.counters["cells/s"] = benchmark::Counter(40.0 * 16, benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK(BM_VisibleScreen)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
