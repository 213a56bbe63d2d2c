#pragma once
// The date and size columns of the file dialog in the program's locale, German
// ("01.06.2024 14:30", "1,5 kB"). Qt's file list formats them with the
// system's locale, which need not be German although the program is.
#include <QStyledItemDelegate>

namespace ortelix {

class GermanFileColumns : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    // The text a cell of the file list shows.
    QString shownText(const QModelIndex& index) const;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

}  // namespace ortelix
