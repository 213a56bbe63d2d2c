// The OziExplorer route reader on any bytes, then the writer on what it read.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "appformats/ModOziRoute.h"
#include "core/Session.h"
#include "fuzz/FuzzPlatform.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    ortelix::FuzzPlatform platform;
    ortelix::Session s(platform);
    ortelix::OziRouteLesenText(s, std::string_view(reinterpret_cast<const char*>(data), size), "fuzz");
    (void)ortelix::OziRouteText(s.store, "01.01.2000");
    return 0;
}
