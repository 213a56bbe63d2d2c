#pragma once
// Qt's keys in the codes of the editor's key rule (editor/CellEditKeys.h),
// which counts Windows virtual keys: Delete is 46 there, while Qt's 46 is the
// full stop. The moving keys and Ctrl or Alt shortcuts stay with the grid.
#include <Qt>

namespace ortelix {

inline constexpr int kKeyStaysWithGrid = -1;
// A key that has no code of its own here (signs, umlauts): the rule opens
// the cell editor with the cell's whole text for it.
inline constexpr int kOtherKey = 0xFF;
// F2, which a double click also stands for.
inline constexpr int kKeyF2 = 113;

int VirtualKeyOf(int qtKey, Qt::KeyboardModifiers modifiers);

}  // namespace ortelix
