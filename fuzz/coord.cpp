// The coordinate calculator of `ortelix coord` on any words, then the grid
// routines themselves on any two doubles: no value may reach an integer
// conversion out of its range (the build halts on undefined behaviour).
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "coordinates/CoordCalculator.h"
#include "coordinates/ModulTransformation.h"
#include "core/Session.h"
#include "fuzz/FuzzPlatform.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 2) return 0;
    ortelix::FuzzPlatform platform;
    ortelix::Session s(platform);
    const auto& ops = ortelix::CoordOperations();
    const std::string_view op = ops[data[0] % ops.size()];
    ortelix::CoordFlags flags;
    flags.system = std::string(1, static_cast<char>('0' + data[1] % 4));
    if (data[1] & 4) flags.meridian = "9";
    std::vector<std::string> words;
    std::string word;
    for (size_t i = 2; i < size; ++i) {
        const char c = static_cast<char>(data[i]);
        if (c == ' ' || c == '\n') {
            if (!word.empty()) words.push_back(word), word.clear();
        } else {
            word += c;
        }
    }
    if (!word.empty()) words.push_back(word);
    std::string out, error;
    (void)ortelix::CoordLine(s, op, words, flags, out, error);

    // The routines on the raw bits of two doubles.
    if (size >= 18) {
        double lon, lat;
        std::memcpy(&lon, data + 2, 8);
        std::memcpy(&lat, data + 10, 8);
        std::string zone, text;
        double a = 0, b = 0;
        ortelix::GeoNachUTM(lon, lat, false, zone, a, b, text);
        (void)ortelix::WGS84NachO2(lon, lat);
        ortelix::WGS84NachGK(lon, lat, a, b);
        ortelix::GKNachWGS84(lon, lat, a, b);
        ortelix::WGS84NachGrid(lon, lat, a, b, 1 + data[1] % 3);
        ortelix::GridNachWGS84(lon, lat, a, b, 1 + data[1] % 3);
        ortelix::PunktVersetzen(lon, lat, a, b, lat, lon);
        double azimut = 0;
        (void)ortelix::Entfernung(lon, lat, lat, lon, azimut);
        (void)ortelix::GeoidHoehe(s, lon, lat);
    }
    return 0;
}
