#pragma once
// What the information frame of the main form shows: the counters of the
// store and the notices of the active filters, as texts by LabelInfo index.
#include <array>
#include <string>
#include <string_view>

namespace ortelix {

class Session;

struct InfoFrame {
    // Index as LabelInfo(i): 0-6 and 13 counters, 7-9 notices, 10 the map name;
    // 11 and 12 are not used.
    std::array<std::string, 14> LabelInfo;
    std::string StatusText;
};

// The captions beside the counters, by LabelInfo index (empty for notices).
std::string_view InfoCaption(int index);

// The values as Timer1 shows them. The map name is that of the chosen Top50
// map; it carries " (auto)" or " (fix)" after Check(0).
InfoFrame InfoValues(const Session& s, std::string_view mapName);

// A map's name as the main and the export form show it: " (auto)" when the
// map is chosen automatically, else " (fix)".
std::string MapNameWithChoice(std::string_view name, bool automatic);

// The kind of the map grid: "UTM" for 2000, "Lat/Long" for 1000, else the meridian.
std::string GridKindText(double kartenMeridian);
// The map origin: "O = " and "N = " with the first seven characters of each number.
std::string OriginText(std::string_view east, std::string_view north);

}  // namespace ortelix
