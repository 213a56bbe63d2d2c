#pragma once
// File icons and type names for the file dialog that never look into a file.
// Qt's own provider asks the MIME database, which reads the first bytes of
// every file the dialog shows; in /proc, /sys or /dev such a read can block
// for ever (/proc/kmsg, an eventfd behind /proc/self/fd), and the dialog with
// the whole program hangs in it. Here the kind and the file name decide.
#include <QFileIconProvider>

namespace ortelix {

class PlainFileIcons : public QFileIconProvider {
public:
    PlainFileIcons();
    using QFileIconProvider::icon;
    QIcon icon(const QFileInfo& info) const override;
    // "Ordner", "GPX-Datei", "Datei", "Sonstiges" (devices, sockets, pipes).
    QString type(const QFileInfo& info) const override;
};

}  // namespace ortelix
