// The settings loader on any store: lines "SECTION/KEY=VALUE" (or "KEY=VALUE"
// in "Setup"). Whatever it takes in, the readers of the options then run on
// it: the track and waypoint filters, the datum choice, the info frame.
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "coordinates/Datum.h"
#include "core/InfoFrame.h"
#include "core/ReadFilter.h"
#include "core/Session.h"
#include "core/Settings.h"
#include "fuzz/FuzzPlatform.h"

namespace {

class StorePlatform : public ortelix::FuzzPlatform {
public:
    std::optional<std::string> readSetting(const std::string& section, const std::string& key) override {
        std::string lower;
        for (char c : section) lower += static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
        auto it = values.find({lower, key});
        if (it == values.end()) return std::nullopt;
        return it->second;
    }
    bool hasSettings() override { return true; }
    std::map<std::pair<std::string, std::string>, std::string> values;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    StorePlatform platform;
    std::string_view text(reinterpret_cast<const char*>(data), size);
    while (!text.empty()) {
        const size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        text = end == std::string_view::npos ? std::string_view{} : text.substr(end + 1);
        const size_t eq = line.find('=');
        if (eq == std::string_view::npos) continue;
        std::string_view key = line.substr(0, eq);
        std::string section = "setup";
        if (const size_t slash = key.find('/'); slash != std::string_view::npos) {
            section.clear();
            for (char c : key.substr(0, slash)) section += static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
            key = key.substr(slash + 1);
        }
        platform.values[{section, std::string(key)}] = std::string(line.substr(eq + 1));
    }
    ortelix::Session s(platform);
    s.coords.DatumListe.resize(size % 7);  // a datum table of some length, or none
    (void)ortelix::RestoreSettings(s, size & 1);
    // The readers of the options on a few points.
    for (int i = 0; i < 6; ++i) {
        ortelix::TrackPointIn p;
        p.lon = 8 + i * 0.01;
        p.lat = 50 + (i % 3) * 0.01;
        p.date = 38764;
        p.time = i * 400;
        p.alt = 100.0;
        double lonW = 0, latW = 0;
        ortelix::DatumNachWGS84(s, p.lon, p.lat, lonW, latW, false);
        ortelix::AddTrackPoint(s, p);
        ortelix::GeoPointIn w;
        w.lon = p.lon;
        w.lat = p.lat;
        ortelix::AddWayPoint(s, w);
    }
    (void)ortelix::HelmertAnzeigen(s);
    (void)ortelix::InfoValues(s, "Karte");
    ortelix::SaveSettings(s);
    return 0;
}
