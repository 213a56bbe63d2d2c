// A 4000 x 4000 map picture (a shaded relief with contour-like bands, roads
// and rivers, about 140,000 colours) reduced to 256 colours by the octree and
// written as a GIF: the two steps a map export runs for every joined map.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <vector>

#include "core/Session.h"
#include "fuzz/FuzzPlatform.h"
#include "raster/GifWriter.h"
#include "raster/cDIBSection.h"
#include "raster/cPalette.h"

namespace ortelix {
namespace {

void Paint(cDIBSection& pic, int x, int y, int r, int g, int b) {
    uint8_t* p = pic.ScanLine(y) + 3 * x;
    p[0] = uint8_t(b);
    p[1] = uint8_t(g);
    p[2] = uint8_t(r);
}

cDIBSection MapPicture(int side) {
    cDIBSection pic;
    pic.Create(side, side);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            // Height from a few waves; the shade from its slope towards the
            // north-west light.
            const double h = 0.5 + 0.25 * std::sin(x * 0.0031) * std::cos(y * 0.0023) +
                             0.15 * std::sin((x + 2 * y) * 0.0011) + 0.1 * std::cos(x * 0.013 + y * 0.007);
            const double shade = std::cos(x * 0.013 + y * 0.007) * 0.5 + std::sin(x * 0.0031) * 0.5;
            const int r = int(70 + 0.03 * x + 60 * h + 14 * shade);
            const int g = int(90 + 0.025 * y + 70 * h + 12 * shade);
            const int b = int(50 + 90 * h + 17 * shade + 0.01 * (x + y));
            Paint(pic, x, y, r, g, b);
        }
    }
    // Roads (grey and yellow), rivers (blue) and the grid (black).
    for (int k = 250; k < side; k += 500)
        for (int i = 0; i < side; ++i)
            for (int w = 0; w < 3; ++w) {
                Paint(pic, i, k + w, 250, 220, 60);
                Paint(pic, k + w, i, 160, 160, 160);
            }
    for (int i = 0; i < side; ++i) {
        const int y = int(side / 2 + 600 * std::sin(i * 0.002));
        for (int w = 0; w < 5; ++w)
            if (y + w >= 0 && y + w < side) Paint(pic, i, y + w, 60, 110, 220);
    }
    for (int k = 0; k < side; k += 1000)
        for (int i = 0; i < side; ++i) {
            Paint(pic, i, k, 0, 0, 0);
            Paint(pic, k, i, 0, 0, 0);
        }
    return pic;
}

size_t DistinctColours(const cDIBSection& pic) {
    std::vector<bool> seen(size_t(1) << 24);
    size_t n = 0;
    for (int y = 0; y < pic.Height(); ++y) {
        const uint8_t* p = pic.ScanLine(y);
        for (int x = 0; x < pic.Width(); ++x, p += 3) {
            const size_t key = size_t(p[2]) << 16 | size_t(p[1]) << 8 | p[0];
            if (!seen[key]) {
                seen[key] = true;
                ++n;
            }
        }
    }
    return n;
}

const cDIBSection& Map() {
    static const cDIBSection map = MapPicture(4000);
    return map;
}

void BM_CreateOptimal(benchmark::State& state) {
    FuzzPlatform platform;
    Session s(platform);
    const cDIBSection& map = Map();
    cPalette pal;
    for (auto _ : state) benchmark::DoNotOptimize(pal.CreateOptimal(s, map, 256, 8));
    state.counters["colours_in"] = double(DistinctColours(map));
    state.counters["colours_out"] = pal.Count();
}
BENCHMARK(BM_CreateOptimal)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_SaveGIF(benchmark::State& state) {
    FuzzPlatform platform;
    Session s(platform);
    const cDIBSection& map = Map();
    cPalette pal;
    pal.CreateOptimal(s, map, 256, 8);
    const std::string path = "/tmp/ortelix-bench-map.gif";
    for (auto _ : state) benchmark::DoNotOptimize(SaveGIF(s, map, pal, path, false, {}));
    if (FILE* f = std::fopen(path.c_str(), "rb")) {
        std::fseek(f, 0, SEEK_END);
        state.counters["gif_bytes"] = double(std::ftell(f));
        std::fclose(f);
    }
    std::remove(path.c_str());
}
BENCHMARK(BM_SaveGIF)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_CreateOptimalAndSaveGIF(benchmark::State& state) {
    FuzzPlatform platform;
    Session s(platform);
    const cDIBSection& map = Map();
    const std::string path = "/tmp/ortelix-bench-map2.gif";
    for (auto _ : state) {
        cPalette pal;
        pal.CreateOptimal(s, map, 256, 8);
        benchmark::DoNotOptimize(SaveGIF(s, map, pal, path, false, {}));
    }
    std::remove(path.c_str());
}
BENCHMARK(BM_CreateOptimalAndSaveGIF)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace
}  // namespace ortelix

BENCHMARK_MAIN();
