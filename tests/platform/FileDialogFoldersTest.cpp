// The file dialog in special folders: it never reads the files it lists (a
// read in /proc, /sys or /dev can block for ever), and a remembered folder
// that cannot be listed gives way to the home folder.
#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QTemporaryDir>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <mutex>
#include <thread>

#include "platform/DialogSupport.h"
#include "platform/qt/PlainFileIcons.h"
#include "platform/qt/QtPlatform.h"

namespace ortelix {
namespace {

using testgui::Gui;
using testgui::WhenModal;

// A dialog that blocks in a read cannot be closed by its own timers: after
// this long the test ends the process with a message instead of hanging.
class Watchdog {
public:
    explicit Watchdog(int seconds)
        : thread_([this, seconds] {
              std::unique_lock lock(mutex_);
              if (!done_.wait_for(lock, std::chrono::seconds(seconds), [this] { return finished_; })) {
                  std::fprintf(stderr, "The file dialog hangs: stopped after %d s\n", seconds);
                  std::abort();
              }
          }) {}
    ~Watchdog() {
        {
            std::lock_guard lock(mutex_);
            finished_ = true;
        }
        done_.notify_one();
        thread_.join();
    }

private:
    std::mutex mutex_;
    std::condition_variable done_;
    bool finished_ = false;
    std::thread thread_;
};

// Opens the Qt platform's file dialog with a remembered folder, notes where it
// stands once shown, lets it list for a moment, and cancels it.
struct Opened {
    QString folder;
    qint64 milliseconds;
    std::string path;
};
Opened OpenAndCancel(QtPlatform& platform, const QString& remembered, int listFor = 300) {
    Opened o;
    WhenModal([&o, listFor](QWidget* dialog) {
        auto* fd = qobject_cast<QFileDialog*>(dialog);
        if (!fd) {
            dialog->close();
            return;
        }
        o.folder = fd->directory().absolutePath();
        QTimer::singleShot(listFor, fd, &QFileDialog::reject);
    });
    QElapsedTimer clock;
    clock.start();
    o.path = platform.fileDialog("Irgend eine Datei auswählen", "Eine Datei (*.*)|*.*", 1, false,
                                 remembered.toStdString(), "")
                 .path;
    o.milliseconds = clock.elapsed();
    return o;
}

TEST(FileDialogFolders, ARememberedFolderThatCannotBeListedGivesTheHomeFolder) {
    Gui gui;
    QTemporaryDir tmp;
    ASSERT_TRUE(tmp.isValid());
    const QString file = tmp.filePath("notes.txt");
    std::ofstream(file.toStdString()) << "x";
    const QString home = QDir::homePath();

    EXPECT_EQ(DialogStartFolder(tmp.path()), QDir(tmp.path()).absolutePath());
    EXPECT_EQ(DialogStartFolder(tmp.path() + "/"), QDir(tmp.path()).absolutePath());
    // Root is not stopped by permissions; a path below a file can never be listed.
    EXPECT_EQ(DialogStartFolder(file + "/unter"), home);
    EXPECT_EQ(DialogStartFolder(file), home);
    EXPECT_EQ(DialogStartFolder(tmp.filePath("weg")), home);
    EXPECT_EQ(DialogStartFolder(""), home);

    Watchdog watchdog(30);
    QtPlatform platform;
    const Opened below = OpenAndCancel(platform, file + "/unter");
    EXPECT_EQ(below.folder, home);
    EXPECT_TRUE(below.path.empty());
    const Opened kept = OpenAndCancel(platform, tmp.path());
    EXPECT_EQ(kept.folder, QDir(tmp.path()).absolutePath());
}

TEST(FileDialogFolders, TypesComeFromTheNameNeverFromTheContent) {
    Gui gui;
    QTemporaryDir tmp;
    ASSERT_TRUE(tmp.isValid());
    // A picture without an extension: reading it would tell "PNG image".
    const QString png = tmp.filePath("bild");
    std::ofstream(png.toStdString(), std::ios::binary) << std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16);
    std::ofstream(tmp.filePath("tour.gpx").toStdString()) << "<gpx/>";
    QDir(tmp.path()).mkdir("karten");

    PlainFileIcons icons;
    EXPECT_EQ(icons.type(QFileInfo(png)), "Datei");
    EXPECT_EQ(icons.type(QFileInfo(tmp.filePath("tour.gpx"))), "GPX-Datei");
    EXPECT_EQ(icons.type(QFileInfo(tmp.filePath("karten"))), "Ordner");
    EXPECT_EQ(icons.type(QFileInfo("/dev/null")), "Sonstiges");
    EXPECT_FALSE(icons.icon(QFileInfo(png)).isNull());
    // Qt's own provider reads the file: the difference this test is about.
    EXPECT_NE(QFileIconProvider().type(QFileInfo(png)), "Datei");

    // The dialog's list takes its types from that provider.
    Watchdog watchdog(30);
    QtPlatform platform;
    QString shown;
    WhenModal([&](QWidget* dialog) {
        auto* fd = qobject_cast<QFileDialog*>(dialog);
        if (!fd) {
            dialog->close();
            return;
        }
        auto* model = fd->findChild<QFileSystemModel*>();
        if (!model) return fd->reject();
        auto* poll = new QTimer(fd);
        QObject::connect(poll, &QTimer::timeout, fd, [fd, model, png, &shown] {
            const QModelIndex i = model->index(png);
            if (i.isValid()) shown = model->type(i);
            if (!shown.isEmpty()) fd->reject();
        });
        poll->start(20);
        QTimer::singleShot(5000, fd, &QFileDialog::reject);
    });
    platform.fileDialog("Datei", "Alle Dateien (*)|*", 1, false, tmp.path().toStdString(), "");
    EXPECT_EQ(shown, "Datei");
}

TEST(FileDialogFolders, DialogsInProcSysAndDevCloseAtOnce) {
    Gui gui;
    Watchdog watchdog(60);
    QtPlatform platform;
    for (const char* folder : {"/dev", "/proc", "/sys", "/proc/self/fd", "/sys/kernel", "/dev/fd"}) {
        if (!QFileInfo(folder).isDir()) continue;
        const Opened o = OpenAndCancel(platform, folder, 500);
        EXPECT_EQ(o.folder, QDir(folder).absolutePath()) << folder;
        EXPECT_LT(o.milliseconds, 2000) << folder;
        EXPECT_TRUE(o.path.empty()) << folder;
    }
}

}  // namespace
}  // namespace ortelix
