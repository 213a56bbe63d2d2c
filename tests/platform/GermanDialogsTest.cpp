// Qt's own texts in the desktop's dialogs are German: the message box buttons,
// the file dialog, and numbers and dates in the German form.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QDateTime>
#include <QFile>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTreeView>

#include "platform/qt/GermanFileColumns.h"
#include "platform/qt/GermanTexts.h"
#include "platform/qt/QtPlatform.h"
#include "platform/DialogSupport.h"

namespace ortelix {
namespace {

using testgui::Gui;
using testgui::Text;
using testgui::WhenModal;

// German for the test, the locale as it was afterwards (the suite shares it).
struct German {
    QLocale before;
    bool installed;
    explicit German(QApplication& app) : installed(InstallGermanTexts(app)) {}
    ~German() { QLocale::setDefault(before); }
};

QString Plain(const QString& s) { return QString(s).remove('&'); }

TEST(GermanDialogs, MessageBoxButtonsSayJaAndNein) {
    Gui gui;
    German german(gui.app);
    ASSERT_TRUE(german.installed) << "qt6-translations-l10n is missing";
    QtPlatform platform;

    QStringList buttons;
    WhenModal([&](QWidget* dialog) {
        auto* box = qobject_cast<QMessageBox*>(dialog);
        ASSERT_NE(box, nullptr);
        for (QAbstractButton* b : box->buttons()) buttons << Plain(b->text());
        box->grab().save(QString(ORTELIX_BUILD_DIR) + "/MessageBox-JaNein.png");
        for (QAbstractButton* b : box->buttons())
            if (Plain(b->text()) == "Nein") b->click();
    });
    const Answer a = platform.messageBox("Die Datei existiert schon. Überschreiben?", "Datei speichern",
                                         Buttons::YesNo, Icon::Question);
    buttons.sort();
    EXPECT_EQ(buttons, (QStringList{"Ja", "Nein"}));
    EXPECT_EQ(a, Answer::No);  // the German "Nein" is still the answer No

    WhenModal([&](QWidget* dialog) {
        auto* box = qobject_cast<QMessageBox*>(dialog);
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(Plain(box->button(QMessageBox::Cancel)->text()), "Abbrechen");
        box->button(QMessageBox::Yes)->click();
    });
    EXPECT_EQ(platform.messageBox("Weiter?", "Frage", Buttons::YesNoCancel, Icon::Question), Answer::Yes);
}

TEST(GermanDialogs, FileDialogTextsNumbersAndDates) {
    Gui gui;
    German german(gui.app);
    ASSERT_TRUE(german.installed);
    QtPlatform platform;

    QStringList seen;
    bool nonNative = false;
    WhenModal([&](QWidget* dialog) {
        auto* fd = qobject_cast<QFileDialog*>(dialog);
        ASSERT_NE(fd, nullptr);
        nonNative = fd->testOption(QFileDialog::DontUseNativeDialog);
        // What the user reads, from the dialog's own widgets.
        for (const char* name : {"lookInLabel", "fileNameLabel", "fileTypeLabel"})
            if (auto* l = fd->findChild<QLabel*>(name)) seen << Plain(l->text());
        for (auto* b : fd->findChildren<QPushButton*>())
            if (!b->text().isEmpty()) seen << Plain(b->text());
        fd->grab().save(QString(ORTELIX_BUILD_DIR) + "/FileDialog.png");
        fd->reject();
    });
    const FileChoice c = platform.fileDialog("GPX-Datei einlesen",
                                             "GPX File (*.gpx)|*.gpx|Alle Dateien (*.*)|*.*", 1, false,
                                             ORTELIX_SOURCE_DIR, "");
    EXPECT_TRUE(c.path.empty());
    EXPECT_TRUE(nonNative);
    EXPECT_TRUE(seen.contains("Suchen in:")) << seen.join(" | ").toStdString();
    EXPECT_TRUE(seen.contains("Dateiname:")) << seen.join(" | ").toStdString();
    EXPECT_TRUE(seen.contains(Text("Öffnen"))) << seen.join(" | ").toStdString();
    EXPECT_TRUE(seen.contains("Abbrechen")) << seen.join(" | ").toStdString();

    // The file list shows dates and sizes in the German form.
    QTemporaryDir tmp;
    ASSERT_TRUE(tmp.isValid());
    const QString tour = tmp.filePath("tour.gpx");
    {
        QFile f(tour);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(QByteArray(1536, 'x'));
        f.flush();  // a write after the time would set it again
        ASSERT_TRUE(f.setFileTime(QDateTime(QDate(2024, 6, 1), QTime(14, 30)), QFileDevice::FileModificationTime));
    }
    QString date, size;
    WhenModal([&](QWidget* dialog) {
        auto* fd = qobject_cast<QFileDialog*>(dialog);
        ASSERT_NE(fd, nullptr);
        auto* model = fd->findChild<QFileSystemModel*>();
        auto* view = fd->findChild<QTreeView*>("treeView");
        ASSERT_TRUE(model && view);
        auto* columns = dynamic_cast<GermanFileColumns*>(view->itemDelegate());
        ASSERT_NE(columns, nullptr);
        auto* poll = new QTimer(fd);
        QObject::connect(poll, &QTimer::timeout, fd, [&, fd, model, columns] {
            const QModelIndex i = model->index(tour);
            if (!i.isValid() || !model->lastModified(i).isValid()) return;
            date = columns->shownText(i.siblingAtColumn(3));
            size = columns->shownText(i.siblingAtColumn(1));
            fd->grab().save(QString(ORTELIX_BUILD_DIR) + "/FileDialog-Dates.png");
            fd->reject();
        });
        poll->start(20);
        QTimer::singleShot(5000, fd, &QFileDialog::reject);
    });
    platform.fileDialog("GPX-Datei einlesen", "GPX File (*.gpx)|*.gpx", 1, false, tmp.path().toStdString(), "");
    EXPECT_EQ(date, "01.06.2024 14:30");
    EXPECT_EQ(size, "1,5 kB");

    // Saving says "Speichern".
    seen.clear();
    WhenModal([&](QWidget* dialog) {
        auto* fd = qobject_cast<QFileDialog*>(dialog);
        ASSERT_NE(fd, nullptr);
        seen << Plain(fd->labelText(QFileDialog::Accept));
        fd->reject();
    });
    platform.fileDialog("GPX-Datei speichern", "GPX File (*.gpx)|*.gpx", 1, true, ORTELIX_SOURCE_DIR, "a.gpx");
    EXPECT_EQ(seen, QStringList{"Speichern"});

    EXPECT_EQ(QLocale().toString(1234.5), "1.234,5");
    EXPECT_EQ(QLocale().monthName(3), Text("März"));
}

}  // namespace
}  // namespace ortelix
