#include "platform/qt/GermanFileColumns.h"

#include <QDateTime>
#include <QFileSystemModel>
#include <QLocale>

namespace ortelix {

namespace {
// The columns of Qt's file list.
constexpr int kSizeColumn = 1;
constexpr int kDateColumn = 3;
}  // namespace

QString GermanFileColumns::shownText(const QModelIndex& index) const {
    const auto* model = qobject_cast<const QFileSystemModel*>(index.model());
    if (model && index.column() == kDateColumn) {
        const QDateTime t = model->lastModified(index);
        if (t.isValid()) return QLocale().toString(t, "dd.MM.yyyy hh:mm");
    }
    if (model && index.column() == kSizeColumn && !model->isDir(index))
        return QLocale().formattedDataSize(model->size(index), 1, QLocale::DataSizeTraditionalFormat);
    return index.data(Qt::DisplayRole).toString();
}

void GermanFileColumns::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (index.column() == kDateColumn || index.column() == kSizeColumn) option->text = shownText(index);
}

}  // namespace ortelix
