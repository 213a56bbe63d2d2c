#pragma once
// The window of the editor grid: a long source is shown 15,000 elements at
// a time, window number `seite` from 0.
#include <cstdint>

namespace ortelix {

inline constexpr int kEditorWindowRows = 15000;

struct EditorWindow {
    int64_t erster = 0;  // elements before the window
    int zeilen = 0;      // elements in the window (grid rows below the heading)
};

// Corrects seite in place: below 0 gives 0, a window that starts beyond the
// last element gives the window of the last element (n / 15000).
EditorWindow WindowFor(int& seite, int64_t n);

}  // namespace ortelix
