// The "Track Filter" and "Waypoint Filter" frames bound to the options, the
// notices of the information frame that follow them, and FormTrackAuswahl.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include "core/Session.h"
#include "fake/FakePlatform.h"
#include "forms/GuiSupport.h"
#include "forms/FormMain.h"
#include "forms/FormTrackAuswahl.h"
#include "forms/FrameTable.h"

namespace ortelix {
namespace {

using testgui::Gui;

QString Notice(const FormMain& f, int i) { return f.findChild<QLabel*>(QString("LabelInfo%1").arg(i))->text(); }

TEST(FilterFrames, TrackFilterWidgetsWriteTheOptionsAndTheNoticesFollow) {
    Gui gui;
    FakePlatform p;
    Session s(p);
    FormMain form(s);
    form.ShowFrame(kFrameTrackFilter);
    QWidget* frame = form.frame(kFrameTrackFilter);
    ASSERT_NE(frame, nullptr);
    ASSERT_EQ(frame->objectName(), "FrameTrackFilter");

    auto* reduction = frame->findChild<QComboBox*>("List7");
    ASSERT_NE(reduction, nullptr);
    EXPECT_EQ(reduction->count(), 10);
    EXPECT_EQ(reduction->itemText(0), "Optimal");
    EXPECT_EQ(reduction->currentText(), "Alle Punkte");
    form.refresh();
    EXPECT_EQ(Notice(form, 8), "");
    reduction->setCurrentIndex(0);
    emit reduction->activated(0);
    EXPECT_EQ(s.options.List[7], 0);
    form.refresh();
    EXPECT_EQ(Notice(form, 8), "Koordinatenabstand wird reduziert");

    auto* window = frame->findChild<QCheckBox*>("Check9");
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->text(), "nur innerhalb dieser Zeit");
    window->setChecked(true);
    EXPECT_EQ(s.options.Check[9], 1);
    form.refresh();
    EXPECT_EQ(Notice(form, 7), "Trackfilter aktiviert");

    auto* from = frame->findChild<QLineEdit*>("TextZeit0");
    ASSERT_NE(from, nullptr);
    EXPECT_EQ(from->toolTip(), QString::fromUtf8("Eintrag über NMEA-Simulator (Cut von)"));
    QTest::keyClicks(from, "x");
    EXPECT_EQ(s.options.TextZeit[0], from->text().toStdString());

    auto* size = frame->findChild<QLineEdit*>("KarteKoordInput1");
    ASSERT_NE(size, nullptr);
    EXPECT_EQ(size->toolTip(), QString::fromUtf8("Maximale Größe von jedem Teiltrack"));
    size->clear();
    QTest::keyClicks(size, "500");
    EXPECT_EQ(s.options.KarteKoordInput[1], "500");

    auto* geoid = frame->findChild<QCheckBox*>("Check21");
    ASSERT_NE(geoid, nullptr);
    geoid->setChecked(!geoid->isChecked());
    EXPECT_EQ(s.options.Check[21], s.options.Check[22]);

    for (int i : {6, 7, 8, 11, 12, 14, 18, 29}) EXPECT_NE(frame->findChild<QCheckBox*>(QString("Check%1").arg(i)), nullptr) << i;
    for (int i : {0, 2, 3, 25}) EXPECT_NE(frame->findChild<QLineEdit*>(QString("KarteKoordInput%1").arg(i)), nullptr) << i;

    // Options changed elsewhere (loaded, reset) reach the widgets.
    s.options.Check[14] = 1;
    form.refreshFrames();
    EXPECT_TRUE(frame->findChild<QCheckBox*>("Check14")->isChecked());
}

TEST(FilterFrames, WayPointFilterFrameHoldsEntryRadiusAndCorners) {
    Gui gui;
    FakePlatform p;
    Session s(p);
    FormMain form(s);
    QWidget* frame = form.frame(kFrameWayPointFilter);
    ASSERT_NE(frame, nullptr);
    auto* entry = frame->findChild<QComboBox*>("List8");
    ASSERT_NE(entry, nullptr);
    ASSERT_EQ(entry->count(), 7);
    EXPECT_EQ(entry->itemText(5), QString::fromUtf8("Im Flächenqudrat der LOG-Strecke"));
    EXPECT_EQ(entry->itemText(4), "Innerhalb der Karte ");
    for (int i = 8; i <= 20; ++i) EXPECT_NE(frame->findChild<QLineEdit*>(QString("KarteKoordInput%1").arg(i)), nullptr) << i;
    EXPECT_EQ(frame->findChild<QLineEdit*>("KarteKoordInput15")->text(), "30.5");

    form.refresh();
    EXPECT_EQ(Notice(form, 9), "");
    entry->setCurrentIndex(3);
    emit entry->activated(3);
    EXPECT_EQ(s.options.List[8], 3);
    form.refresh();
    EXPECT_EQ(Notice(form, 9), "WayPointfilter aktiviert");
}

TEST(FilterFrames, TrackAuswahlTicksAllOrNone) {
    Gui gui;
    // The reader names the dates in ISO form; the user reads them in German form.
    FormTrackAuswahl form({"2006-02-16", "2006-02-17", "2006-12-01"});
    auto* list = form.findChild<QListWidget*>("List1");
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->item(1)->text(), "17.02.2006");
    EXPECT_EQ(list->item(2)->text(), "01.12.2006");
    EXPECT_EQ(form.ticked(), (std::vector<bool>{true, true, true}));
    QTest::mouseClick(form.findChild<QPushButton*>("Command2"), Qt::LeftButton);
    EXPECT_EQ(form.ticked(), (std::vector<bool>{false, false, false}));
    list->item(2)->setCheckState(Qt::Checked);
    EXPECT_EQ(form.ticked(), (std::vector<bool>{false, false, true}));
    QTest::mouseClick(form.findChild<QPushButton*>("Command1"), Qt::LeftButton);
    EXPECT_EQ(form.ticked(), (std::vector<bool>{true, true, true}));
}

}  // namespace
}  // namespace ortelix
