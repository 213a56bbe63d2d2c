#pragma once
// What the Top50 settings frames say about the symbols of an overlay, read
// once from the options table before a write.
#include <array>

namespace ortelix {

struct Options;

struct OvlLine {
    bool drawn = true;  // false for the width "keine Linie"
    int col = 1, zoom = 1, size = 101;
};

struct OvlText {
    bool shown = true;  // false for the size "kein Text"
    int group = 1, col = 1, area = 2, zoom = 1, size = 110, font = 1;
    double offsetLon = 0, offsetLat = 0;  // the place beside the point
};

struct OvlArrow {
    int typ = 7, group = 2, width = 12, height = 8;
};

struct OvlStyle {
    std::array<OvlLine, 5> trackSets;
    OvlLine route;
    bool arrows = false;
    OvlArrow arrow;
    int areaCol = 1, areaSize = 102;
    int symbolTyp = 7, symbolSize = 20, group = 1, waypointCol = 1, bitmapZoom = 1;
    OvlText trackText, routeText;
    std::array<OvlText, 3> waypointText;  // name, description, information
};

// The step of the text places beside a point, in degrees; places 1 and 2
// move a text one step west or east, 3 and 4 two steps south or north.
inline constexpr double kOvlTextStep = 0.0005;

OvlStyle OvlStyleFromOptions(const Options& o);

// Dir= of an arrow whose course (0 north, clockwise) is azimut: 0 is east
// and the angle runs counter-clockwise, 100 added.
int ArrowDir(double azimut);

}  // namespace ortelix
