// The OziExplorer CE route reader on any bytes, then the writer on what it read.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "appformats/ModOziCERoute.h"
#include "core/Session.h"
#include "fuzz/FuzzPlatform.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    ortelix::FuzzPlatform platform;
    ortelix::Session s(platform);
    ortelix::OziCERouteLesenText(s, std::string_view(reinterpret_cast<const char*>(data), size), "fuzz");
    for (const ortelix::Route& r : s.store.Routes) (void)ortelix::OziCERouteText(r, r.Name);
    return 0;
}
