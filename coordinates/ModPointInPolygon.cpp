#include "coordinates/ModPointInPolygon.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "core/FileIO.h"
#include "core/ModulShared.h"
#include "core/Session.h"
#include "platform/Platform.h"

namespace ortelix {
namespace {

struct Edge {
    int64_t x0, y0, x1, y1;  // y0 < y1
};

// Smallest whole number not below num / den, for den > 0.
int64_t CeilDiv(int64_t num, int64_t den) {
    int64_t q = num / den;
    if (num % den != 0 && num > 0) ++q;
    return q;
}

// The first cell of row y whose centre lies at or right of the edge.
int32_t Crossing(const Edge& e, int64_t y) {
    const int64_t dy = e.y1 - e.y0;
    const int64_t num = 2 * e.x0 * dy + (2 * (y - e.y0) + 1) * (e.x1 - e.x0) - dy;
    return static_cast<int32_t>(CeilDiv(num, 2 * dy));
}

}  // namespace

int32_t GridCell(double degrees) {
    const double v = std::floor(degrees * 10000);
    if (!(v == v)) return 0;
    return static_cast<int32_t>(std::clamp(v, double(std::numeric_limits<int32_t>::min()),
                                           double(std::numeric_limits<int32_t>::max())));
}

Region MakeRegion(const std::vector<PolyPunkt>& punkte) {
    Region r;
    std::vector<Edge> edges;
    edges.reserve(punkte.size());
    for (size_t i = 0; i < punkte.size(); ++i) {
        const PolyPunkt& p = punkte[i];
        const PolyPunkt& q = punkte[(i + 1) % punkte.size()];
        if (p.y == q.y) continue;  // a level edge crosses no row centre
        if (p.y < q.y) edges.push_back({p.x, p.y, q.x, q.y});
        else edges.push_back({q.x, q.y, p.x, p.y});
    }
    if (edges.empty()) return r;
    std::sort(edges.begin(), edges.end(), [](const Edge& a, const Edge& b) { return a.y0 < b.y0; });
    int64_t yEnd = edges.front().y1;
    for (const Edge& e : edges) yEnd = std::max(yEnd, e.y1);

    std::vector<const Edge*> active;
    std::vector<int32_t> cross, spans, last;
    size_t next = 0;
    r.bandStart.push_back(0);
    for (int64_t y = edges.front().y0; y < yEnd;) {
        while (next < edges.size() && edges[next].y0 <= y) active.push_back(&edges[next++]);
        std::erase_if(active, [y](const Edge* e) { return e->y1 <= y; });
        cross.clear();
        for (const Edge* e : active) cross.push_back(Crossing(*e, y));
        std::sort(cross.begin(), cross.end());
        // Even-odd pairs; empty runs dropped, touching runs joined.
        spans.clear();
        for (size_t i = 0; i + 1 < cross.size(); i += 2) {
            if (cross[i] == cross[i + 1]) continue;
            if (!spans.empty() && spans.back() == cross[i]) spans.back() = cross[i + 1];
            else spans.insert(spans.end(), {cross[i], cross[i + 1]});
        }
        // Rows run unchanged up to the next corner while every active edge is upright.
        int64_t rows = 1;
        if (std::all_of(active.begin(), active.end(), [](const Edge* e) { return e->x0 == e->x1; })) {
            int64_t stop = next < edges.size() ? edges[next].y0 : yEnd;
            for (const Edge* e : active) stop = std::min(stop, e->y1);
            rows = std::max<int64_t>(1, stop - y);
        }
        if (!spans.empty()) {
            if (!r.bandTop.empty() && r.bandBottom.back() == y && spans == last) {
                r.bandBottom.back() = static_cast<int32_t>(y + rows);
            } else {
                r.bandTop.push_back(static_cast<int32_t>(y));
                r.bandBottom.push_back(static_cast<int32_t>(y + rows));
                r.edges.insert(r.edges.end(), spans.begin(), spans.end());
                r.bandStart.push_back(static_cast<uint32_t>(r.edges.size()));
                last = spans;
            }
        }
        y += rows;
    }
    if (r.bandTop.empty()) r.bandStart.clear();
    return r;
}

bool PtInRegion(const Region& r, int32_t x, int32_t y) {
    if (r.bandTop.empty() || y < r.bandTop.front() || y >= r.bandBottom.back()) return false;
    const size_t b = static_cast<size_t>(std::upper_bound(r.bandTop.begin(), r.bandTop.end(), y) -
                                         r.bandTop.begin()) - 1;
    if (y >= r.bandBottom[b]) return false;
    const auto first = r.edges.begin() + r.bandStart[b];
    const auto last = r.edges.begin() + r.bandStart[b + 1];
    // Inside when an odd number of run boundaries lies at or left of x.
    return (std::upper_bound(first, last, x) - first) % 2 == 1;
}

void PolygonDateiLesen(Session& s, const std::string& file) {
    const std::string text = ReadFileBytes(s.platform.programFolder() + "/" + file);
    std::vector<PolyPunkt> punkte;
    size_t start = 0;
    while (start < text.size()) {
        size_t end = text.find('\n', start);
        if (end == std::string::npos) end = text.size();
        std::string_view line(text.data() + start, end - start);
        start = end + 1;
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        size_t pos = 0;
        const double lon = LeadingNumber(StripQuotes(NextField(line, pos, '|')));
        const double lat = LeadingNumber(StripQuotes(NextField(line, pos, '|')));
        punkte.push_back({GridCell(lon), GridCell(lat)});
    }
    s.coords.polygonRegion = MakeRegion(punkte);
}

bool PunktImPolygon(const Session& s, double lon, double lat) {
    return PtInRegion(s.coords.polygonRegion, GridCell(lon), GridCell(lat));
}

namespace {
Region AreaRegion(const Flaeche& f) {
    std::vector<PolyPunkt> punkte;
    if (!f.Polygon.empty()) {
        punkte.reserve(f.Polygon.size());
        for (const auto& p : f.Polygon) punkte.push_back({GridCell(p[0]), GridCell(p[1])});
    } else {
        const int32_t w = GridCell(f.West), n = GridCell(f.North), e = GridCell(f.East), so = GridCell(f.South);
        punkte = {{w, n}, {e, n}, {e, so}, {w, so}};
    }
    return MakeRegion(punkte);
}
}  // namespace

void FlaecheRegionBauen(Session& s, size_t index) {
    s.coords.areaRegion = {};
    if (index < 1 || index > s.store.Flaechen.size()) return;
    s.coords.areaRegion = AreaRegion(s.store.Flaechen[index - 1]);
}

bool PunktInFlaeche(const Session& s, double lon, double lat) {
    return PtInRegion(s.coords.areaRegion, GridCell(lon), GridCell(lat));
}

void AlleRegionenVergessen(Session& s) {
    s.coords.areaRegions.clear();
    s.coords.areaRegion = {};
}

void AlleRegionenBauen(Session& s) {
    s.coords.areaRegions.clear();
    s.coords.areaRegions.reserve(s.store.Flaechen.size());
    for (const Flaeche& f : s.store.Flaechen) s.coords.areaRegions.push_back(AreaRegion(f));
}

bool PunktInEinerFlaeche(const Session& s, double lon, double lat) {
    const int32_t x = GridCell(lon), y = GridCell(lat);
    for (const Region& r : s.coords.areaRegions)
        if (PtInRegion(r, x, y)) return true;
    return false;
}

}  // namespace ortelix
