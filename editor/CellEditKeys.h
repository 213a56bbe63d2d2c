#pragma once
// What a key pressed on the editor grid does, in the key codes of the
// Windows virtual keys (Tab 9, Shift 16, Ctrl 17, Alt 18, Backspace 8,
// Delete 46, Return 13; digits 48..57 and letters 65..90 are their ASCII
// capitals, as Qt's key codes for them are too).
#include <string>
#include <string_view>

namespace ortelix {

enum class GridKeyAction {
    None,    // the key does not open the cell editor
    Delete,  // the command "löschen" over the selection
    Edit,    // the cell editor opens over the current cell
};

GridKeyAction GridKeyActionFor(int key);

// The text the cell editor starts with, and where the caret stands: a digit
// or a letter replaces the cell's text and the caret stands behind it; any
// other key keeps the whole text with the caret at its start.
struct EditStart {
    std::string text;
    int caret = 0;
};
EditStart EditStartFor(int key, std::string_view cellText);

}  // namespace ortelix
