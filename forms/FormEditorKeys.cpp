#include "forms/FormEditorKeys.h"

namespace ortelix {

int VirtualKeyOf(int key, Qt::KeyboardModifiers modifiers) {
    switch (key) {
        case Qt::Key_Backspace: return 8;
        case Qt::Key_Tab:
        case Qt::Key_Backtab: return 9;
        case Qt::Key_Return:
        case Qt::Key_Enter: return 13;
        case Qt::Key_Shift: return 16;
        case Qt::Key_Control: return 17;
        case Qt::Key_Alt:
        case Qt::Key_AltGr: return 18;
        case Qt::Key_Delete: return 46;
        // The grid keeps its own moving keys: they choose cells, not edit them.
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
        case Qt::Key_Home:
        case Qt::Key_End:
        case Qt::Key_Escape:
        case Qt::Key_Meta:
        case Qt::Key_CapsLock:
        case Qt::Key_NumLock:
        case Qt::Key_Menu: return kKeyStaysWithGrid;
        default: break;
    }
    // Ctrl and Alt combinations are shortcuts of the window, not typing.
    if (modifiers & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return kKeyStaysWithGrid;
    // Digits (the keypad's too) and letters have the same codes in both.
    if ((key >= Qt::Key_0 && key <= Qt::Key_9) || (key >= Qt::Key_A && key <= Qt::Key_Z)) return key;
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24) return 112 + (key - Qt::Key_F1);
    return kOtherKey;
}

}  // namespace ortelix
