// The GPX reader on any bytes, then the writer on what it read.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "core/Session.h"
#include "fuzz/FuzzPlatform.h"
#include "gpsformats/GPX.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    ortelix::FuzzPlatform platform;
    ortelix::Session s(platform);
    s.options.List[7] = 1;  // all points
    if (size > 0) s.options.Check[12] = data[0] & 1;  // "Tracks anhängen" both ways
    ortelix::ReadGPXText(s, std::string_view(reinterpret_cast<const char*>(data), size));
    (void)ortelix::GPXFileText(s);
    return 0;
}
