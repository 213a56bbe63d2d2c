#include "platform/qt/PlainFileIcons.h"

#include <QFileInfo>

namespace ortelix {

PlainFileIcons::PlainFileIcons() { setOptions(DontUseCustomDirectoryIcons); }

QIcon PlainFileIcons::icon(const QFileInfo& info) const {
    if (info.isRoot()) return icon(Drive);
    return icon(info.isDir() ? Folder : File);
}

QString PlainFileIcons::type(const QFileInfo& info) const {
    if (info.isDir()) return QString::fromUtf8("Ordner");
    if (!info.isFile()) return QString::fromUtf8("Sonstiges");
    const QString suffix = info.suffix();
    return suffix.isEmpty() ? QString::fromUtf8("Datei") : suffix.toUpper() + QString::fromUtf8("-Datei");
}

}  // namespace ortelix
