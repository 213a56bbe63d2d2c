// The map export form: reached from Tools and the button bar, its menu
// "Karte", a plan from an area file in the part lists and labels, the corner
// entry, the settings page bound to the options with its rules and reset,
// the viewer exports standing disabled, and screenshots of both pages.
#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <filesystem>
#include <fstream>
#include <cmath>

#include "core/Settings.h"
#include "forms/FormMapExp.h"
#include "forms/FormMenu1.h"
#include "forms/FrameTable.h"
#include "forms/GuiSupport.h"

namespace ortelix {
namespace {

using testgui::StartedMainForm;
using testgui::Text;

FormMapExp* OpenMapExp(StartedMainForm& app) {
    app.form.runCommand("MenToolsMapExp");
    QApplication::processEvents();
    return app.form.findChild<FormMapExp*>(QString(), Qt::FindDirectChildrenOnly);
}

template <typename W>
W* Child(QWidget& form, const QString& name) {
    W* w = form.findChild<W*>(name);
    EXPECT_NE(w, nullptr) << name.toStdString();
    return w;
}

std::string Saved(StartedMainForm& app, const char* key) {
    const auto it = app.platform.settings.find({"kartenexport", key});
    return it == app.platform.settings.end() ? std::string() : it->second;
}

QString LabelText(QWidget& f, const char* name) { return Child<QLabel>(f, name)->text(); }

// An area file of one area 0.2 degrees wide and 0.3 high near meridian 9.
std::string AreaFile(const char* name) {
    const std::string dir = std::string(ORTELIX_BUILD_DIR) + "/mapexp-test";
    std::filesystem::create_directories(dir);
    const std::string path = dir + "/" + name;
    std::ofstream(path) << "# Taunus\n8.000000 ; 50.300000 ; 8.200000 ; 50.000000 ; Taunus\nkaputt ; 1\n";
    return path;
}

// Plans the area file cut at meridian 9 into parts of 30 km with 2 km overlap
// (the reset values): one column, two rows.
FormMapExp* PlanTaunus(StartedMainForm& app) {
    FormMapExp* f = OpenMapExp(app);
    f->runCommand("MenMapExpSetUp");
    Child<QCheckBox>(*f, "Check11")->click();  // "Karten teilen"
    app.platform.fileChoices.push_back({AreaFile("taunus.csv"), 1});
    app.platform.inputs.push_back("9");
    f->runCommand(Text("MenMapFlächenTxtEin"));
    QApplication::processEvents();
    return f;
}

TEST(MapExpForm, OpensFromToolsAndTheBarAsOneForm) {
    StartedMainForm app;
    FormMapExp* f = OpenMapExp(app);
    ASSERT_NE(f, nullptr);
    EXPECT_TRUE(f->isVisible());
    EXPECT_EQ(f->windowTitle(), Text("Kartenexport"));
    QPushButton* mtExp = app.form.menu1()->findChild<QPushButton*>("MTExp");
    ASSERT_NE(mtExp, nullptr);
    EXPECT_TRUE(mtExp->isEnabled());
    mtExp->click();
    QApplication::processEvents();
    EXPECT_EQ(app.form.findChildren<FormMapExp*>(QString(), Qt::FindDirectChildrenOnly).size(), 1);
    // No plan yet: no frame, empty lists.
    for (const char* frame : {"FrameTop50Kartenexport", "FrameTk25HeKartenexport", "FrameMMKartenexport",
                              "FrameSwissKartenexport", "FrameGEKartenexp", "FrameOziMapKartenexport"})
        EXPECT_FALSE(Child<QGroupBox>(*f, frame)->isVisible()) << frame;
    EXPECT_EQ(LabelText(*f, "LabelKartenteile"), Text("0 Teile"));
    EXPECT_EQ(Child<QComboBox>(*f, "ListKartenTeil")->count(), 0);
}

TEST(MapExpForm, MenuKarteHasEveryItemWithItsCaption) {
    StartedMainForm app;
    FormMapExp* f = OpenMapExp(app);
    ASSERT_NE(f, nullptr);
    QMenu* karte = f->menuBar()->findChild<QMenu*>("MenMapExp");
    ASSERT_NE(karte, nullptr);
    EXPECT_EQ(karte->title(), Text("Karte"));
    const std::pair<const char*, const char*> items[] = {
        {"MapMenExpNeu", "Neu"},
        {"MenMapFlächenTxtEin", "Flächen Textdatei einlesen"},
        {"MenMapFlächenTxtAus", "Flächen Textdatei speichern"},
        {"MenFläAusEinTrack", "Tracks"},
        {"MenFläAusEinRouten", "Routen"},
        {"MenFläAusEinWP", "Waypoints"},
        {"MenMapKaliInp", "Flächen aus OziMap einlesen"},
        {"MenMapExp1", "Top 50 Geogrid-Viewer 1.1"},
        {"MenMapExp3", "Tk25 Hessen Megatel-Viewer"},
        {"MenMapExp4", "MagicMaps"},
        {"MenMapExp2", "Swiss Map 50 v.1.0"},
        {"MenMapExp7", "Swiss Map 50 v.3"},
        {"MenMapExp5", "Google Earth"},
        {"MenMapExpSwiMapV3Quick", "Swiss Map 50 v.3 Schnellexport"},
        {"MenMergeBitMap", "RheinMain Luftbilder"},
        {"MenMapExpFindOziMap", "Kopiere Ozi Karte"},
        {"MenMergeOziMap", "ReMerge MagicMaps"},
        {"MenMap2KML", "Zeige Karte in Google Earth"},
        {"MapStitcherMerge", "MapStitcher ausführen"},
        {"MenPSScriptStart", "Photoshop Script ausführen"},
        {"MenMapExpToolsCal2Map", "Kalibrierung TTQV to Ozi"},
        {"MenMapExpPRCKali", "Test PRC"},
        {"MenMapExpTTQVBitmap", "Test TTQV Export in Bitmap"},
        {"MenMapExpTrackInFläche", "Hilfstrack für TTQV Multiseiten-Ausgabe"},
        {"MenMapExpSetUp", "Einstellungen"},
        {"MenMapExpMeri", "Karten-Meridian wählen"},
        {"MenMapExpStore", "Speichern"},
        {"MenMapExpRes", "Grundeinstellung"},
        {"MenMapHelp", "Hilfe"},
        {"MenMapExpEnde", "Ende"},
    };
    for (const auto& [control, caption] : items) {
        QAction* a = karte->findChild<QAction*>(Text(control));
        ASSERT_NE(a, nullptr) << control;
        EXPECT_EQ(a->text(), Text(caption)) << control;
    }
    QMenu* sub = karte->findChild<QMenu*>(Text("MenFläAusEin"));
    ASSERT_NE(sub, nullptr);
    EXPECT_EQ(sub->title(), Text("Flächen aus bereits eingelenenen"));
    EXPECT_EQ(sub->actions().size(), 3);
}

TEST(MapExpForm, AreaFilePlanFillsThePartListsAndLabels) {
    StartedMainForm app;
    FormMapExp* f = PlanTaunus(app);
    ASSERT_NE(f, nullptr);
    EXPECT_EQ(f->currentPage(), 0);
    // The line without four numbers was skipped and said so.
    ASSERT_FALSE(app.platform.messages.empty());
    EXPECT_EQ(app.platform.messages.back().text, "1 fehlerhafte Zeilen übersprungen");
    EXPECT_EQ(app.session.plan.KartenMeridian, 9);

    auto* von = Child<QComboBox>(*f, "ListKartenTeil");
    auto* bis = Child<QComboBox>(*f, "ListKartenTeilBis");
    EXPECT_EQ(LabelText(*f, "LabelKartenteile"), Text("2 Teile"));
    ASSERT_EQ(von->count(), 2);
    EXPECT_EQ(von->itemText(1), "2");
    EXPECT_EQ(von->currentIndex(), 0);
    EXPECT_EQ(bis->currentIndex(), 1);
    // Part 1 is the northern one: its north edge is the area's, 50.3 degrees
    // (the corner came back from Gauss-Krueger metres), its south edge lies
    // half an overlap (1 km, ~0.009 degrees) below the middle of the area.
    EXPECT_NEAR(LabelText(*f, "LabelKoordKartenGrenze1").toDouble(), 50.3, 0.002);
    EXPECT_NEAR(LabelText(*f, "LabelKoordKartenGrenze3").toDouble(), 50.15 - 0.009, 0.002);
    EXPECT_EQ(LabelText(*f, "LabelKoordKartenGrenze3").section('.', 1).size(), 6);
    // 14 km wide, 16.7 km and half the overlap (1 km) high.
    const QString info = LabelText(*f, "LabelInfo");
    EXPECT_TRUE(info.contains(Text(" Pixel (Ost x Nord) 14x18 km 252 km2 Fläche"))) << info.toStdString();
    EXPECT_EQ(LabelText(*f, "LabelKarteDirektInfo"), "1 ");

    // Choosing part 2 shows it: the southern part ends at 50.0.
    von->setCurrentIndex(1);
    emit von->activated(1);
    EXPECT_EQ(app.session.plan.TeilNummer, 2);
    EXPECT_NEAR(LabelText(*f, "LabelKoordKartenGrenze3").toDouble(), 50.0, 0.002);
    EXPECT_EQ(LabelText(*f, "LabelKarteDirektInfo"), "2 ");

    // A field but metres per pixel shows the part again; the label followed
    // the cut. A longer side is not a new plan: still the same part edges.
    auto* side = Child<QLineEdit>(*f, "ZahlInput1");
    side->clear();
    QTest::keyClicks(side, "40");
    EXPECT_EQ(app.session.options.ZahlInput[1], "40");
    EXPECT_NEAR(LabelText(*f, "LabelKoordKartenGrenze3").toDouble(), 50.0, 0.002);

    // The same area file written back: one line a part, named after the file.
    const std::string out = std::string(ORTELIX_BUILD_DIR) + "/mapexp-test/plan.csv";
    app.platform.inputs.push_back("9");
    app.platform.fileChoices.push_back({out, 1});
    f->runCommand(Text("MenMapFlächenTxtAus"));
    std::ifstream in(out);
    std::string line1, line2, line3;
    std::getline(in, line1);
    std::getline(in, line2);
    EXPECT_FALSE(std::getline(in, line3));
    EXPECT_NE(line1.find(" ; plan001"), std::string::npos) << line1;
    EXPECT_NE(line2.find(" ; plan002"), std::string::npos) << line2;
}

TEST(MapExpForm, CornerEntryEditsAndDeletesParts) {
    StartedMainForm app;
    FormMapExp* f = PlanTaunus(app);
    ASSERT_NE(f, nullptr);
    ASSERT_EQ(app.session.plan.KartenTeilListe.size(), 2U);
    auto* frame = Child<QGroupBox>(*f, "FrameKoordEingabe");
    EXPECT_FALSE(frame->isVisible());
    Child<QPushButton>(*f, "CommandKoordEingabe")->click();
    EXPECT_TRUE(frame->isVisible());
    // North edge of part 1 as degrees and minutes: 50 and about 18.
    EXPECT_EQ(Child<QLineEdit>(*f, "KarteKoordInput0")->text(), "50");
    EXPECT_NEAR(Child<QLineEdit>(*f, "KarteKoordInput1")->text().toDouble(), 18, 0.1);
    // The west edge lies a little west of 8 degrees: the rectangle is the
    // one of the Gauss-Krueger grid, widest at its southern corner.
    EXPECT_EQ(Child<QLineEdit>(*f, "KarteKoordInput2")->text(), "7");
    EXPECT_GT(Child<QLineEdit>(*f, "KarteKoordInput3")->text().toDouble(), 59.5);

    // New corners for part 1: 51 degrees 30.5 minutes north, 7.25 degrees west.
    auto set = [&](int i, const char* text) {
        auto* e = Child<QLineEdit>(*f, QString("KarteKoordInput%1").arg(i));
        e->clear();
        QTest::keyClicks(e, text);
    };
    set(0, "51");
    set(1, "30.5");
    set(2, "7.25");
    set(3, "0");
    Child<QPushButton>(*f, "CommandKoord")->click();
    EXPECT_FALSE(frame->isVisible());
    EXPECT_DOUBLE_EQ(app.session.plan.KartenTeilListe[0].BreiteNord, 51 + 30.5 / 60);
    EXPECT_DOUBLE_EQ(app.session.plan.KartenTeilListe[0].LaengeWest, 7.25);
    EXPECT_EQ(LabelText(*f, "LabelKoordKartenGrenze1"), "51.508333");
    EXPECT_EQ(LabelText(*f, "LabelKoordKartenGrenze0"), "7.250000");

    // "Löschen" removes the part shown; the last part cannot go.
    const double south2 = app.session.plan.KartenTeilListe[1].BreiteSued;
    Child<QPushButton>(*f, "CommandKoordEingabe")->click();
    Child<QPushButton>(*f, "CmdKoordDel")->click();
    ASSERT_EQ(app.session.plan.KartenTeilListe.size(), 1U);
    EXPECT_EQ(app.session.plan.KartenTeilListe[0].BreiteSued, south2);
    EXPECT_EQ(LabelText(*f, "LabelKartenteile"), Text("1 Teile"));
    EXPECT_EQ(Child<QComboBox>(*f, "ListKartenTeil")->count(), 1);
    Child<QPushButton>(*f, "CmdKoordDel")->click();
    EXPECT_EQ(app.session.plan.KartenTeilListe.size(), 1U);
    // "Abbrechen" closes the entry and keeps the part.
    set(0, "60");
    Child<QPushButton>(*f, "CommandKoordEinAbbrechen")->click();
    EXPECT_FALSE(frame->isVisible());
    EXPECT_NEAR(app.session.plan.KartenTeilListe[0].BreiteNord, 50.15, 0.02);

    // Without any plan the entry makes a plan of one part.
    f->runCommand("MapMenExpNeu");
    EXPECT_TRUE(app.session.plan.KartenTeilListe.empty());
    EXPECT_EQ(LabelText(*f, "LabelKartenteile"), Text("0 Teile"));
    Child<QPushButton>(*f, "CommandKoordEingabe")->click();
    set(0, "50");
    set(1, "30");
    set(2, "8");
    set(3, "0");
    set(4, "50");
    set(5, "0");
    set(6, "8");
    set(7, "30");
    Child<QPushButton>(*f, "CommandKoord")->click();
    ASSERT_EQ(app.session.plan.KartenTeilListe.size(), 1U);
    const KartenTeil& t = app.session.plan.KartenTeilListe[0];
    EXPECT_DOUBLE_EQ(t.BreiteNord, 50.5);
    EXPECT_DOUBLE_EQ(t.BreiteSued, 50);
    EXPECT_DOUBLE_EQ(t.LaengeWest, 8);
    EXPECT_DOUBLE_EQ(t.LaengeOst, 8.5);
    EXPECT_EQ(LabelText(*f, "LabelKartenteile"), Text("1 Teile"));
}

TEST(MapExpForm, SettingsPageWritesTheOptionsAndGrundeinstellungResetsThem) {
    StartedMainForm app;
    FormMapExp* f = OpenMapExp(app);
    ASSERT_NE(f, nullptr);
    f->runCommand("MenMapExpSetUp");
    EXPECT_EQ(f->currentPage(), 1);
    Options& o = app.session.options;
    // The reset values of a first start stand in the controls.
    EXPECT_EQ(Child<QLineEdit>(*f, "ZahlInput0")->text(), "3.5");
    EXPECT_EQ(Child<QLineEdit>(*f, "ZahlInput1")->text(), "30");
    EXPECT_TRUE(Child<QCheckBox>(*f, "Check16")->isChecked());
    EXPECT_EQ(Child<QComboBox>(*f, "List0")->currentText(), "1:50.000");
    EXPECT_EQ(Child<QComboBox>(*f, "List1")->currentText(), "256 Farben");
    EXPECT_EQ(Child<QComboBox>(*f, "List2")->count(), 6);
    EXPECT_EQ(Child<QComboBox>(*f, "List4")->itemText(4), "32 bit");

    Child<QCheckBox>(*f, "Check7")->click();
    EXPECT_EQ(o.MapExpCheck[7], 1);
    auto* side = Child<QLineEdit>(*f, "ZahlInput1");
    side->clear();
    QTest::keyClicks(side, "25,5");
    EXPECT_EQ(o.ZahlInput[1], "25,5");
    EXPECT_DOUBLE_EQ(o.Zahl(1), 25.5);
    auto* swiss = Child<QComboBox>(*f, "List0");
    swiss->setCurrentIndex(3);
    emit swiss->activated(3);
    EXPECT_EQ(o.MapExpList[0], 3);

    // The speed buttons of the MagicMaps frame set the wait and the factor.
    Child<QPushButton>(*f, "CmdExGesch3")->click();
    EXPECT_EQ(o.ZahlInput[3], "2");
    EXPECT_EQ(o.ZahlInput[4], "3");
    EXPECT_EQ(Child<QLineEdit>(*f, "ZahlInput4")->text(), "3");
    Child<QPushButton>(*f, "CmdExGesch1")->click();
    EXPECT_EQ(o.ZahlInput[3], "0");
    EXPECT_EQ(o.ZahlInput[4], "0.5");
    Child<QPushButton>(*f, "CmdExGesch2")->click();
    EXPECT_EQ(o.ZahlInput[4], "1");
    EXPECT_EQ(Child<QPushButton>(*f, "CmdExGesch3")->text(), Text("langam"));

    // "Speichern" writes the section of the form.
    Child<QPushButton>(*f, "CmdMapExpStore")->click();
    EXPECT_EQ(Saved(app, "CheckBox7"), "1");
    EXPECT_EQ(Saved(app, "ZahlEingabe1"), "25,5");
    EXPECT_EQ(Saved(app, "ListTopIndex0"), "3");

    // "Grundeinstellung" asks; No keeps everything.
    o.Check[5] = 1;  // a main form option: never touched by this reset
    app.platform.answers.push_back(Answer::No);
    Child<QPushButton>(*f, "CmdMapExpRes")->click();
    EXPECT_EQ(app.platform.messages.back().text, "Sollen wirklich alle Einstellungen zurückgesetzt werden?");
    EXPECT_EQ(o.MapExpCheck[7], 1);
    app.platform.answers.push_back(Answer::Yes);
    f->runCommand("MenMapExpRes");
    EXPECT_EQ(o.MapExpCheck[7], 0);
    EXPECT_EQ(o.ZahlInput[1], "30");
    EXPECT_EQ(o.MapExpList[0], 1);
    EXPECT_EQ(o.Check[5], 1);
    EXPECT_FALSE(Child<QCheckBox>(*f, "Check7")->isChecked());
    EXPECT_EQ(side->text(), "30");
    EXPECT_EQ(swiss->currentIndex(), 1);
    // No MapStitcher in the program folder: its switch is off after a reset.
    EXPECT_FALSE(Child<QCheckBox>(*f, "Check13")->isChecked());
    // Unsaved until "Speichern".
    EXPECT_EQ(Saved(app, "CheckBox7"), "1");
}

TEST(MapExpForm, SwitchRulesFollowTheChecks) {
    StartedMainForm app;
    FormMapExp* f = OpenMapExp(app);
    ASSERT_NE(f, nullptr);
    f->runCommand("MenMapExpSetUp");
    Options& o = app.session.options;

    // Check(5): km or pixels, and the scale preset only for pixels.
    auto* label1 = Child<QLabel>(*f, "LabelZahl1");
    auto* label2 = Child<QLabel>(*f, "LabelZahl2");
    EXPECT_EQ(label1->text(), Text("Kartenseite [km]"));
    EXPECT_EQ(label2->text(), Text("Überlappung [km]"));
    EXPECT_FALSE(Child<QLineEdit>(*f, "ZahlInput7")->isEnabled());
    EXPECT_FALSE(Child<QLabel>(*f, "LabelZahl7")->isVisible());
    Child<QCheckBox>(*f, "Check5")->click();
    EXPECT_EQ(o.MapExpCheck[5], 1);
    EXPECT_EQ(label1->text(), Text("Kartenseite [Pix]"));
    EXPECT_EQ(label2->text(), Text("Überlappung [Pix]"));
    EXPECT_TRUE(Child<QLineEdit>(*f, "ZahlInput7")->isEnabled());
    EXPECT_TRUE(Child<QLabel>(*f, "LabelZahl7")->isVisible());
    EXPECT_EQ(Child<QLabel>(*f, "LabelZahl7")->text(), Text("Maßstab [Meter pro Pixel]"));
    Child<QCheckBox>(*f, "Check5")->click();
    EXPECT_EQ(label1->text(), Text("Kartenseite [km]"));

    // Check(4) or Check(12) enable the MagicMaps map list.
    auto* list3 = Child<QComboBox>(*f, "List3");
    EXPECT_FALSE(list3->isEnabled());
    Child<QCheckBox>(*f, "Check4")->click();
    EXPECT_TRUE(list3->isEnabled());
    Child<QCheckBox>(*f, "Check12")->click();
    Child<QCheckBox>(*f, "Check4")->click();
    EXPECT_TRUE(list3->isEnabled());
    Child<QCheckBox>(*f, "Check12")->click();
    EXPECT_FALSE(list3->isEnabled());

    // Check(16) is the main form's automatic map choice.
    EXPECT_EQ(o.Check[0], 1);
    Child<QCheckBox>(*f, "Check16")->click();
    EXPECT_EQ(o.MapExpCheck[16], 0);
    EXPECT_EQ(o.Check[0], 0);
    Child<QCheckBox>(*f, "Check16")->click();
    EXPECT_EQ(o.Check[0], 1);

    // Check(18): a MagicMaps plan is cut again at meridian 12 and back at 9.
    // The inner edge of the two parts is formed in metres, so its latitude
    // at the west edge depends on the meridian.
    app.platform.fileChoices.push_back({AreaFile("bayern.csv"), 1});
    app.platform.inputs.push_back("9");
    Child<QCheckBox>(*f, "Check11")->click();
    f->runCommand(Text("MenMapFlächenTxtEin"));
    f->runCommand("MenMapExp4");
    EXPECT_EQ(app.session.plan.KartenMeridian, 9);
    ASSERT_EQ(app.session.plan.KartenTeilListe.size(), 2U);
    // The south edge of the northern part; the cut without the sort leaves
    // the parts from south to north.
    auto innerEdge = [&app] {
        const auto& teile = app.session.plan.KartenTeilListe;
        return teile[0].BreiteNord > teile[1].BreiteNord ? teile[0].BreiteSued : teile[1].BreiteSued;
    };
    const double south9 = innerEdge();
    f->runCommand("MenMapExpSetUp");
    Child<QCheckBox>(*f, "Check18")->click();
    EXPECT_EQ(app.session.plan.KartenMeridian, 12);
    ASSERT_EQ(app.session.plan.KartenTeilListe.size(), 2U);
    const double south12 = innerEdge();
    EXPECT_GT(std::abs(south12 - south9), 1e-4);
    // The part chosen (1) is shown anew.
    EXPECT_EQ(LabelText(*f, "LabelKoordKartenGrenze3"),
              QString::number(app.session.plan.KartenTeilListe[0].BreiteSued, 'f', 6));
    Child<QCheckBox>(*f, "Check18")->click();
    EXPECT_EQ(app.session.plan.KartenMeridian, 9);
    EXPECT_DOUBLE_EQ(innerEdge(), south9);
}

TEST(MapExpForm, EachPlanShowsItsFrameWithTheExportsDisabled) {
    StartedMainForm app;
    FormMapExp* f = OpenMapExp(app);
    ASSERT_NE(f, nullptr);
    app.platform.fileChoices.push_back({AreaFile("frames.csv"), 1});
    f->runCommand(Text("MenMapFlächenTxtEin"));
    struct Case {
        const char* command;
        const char* frame;
        const char* button;
        const char* caption;
    };
    const Case cases[] = {
        {"MenMapExp1", "FrameTop50Kartenexport", "CommandKarteTop50", "Weiter Top50"},
        {"MenMapExp3", "FrameTk25HeKartenexport", "CommandKarteTK25", "Weiter Tk25"},
        {"MenMapExp4", "FrameMMKartenexport", "CommandKarteMM", "Weiter MagicMaps"},
        {"MenMapExp2", "FrameSwissKartenexport", "CommandWeiterSW", "Weiter Swiss Map Version 1"},
        {"MenMapExp7", "FrameSwissKartenexport", "CommandWeiterSWV3", "Weiter Swiss Map Version 3"},
        {"MenMapExp5", "FrameGEKartenexp", "CmdGEWeiter", "Weiter Google Earth"},
        {"MenMergeOziMap", "FrameOziMapKartenexport", "CommandKarteOziMap", "Weiter OziMap"},
    };
    const char* frames[] = {"FrameTop50Kartenexport", "FrameTk25HeKartenexport", "FrameMMKartenexport",
                            "FrameSwissKartenexport", "FrameGEKartenexp", "FrameOziMapKartenexport"};
    for (const Case& c : cases) {
        f->runCommand(c.command);
        QApplication::processEvents();
        for (const char* frame : frames)
            EXPECT_EQ(Child<QGroupBox>(*f, frame)->isVisible(), std::string(frame) == c.frame) << c.command;
        auto* b = Child<QPushButton>(*f, c.button);
        EXPECT_TRUE(b->isVisible()) << c.command;
        EXPECT_FALSE(b->isEnabled()) << c.command;
        EXPECT_EQ(b->text(), Text(c.caption));
        EXPECT_EQ(LabelText(*f, "LabelKartenteile"), Text("1 Teile")) << c.command;
    }
    // Swiss Map: the table's resolution gives the pixels (List(0) 1:50.000: 5 m).
    f->runCommand("MenMapExp2");
    EXPECT_EQ(app.session.plan.MeterProPixel, 5);
    EXPECT_FALSE(Child<QPushButton>(*f, "CommandWeiterSWV3")->isVisible());
    EXPECT_FALSE(Child<QLineEdit>(*f, "ZahlInput0")->isEnabled());
    f->runCommand("MenMapExp5");
    EXPECT_TRUE(Child<QLineEdit>(*f, "ZahlInput0")->isEnabled());
    EXPECT_FALSE(Child<QPushButton>(*f, "CmdGEMapCheck")->isEnabled());
    EXPECT_FALSE(Child<QPushButton>(*f, "CmdFindPSExe")->isEnabled());

    // The menu items of the exports and post-processing stand disabled and do nothing.
    QMenu* karte = f->menuBar()->findChild<QMenu*>("MenMapExp");
    for (const char* off : {"MenMapExpSwiMapV3Quick", "MenMergeBitMap", "MenMapExpFindOziMap", "MenMap2KML",
                            "MapStitcherMerge", "MenPSScriptStart", "MenMapExpToolsCal2Map", "MenMapExpPRCKali",
                            "MenMapExpTTQVBitmap"})
        EXPECT_FALSE(karte->findChild<QAction*>(off)->isEnabled()) << off;
    EXPECT_FALSE(karte->findChild<QAction*>(Text("MenMapExpTrackInFläche"))->isEnabled());
    for (const char* on : {"MenMapExp1", "MenMapExp4", "MenMapExpSetUp", "MapMenExpNeu"})
        EXPECT_TRUE(karte->findChild<QAction*>(on)->isEnabled()) << on;

    // A plan with no areas says so and leaves the lists empty.
    f->runCommand("MapMenExpNeu");
    const size_t before = app.platform.messages.size();
    f->runCommand("MenMapExp3");
    ASSERT_EQ(app.platform.messages.size(), before + 1);
    EXPECT_EQ(app.platform.messages.back().text, "Keine Kartenteile: es sind keine Flächen eingelesen");
    EXPECT_EQ(LabelText(*f, "LabelKartenteile"), Text("0 Teile"));
}

TEST(MapExpForm, MapCheckWritesTheOutlinesOfThePlan) {
    StartedMainForm app;
    FormMapExp* f = PlanTaunus(app);
    ASSERT_NE(f, nullptr);
    const std::string base = std::string(ORTELIX_BUILD_DIR) + "/mapexp-test/taunus";
    for (const char* ext : {"plt", "wpt", "csv"}) std::filesystem::remove(base + "_Check." + ext);
    app.platform.fileChoices.push_back({base, 1});
    Child<QPushButton>(*f, "CommandMapPath")->click();
    EXPECT_EQ(app.platform.fileDialogTitles.back(), "Ordner für Karten Check Dateien");
    for (const char* ext : {"plt", "wpt", "csv"})
        EXPECT_TRUE(std::filesystem::exists(base + "_Check." + ext)) << ext;
    // An empty answer ends it with nothing written.
    std::filesystem::remove(base + "_Check.plt");
    app.platform.fileChoices.push_back({"", 1});
    Child<QPushButton>(*f, "CommandMapPath")->click();
    EXPECT_FALSE(std::filesystem::exists(base + "_Check.plt"));
}

// Every child widget lies inside the window, and no two labelled controls
// of one layout overlap.
void ExpectNothingCut(QWidget& form) {
    const QRect inside = form.rect();
    for (QWidget* w : form.findChildren<QWidget*>()) {
        if (!w->isVisible() || qobject_cast<QMenu*>(w)) continue;
        if (w->parentWidget() && w->parentWidget()->objectName() == "qt_scrollarea_viewport") continue;
        const QRect r(w->mapTo(&form, QPoint(0, 0)), w->size());
        EXPECT_TRUE(inside.contains(r)) << w->objectName().toStdString() << " " << r.x() << "," << r.y() << " "
                                        << r.width() << "x" << r.height();
    }
}

TEST(MapExpForm, BothPagesFitTheWindowScreenshots) {
    StartedMainForm app;
    FormMapExp* f = PlanTaunus(app);
    ASSERT_NE(f, nullptr);
    f->runCommand("MenMapExp4");
    QApplication::processEvents();
    ExpectNothingCut(*f);
    const QString dir = QString(ORTELIX_BUILD_DIR) + "/screenshots";
    std::filesystem::create_directories(dir.toStdString());
    EXPECT_TRUE(f->grab().save(dir + "/FormMapExp.png"));
    Child<QPushButton>(*f, "CommandKoordEingabe")->click();
    QApplication::processEvents();
    ExpectNothingCut(*f);
    EXPECT_TRUE(f->grab().save(dir + "/FormMapExp-Koordinaten.png"));
    f->runCommand("MenMapExpSetUp");
    QApplication::processEvents();
    auto* area = Child<QScrollArea>(*f, "FrameMapExpSetUp");
    // The settings fit without scrolling.
    EXPECT_FALSE(area->verticalScrollBar()->isVisible());
    EXPECT_FALSE(area->horizontalScrollBar()->isVisible());
    EXPECT_TRUE(f->grab().save(dir + "/FormMapExp-Einstellungen.png"));
}

}  // namespace
}  // namespace ortelix

namespace ortelix {
namespace {

// The lists of the export form hold only their entries: a setting past the
// last entry is refused by --set and falls back to the reset value on load.
TEST(MapExpForm, ListSettingsStayWithinTheirEntries) {
    StartedMainForm app;
    Options& o = app.session.options;
    EXPECT_TRUE(SetOption(o, "MapExpList0", "5"));
    EXPECT_FALSE(SetOption(o, "MapExpList0", "6"));
    EXPECT_TRUE(SetOption(o, "MapExpList1", "4"));
    EXPECT_FALSE(SetOption(o, "MapExpList1", "5"));
    EXPECT_FALSE(SetOption(o, "MapExpList2", "6"));
    EXPECT_FALSE(SetOption(o, "MapExpList4", "5"));
    EXPECT_TRUE(SetOption(o, "MapExpList3", "40"));  // as many maps as magicmaps.dat holds
    EXPECT_EQ(o.MapExpList[0], 5);

    app.platform.settings[{"kartenexport", "ListTopIndex2"}] = "9";
    app.platform.settings[{"kartenexport", "ListTopIndex4"}] = "4";
    LoadSettings(app.session);
    EXPECT_EQ(o.MapExpList[2], 0);
    EXPECT_EQ(o.MapExpList[4], 4);
    FormMapExp* f = OpenMapExp(app);
    ASSERT_NE(f, nullptr);
    EXPECT_EQ(Child<QComboBox>(*f, "List4")->currentText(), "32 bit");
    EXPECT_EQ(Child<QComboBox>(*f, "List2")->currentText(), Text("unverändert"));
}

}  // namespace
}  // namespace ortelix

namespace ortelix {
namespace {

// The other sources of areas: what the store holds, and an OziExplorer .map
// with its own meridian; and the meridian asked for by hand.
TEST(MapExpForm, AreasFromTheStoreAndFromAnOziMap) {
    StartedMainForm app;
    FormMapExp* f = OpenMapExp(app);
    ASSERT_NE(f, nullptr);
    DataStore& s = app.session.store;
    NewTrack(s, "Runde");
    for (const auto& [lon, lat] : {std::pair{8.1, 50.1}, std::pair{8.3, 50.2}}) {
        TrackPointIn p;
        p.lon = lon;
        p.lat = lat;
        StoreTrackPoint(s, p);
    }
    f->runCommand(Text("MenFläAusEinTrack"));
    ASSERT_EQ(app.session.plan.KartenTeilListe.size(), 1U);
    EXPECT_EQ(LabelText(*f, "LabelKartenteile"), Text("1 Teile"));
    // A fresh plan cuts at the longitude of the area's first point.
    EXPECT_NEAR(LabelText(*f, "LabelKoordKartenGrenze0").toDouble(), 8.1, 0.002);
    EXPECT_NEAR(LabelText(*f, "LabelKoordKartenGrenze3").toDouble(), 50.1, 0.002);

    f->runCommand("MapMenExpNeu");
    EXPECT_EQ(s.TrackCount, 0);
    app.platform.fileChoices.push_back({std::string(ORTELIX_SOURCE_DIR) + "/tests/data/ozi/taunus-tm9.map", 1});
    f->runCommand("MenMapKaliInp");
    EXPECT_EQ(app.platform.fileDialogTitles.back(), Text("OziExplorer Map-Datei auswählen").toStdString());
    EXPECT_EQ(app.session.plan.KartenMeridian, 9);
    ASSERT_EQ(app.session.plan.KartenTeilListe.size(), 1U);
    EXPECT_EQ(LabelText(*f, "LabelKartenteile"), Text("1 Teile"));

    // "Karten-Meridian wählen": Lat/Long is offered for 1000, UTM gives 2000,
    // Abbrechen latitude and longitude.
    app.platform.inputs.push_back("UTM");
    f->runCommand("MenMapExpMeri");
    EXPECT_EQ(app.session.plan.KartenMeridian, 2000);
    app.platform.inputs.push_back("10,5");
    f->runCommand("MenMapExpMeri");
    EXPECT_EQ(app.session.plan.KartenMeridian, 10.5);
    f->runCommand("MenMapExpMeri");  // OK on the value offered keeps it
    EXPECT_EQ(app.session.plan.KartenMeridian, 10.5);
    app.platform.inputs.push_back("");  // Abbrechen
    f->runCommand("MenMapExpMeri");
    EXPECT_EQ(app.session.plan.KartenMeridian, 1000);
}

// Turning the wheel over a list of the settings page does not change it
// unless the list has the focus.
TEST(MapExpForm, WheelOverTheSettingsChangesNothing) {
    StartedMainForm app;
    FormMapExp* f = OpenMapExp(app);
    ASSERT_NE(f, nullptr);
    f->runCommand("MenMapExpSetUp");
    auto* list = Child<QComboBox>(*f, "List0");
    const QPoint at = list->rect().center();
    QWheelEvent wheel(at, list->mapToGlobal(at), QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(list, &wheel);
    EXPECT_EQ(list->currentIndex(), 1);
    EXPECT_EQ(app.session.options.MapExpList[0], 1);
}

}  // namespace
}  // namespace ortelix

namespace ortelix {
namespace {

// The Top50 frame names the map the export uses; "Karte" hands the choice
// of the map to the user: automatic choice off, back to the main form's map list.
TEST(MapExpForm, Top50FrameShowsTheMapAndKarteLeadsToTheMapList) {
    StartedMainForm app;
    FormMapExp* f = OpenMapExp(app);
    ASSERT_NE(f, nullptr);
    ASSERT_FALSE(app.session.options.Top50.Karten.empty());
    app.platform.fileChoices.push_back({AreaFile("top50.csv"), 1});
    f->runCommand(Text("MenMapFlächenTxtEin"));
    f->runCommand("MenMapExp1");
    const QString karte = LabelText(*f, "LabelTop50Karte");
    EXPECT_TRUE(karte.endsWith(" (auto)")) << karte.toStdString();
    EXPECT_GT(karte.size(), 7);

    Child<QPushButton>(*f, "CommandKartew")->click();
    QApplication::processEvents();
    EXPECT_EQ(app.session.options.Check[0], 0);
    EXPECT_FALSE(f->isVisible());
    const FramePage* page = FrameOfCommand("MenSetUpTop50Karte");
    ASSERT_NE(page, nullptr);
    EXPECT_EQ(app.form.currentFrame(), page->index);
}

}  // namespace
}  // namespace ortelix
