// The OziExplorer waypoint reader on any bytes, then the writer on what it read.
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "appformats/ModOziWaypoint.h"
#include "core/Session.h"
#include "fuzz/FuzzPlatform.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    ortelix::FuzzPlatform platform;
    ortelix::Session s(platform);
    ortelix::OziWegepunkteLesenText(s, std::string_view(reinterpret_cast<const char*>(data), size));
    std::vector<const ortelix::GeoPoint*> points;
    for (const ortelix::GeoPoint& p : s.store.WayPoints) points.push_back(&p);
    (void)ortelix::OziWegepunkteText(points, size > 0 && (data[0] & 1));
    return 0;
}
