#pragma once
// What a key pressed in the editor grid does: nothing (navigation, Tab,
// Return, Backspace, the modifiers and shortcuts), the command "löschen"
// (Delete), or open the cell editor: with that one character for a digit or
// a letter, else with the cell's whole text and the caret at its start.
#include <QString>
#include <Qt>

namespace ortelix {

struct GridKeyAction {
    enum Kind { None, Delete, OpenWithChar, OpenWithText } kind = None;
    QString text;  // the character for OpenWithChar
};

GridKeyAction GridKeyOf(int key, Qt::KeyboardModifiers modifiers, const QString& text);

}  // namespace ortelix
