#include "core/InfoFrame.h"

#include <charconv>

#include "core/Session.h"

namespace ortelix {

namespace {
std::string Count(int64_t v) {
    char buf[24];
    auto r = std::to_chars(buf, buf + sizeof buf, v);
    return std::string(buf, r.ptr);
}
}  // namespace

std::string_view InfoCaption(int index) {
    switch (index) {
        case 0: return "Eingelesene Tracks:";
        case 1: return "Eingelesene Trackpunkte:";
        case 2: return "Überspungene Trackpunkte:";
        case 3: return "Eingelesene Routen:";
        case 4: return "Eingelesene Routenpunkte:";
        case 5: return "Eingelesene Wegepunkte:";
        case 6: return "Übersprungene Wegepunkte:";
        case 13: return "Eingelesene Flächen:";
        default: return {};
    }
}

InfoFrame InfoValues(const Session& s, std::string_view mapName) {
    const DataStore& st = s.store;
    const Options& o = s.options;
    InfoFrame f;
    f.LabelInfo[0] = Count(st.TrackCount);
    f.LabelInfo[1] = Count(st.TrackPointTotal());
    f.LabelInfo[2] = Count(st.SkippedTrackPoints);
    f.LabelInfo[3] = Count(st.RouteCount);
    f.LabelInfo[4] = Count(st.RoutePointTotal());
    f.LabelInfo[5] = Count(st.WayPointCount);
    f.LabelInfo[6] = Count(st.SkippedWayPoints);
    f.LabelInfo[13] = Count(st.FlaecheCount);
    if (o.Check[8] || o.Check[9]) f.LabelInfo[7] = "Trackfilter aktiviert";
    if (o.List[7] != 1) f.LabelInfo[8] = "Koordinatenabstand wird reduziert";  // 1 is "Alle Punkte"
    if (o.List[8] != 0) f.LabelInfo[9] = "WayPointfilter aktiviert";          // 0 is "Alle eintragen"
    // Without a chosen map (no Top50 map list) the line stays empty.
    if (!mapName.empty()) f.LabelInfo[10] = MapNameWithChoice(mapName, o.Check[0] != 0);
    f.StatusText = st.StatusText.text();
    return f;
}

std::string MapNameWithChoice(std::string_view name, bool automatic) {
    return std::string(name) + (automatic ? " (auto)" : " (fix)");
}

std::string GridKindText(double m) {
    if (m == 2000) return "UTM";
    if (m == 1000) return "Lat/Long";
    char buf[32];
    auto r = std::to_chars(buf, buf + sizeof buf, m);
    return std::string(buf, r.ptr);
}

std::string OriginText(std::string_view east, std::string_view north) {
    return "O = " + std::string(east.substr(0, 7)) + "  N = " + std::string(north.substr(0, 7));
}

}  // namespace ortelix
