#pragma once
// The editor grid as a Qt model: every cell is asked of the editor's table
// model when the view paints it, so nothing of the store is copied. Model row
// r is grid row r + 1 (grid row 0 is the heading row, shown by the header);
// model column c is grid column c, the index column included.
#include <QAbstractTableModel>
#include <QColor>
#include <functional>

namespace ortelix {

class ModuleEditor;
struct GridRect;

class EditorTableModel : public QAbstractTableModel {
    Q_OBJECT
public:
    EditorTableModel(ModuleEditor& editor, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    // Writes one cell through the editor's checks; the cell shows what was stored.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

    // Runs a fill of the editor (another source or window) as a reset of the model.
    void refill(const std::function<void()>& fill);
    // Cells of the grid changed behind the view (commits, clipboard commands).
    void cellsChanged(const GridRect& cells);
    void allCellsChanged();

    // The background of the computed columns: the inactive window border of
    // the desktop's palette, the nearest a Qt palette has to that colour.
    static QColor computedBackground();

private:
    ModuleEditor& editor_;
};

}  // namespace ortelix
