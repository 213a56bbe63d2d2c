#include "editor/CellEditKeys.h"

namespace ortelix {

GridKeyAction GridKeyActionFor(int key) {
    switch (key) {
        case 8:   // Backspace
        case 9:   // Tab
        case 13:  // Return
        case 16:  // Shift
        case 17:  // Ctrl
        case 18:  // Alt
            return GridKeyAction::None;
        case 46: return GridKeyAction::Delete;
        default: return GridKeyAction::Edit;
    }
}

EditStart EditStartFor(int key, std::string_view cellText) {
    if ((key >= 48 && key <= 57) || (key >= 65 && key <= 90)) return {std::string(1, static_cast<char>(key)), 1};
    return {std::string(cellText), 0};
}

}  // namespace ortelix
