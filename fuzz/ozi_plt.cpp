// The OziExplorer track reader on any bytes, then the writer on what it read.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "appformats/ModOziTrack.h"
#include "core/Session.h"
#include "fuzz/FuzzPlatform.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    ortelix::FuzzPlatform platform;
    ortelix::Session s(platform);
    if (size > 0) s.options.Check[12] = data[0] & 1;  // "Tracks anhängen" both ways
    ortelix::OziTrackLesenText(s, std::string_view(reinterpret_cast<const char*>(data), size), "fuzz");
    for (const ortelix::Track& t : s.store.Tracks) (void)ortelix::OziTrackText(t, t.Name);
    return 0;
}
