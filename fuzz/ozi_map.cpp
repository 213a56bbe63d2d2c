// The .map readers on any bytes: corners, and comments and features as waypoints.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "appformats/ModOziMap.h"
#include "appformats/ModOziMapComments.h"
#include "core/Session.h"
#include "fuzz/FuzzPlatform.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const ortelix::OziMapInfo info = ortelix::OziMapLesenText(bytes);
    ortelix::FuzzPlatform platform;
    ortelix::Session s(platform);
    ortelix::OziKommentareLesenText(s, bytes);
    // What was read makes a map again.
    ortelix::OziMapDaten d;
    d.imageFile = info.imageFile;
    d.lonL = info.corners[0][0], d.latO = info.corners[0][1];
    d.lonR = info.corners[2][0], d.latU = info.corners[2][1];
    d.width = static_cast<int>(size % 5000), d.height = static_cast<int>(size % 3000);
    d.margin = info.title;
    (void)ortelix::OziMapText(d);
    return 0;
}
