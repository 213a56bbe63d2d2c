#pragma once
// The three views of the editor grid and their columns: heading, width in
// twips (1/1440 inch, 15 to a pixel at 96 dpi), whether the user may edit
// the column, and whether it is computed by the walk along the element.
#include <span>
#include <string_view>

namespace ortelix {

// The source shown by the grid (the option group "Track", "Route", "Waypoint").
enum class EditorView { Track, Route, Waypoint };

struct EditorColumn {
    std::string_view heading;
    int widthTwips = 0;
    bool editable = false;
    bool computed = false;  // drawn in black on the inactive-border colour
};

// Column 0 is the fixed index column.
std::span<const EditorColumn> EditorColumns(EditorView view);

}  // namespace ortelix
