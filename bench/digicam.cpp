// Placing photos: 1,000 photo moments on a 1,000,000-point track, by the
// search alone and by whole photos (read from files, EXIF parsed, a
// waypoint added per hit).
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

#include "core/Session.h"
#include "editor/ModDigiCam.h"
#include "fuzz/FuzzPlatform.h"

namespace {

using namespace ortelix;

constexpr int kPoints = 1000000;
constexpr int kPhotos = 1000;
const int32_t kDay = SerialFromCivil(2024, 5, 1);

class BenchPlatform : public FuzzPlatform {
public:
    double localNow() override { return 0; }
};

// A fix a second from 06:00 on, over several days.
Track LongTrack() {
    Track t;
    t.Name = "Lang";
    t.Points.resize(kPoints);
    for (int i = 0; i < kPoints; ++i) {
        const int64_t sec = 6 * 3600 + int64_t(i);
        t.Points[size_t(i)].Lon = 11 + i * 1e-6;
        t.Points[size_t(i)].Lat = 48 + i * 1e-6;
        t.Points[size_t(i)].Date_ = kDay + int32_t(sec / 86400);
        t.Points[size_t(i)].Time_ = int32_t(sec % 86400);
    }
    return t;
}

// A photo whose EXIF DateTime is `sec` seconds after 06:00 of the first day:
// a little-endian TIFF block with one ASCII entry.
std::string PhotoBytes(int64_t sec) {
    const int64_t at = 6 * 3600 + sec;
    const CivilDate d = CivilFromSerial(kDay + int32_t(at / 86400));
    char when[20];
    std::snprintf(when, sizeof when, "%04d:%02d:%02d %02d:%02d:%02d", d.year, d.month, d.day,
                  int(at % 86400 / 3600), int(at % 3600 / 60), int(at % 60));
    std::string tiff("II*\0\x08\0\0\0\x01\0\x32\x01\x02\0\x14\0\0\0\x1a\0\0\0\0\0\0\0", 26);
    tiff.append(when, 19);
    tiff += '\0';
    std::string out("\xFF\xD8\xFF\xE1\0\0Exif\0\0", 12);
    out[5] = char(tiff.size() + 8);
    return out + tiff + std::string("\xFF\xD9", 2);
}

void BM_FindPointByTime(benchmark::State& state) {
    const Track t = LongTrack();
    int64_t hits = 0;
    for (auto _ : state) {
        for (int k = 0; k < kPhotos; ++k) {
            size_t index = 0;
            const int64_t moment = MomentSeconds(kDay, 6 * 3600) + int64_t(k) * (kPoints / kPhotos) + 7;
            hits += FindPointByTime(t, moment, index);
            benchmark::DoNotOptimize(index);
        }
    }
    state.counters["hits"] = double(hits) / double(state.iterations());
}
BENCHMARK(BM_FindPointByTime)->Unit(benchmark::kMicrosecond);

void BM_PhotosOnTrack(benchmark::State& state) {
    BenchPlatform platform;
    Session s(platform);
    s.store.Tracks.push_back(LongTrack());
    const auto dir = std::filesystem::temp_directory_path() / ("ortelix-bench-digicam-" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir);
    std::vector<std::string> photos;
    for (int k = 0; k < kPhotos; ++k) {
        photos.push_back((dir / ("IMG_" + std::to_string(k) + ".jpg")).string());
        std::ofstream(photos.back(), std::ios::binary) << PhotoBytes(int64_t(k) * (kPoints / kPhotos) + 7);
    }
    int64_t added = 0;
    for (auto _ : state) {
        s.store.WayPoints.clear();
        // The run's preparation (one pass over the track for its order) counts too.
        const DigiCamRun run = PrepareDigiCam(s, 0);
        for (const std::string& p : photos) added += FotoAufTrack(s, run, p).waypoints;
    }
    state.counters["waypoints"] = double(added) / double(state.iterations());
    std::filesystem::remove_all(dir);
}
BENCHMARK(BM_PhotosOnTrack)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
