// The Top50 overlay reader on any bytes, with areas and the waypoint filter
// of the store in play, then the writer on what it read.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "appformats/ModuleTop50Ovl.h"
#include "core/FileIO.h"
#include "core/Session.h"
#include "fuzz/FuzzPlatform.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    ortelix::FuzzPlatform platform;
    ortelix::Session s(platform);
    // The first byte picks the settings that change what the writer makes.
    const uint8_t knobs = size > 0 ? data[0] : 0;
    s.options.Check[2] = knobs & 1;              // arrows
    s.options.List[25] = (knobs >> 1) & 3;       // symbol kind
    s.options.List[15] = (knobs & 0x10) ? 9 : 2;  // "keine Linie" for the first track set
    try {
        ortelix::Top50LesenText(s, std::string_view(reinterpret_cast<const char*>(data), size), "fuzz");
    } catch (const ortelix::FileError&) {
        // A broken file says so; what was read stays and is written below.
    }
    ortelix::OvlPlace place;
    place.mapName = "X";
    (void)ortelix::Top50OvlText(s, place);
    return 0;
}
