// The main form offscreen: the menus from the command table, the counters
// after a GPX read, the settings frames, the tool bar, and a screenshot.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <fstream>

#include "commands/CommandTable.h"
#include "commands/StartUp.h"
#include "core/Session.h"
#include "fake/FakePlatform.h"
#include "forms/GuiSupport.h"
#include "forms/FormMain.h"
#include "forms/FormMenu1.h"
#include "forms/FrameTable.h"
#include "forms/Mnemonics.h"

namespace ortelix {
namespace {

namespace fs = std::filesystem;

using testgui::Gui;
using testgui::StartedMainForm;

using testgui::Text;

// The captions of a menu level as the user reads them, without the mnemonics.
QStringList Captions(const QList<QAction*>& actions) {
    QStringList captions;
    for (QAction* a : actions) captions << WithoutMnemonic(a->text());
    return captions;
}

QString LabelText(const FormMain& f, int i) {
    const auto* l = f.findChild<QLabel*>(QString("LabelInfo%1").arg(i));
    return l ? l->text() : QString("<fehlt>");
}

TEST(FormMain, MenusShowEveryCommandWithItsCaption) {
    Gui gui;
    FakePlatform p;
    Session s(p);
    FormMain form(s);

    EXPECT_EQ(Captions(form.menuBar()->actions()), (QStringList{"Eingang", "Ausgang", "Tools", "Einstellungen", "Hilfe", "Ende"}));

    int shown = 0;
    for (const Command& c : CommandTable()) {
        if (!c.menu) continue;
        ++shown;
        auto* a = form.findChild<QAction*>(c.control);
        ASSERT_NE(a, nullptr) << c.control;
        EXPECT_EQ(WithoutMnemonic(a->text()), Text(c.caption)) << c.control;
        EXPECT_EQ(a->isEnabled(), FormMain::available(c)) << c.control;
        if (!a->isEnabled()) {
            EXPECT_EQ(a->toolTip(), Text("Noch nicht verfügbar")) << c.control;
        }
    }
    EXPECT_EQ(shown, 62 + 42 + 11 + 18 + 2);

    // The order and grouping of the input menu.
    auto* eingang = form.findChild<QMenu*>("MenEingang");
    ASSERT_NE(eingang, nullptr);
    EXPECT_EQ(Captions(eingang->actions().mid(0, 6)), (QStringList{"Neu", "Alles einlesen", "ASCII Datei", "Geocache", "OpenGeoDB",
                                  "GEOnet Names Server (GNS)"}));
    EXPECT_EQ(WithoutMnemonic(eingang->actions().last()->text()), "Ende");
    auto* ozi = form.findChild<QMenu*>("MenEingang/OziExplorer");
    ASSERT_NE(ozi, nullptr);
    EXPECT_EQ(Captions(ozi->actions()), (QStringList{"Track", "Route", "Route OziCE", "Waypoint", "Map Infos"}));
    auto* flaechen = form.findChild<QMenu*>(Text("MenTools/Flächen aus bereits eingelesenen"));
    ASSERT_NE(flaechen, nullptr);
    EXPECT_EQ(flaechen->actions().size(), 3);

    EXPECT_TRUE(form.findChild<QAction*>("MenEinGPX")->isEnabled());
    EXPECT_TRUE(form.findChild<QAction*>("MenAusgangGPX")->isEnabled());
    EXPECT_TRUE(form.findChild<QAction*>("MenSetUpStore")->isEnabled());
    EXPECT_EQ(form.findChild<QLabel*>("LabelVersion")->text(), "v. 3.9a");
}

TEST(FormMain, CountersAfterAGpxReadAndTimer1) {
    Gui gui;
    FakePlatform p;
    Session s(p);
    StartUp(s);  // first start: the reset values
    FormMain form(s);
    form.show();
    EXPECT_EQ(form.timer1()->interval(), 500);
    EXPECT_TRUE(form.timer1()->isActive());

    const fs::path dir = fs::path(ORTELIX_BUILD_DIR) / "test-forms";
    fs::create_directories(dir);
    const fs::path gpx = dir / "tour.gpx";
    std::ofstream(gpx) << "<?xml version=\"1.0\"?>\n<gpx version=\"1.1\" creator=\"t\">"
                          "<wpt lat=\"50.1\" lon=\"8.6\"><name>A</name></wpt>"
                          "<wpt lat=\"50.2\" lon=\"8.7\"><name>B</name></wpt>"
                          "<rte><name>R</name><rtept lat=\"50.1\" lon=\"8.6\"/><rtept lat=\"50.3\" lon=\"8.6\"/></rte>"
                          "<trk><name>T</name><trkseg><trkpt lat=\"50.1\" lon=\"8.6\"/><trkpt lat=\"50.11\" lon=\"8.6\"/>"
                          "<trkpt lat=\"50.12\" lon=\"8.6\"/></trkseg></trk></gpx>\n";

    form.runCommand("MenSetUpGoogle");
    EXPECT_EQ(form.currentFrame(), kFrameGoogle);
    p.fileChoices.push_back({gpx.string(), 1});
    form.runCommand("MenEinGPX");
    ASSERT_EQ(p.fileDialogTitles.size(), 1u);
    EXPECT_EQ(p.fileDialogTitles[0], "GPX-Datei einlesen");
    EXPECT_EQ(form.currentFrame(), kFrameInfo);  // the reader brings the information frame forward
    EXPECT_TRUE(p.messages.empty());

    // Counters change only when Timer1 fires.
    s.store.SkippedWayPoints = 7;
    QTest::qWait(650);
    EXPECT_EQ(LabelText(form, 0), "1");
    EXPECT_EQ(LabelText(form, 1), "3");
    EXPECT_EQ(LabelText(form, 3), "1");
    EXPECT_EQ(LabelText(form, 4), "2");
    EXPECT_EQ(LabelText(form, 5), "2");
    EXPECT_EQ(LabelText(form, 6), "7");
    EXPECT_EQ(LabelText(form, 13), "0");
    EXPECT_EQ(LabelText(form, 8), "");  // "Alle Punkte" after the first start
    EXPECT_EQ(form.findChild<QLabel*>("StatusText")->text(), "Fertig");

    s.options.List[7] = 0;
    s.options.Check[9] = 1;
    QTest::qWait(650);
    EXPECT_EQ(LabelText(form, 8), "Koordinatenabstand wird reduziert");
    EXPECT_EQ(LabelText(form, 7), "Trackfilter aktiviert");

    // "Neu" empties the store.
    form.runCommand("MenEinNeu");
    EXPECT_EQ(LabelText(form, 1), "0");
}

TEST(FormMain, FramesBindToTheOptionsAndFollowAReset) {
    Gui gui;
    FakePlatform p;
    Session s(p);
    FormMain form(s);

    form.runCommand("MenSetUpTk25Track");
    EXPECT_EQ(form.currentFrame(), kFrameTk25Track);
    auto* transparent = form.frame(kFrameTk25Track)->findChild<QCheckBox*>("Check17");
    ASSERT_NE(transparent, nullptr);
    EXPECT_FALSE(transparent->isChecked());
    transparent->click();
    EXPECT_EQ(s.options.Check[17], 1);

    auto* width = form.frame(kFrameGoogle)->findChild<QLineEdit*>("KarteKoordInput23");
    ASSERT_NE(width, nullptr);
    QTest::keyClicks(width, "4");
    EXPECT_EQ(s.options.KarteKoordInput[23], "4");

    // "Grundeinstellung" asks, then the frames show the reset values.
    p.answers.push_back(Answer::No);
    form.runCommand("MenSetupReset");
    EXPECT_EQ(s.options.KarteKoordInput[23], "4");
    form.runCommand("MenSetupReset");
    ASSERT_EQ(p.messages.size(), 2u);
    EXPECT_EQ(p.messages[1].text, "Sollen wirklich alle Einstellungen zurückgesetzt werden?");
    EXPECT_EQ(s.options.KarteKoordInput[23], "1");
    EXPECT_EQ(width->text(), "1");
    EXPECT_TRUE(transparent->isChecked());  // Check(17) resets to 1

    // "Speichern" writes the store.
    EXPECT_TRUE(p.settings.empty());
    form.runCommand("MenSetUpStore");
    EXPECT_EQ((p.settings[{"setup", "KoordinatenFeld23"}]), "1");

    // Frames not built yet stand as placeholders, and every frame can be shown.
    for (int i = 0; i < kFrameCount; ++i) {
        form.ShowFrame(i);
        EXPECT_EQ(form.currentFrame(), i);
        EXPECT_NE(form.frame(i), nullptr);
    }
}

TEST(FormMain, ScreenshotsAndEnde) {
    StartedMainForm m;
    Session& s = m.session;
    FormMain& form = m.form;
    s.store.StatusText.set("Fertig");
    form.refresh();
    const QString shot = QString(ORTELIX_BUILD_DIR) + "/FormMain.png";
    ASSERT_TRUE(form.grab().save(shot));
    form.runCommand("MenSetUpASCII");
    ASSERT_TRUE(form.grab().save(QString(ORTELIX_BUILD_DIR) + "/FormMain-ASCII.png"));
    EXPECT_GT(fs::file_size(shot.toStdString()), 1000u);

    // "Ende" closes the form and the tool bar with it.
    ASSERT_TRUE(form.menu1()->isVisible());
    form.runCommand("MenEnde");
    EXPECT_FALSE(form.isVisible());
    EXPECT_FALSE(form.menu1()->isVisible());
}

}  // namespace
}  // namespace ortelix
