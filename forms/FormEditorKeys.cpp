#include "forms/FormEditorKeys.h"

namespace ortelix {

GridKeyAction GridKeyOf(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
    switch (key) {
        case Qt::Key_Delete: return {GridKeyAction::Delete, {}};
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
        case Qt::Key_Backspace:
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Escape:
        case Qt::Key_Shift:
        case Qt::Key_Control:
        case Qt::Key_Alt:
        case Qt::Key_AltGr:
        case Qt::Key_Meta:
        case Qt::Key_CapsLock:
        case Qt::Key_NumLock:
        // The grid keeps its own moving keys: they choose cells, not edit them.
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
        case Qt::Key_Home:
        case Qt::Key_End:
        case Qt::Key_Menu: return {};
        default: break;
    }
    // Ctrl and Alt combinations are shortcuts of the window, not typing.
    if (modifiers & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return {};
    const bool digit = key >= Qt::Key_0 && key <= Qt::Key_9;
    const bool letter = key >= Qt::Key_A && key <= Qt::Key_Z;
    // The character as typed, so that a lower-case letter stays lower-case.
    if (digit || letter)
        return {GridKeyAction::OpenWithChar, text.size() == 1 ? text : QString(QChar(key))};
    if (key == Qt::Key_F2 || !text.isEmpty()) return {GridKeyAction::OpenWithText, {}};
    return {};
}

}  // namespace ortelix
