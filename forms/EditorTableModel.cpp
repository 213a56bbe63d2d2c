#include "forms/EditorTableModel.h"

#include <QApplication>
#include <QPalette>
#include <algorithm>

#include "editor/ModuleEditor.h"

namespace ortelix {

namespace {
// 0x00BBGGRR as the store keeps colours.
QColor FromStored(int32_t c) { return QColor(c & 0xff, (c >> 8) & 0xff, (c >> 16) & 0xff); }
}  // namespace

EditorTableModel::EditorTableModel(ModuleEditor& editor, QObject* parent)
    : QAbstractTableModel(parent), editor_(editor) {}

int EditorTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : editor_.rowCount();
}

int EditorTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : editor_.columnCount();
}

QColor EditorTableModel::computedBackground() {
    return QApplication::palette().color(QPalette::Inactive, QPalette::Window);
}

QVariant EditorTableModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const int row = index.row() + 1;
    const int col = index.column();
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole: return QString::fromStdString(editor_.cellText(row, col));
        case Qt::ForegroundRole:
            if (editor_.hasColourSample(row, col)) return FromStored(editor_.colourSample(row).fore);
            if (editor_.isComputed(col)) return QColor(Qt::black);
            return {};
        case Qt::BackgroundRole:
            if (editor_.hasColourSample(row, col)) return FromStored(editor_.colourSample(row).back);
            if (editor_.isComputed(col)) return computedBackground();
            // The fixed index column looks like the heading.
            if (col == 0) return QApplication::palette().color(QPalette::Button);
            return {};
        case Qt::TextAlignmentRole:
            if (col == 0) return int(Qt::AlignRight | Qt::AlignVCenter);
            return {};
        default: return {};
    }
}

QVariant EditorTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Vertical) {
        if (role == Qt::DisplayRole) return section + 1;
        return {};
    }
    if (role == Qt::DisplayRole) return QString::fromUtf8(editor_.heading(section));
    return {};
}

Qt::ItemFlags EditorTableModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    Qt::ItemFlags f = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (editor_.isEditable(index.column())) f |= Qt::ItemIsEditable;
    return f;
}

bool EditorTableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid() || role != Qt::EditRole || index.column() < 1) return false;
    editor_.WriteGridCell(value.toString().toStdString(), index.row() + 1, index.column());
    emit dataChanged(index, index);
    return true;
}

void EditorTableModel::refill(const std::function<void()>& fill) {
    beginResetModel();
    fill();
    endResetModel();
}

void EditorTableModel::allCellsChanged() {
    if (rowCount() > 0 && columnCount() > 0) emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

void EditorTableModel::cellsChanged(const GridRect& cells) {
    const int rows = rowCount(), cols = columnCount();
    if (rows == 0 || cols == 0) return;
    const int top = std::clamp(std::min(cells.row1, cells.row2) - 1, 0, rows - 1);
    const int bottom = std::clamp(std::max(cells.row1, cells.row2) - 1, 0, rows - 1);
    const int left = std::clamp(std::min(cells.col1, cells.col2), 0, cols - 1);
    const int right = std::clamp(std::max(cells.col1, cells.col2), 0, cols - 1);
    emit dataChanged(index(top, left), index(bottom, right));
}

}  // namespace ortelix
