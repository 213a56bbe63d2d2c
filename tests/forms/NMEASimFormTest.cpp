// The simulator's form: reached from the Tools menu and the button bar, its
// captions and hints, the boxes bound to the options, sending on a port in
// the platform's virtual time, the arrow keys, and a close that stops all.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStatusBar>
#include <QTest>
#include <filesystem>

#include "forms/FormMenu1.h"
#include "forms/FormNMEASim.h"
#include "forms/GuiSupport.h"
#include "simulator/ModulNMEASim.h"

namespace ortelix {
namespace {

using testgui::StartedMainForm;
using testgui::Text;

FormNMEASim* OpenSim(StartedMainForm& app) {
    app.form.runCommand("MenToolsNMEASim");
    QApplication::processEvents();
    return app.form.findChild<FormNMEASim*>(QString(), Qt::FindDirectChildrenOnly);
}

template <typename W>
W* Child(QWidget& form, const char* name) {
    W* w = form.findChild<W*>(name);
    EXPECT_NE(w, nullptr) << name;
    return w;
}

void AddTrack(DataStore& s) {
    NewTrack(s, "Morgenrunde");
    for (int i = 0; i < 3; ++i) {
        TrackPointIn p;
        p.lon = 8.5;
        p.lat = 49.5 + i * 0.001;
        p.alt = 120 + i;
        p.speed = 36;
        p.date = SerialFromCivil(2024, 5, 1);
        p.time = 9 * 3600 + i * 10;
        StoreTrackPoint(s, p);
    }
}

TEST(NMEASimForm, OpensFromToolsAndTheBarWithItsCaptionsAndHints) {
    StartedMainForm app;
    FormNMEASim* f = OpenSim(app);
    ASSERT_NE(f, nullptr);
    EXPECT_TRUE(f->isVisible());
    EXPECT_EQ(f->windowTitle(), Text("NMEA Simulator"));
    // The button bar's MTSim opens the same form, not a second one.
    QPushButton* mtSim = app.form.menu1()->findChild<QPushButton*>("MTSim");
    ASSERT_NE(mtSim, nullptr);
    EXPECT_TRUE(mtSim->isEnabled());
    mtSim->click();
    QApplication::processEvents();
    EXPECT_EQ(app.form.findChildren<FormNMEASim*>(QString(), Qt::FindDirectChildrenOnly).size(), 1);

    const char* options[] = {"Track", "Route", "Waypoint", "Direkt"};
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(Child<QRadioButton>(*f, QString("OptionNMEA%1").arg(i).toUtf8())->text(), Text(options[i]));
    EXPECT_EQ(Child<QRadioButton>(*f, "OptionNMEA3")->toolTip(), Text("Manuell eingegebene Werte werden gesendet"));
    EXPECT_EQ(Child<QLineEdit>(*f, "NMEABox0")->toolTip(), Text("Dezimale Eingabe der Koordinaten"));
    EXPECT_EQ(Child<QLineEdit>(*f, "NMEABox3")->toolTip(), Text("Dezimale Eingabe der Koordinaten-Minutenwerte"));
    EXPECT_EQ(Child<QLineEdit>(*f, "NMEABox4")->toolTip(), Text("Höhe über WGS84 Ellipsoid"));
    EXPECT_EQ(Child<QLineEdit>(*f, "NMEABox7")->toolTip(),
              Text("Unterschied zwischen WGS84 Ellipsoid und Meeresspiegel"));
    EXPECT_EQ(Child<QLabel>(*f, "LabelNMEAPar2")->toolTip(), Text("Tatsächlich gesendeter Parameterwert"));
    EXPECT_EQ(Child<QLabel>(*f, "LabelDist")->toolTip(), Text("Entfernung zum nächsten Punkt"));
    EXPECT_EQ(Child<QLabel>(*f, "LabelWinkel")->toolTip(), Text("Richtung zum nächsten Punkt"));
    EXPECT_EQ(Child<QCheckBox>(*f, "NMEASimCheckBox0")->text(),
              Text("Geoid-Korrekturwert wird automatisch eingetragen"));
    EXPECT_EQ(Child<QPushButton>(*f, "CommandSimStart")->text(), Text("START"));
    EXPECT_EQ(Child<QPushButton>(*f, "CommandSimStop")->text(), Text("STOP"));
    EXPECT_EQ(Child<QPushButton>(*f, "CommandSimRun")->text(), Text("RUN"));
    EXPECT_EQ(Child<QPushButton>(*f, "CommandSimRunStop")->toolTip(),
              Text("Beendet die automatische Fahrtsimmulation"));
    EXPECT_EQ(Child<QPushButton>(*f, "CommandCutBis")->toolTip(), Text("Die Zeit wird in den Track-Filter übernommen."));
    QComboBox* port = Child<QComboBox>(*f, "ComPort");
    EXPECT_TRUE(port->isEditable());
    EXPECT_EQ(port->itemText(0), Text("/dev/pts/fake"));
    // A fresh start stands on "Direkt" with the boxes of the reset.
    EXPECT_TRUE(Child<QRadioButton>(*f, "OptionNMEA3")->isChecked());
    EXPECT_EQ(Child<QLineEdit>(*f, "NMEABox4")->text(), Text("100"));
}

TEST(NMEASimForm, TrackPointsFillTheBoxesAndTheRunSendsThemInVirtualTime) {
    StartedMainForm app;
    AddTrack(app.session.store);
    FormNMEASim* f = OpenSim(app);
    ASSERT_NE(f, nullptr);
    Child<QRadioButton>(*f, "OptionNMEA0")->click();
    EXPECT_EQ(app.session.options.OptionNMEA, (std::array<int, 4>{1, 0, 0, 0}));
    EXPECT_EQ(Child<QComboBox>(*f, "ListTrack")->currentText(), Text("Morgenrunde"));
    EXPECT_EQ(Child<QLineEdit>(*f, "NMEABox0")->text(), Text("8"));
    EXPECT_EQ(Child<QLineEdit>(*f, "NMEABox1")->text(), Text("30.00000000"));
    EXPECT_EQ(Child<QLineEdit>(*f, "NMEABox4")->text(), Text("120"));
    EXPECT_EQ(Child<QLineEdit>(*f, "NMEABoxTime")->text(), Text("09:00:00"));
    EXPECT_EQ(Child<QLabel>(*f, "LabelMaxPoints")->text(), Text("3"));
    // A track read while the form is open appears in its list.
    NewTrack(app.session.store, "Abendrunde");
    StoreTrackPoint(app.session.store, TrackPointIn{});
    f->tick();
    EXPECT_EQ(Child<QComboBox>(*f, "ListTrack")->count(), 2);
    EXPECT_EQ(Child<QComboBox>(*f, "ListTrack")->itemText(1), Text("Abendrunde"));
    EXPECT_EQ(Child<QComboBox>(*f, "ListTrack")->currentIndex(), 0);
    QScrollBar* bar = Child<QScrollBar>(*f, "HScrollNMEA");
    EXPECT_EQ(bar->maximum(), 3);
    bar->setValue(2);
    EXPECT_EQ(Child<QLineEdit>(*f, "NMEABox4")->text(), Text("121"));
    EXPECT_EQ(Child<QLabel>(*f, "LabelCountPoints")->text(), Text("2"));
    Child<QPushButton>(*f, "CommandCutVon")->click();
    EXPECT_EQ(app.session.options.TextZeit[0], "09:00:10");
    bar->setValue(1);

    // A box typed in is the option the next cycle reads.
    QLineEdit* alt = Child<QLineEdit>(*f, "NMEABox4");
    alt->selectAll();
    QTest::keyClicks(alt, "250");
    EXPECT_EQ(app.session.options.NMEABox[4], "250");

    Child<QComboBox>(*f, "ComPort")->setEditText("/dev/pts/42");
    Child<QPushButton>(*f, "CommandSimRun")->click();
    EXPECT_EQ(app.platform.serialDevice, "/dev/pts/42");
    EXPECT_EQ(app.session.options.ComPort, "/dev/pts/42");
    EXPECT_EQ(Child<QLabel>(*f, "StatusText")->text(), Text("/dev/pts/42:=4800,n,8,1"));
    for (int i = 0; i < 16; ++i) {  // 1.6 s of virtual time
        app.platform.clock += 0.1;
        f->tick();
    }
    EXPECT_EQ(f->engine().zyklen, 3);
    EXPECT_NE(app.platform.serialBytes.find(",250.0,M,"), std::string::npos);
    EXPECT_EQ(Child<QLabel>(*f, "LabelNMEAPar4")->text(), Text("250.0"));
    // Moved north at the 1 s tick: 10 m by the simulator's scale.
    EXPECT_EQ(Child<QLabel>(*f, "LabelNMEAPar1")->text(), Text("49.500090"));
    EXPECT_TRUE(f->engine().SimRun);

    Child<QPushButton>(*f, "CommandSimRunStop")->click();
    EXPECT_FALSE(f->engine().SimRun);
    EXPECT_TRUE(app.platform.serialIsOpen);  // still sending
    Child<QPushButton>(*f, "CommandSimStop")->click();
    EXPECT_FALSE(app.platform.serialIsOpen);
    EXPECT_TRUE(Child<QLabel>(*f, "StatusText")->text().isEmpty());
    Child<QPushButton>(*f, "CommandSimStart")->click();
    EXPECT_TRUE(app.platform.serialIsOpen);
    EXPECT_FALSE(f->engine().SimRun);

    // Closing the form stops the run and the port.
    f->close();
    EXPECT_FALSE(app.platform.serialIsOpen);
    EXPECT_FALSE(f->engine().portOffen());
}

TEST(NMEASimForm, ArrowKeysSteerInDirectAndAFailedPortIsTold) {
    StartedMainForm app;
    FormNMEASim* f = OpenSim(app);
    ASSERT_NE(f, nullptr);
    Child<QRadioButton>(*f, "OptionNMEA3")->click();
    QLineEdit* speed = Child<QLineEdit>(*f, "NMEABox5");
    speed->setFocus();
    app.session.options.NMEABox[5] = "10";
    app.session.options.NMEABox[6] = "90";
    f->refresh();
    QTest::keyClick(speed, Qt::Key_Up);
    QTest::keyClick(speed, Qt::Key_Up);
    QTest::keyClick(speed, Qt::Key_Right);
    EXPECT_EQ(speed->text(), Text("12"));
    EXPECT_EQ(Child<QLineEdit>(*f, "NMEABox6")->text(), Text("91"));
    QTest::keyClick(f, Qt::Key_Down);
    EXPECT_EQ(app.session.options.NMEABox[5], "11");

    // In a mode with a source the keys are the boxes' own.
    Child<QRadioButton>(*f, "OptionNMEA1")->click();
    QTest::keyClick(speed, Qt::Key_Up);
    EXPECT_EQ(app.session.options.NMEABox[5], "11");

    app.platform.serialOpenFails = true;
    Child<QPushButton>(*f, "CommandSimStart")->click();
    ASSERT_EQ(app.platform.messages.size(), 1u);
    EXPECT_EQ(app.platform.messages[0].text, "Die Schnittstelle kann nicht geöffnet werden");
    EXPECT_FALSE(f->engine().portOffen());
    EXPECT_TRUE(Child<QLabel>(*f, "StatusText")->text().isEmpty());

    // The port's box keeps its arrows for its own text.
    QLineEdit* portText = Child<QComboBox>(*f, "ComPort")->lineEdit();
    Child<QRadioButton>(*f, "OptionNMEA3")->click();
    portText->setFocus();
    QTest::keyClick(portText, Qt::Key_Up);
    EXPECT_EQ(app.session.options.NMEABox[5], "11");
}

TEST(NMEASimForm, Screenshot) {
    StartedMainForm app;
    AddTrack(app.session.store);
    FormNMEASim* f = OpenSim(app);
    ASSERT_NE(f, nullptr);
    Child<QRadioButton>(*f, "OptionNMEA0")->click();
    Child<QPushButton>(*f, "CommandSimRun")->click();
    for (int i = 0; i < 6; ++i) {
        app.platform.clock += 0.1;
        f->tick();
    }
    f->resize(f->sizeHint());
    QApplication::processEvents();
    const QString dir = QString(ORTELIX_BUILD_DIR) + "/screenshots";
    std::filesystem::create_directories(dir.toStdString());
    EXPECT_TRUE(f->grab().save(dir + "/FormNMEASim.png"));
}

}  // namespace
}  // namespace ortelix
