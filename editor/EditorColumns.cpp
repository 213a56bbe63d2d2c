#include "editor/EditorColumns.h"

#include <array>

namespace ortelix {

namespace {

constexpr std::array<EditorColumn, 16> kTrack = {{
    {"", 650, false, false},
    {"Längengrad", 1000, true, false},
    {"Breitengrad", 1000, true, false},
    {"Speed", 650, true, false},
    {"Richt.", 650, true, false},
    {"Höhe", 500, true, false},
    {"Datum", 1000, true, false},
    {"Zeit", 1000, true, false},
    {"Sat.", 500, true, false},
    {"Fix", 500, true, false},
    {"Strecke", 800, false, true},
    {"Dauer", 800, false, true},
    {"Pause", 800, false, true},
    {" Höhe", 800, false, true},  // the leading blank tells it from the altitude column
    {"km/h Schnitt", 800, false, true},
    {"km/h o.P.", 800, false, true},
}};

constexpr std::array<EditorColumn, 13> kRoute = {{
    {"", 500, false, false},
    {"Längengrad", 1000, true, false},
    {"Breitengrad", 1000, true, false},
    {"Name", 3000, true, false},
    {"Beschreibung", 2000, true, false},
    {"Info", 2000, true, false},
    {"Höhe", 650, true, false},
    {"Richt.", 650, true, false},
    {"Datum", 1000, true, false},
    {"Zeit", 1000, true, false},
    {"Strecke", 800, false, true},
    {"Abschnitt", 800, false, true},
    {"Richtung", 800, false, true},
}};

constexpr std::array<EditorColumn, 11> kWaypoint = {{
    {"Lfd.", 500, false, false},
    {"Längengrad", 1000, true, false},
    {"Breitengrad", 1000, true, false},
    {"Name", 3000, true, false},
    {"Beschreibung", 2000, true, false},
    {"Info", 2000, true, false},
    {"Höhe", 500, true, false},
    {"Richt.", 500, true, false},
    {"Datum", 1000, true, false},
    {"Zeit", 1000, true, false},
    {" ", 250, false, false},  // the colour sample: the waypoint's own colours, not the computed look
}};

}  // namespace

std::span<const EditorColumn> EditorColumns(EditorView view) {
    switch (view) {
        case EditorView::Track: return kTrack;
        case EditorView::Route: return kRoute;
        case EditorView::Waypoint: return kWaypoint;
    }
    return kTrack;
}

}  // namespace ortelix
