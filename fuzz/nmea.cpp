// The NMEA line decoder on every line of any bytes, with options from the
// first byte; then the whole log reader in both of its modes, the log writer
// on what it read, and the file tools' text forms.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/CoordinateState.h"
#include "core/ModulArray.h"
#include "core/Session.h"
#include "fuzz/FuzzPlatform.h"
#include "gpsformats/Nmea.h"

namespace {

// A geoid grid of the file's size whose values run through every stored
// form, the negative ones above 600 metres too. Made once, never changed.
const ortelix::GeoidTable& Grid() {
    static const ortelix::GeoidTable grid = [] {
        ortelix::GeoidTable t;
        t.bytes.resize(1440 * 721 * 2);
        for (size_t i = 0; i < t.bytes.size(); ++i) t.bytes[i] = static_cast<uint8_t>(i * 2654435761u >> 24);
        t.loaded = t.searched = true;
        return t;
    }();
    return grid;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const uint8_t flags = size > 0 ? data[0] : 0;

    ortelix::NmeaDecodeOptions o;
    o.checksum = flags & 1;
    o.dropZeroAltitude = flags & 2;
    o.geoid = (flags & 4) ? &Grid() : nullptr;
    o.hours = (flags & 8) ? static_cast<int>(flags) - 200 : 0;
    ortelix::NmeaDecodeState state;
    ortelix::NmeaFix fix;
    size_t pos = 0;
    while (pos < bytes.size()) {
        size_t end = bytes.find('\n', pos);
        if (end == std::string_view::npos) end = bytes.size();
        const std::string_view line = bytes.substr(pos, end - pos);
        (void)ortelix::NmeaChecksumOk(line);
        if (ortelix::DecodeNmeaLine(line, o, state, fix)) {
            // What a position line gives must be a time of day and a sane course.
            if (fix.time.has() && (*fix.time < 0 || *fix.time >= 86400)) __builtin_trap();
            if (fix.course.has() && (*fix.course < 0 || *fix.course >= 360)) __builtin_trap();
        }
        pos = end + 1;
    }

    ortelix::FuzzPlatform platform;
    ortelix::Session s(platform);
    s.options.List[7] = 1;  // all points
    s.options.Check[7] = o.checksum;
    s.options.Check[12] = (flags >> 4) & 1;
    s.options.Check[18] = (flags >> 5) & 1;
    s.options.Check[21] = 0;
    s.options.Check[29] = o.dropZeroAltitude;
    ortelix::ReadNmeaLogText(s, bytes, (flags >> 6) & 1);
    for (const ortelix::Track& t : s.store.Tracks)
        (void)ortelix::NmeaLogText(t, s.options, (flags >> 7) ? ortelix::kNmeaTomTom : ortelix::kNmeaPlain, "f.pgl",
                                   platform.localNow());

    std::string filtered;
    (void)ortelix::NmeaFilterText(bytes, filtered);
    if (ortelix::CrLfToLfText(ortelix::LfToCrLfText(bytes)) != bytes) __builtin_trap();
    return 0;
}
