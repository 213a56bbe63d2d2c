// The Top50 settings frames: the map list with its labels and box, the map
// name in the information frame, and every option of the frames bound to its
// index so that it survives saving and loading and takes its reset value.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>

#include "appformats/ModuleTop50Karte.h"
#include "core/OptionBounds.h"
#include "core/Settings.h"
#include "forms/FrameTable.h"
#include "forms/GuiSupport.h"

namespace ortelix {
namespace {

using testgui::StartedMainForm;
using testgui::Text;

constexpr int kTop50Frames[] = {kFrameTop50Karte, kFrameTop50Track, kFrameTop50Route,
                                kFrameTop50WayPoint, kFrameTop50Texte, kFrameTop50Import};

template <typename W>
W* Find(FormMain& form, const QString& name) {
    for (int f : kTop50Frames)
        if (W* w = form.frame(f)->findChild<W*>(name)) return w;
    return nullptr;
}

TEST(Top50Frames, TheMapListChoosesTheMapAndShowsItEverywhere) {
    StartedMainForm m;
    Session& s = m.session;
    FormMain& form = m.form;
    form.runCommand("MenSetUpTop50Karte");
    ASSERT_EQ(form.currentFrame(), kFrameTop50Karte);
    QWidget* frame = form.frame(kFrameTop50Karte);
    auto* automatic = frame->findChild<QCheckBox*>("Check0");
    ASSERT_NE(automatic, nullptr);
    EXPECT_EQ(automatic->text(), Text("Karte automatisch wählen"));
    EXPECT_EQ(automatic->toolTip(), Text("Es wird automatisch eine Karte für den Kartenbezug im Geogrid Viewer gewählt"));

    auto* list = frame->findChild<QListWidget*>("List9");
    ASSERT_NE(list, nullptr);
    ASSERT_EQ(static_cast<size_t>(list->count()), s.options.Top50.Karten.size());
    ASSERT_GT(list->count(), 16);
    const int he = TopKarteFinden(s.options.Top50.Karten, "HE");
    EXPECT_EQ(list->item(he)->text(), Text("Top50 Hessen (MapCode: TOP50_HE) 1:50000"));
    const int bb = TopKarteFinden(s.options.Top50.Karten, "BB");
    EXPECT_EQ(list->item(bb)->text(), Text("Top50 BB/B Brandenburg und Berlin (MapCode: UTM) 1:50000"));

    automatic->setChecked(false);
    list->scrollToItem(list->item(he));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(he)).center());
    EXPECT_EQ(s.options.List[9], he);
    EXPECT_EQ(frame->findChild<QLabel*>("LabelKarte")->text(), Text("Top50 Hessen (MapCode: TOP50_HE) 1:50000"));
    EXPECT_EQ(frame->findChild<QLabel*>("LabelKoordinaten")->text(), Text("N/S = 51.66 - 49.39O/W = 10.24 - 7.77"));
    auto* karte = frame->findChild<QLineEdit*>("Karte");
    ASSERT_NE(karte, nullptr);
    EXPECT_EQ(karte->text(), "TOP50_HE");
    EXPECT_EQ(karte->toolTip(), Text("Interner Kartenname für Kartenbezug im Geogrid Viewer"));
    form.refresh();
    auto* info = form.frame(kFrameInfo)->findChild<QLabel*>("LabelInfo10");
    ASSERT_NE(info, nullptr);
    EXPECT_EQ(info->text(), "Top50 Hessen (fix)");

    // A name of one's own goes into MapName=.
    karte->selectAll();
    QTest::keyClicks(karte, "Meine Karte");
    EXPECT_EQ(Top50MapName(s), "Meine Karte");

    // The automatic choice moves the list; the frame shows it when shown again.
    automatic->setChecked(true);
    form.ShowFrame(kFrameInfo);
    NewTrack(s.store, "t");
    TrackPointIn muenchen;
    muenchen.lon = 11.58;
    muenchen.lat = 48.14;
    StoreTrackPoint(s.store, muenchen);
    KarteAutomatisch(s);
    form.ShowFrame(kFrameTop50Karte);
    QApplication::processEvents();
    form.refresh();
    const int bys = TopKarteFinden(s.options.Top50.Karten, "BYS");
    EXPECT_EQ(list->currentRow(), bys);
    EXPECT_EQ(karte->text(), "TOP50_BYS");
    EXPECT_EQ(info->text(), Text("Top50 Bayern Süd (auto)"));
    ASSERT_TRUE(form.grab().save(QString(ORTELIX_BUILD_DIR) + "/FormMain-Top50Karte.png"));
}

TEST(Top50Frames, EveryOptionSurvivesSavingAndLoadingAndResets) {
    StartedMainForm m;
    Session& s = m.session;
    FormMain& form = m.form;
    const int checks[] = {0, 2, 3, 4, 5, 23, 24, 25, 26};
    const int lists[] = {2,  10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24,
                         25, 26, 27, 28, 29, 30, 31, 32, 33, 35, 36, 42, 46};
    // Each control exists once, in a Top50 frame, with its list's entries.
    for (int i : checks) {
        auto* box = Find<QCheckBox>(form, QString("Check%1").arg(i));
        ASSERT_NE(box, nullptr) << i;
        box->setChecked(!box->isChecked());
        box->setChecked(true);
    }
    for (int i : lists) {
        auto* list = Find<QComboBox>(form, QString("List%1").arg(i));
        ASSERT_NE(list, nullptr) << i;
        EXPECT_EQ(static_cast<size_t>(list->count()), FixedListEntries(static_cast<size_t>(i)).size()) << i;
        // The last entry, chosen as a user does.
        list->setFocus();
        list->setCurrentIndex(0);
        for (int k = 0; k < list->count(); ++k) QTest::keyClick(list, Qt::Key_Down);
        EXPECT_EQ(s.options.List[static_cast<size_t>(i)], list->count() - 1) << i;
    }
    for (int i = 0; i < 4; ++i) {
        auto* edit = Find<QLineEdit>(form, QString("Text%1").arg(i));
        ASSERT_NE(edit, nullptr) << i;
        edit->clear();
        QTest::keyClicks(edit, QString("Symbol %1").arg(i));
    }
    // The Zoom boxes left the Google Earth frame.
    EXPECT_EQ(form.frame(kFrameGoogle)->findChild<QCheckBox*>("Check23"), nullptr);

    SaveSettings(s);
    FakePlatform again;
    again.settings = m.platform.settings;
    Session t(again);
    LoadSettings(t);
    for (int i : checks) EXPECT_EQ(t.options.Check[static_cast<size_t>(i)], 1) << i;
    for (int i : lists)
        EXPECT_EQ(t.options.List[static_cast<size_t>(i)], int(FixedListEntries(static_cast<size_t>(i)).size()) - 1)
            << i;
    for (int i = 0; i < 4; ++i) EXPECT_EQ(t.options.Text[static_cast<size_t>(i)], "Symbol " + std::to_string(i));

    // A reset puts the entries of the settings' table back into the frames.
    ResetSettings(s.options, false);
    form.refreshFrames();
    auto shown = [&](int i) { return Find<QComboBox>(form, QString("List%1").arg(i))->currentText(); };
    EXPECT_EQ(shown(2), "Ende");
    EXPECT_EQ(shown(10), "Rot");
    EXPECT_EQ(shown(12), "Magenta");
    EXPECT_EQ(shown(14), Text("Grün"));
    EXPECT_EQ(shown(15), "3");
    EXPECT_EQ(shown(22), "Cyan");
    EXPECT_EQ(shown(24), "Kreis");
    EXPECT_EQ(shown(25), "Dreieck");
    EXPECT_EQ(shown(26), "Gelb");
    EXPECT_EQ(shown(27), "200");
    EXPECT_EQ(shown(29), "24");
    EXPECT_EQ(shown(30), "12");
    EXPECT_EQ(shown(36), "2");
    EXPECT_EQ(shown(46), "am Punkt");
    EXPECT_TRUE(Find<QCheckBox>(form, "Check0")->isChecked());
    EXPECT_FALSE(Find<QCheckBox>(form, "Check26")->isChecked());
    EXPECT_EQ(Find<QLineEdit>(form, "Text3")->text(), "Dreieck");

    const char* names[] = {"Karte", "Track", "Route", "WayPoint", "Texte", "Import"};
    for (int k = 0; k < 6; ++k) {
        form.ShowFrame(kTop50Frames[k]);
        QApplication::processEvents();
        ASSERT_TRUE(form.grab().save(QString("%1/FormMain-Top50%2.png").arg(ORTELIX_BUILD_DIR).arg(names[k])));
    }
}

}  // namespace
}  // namespace ortelix
