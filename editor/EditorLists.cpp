#include "editor/EditorLists.h"

namespace ortelix {

namespace {
std::vector<std::string> Numbered(size_t n) {
    std::vector<std::string> out;
    out.reserve(n);
    for (size_t i = 1; i <= n; ++i) out.push_back(std::to_string(i));
    return out;
}
}  // namespace

EditorLists ListsOf(const DataStore& store) {
    EditorLists l;
    l.trackCount = static_cast<int>(store.Tracks.size());
    l.routeCount = static_cast<int>(store.Routes.size());
    l.wayPointCount = static_cast<int>(store.WayPoints.size());
    l.tracks = Numbered(store.Tracks.size());
    l.routes = Numbered(store.Routes.size());
    return l;
}

}  // namespace ortelix
