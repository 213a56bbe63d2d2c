#include "editor/EditorClipboard.h"

#include <algorithm>

namespace ortelix {

void EditorClipboard::copy(int row1, int col1, int row2, int col2, const ReadCell& read, const WriteCell* clear) {
    if (row1 > row2) std::swap(row1, row2);
    if (col1 > col2) std::swap(col1, col2);
    row1_ = row1;
    col1_ = col1;
    block_.assign(static_cast<size_t>(row2 - row1 + 1), std::vector<std::string>(static_cast<size_t>(col2 - col1 + 1)));
    text_.clear();
    for (int r = row1; r <= row2; ++r) {
        auto& line = block_[static_cast<size_t>(r - row1)];
        for (int c = col1; c <= col2; ++c) {
            std::string& cell = line[static_cast<size_t>(c - col1)];
            cell = read(r, c);
            text_ += ':';
            text_ += cell;
            if (clear) (*clear)("", r, c);
        }
        text_ += "\r\n";
    }
}

void EditorClipboard::paste(int row, int col, const WriteCell& write) const {
    for (size_t r = 0; r < block_.size(); ++r)
        for (size_t c = 0; c < block_[r].size(); ++c)
            write(block_[r][c], row + static_cast<int>(r), col + static_cast<int>(c));
}

}  // namespace ortelix
