// The tool bar FormMenu1: beside the main form from the start, following it,
// and its buttons either running their commands or saying they are not there.
#include <gtest/gtest.h>

#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include "commands/CommandTable.h"
#include "commands/StartUp.h"
#include "core/Session.h"
#include "fake/FakePlatform.h"
#include "forms/FormMain.h"
#include "forms/FormMenu1.h"
#include "forms/GuiSupport.h"

namespace ortelix {
namespace {

using testgui::Gui;
using testgui::Text;

// Where the bar belongs: at the main form's top, a small gap right of its frame.
QPoint Beside(const QWidget& form) {
    const QRect f = form.frameGeometry();
    return {f.x() + f.width() + FormMenu1::kGap, f.y()};
}

TEST(ToolBar, StandsBesideTheMainFormFromTheStartAndFollowsIt) {
    Gui gui;
    FakePlatform p;
    Session s(p);
    StartUp(s);
    FormMain form(s);
    FormMenu1* bar = form.menu1();
    EXPECT_FALSE(bar->isVisible());
    form.move(40, 30);
    form.show();
    QApplication::processEvents();
    ASSERT_TRUE(bar->isVisible());
    EXPECT_EQ(bar->frameGeometry().topLeft(), Beside(form));
    EXPECT_EQ(bar->frameGeometry().topLeft(), QPoint(40 + form.frameGeometry().width() + 4, 30));

    // The screenshot of both windows as they stand on the screen.
    const QRect both = form.frameGeometry().united(bar->frameGeometry());
    QPixmap shot(both.size());
    shot.fill(Qt::darkGray);
    {
        QPainter paint(&shot);
        paint.drawPixmap(form.geometry().topLeft() - both.topLeft(), form.grab());
        paint.drawPixmap(bar->geometry().topLeft() - both.topLeft(), bar->grab());
    }
    ASSERT_TRUE(shot.save(QString(ORTELIX_BUILD_DIR) + "/FormMain-ToolBar.png"));

    form.move(200, 120);
    QTRY_COMPARE_WITH_TIMEOUT(bar->frameGeometry().topLeft(), Beside(form), 2000);
    EXPECT_EQ(bar->y(), 120);
    form.resize(700, 500);
    QTRY_COMPARE_WITH_TIMEOUT(bar->frameGeometry().topLeft(), Beside(form), 2000);
    EXPECT_EQ(bar->x(), 200 + form.frameGeometry().width() + 4);
    // The bar's buttons are all visible in it.
    for (auto* b : bar->findChildren<QPushButton*>())
        EXPECT_TRUE(bar->rect().contains(b->geometry())) << b->objectName().toStdString();

    // "Leiste schließen" closes the bar; it does not come back when the form moves.
    bar->findChild<QPushButton*>("ToEnd")->click();
    EXPECT_FALSE(bar->isVisible());
    form.move(60, 60);
    QApplication::processEvents();
    EXPECT_FALSE(bar->isVisible());
    EXPECT_TRUE(form.isVisible());
}

TEST(ToolBar, ButtonsRunTheirCommandsOrSayTheyAreNotThereYet) {
    Gui gui;
    FakePlatform p;
    Session s(p);
    FormMain form(s);
    FormMenu1* bar = form.menu1();
    QStringList captions;
    for (auto* b : bar->findChildren<QPushButton*>()) captions << b->text();
    EXPECT_EQ(captions, (QStringList{"Editor", "Karten Export", "TomTom Bitmap", "NMEA-Simulator", "NMEA-Filter",
                                     Text("Leiste schließen")}));

    const std::pair<const char*, const char*> buttons[] = {{"MTEdi", "MenEinEditor"},
                                                           {"MTExp", "MenToolsMapExp"},
                                                           {"MTTTBit", "MenToolsTTBitmap"},
                                                           {"MTSim", "MenToolsNMEASim"},
                                                           {"MTFilt", "MenToolsNMEAFilter"}};
    for (const auto& [name, control] : buttons) {
        auto* b = bar->findChild<QPushButton*>(name);
        ASSERT_NE(b, nullptr) << name;
        const Command* c = FindCommand(control);
        ASSERT_NE(c, nullptr) << control;
        // The menu item of the same command says the same.
        const QAction* item = form.findChild<QAction*>(control);
        ASSERT_NE(item, nullptr) << control;
        EXPECT_EQ(b->isEnabled(), item->isEnabled()) << name;
        EXPECT_EQ(b->isEnabled(), FormMain::available(*c)) << name;
        QSignalSpy asked(bar, &FormMenu1::command);
        QTest::mouseClick(b, Qt::LeftButton);
        if (b->isEnabled()) {
            ASSERT_EQ(asked.count(), 1) << name;
            EXPECT_EQ(asked.at(0).at(0).toString(), control);
        } else {
            EXPECT_EQ(b->toolTip(), Text("Noch nicht verfügbar")) << name;
            EXPECT_EQ(asked.count(), 0) << name;
        }
    }
    EXPECT_TRUE(bar->findChild<QPushButton*>("ToEnd")->isEnabled());
}

}  // namespace
}  // namespace ortelix
