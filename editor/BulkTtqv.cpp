#include "editor/BulkTtqv.h"

#include <cmath>

#include "core/ModulShared.h"
#include "core/ReadFilter.h"
#include "platform/Platform.h"

namespace ortelix {

std::string TtqvText(double lon, double lat) {
    return std::string(lat < 0 ? "S" : "N") + " " + FormatPoint(std::fabs(lat), "0.000000") + "°, " +
           (lon < 0 ? "W" : "O") + " " + FormatPoint(std::fabs(lon), "0.000000") + " °";
}

bool KoordinatenInZwischenablage(Session& s, const ModuleEditor& ed, int row) {
    if (row < 1 || row > ed.rowCount()) return false;
    const double lon = LeadingNumber(ed.cellText(row, 1));
    const double lat = LeadingNumber(ed.cellText(row, 2));
    s.platform.setClipboardText(TtqvText(lon, lat));
    return true;
}

bool NeuerWaypointAusZwischenablage(Session& s, ModuleEditor& ed) {
    const std::string text = s.platform.clipboardText();
    const size_t comma = text.find(',');
    if (comma == std::string::npos) return false;
    const std::string first = StripQuotes(Trim(std::string_view(text).substr(0, comma)));
    const std::string second = StripQuotes(Trim(std::string_view(text).substr(comma + 1)));
    if (first.empty() || second.empty()) return false;
    if ((first[0] != 'N' && first[0] != 'S') || (second[0] != 'O' && second[0] != 'W')) return false;
    GeoPointIn p;
    p.lat = LeadingNumber(std::string_view(first).substr(1));
    p.lon = LeadingNumber(std::string_view(second).substr(1));
    if (first[0] == 'S') p.lat = -p.lat;
    if (second[0] == 'W') p.lon = -p.lon;
    p.name = "Clip" + FormatPoint(static_cast<double>(s.store.WayPoints.size() + 1), "000");
    const size_t before = s.store.WayPoints.size();
    AddWayPoint(s, std::move(p));
    ed.showWayPoints();
    return s.store.WayPoints.size() > before;
}

}  // namespace ortelix
