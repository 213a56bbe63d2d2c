#include "platform/qt/FileDialogSetup.h"

#include <QFileDialog>
#include <QFontMetrics>
#include <QHeaderView>
#include <QSplitter>
#include <QTreeView>

#include "platform/qt/GermanFileColumns.h"

namespace ortelix {

void SetUpFileDialog(QFileDialog& dialog, QAbstractFileIconProvider& icons) {
    dialog.setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontUseCustomDirectoryIcons);
    dialog.setIconProvider(&icons);
    dialog.setItemDelegate(new GermanFileColumns(&dialog));
    dialog.resize(780, 480);
    const QFontMetrics text(dialog.font());
    if (auto* view = dialog.findChild<QTreeView*>("treeView")) {
        // Size, type and date as wide as their longest usual text.
        const int margin = text.horizontalAdvance("MM");
        QHeaderView* header = view->header();
        header->setStretchLastSection(false);
        header->setSectionResizeMode(0, QHeaderView::Stretch);
        header->resizeSection(1, text.horizontalAdvance("999,9 MB") + margin);
        header->resizeSection(2, text.horizontalAdvance("Ordner-Datei") + margin);
        header->resizeSection(3, text.horizontalAdvance("00.00.0000 00:00") + margin);
    }
    if (auto* split = dialog.findChild<QSplitter*>("splitter"))
        split->setSizes({text.horizontalAdvance("Computer") + 3 * text.height(), dialog.width()});
}

}  // namespace ortelix
