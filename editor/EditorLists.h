#pragma once
// The list boxes and counters of the editor: one entry per track and per
// route, numbered from 1, and the counts of the three lists.
#include <string>
#include <vector>

#include "core/ModulArray.h"

namespace ortelix {

struct EditorLists {
    int trackCount = 0, routeCount = 0, wayPointCount = 0;
    std::vector<std::string> tracks, routes;  // entries "1".."n"
};

EditorLists ListsOf(const DataStore& store);

}  // namespace ortelix
