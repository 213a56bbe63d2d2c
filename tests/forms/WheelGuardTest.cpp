// The mouse wheel over a settings frame scrolls the frame and never changes a
// list the user has not clicked into.
#include <gtest/gtest.h>

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QListWidget>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

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

// One notch of the wheel turned towards the user, over the middle of w.
void WheelDown(QWidget* w) {
    const QPointF at(w->width() / 2.0, w->height() / 2.0);
    QWheelEvent e(at, w->mapToGlobal(at), QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                  Qt::NoScrollPhase, false);
    QApplication::sendEvent(w, &e);
}

// What a list or number field shows as chosen.
QString ValueOf(QWidget* w) {
    if (auto* c = qobject_cast<QComboBox*>(w)) return QString::number(c->currentIndex());
    if (auto* l = qobject_cast<QListWidget*>(w)) return QString::number(l->currentRow());
    if (auto* n = qobject_cast<QAbstractSpinBox*>(w)) return n->text();
    return {};
}

TEST(WheelGuard, WheelOverAnUnfocusedListScrollsTheFrameAndKeepsTheOption) {
    StartedMainForm m;
    Session& s = m.session;
    FormMain& form = m.form;
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    form.ShowFrame(kFrameTrackFilter);
    QApplication::processEvents();
    QWidget* frame = form.frame(kFrameTrackFilter);
    QScrollArea* area = AreaOf(frame);
    ASSERT_NE(area, nullptr);
    QScrollBar* bar = area->verticalScrollBar();
    ASSERT_GT(bar->maximum(), 0) << "the frame must be taller than its window for this test";

    auto* reduction = frame->findChild<QComboBox*>("List7");
    ASSERT_NE(reduction, nullptr);
    ASSERT_EQ(s.options.List[7], 1);  // "Alle Punkte"
    EXPECT_EQ(reduction->focusPolicy(), Qt::StrongFocus);
    EXPECT_FALSE(reduction->hasFocus());
    WheelDown(reduction);
    EXPECT_EQ(reduction->currentIndex(), 1);
    EXPECT_EQ(s.options.List[7], 1);
    EXPECT_GT(bar->value(), 0);

    // Once the user has clicked into the list, the wheel is the list's.
    const int scrolled = bar->value();
    reduction->setFocus();
    ASSERT_TRUE(reduction->hasFocus());
    WheelDown(reduction);
    EXPECT_EQ(reduction->currentIndex(), 2);
    EXPECT_EQ(s.options.List[7], 2);  // "1 m"
    EXPECT_EQ(bar->value(), scrolled);
}

TEST(WheelGuard, DatumListBoxAndEveryListOfEveryFrameAreGuarded) {
    Gui gui;
    FakePlatform p;
    Session s(p);
    StartUp(s);
    s.options.List[44] = 3;
    FormMain form(s);
    form.show();
    form.ShowFrame(kFrameDatum);
    QApplication::processEvents();
    auto* datums = form.frame(kFrameDatum)->findChild<QListWidget*>("List44");
    ASSERT_NE(datums, nullptr);
    ASSERT_EQ(datums->currentRow(), 3);
    QScrollBar* own = datums->verticalScrollBar();
    ASSERT_GT(own->maximum(), 0);
    WheelDown(datums->viewport());
    EXPECT_EQ(own->value(), 0);  // the frame took the wheel, not the list
    EXPECT_EQ(datums->currentRow(), 3);
    EXPECT_EQ(s.options.List[44], 3);

    // Wheel over every list of every frame: no list and no option moves.
    const auto listOptions = s.options.List;
    const auto columnOptions = s.options.ListFeld;
    int lists = 0;
    for (int i = 0; i < kFrameCount; ++i) {
        QWidget* frame = form.frame(i);
        QList<QWidget*> fields;
        for (auto* w : frame->findChildren<QComboBox*>()) fields << w;
        for (auto* w : frame->findChildren<QAbstractSpinBox*>()) fields << w;
        for (auto* w : frame->findChildren<QListWidget*>()) fields << w;
        for (QWidget* w : fields) {
            ++lists;
            EXPECT_EQ(w->focusPolicy(), Qt::StrongFocus) << w->objectName().toStdString();
            const QString before = ValueOf(w);
            WheelDown(w);
            EXPECT_EQ(ValueOf(w), before) << w->objectName().toStdString();
        }
    }
    EXPECT_EQ(s.options.List, listOptions);
    EXPECT_EQ(s.options.ListFeld, columnOptions);
    EXPECT_GT(lists, 15);
}

}  // namespace
}  // namespace ortelix
