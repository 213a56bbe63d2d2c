#pragma once
// The editor's own clipboard: a block of cell texts that keeps its shape.
// It never reaches the system clipboard.
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace ortelix {

class EditorClipboard {
public:
    using ReadCell = std::function<std::string(int row, int col)>;
    using WriteCell = std::function<void(std::string_view text, int row, int col)>;

    // Takes the cells row1..row2 × col1..col2 (any corner order). With
    // `clear`, each cell is written empty right after its copy is taken.
    void copy(int row1, int col1, int row2, int col2, const ReadCell& read, const WriteCell* clear = nullptr);
    // Writes the block with its top left corner at (row, col).
    void paste(int row, int col, const WriteCell& write) const;

    bool empty() const { return block_.empty(); }
    const std::string& text() const { return text_; }  // CopyText
    int rows() const { return static_cast<int>(block_.size()); }
    int cols() const { return block_.empty() ? 0 : static_cast<int>(block_.front().size()); }

private:
    int row1_ = 0, col1_ = 0;
    std::vector<std::vector<std::string>> block_;  // CopyBlock, row then column
    std::string text_;
};

}  // namespace ortelix
