// Writing and reading OziExplorer tracks in memory: one track of a million points.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

#include "appformats/ModOziTrack.h"
#include "core/Session.h"
#include "fuzz/FuzzPlatform.h"

namespace {

ortelix::Track MakeTrack(int points) {
    ortelix::Track t;
    t.Name = "Bench";
    t.Points.resize(static_cast<size_t>(points));
    for (int i = 0; i < points; ++i) {
        ortelix::TrackPoint& p = t.Points[static_cast<size_t>(i)];
        p.Lat = 48.137 + i * 1e-5;
        p.Lon = 11.575 + i * 1.3e-5;
        p.Alt = 520 + i % 300;
        p.Date_ = 38762 + i / 86400;
        p.Time_ = i % 86400;
    }
    return t;
}

void BM_WriteOziTrack(benchmark::State& state) {
    const ortelix::Track t = MakeTrack(static_cast<int>(state.range(0)));
    size_t bytes = 0;
    for (auto _ : state) {
        const std::string out = ortelix::OziTrackText(t, "Bench");
        bytes = out.size();
        benchmark::DoNotOptimize(out.data());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(bytes));
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * state.range(0));
}
BENCHMARK(BM_WriteOziTrack)->Arg(1000000)->Unit(benchmark::kMillisecond);

// The file writer as the commands call it: slices through the safe writer.
void BM_WriteOziTrackFile(benchmark::State& state) {
    ortelix::FuzzPlatform p;
    ortelix::Session s(p);
    s.store.Tracks.push_back(MakeTrack(static_cast<int>(state.range(0))));
    const std::string file = std::filesystem::temp_directory_path() / "ortelix-bench-ozi.plt";
    for (auto _ : state) ortelix::OziTrackSchreiben(s, file, 1);
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) *
                            static_cast<int64_t>(std::filesystem::file_size(file)));
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * state.range(0));
    std::filesystem::remove(file);
}
BENCHMARK(BM_WriteOziTrackFile)->Arg(1000000)->Unit(benchmark::kMillisecond);

void BM_ReadOziTrack(benchmark::State& state) {
    const std::string text = ortelix::OziTrackText(MakeTrack(static_cast<int>(state.range(0))), "Bench");
    for (auto _ : state) {
        ortelix::FuzzPlatform p;
        ortelix::Session s(p);
        ortelix::OziTrackLesenText(s, text, "Bench");
        benchmark::DoNotOptimize(s.store.Tracks.data());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(text.size()));
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * state.range(0));
}
BENCHMARK(BM_ReadOziTrack)->Arg(1000000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
