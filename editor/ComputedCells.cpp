#include "editor/ComputedCells.h"

#include <algorithm>

#include "core/ModulShared.h"
#include "editor/CellFormats.h"

namespace ortelix {

std::string TrackComputedText(const TrackTable& t, int64_t row, int col) {
    if (row < 1 || row > static_cast<int64_t>(t.rows.size())) return {};
    const TrackRowStat& r = t.rows[static_cast<size_t>(row - 1)];
    switch (col) {
        case 10: return FormatFixed(r.km, 3);
        case 11: return DurationText(r.duration);
        case 12: {
            const auto it = std::lower_bound(t.pauses.begin(), t.pauses.end(), row,
                                             [](const TrackPause& p, int64_t rr) { return p.row < rr; });
            return it != t.pauses.end() && it->row == row ? PauseText(it->seconds) : std::string();
        }
        case 13: return std::to_string(r.heightSpan);
        case 14: return FormatFixed(r.average, 1);
        case 15: return FormatFixed(r.averageMoving, 1);
        default: return {};
    }
}

std::string RouteComputedText(const RouteTable& t, int64_t row, int col) {
    if (row < 1 || row > static_cast<int64_t>(t.rows.size())) return {};
    const RouteRowStat& r = t.rows[static_cast<size_t>(row - 1)];
    switch (col) {
        case 10: return FormatFixed(r.km, 1);
        case 11: return r.hasSection ? FormatFixed(r.sectionKm, 3) : std::string();
        case 12: return r.hasSection ? std::to_string(r.direction) : std::string();
        default: return {};
    }
}

}  // namespace ortelix
