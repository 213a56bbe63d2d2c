#include "editor/EditorWindow.h"

#include <algorithm>

namespace ortelix {

EditorWindow WindowFor(int& seite, int64_t n) {
    if (seite < 0) seite = 0;
    if (n < 0) n = 0;
    if (static_cast<int64_t>(seite) * kEditorWindowRows > n) seite = static_cast<int>(n / kEditorWindowRows);
    EditorWindow w;
    w.erster = static_cast<int64_t>(seite) * kEditorWindowRows;
    w.zeilen = static_cast<int>(std::min<int64_t>(n - w.erster, kEditorWindowRows));
    return w;
}

}  // namespace ortelix
