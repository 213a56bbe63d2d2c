// The datum frame's texts and list, and every settings frame fitting the main
// form at its default size (with a screenshot of each to look at).
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

#include "commands/StartUp.h"
#include "core/Session.h"
#include "fake/FakePlatform.h"
#include "forms/FormMain.h"
#include "forms/FrameTable.h"
#include "forms/GuiSupport.h"

namespace ortelix {
namespace {

using testgui::AreaOf;
using testgui::Gui;
using testgui::StartedMainForm;
using testgui::Text;

TEST(DatumFrame, TextsListAndDetailFollowTheChoice) {
    StartedMainForm m;
    Session& s = m.session;
    FormMain& form = m.form;
    form.runCommand("MenEinHelmert");
    ASSERT_EQ(form.currentFrame(), kFrameDatum);
    QWidget* frame = form.frame(kFrameDatum);

    auto* transform = frame->findChild<QCheckBox*>("Check1");
    ASSERT_NE(transform, nullptr);
    EXPECT_EQ(transform->text(), "Koordinaten von und nach WGS84 transformieren");
    EXPECT_EQ(transform->toolTip(), "Beim Einlesen und Ausgeben werden die Koordinaten umgerechnet");
    QStringList labels;
    for (auto* l : frame->findChildren<QLabel*>()) labels << l->text();
    EXPECT_TRUE(labels.contains("Auf Datum der Einganskoordinaten klicken")) << labels.join(" | ").toStdString();

    auto* list = frame->findChild<QListWidget*>("List44");
    ASSERT_NE(list, nullptr);
    ASSERT_EQ(list->count(), 20);  // the rows of data/helmert.dat
    EXPECT_EQ(list->item(0)->text(), list->item(0)->toolTip());
    auto* detail = frame->findChild<QLabel*>("HelmertDetail");
    ASSERT_NE(detail, nullptr);
    EXPECT_TRUE(detail->text().startsWith("WGS 84\nHelmert-Parameter\n")) << detail->text().toStdString();

    // One click chooses a datum; with the check box set the caption names it.
    int potsdam = -1;
    for (int i = 0; i < list->count(); ++i)
        if (list->item(i)->text().startsWith("Potsdam (Gauss-Krueger)")) potsdam = i;
    ASSERT_GE(potsdam, 0);
    QApplication::processEvents();
    const QRect row = list->visualItemRect(list->item(potsdam));
    list->scrollToItem(list->item(potsdam));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(potsdam)).center());
    EXPECT_FALSE(row.isEmpty());
    EXPECT_EQ(s.options.List[44], potsdam);
    transform->click();
    EXPECT_EQ(s.options.Check[1], 1);
    EXPECT_TRUE(detail->text().startsWith(list->item(potsdam)->text() + "\nHelmert-Parameter\nName: Potsdam"))
        << detail->text().toStdString();
    ASSERT_TRUE(form.grab().save(QString(ORTELIX_BUILD_DIR) + "/FormMain-Datum.png"));

    // A reset of the options moves the list with them.
    s.options.List[44] = 2;
    form.refreshFrames();
    EXPECT_EQ(list->currentRow(), 2);
}

TEST(SettingsFrames, EveryFrameFitsTheMainFormAtItsDefaultSize) {
    StartedMainForm m;
    FormMain& form = m.form;
    for (int i = 0; i < kFrameCount; ++i) {
        form.ShowFrame(i);
        QApplication::processEvents();
        QWidget* frame = form.frame(i);
        QScrollArea* area = AreaOf(frame);
        ASSERT_NE(area, nullptr) << i;
        const int room = area->viewport()->width();
        // Wider than its room, a frame would be cut off at the right: the
        // frames scroll only up and down.
        EXPECT_LE(frame->minimumSizeHint().width(), room) << frame->objectName().toStdString();
        EXPECT_LE(frame->width(), room) << frame->objectName().toStdString();
        for (auto* child : frame->findChildren<QWidget*>()) {
            if (!child->isVisibleTo(frame) || child->isWindow()) continue;
            const QRect r(child->mapTo(frame, QPoint(0, 0)), child->size());
            EXPECT_LE(r.right(), frame->width()) << frame->objectName().toStdString() << " "
                                                 << child->objectName().toStdString();
        }
        ASSERT_TRUE(form.grab().save(QString("%1/Frame%2.png").arg(ORTELIX_BUILD_DIR).arg(i)));
    }
}

}  // namespace
}  // namespace ortelix
