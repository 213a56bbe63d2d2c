// Reading and writing GPX in memory, and what a track point costs in the store.
#include <benchmark/benchmark.h>

#include <string>

#include "core/ModulShared.h"
#include "core/Session.h"
#include "fuzz/FuzzPlatform.h"
#include "gpsformats/GPX.h"

namespace {

std::string MakeTrack(int points) {
    std::string t = "<?xml version=\"1.0\"?>\n<gpx><trk><name>B</name><trkseg>\n";
    for (int i = 0; i < points; ++i) {
        t += "<trkpt lat=\"" + ortelix::FormatFixed(48.0 + i * 1e-5, 7) + "\" lon=\"" +
             ortelix::FormatFixed(11.0 + i * 1e-5, 7) +
             "\"><ele>512.3</ele><time>2006-02-16T10:" + std::to_string(10 + i / 60 % 50) + ":" +
             std::to_string(10 + i % 50) + "Z</time><course>45.0</course><speed>3.20</speed><sat>8</sat></trkpt>\n";
    }
    t += "</trkseg></trk></gpx>\n";
    return t;
}

void BM_ReadGPX(benchmark::State& state) {
    const std::string text = MakeTrack(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        ortelix::FuzzPlatform p;
        ortelix::Session s(p);
        s.options.List[7] = 1;
        ortelix::ReadGPXText(s, text);
        benchmark::DoNotOptimize(s.store.Tracks.data());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(text.size()));
    state.counters["bytes_per_point_in_store"] = sizeof(ortelix::TrackPoint);
}
BENCHMARK(BM_ReadGPX)->Arg(100000)->Unit(benchmark::kMillisecond);

void BM_WriteGPX(benchmark::State& state) {
    ortelix::FuzzPlatform p;
    ortelix::Session s(p);
    s.options.List[7] = 1;
    ortelix::ReadGPXText(s, MakeTrack(static_cast<int>(state.range(0))));
    size_t bytes = 0;
    for (auto _ : state) {
        const std::string out = ortelix::GPXFileText(s);
        bytes = out.size();
        benchmark::DoNotOptimize(out.data());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(bytes));
}
BENCHMARK(BM_WriteGPX)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
