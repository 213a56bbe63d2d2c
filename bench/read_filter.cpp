// What the read filters cost: a large GPX read with every point ("Alle
// Punkte") against the same read with "Optimal" and with the splits and pause
// waypoints on, and the filter alone on points already in memory. Counts the
// heap allocations per point to show that the filter adds none.
//
// The GPX file is made by bench/make-big-gpx.py; ORTELIX_BIG_GPX names an
// existing one, ORTELIX_BIG_GPX_POINTS the size of a new one (1000000).
#include <benchmark/benchmark.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <new>
#include <string>
#include <vector>

#include "core/FileIO.h"
#include "core/ReadFilter.h"
#include "core/Session.h"
#include "fuzz/FuzzPlatform.h"
#include "gpsformats/GPX.h"

namespace {
std::atomic<long long> gAllocations{0};
}  // namespace

void* operator new(std::size_t n) {
    gAllocations.fetch_add(1, std::memory_order_relaxed);
    if (void* p = std::malloc(n ? n : 1)) return p;
    throw std::bad_alloc();
}
void operator delete(void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }

namespace {

using ortelix::Session;

const std::string& BigGpx() {
    static const std::string text = [] {
        std::string path;
        if (const char* given = std::getenv("ORTELIX_BIG_GPX")) {
            path = given;
        } else {
            const char* n = std::getenv("ORTELIX_BIG_GPX_POINTS");
            const std::string points = n ? n : "1000000";
            path = (std::filesystem::temp_directory_path() / ("ortelix-bench-" + points + ".gpx")).string();
            if (!std::filesystem::exists(path)) {
                const auto script = std::filesystem::path(__FILE__).parent_path() / "make-big-gpx.py";
                const std::string cmd = "python3 '" + script.string() + "' '" + path + "' " + points;
                if (std::system(cmd.c_str()) != 0) std::fprintf(stderr, "make-big-gpx.py failed\n");
            }
        }
        ortelix::FuzzPlatform p;
        Session s(p);
        return ortelix::ReadWholeFile(s, path);
    }();
    return text;
}

// The filter settings under comparison.
enum Setting { kAll = 0, kOptimal = 1, kEverything = 2 };

void Configure(Session& s, int setting) {
    s.options.List[7] = setting == kAll ? 1 : 0;
    if (setting == kEverything) {
        s.options.Check[14] = 1;  // gap split
        s.options.KarteKoordInput[2] = "5";
        s.options.KarteKoordInput[3] = "300";
        s.options.Check[6] = 1;  // size split
        s.options.KarteKoordInput[1] = "15000";
        s.options.Check[18] = 1;  // start and pause waypoints
        s.options.KarteKoordInput[0] = "15";
        s.options.Check[9] = 1;  // a time window that holds the whole day
        s.options.TextZeit[0] = "00:00:00";
        s.options.TextZeit[1] = "23:59:59";
    }
}

const char* Name(int setting) {
    return setting == kAll ? "Alle Punkte" : setting == kOptimal ? "Optimal" : "Optimal+Teilen+Pausen+Zeit";
}

void BM_ReadBigGpx(benchmark::State& state) {
    const std::string& text = BigGpx();
    const int setting = static_cast<int>(state.range(0));
    int64_t points = 0, kept = 0;
    for (auto _ : state) {
        ortelix::FuzzPlatform p;
        Session s(p);
        Configure(s, setting);
        ortelix::ReadGPXText(s, text);
        points = s.store.TrackPointsRead + s.store.SkippedTrackPoints;
        kept = s.store.TrackPointTotal();
        benchmark::DoNotOptimize(s.store.Tracks.data());
    }
    state.SetLabel(Name(setting));
    state.counters["points"] = static_cast<double>(points);
    state.counters["kept"] = static_cast<double>(kept);
    state.counters["ns_per_point"] = benchmark::Counter(static_cast<double>(points) * state.iterations(),
                                                        benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_ReadBigGpx)->Arg(kAll)->Arg(kOptimal)->Arg(kEverything)->Unit(benchmark::kMillisecond)->Iterations(3);

// The points of a walk, in memory: the filter and the store without a parser.
std::vector<ortelix::TrackPointIn> Walk(int n) {
    std::vector<ortelix::TrackPointIn> w(static_cast<size_t>(n));
    double lat = 48.137, lon = 11.575;
    for (int i = 0; i < n; ++i) {
        lat += 2.5e-5 * ((i / 40) % 2 ? 1 : 0.3);  // straight runs with bends every 40 points
        lon += 1.5e-5 * ((i / 40) % 2 ? 0.2 : 1);
        auto& p = w[static_cast<size_t>(i)];
        p.lon = lon;
        p.lat = lat;
        p.alt = 500.0;
        p.speed = 12.0;
        p.date = 38764 + i / 86400;
        p.time = i % 86400;
    }
    return w;
}

void BM_AddTrackPoint(benchmark::State& state) {
    const auto walk = Walk(1'000'000);
    const int setting = static_cast<int>(state.range(0));
    long long allocations = 0;
    for (auto _ : state) {
        ortelix::FuzzPlatform p;
        Session s(p);
        Configure(s, setting);
        const long long before = gAllocations.load();
        for (const auto& point : walk) ortelix::AddTrackPoint(s, point);
        allocations = gAllocations.load() - before;
        benchmark::DoNotOptimize(s.store.Tracks.data());
    }
    state.SetLabel(Name(setting));
    state.counters["allocs_per_point"] = static_cast<double>(allocations) / static_cast<double>(walk.size());
    state.counters["ns_per_point"] = benchmark::Counter(static_cast<double>(walk.size()) * state.iterations(),
                                                        benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_AddTrackPoint)->Arg(kAll)->Arg(kOptimal)->Arg(kEverything)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
