// The editor form over the editor's table model: opened from the main form
// without blocking it, cells edited through the view with the keys a user
// presses, the window buttons, the source choice and the right-button menu.
#include <gtest/gtest.h>

#include <QAction>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <cmath>

#include "editor/ModuleEditor.h"
#include "forms/EditorTableModel.h"
#include "forms/FormEditor.h"
#include "forms/FormEditorKeys.h"
#include "editor/CellEditKeys.h"
#include "forms/FormMenu1.h"
#include "forms/GuiSupport.h"

namespace ortelix {
namespace {

using testgui::Gui;
using testgui::StartedMainForm;
using testgui::Text;

TrackPoint Point(double lon, double lat, int seconds, OptInt alt) {
    TrackPoint p;
    p.Lon = lon;
    p.Lat = lat;
    p.Date_ = 38764;  // 16.02.2006
    p.Time_ = seconds;
    p.Alt = alt;
    return p;
}

GeoPoint Geo(double lon, double lat, const char* name) {
    GeoPoint p;
    p.Lon = lon;
    p.Lat = lat;
    p.Name = name;
    return p;
}

// Two tracks, one route, two waypoints.
void FillStore(DataStore& s) {
    Track a;
    a.Name = "Morgenrunde";
    for (int i = 0; i < 6; ++i) a.Points.push_back(Point(10 + i * 0.001, 50 + i * 0.002, 36000 + 60 * i, 200 + i));
    Track b;
    b.Name = "Abend";
    b.Points.push_back(Point(11, 51, 70000, {}));
    s.Tracks = {a, b};
    Route r;
    r.Name = "Tour";
    r.Points = {Geo(8.5, 47.3, "Start"), Geo(8.6, 47.4, "Mitte"), Geo(8.7, 47.35, "Ziel")};
    s.Routes = {r};
    s.WayPoints = {Geo(7.1, 46.2, "Hütte"), Geo(7.2, 46.3, "Gipfel")};
}

FormEditor* OpenEditor(StartedMainForm& m) {
    m.form.runCommand("MenEinEditor");
    QApplication::processEvents();
    return m.form.findChild<FormEditor*>();
}

QString Cell(FormEditor& f, int gridRow, int col) {
    return f.model()->data(f.model()->index(gridRow - 1, col), Qt::DisplayRole).toString();
}

void SelectCell(FormEditor& f, int gridRow, int col) {
    f.grid()->setCurrentIndex(f.model()->index(gridRow - 1, col));
}

void SelectRows(FormEditor& f, int fromRow, int toRow, int col) {
    const QModelIndex a = f.model()->index(fromRow - 1, col), b = f.model()->index(toRow - 1, col);
    f.grid()->selectionModel()->setCurrentIndex(b, QItemSelectionModel::NoUpdate);
    f.grid()->selectionModel()->select(QItemSelection(a, b), QItemSelectionModel::ClearAndSelect);
}

// Types into the grid as a user does: the first key opens the cell editor.
void Type(FormEditor& f, const QString& text) {
    f.grid()->setFocus();
    QTest::keyClicks(f.grid(), text.left(1));
    ASSERT_TRUE(f.cellEditor()->isVisible());
    QTest::keyClicks(f.cellEditor(), text.mid(1));
}

QString SavedShot(QWidget& w, const char* name) {
    const QString path = QString(ORTELIX_BUILD_DIR) + "/" + name;
    return w.grab().save(path) ? path : QString();
}

TEST(EditorForm, OpensOnceFromToolsAndToolBarAndLeavesTheMainFormUsable) {
    StartedMainForm m;
    FillStore(m.session.store);
    QAction* item = m.form.findChild<QAction*>("MenEinEditor");
    ASSERT_NE(item, nullptr);
    EXPECT_TRUE(item->isEnabled());
    FormEditor* f = OpenEditor(m);
    ASSERT_NE(f, nullptr);
    EXPECT_TRUE(f->isVisible());
    EXPECT_EQ(f->windowTitle(), "Editor");
    EXPECT_TRUE(f->isWindow());
    EXPECT_EQ(f->windowModality(), Qt::NonModal);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_TRUE(m.form.isEnabled());

    // The counters and lists show the store; the first track is shown.
    EXPECT_EQ(f->findChild<QLabel*>("LabelMaxTacks")->text(), "2");
    EXPECT_EQ(f->findChild<QLabel*>("LabelMaxRoute")->text(), "1");
    EXPECT_EQ(f->findChild<QLabel*>("LabelMaxWP")->text(), "2");
    auto* listTrack = f->findChild<QListWidget*>("ListTrack");
    ASSERT_EQ(listTrack->count(), 2);
    EXPECT_EQ(listTrack->item(1)->text(), "2");
    EXPECT_EQ(f->findChild<QLineEdit*>("TextTrackName")->text(), "Morgenrunde");
    EXPECT_EQ(f->model()->rowCount(), 6);
    EXPECT_EQ(Cell(*f, 3, 2), "50.004000");

    // The tool bar's button brings back the same editor, not a second one.
    m.form.menu1()->findChild<QPushButton*>("MTEdi")->click();
    QApplication::processEvents();
    EXPECT_EQ(m.form.findChildren<FormEditor*>().size(), 1);

    // While it is open, the main form reads on; the editor takes the new
    // track in when it is used again.
    m.form.runCommand("MenEinNeu");
    EXPECT_TRUE(m.session.store.Tracks.empty());
    m.session.store.Tracks.push_back(Track{"Neu", {Point(9, 48, 100, 5)}});
    // Until then the grid's rows of the old track show nothing rather than
    // reading past the store.
    EXPECT_EQ(Cell(*f, 6, 5), "");
    f->grid()->grab();
    m.form.activateWindow();
    QTRY_VERIFY_WITH_TIMEOUT(m.form.isActiveWindow(), 2000);
    f->activateWindow();
    QTRY_VERIFY_WITH_TIMEOUT(f->isActiveWindow(), 2000);
    EXPECT_EQ(f->findChild<QLabel*>("LabelMaxTacks")->text(), "1");
    EXPECT_EQ(f->findChild<QLabel*>("LabelMaxWP")->text(), "0");
    EXPECT_EQ(f->model()->rowCount(), 1);
    EXPECT_EQ(Cell(*f, 1, 5), "5");
}

TEST(EditorForm, KeysOpenTheCellEditorAndReturnWritesTheStore) {
    StartedMainForm m;
    FillStore(m.session.store);
    FormEditor* f = OpenEditor(m);
    ASSERT_NE(f, nullptr);
    const auto& pts = m.session.store.Tracks[0].Points;

    // A digit opens the editor with that digit, the caret behind it.
    SelectCell(*f, 2, 5);
    f->grid()->setFocus();
    QTest::keyClick(f->grid(), Qt::Key_4, Qt::NoModifier);
    ASSERT_TRUE(f->cellEditor()->isVisible());
    EXPECT_EQ(f->cellEditor()->text(), "4");
    EXPECT_EQ(f->cellEditor()->cursorPosition(), 1);
    EXPECT_EQ(f->cellEditor()->geometry(), f->grid()->visualRect(f->model()->index(1, 5)));
    QTest::keyClicks(f->cellEditor(), "21");
    EXPECT_FALSE(SavedShot(*f, "FormEditor-Editing.png").isEmpty());
    QTest::keyClick(f->cellEditor(), Qt::Key_Return);
    EXPECT_FALSE(f->cellEditor()->isVisible());
    EXPECT_EQ(pts[1].Alt, OptInt(421));
    EXPECT_EQ(Cell(*f, 2, 5), "421");
    EXPECT_TRUE(f->grid()->hasFocus());
    EXPECT_EQ(f->grid()->currentIndex(), f->model()->index(1, 5));  // the grid stays on the cell

    // The cell shows what was stored: a comma reads as the decimal point,
    // speeds are held at 2000, courses taken modulo 360.
    SelectCell(*f, 1, 1);
    Type(*f, "9,5");
    QTest::keyClick(f->cellEditor(), Qt::Key_Return);
    EXPECT_EQ(pts[0].Lon, 9.5);
    EXPECT_EQ(Cell(*f, 1, 1), "9.500000");
    SelectCell(*f, 1, 3);
    Type(*f, "99999");
    QTest::keyClick(f->cellEditor(), Qt::Key_Enter);
    EXPECT_EQ(pts[0].Speed, OptDouble(2000));
    EXPECT_EQ(Cell(*f, 1, 3), "2000");

    // Return with three rows marked writes the text to all three.
    SelectRows(*f, 2, 4, 4);
    Type(*f, "400");
    QTest::keyClick(f->cellEditor(), Qt::Key_Return);
    for (int i : {1, 2, 3}) EXPECT_EQ(pts[static_cast<size_t>(i)].Course, OptShort(40)) << i;
    EXPECT_TRUE(pts[0].Course.empty());
    EXPECT_TRUE(pts[4].Course.empty());
    EXPECT_EQ(Cell(*f, 4, 4), "40");

    // Another key keeps the cell's text with the caret at its start, and
    // Escape leaves the store as it was.
    SelectCell(*f, 2, 5);
    f->grid()->setFocus();
    QTest::keyClick(f->grid(), Qt::Key_Minus, Qt::NoModifier);
    ASSERT_TRUE(f->cellEditor()->isVisible());
    EXPECT_EQ(f->cellEditor()->text(), "421");
    EXPECT_EQ(f->cellEditor()->cursorPosition(), 0);
    QTest::keyClicks(f->cellEditor(), "1");
    QTest::keyClick(f->cellEditor(), Qt::Key_Escape);
    EXPECT_FALSE(f->cellEditor()->isVisible());
    EXPECT_EQ(pts[1].Alt, OptInt(421));
    EXPECT_EQ(f->grid()->currentIndex(), f->model()->index(1, 5));
    // The full stop does not delete: it opens the cell as well.
    QTest::keyClick(f->grid(), Qt::Key_Period, Qt::NoModifier);
    ASSERT_TRUE(f->cellEditor()->isVisible());
    EXPECT_EQ(f->cellEditor()->text(), "421");
    QTest::keyClick(f->cellEditor(), Qt::Key_Escape);
    EXPECT_EQ(pts[1].Alt, OptInt(421));
    // A letter opens with its capital, as the rule gives it.
    SelectCell(*f, 1, 9);
    f->grid()->setFocus();
    QTest::keyClick(f->grid(), Qt::Key_D, Qt::NoModifier);
    EXPECT_EQ(f->cellEditor()->text(), "D");
    QTest::keyClick(f->cellEditor(), Qt::Key_Escape);
    SelectCell(*f, 2, 5);

    // A double click opens the cell with its text as well.
    // (as a mouse sends it: a click, then the second press as the double click)
    const QPoint at = f->grid()->visualRect(f->model()->index(1, 5)).center();
    QTest::mouseClick(f->grid()->viewport(), Qt::LeftButton, {}, at);
    EXPECT_FALSE(f->cellEditor()->isVisible());
    QTest::mouseDClick(f->grid()->viewport(), Qt::LeftButton, {}, at);
    ASSERT_TRUE(f->cellEditor()->isVisible());
    EXPECT_EQ(f->cellEditor()->text(), "421");
    QTest::keyClick(f->cellEditor(), Qt::Key_Escape);

    // Moving to another cell commits the open edit to its own cell alone.
    SelectRows(*f, 1, 3, 5);
    SelectCell(*f, 3, 5);
    Type(*f, "7");
    SelectCell(*f, 5, 2);
    EXPECT_FALSE(f->cellEditor()->isVisible());
    EXPECT_EQ(pts[2].Alt, OptInt(7));
    EXPECT_EQ(pts[1].Alt, OptInt(421));

    // Navigation, Tab and Backspace do not open the editor; Delete empties
    // the marked cells.
    for (Qt::Key k : {Qt::Key_Down, Qt::Key_Tab, Qt::Key_Backspace, Qt::Key_Return, Qt::Key_Shift}) {
        QTest::keyClick(f->grid(), k);
        EXPECT_FALSE(f->cellEditor()->isVisible()) << k;
    }
    SelectRows(*f, 1, 2, 5);
    f->grid()->setFocus();
    QTest::keyClick(f->grid(), Qt::Key_Delete);
    EXPECT_TRUE(pts[0].Alt.empty());
    EXPECT_TRUE(pts[1].Alt.empty());
    EXPECT_EQ(pts[2].Alt, OptInt(7));
    EXPECT_EQ(Cell(*f, 1, 5), "");
    EXPECT_EQ(m.session.store.Tracks[0].Points.size(), 6u);
}

TEST(EditorForm, QtKeysReachTheKeyRuleInItsOwnCodes) {
    // Digits (the keypad's too) and letters keep their codes; the rule opens
    // the cell editor with that character, a letter as its capital.
    EXPECT_EQ(VirtualKeyOf(Qt::Key_7, Qt::NoModifier), '7');
    EXPECT_EQ(VirtualKeyOf(Qt::Key_7, Qt::KeypadModifier), '7');
    EXPECT_EQ(VirtualKeyOf(Qt::Key_N, Qt::ShiftModifier), 'N');
    EXPECT_EQ(EditStartFor(VirtualKeyOf(Qt::Key_N, Qt::NoModifier), "alt").text, "N");
    // The full stop is Qt's 46, the rule's Delete: it must open the editor
    // with the whole text, never delete.
    EXPECT_EQ(GridKeyActionFor(VirtualKeyOf(Qt::Key_Period, Qt::NoModifier)), GridKeyAction::Edit);
    EXPECT_EQ(EditStartFor(VirtualKeyOf(Qt::Key_Period, Qt::NoModifier), "12.5").text, "12.5");
    EXPECT_EQ(GridKeyActionFor(VirtualKeyOf(Qt::Key_Delete, Qt::NoModifier)), GridKeyAction::Delete);
    for (int k : {Qt::Key_Minus, Qt::Key_Space, Qt::Key_Adiaeresis, Qt::Key_F2, Qt::Key_F5}) {
        EXPECT_EQ(GridKeyActionFor(VirtualKeyOf(k, Qt::NoModifier)), GridKeyAction::Edit) << k;
        EXPECT_EQ(EditStartFor(VirtualKeyOf(k, Qt::NoModifier), "12.5").caret, 0) << k;
    }
    for (int k : {Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_Backspace,
                  Qt::Key_Return, Qt::Key_Enter})
        EXPECT_EQ(GridKeyActionFor(VirtualKeyOf(k, Qt::NoModifier)), GridKeyAction::None) << k;
    // Moving keys and shortcuts stay with the grid.
    for (int k : {Qt::Key_Left, Qt::Key_Down, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_Escape})
        EXPECT_EQ(VirtualKeyOf(k, Qt::NoModifier), kKeyStaysWithGrid) << k;
    EXPECT_EQ(VirtualKeyOf(Qt::Key_C, Qt::ControlModifier), kKeyStaysWithGrid);
}

TEST(EditorForm, WindowButtonsWalkA30001PointTrack) {
    StartedMainForm m;
    Track t;
    t.Points.reserve(30001);
    for (int i = 0; i < 30001; ++i) t.Points.push_back(Point(10 + i * 1e-5, 50, 3600 + i, 100 + i % 50));
    m.session.store.Tracks.push_back(std::move(t));
    FormEditor* f = OpenEditor(m);
    ASSERT_NE(f, nullptr);
    auto* next = f->findChild<QPushButton*>("CommandWPShift1");
    auto* previous = f->findChild<QPushButton*>("CommandWPShift0");
    EXPECT_EQ(next->toolTip(), Text("Zeigt die nächsten 15.000 Koordinaten"));
    EXPECT_EQ(previous->toolTip(), Text("Zeigt die vorherigen 15.000 Koordinaten"));

    struct Step {
        QPushButton* button;
        int seite, rows;
        const char* first;
    };
    EXPECT_EQ(f->model()->rowCount(), 15000);
    EXPECT_EQ(Cell(*f, 15000, 0), "15000");
    const Step steps[] = {{next, 1, 15000, "15001"}, {next, 2, 1, "30001"}, {next, 2, 1, "30001"},
                          {previous, 1, 15000, "15001"}, {previous, 0, 15000, "1"}, {previous, 0, 15000, "1"}};
    for (const Step& s : steps) {
        QTest::mouseClick(s.button, Qt::LeftButton);
        EXPECT_EQ(f->editor().seite(), s.seite);
        EXPECT_EQ(f->model()->rowCount(), s.rows);
        EXPECT_EQ(Cell(*f, 1, 0), s.first);
    }
    EXPECT_EQ(f->findChild<QLabel*>("LabelWindow")->text(), Text("Zeilen 1 – 15.000"));
    // A click on the shown track's entry brings back its first window.
    QTest::mouseClick(next, Qt::LeftButton);
    ASSERT_EQ(f->editor().seite(), 1);
    auto* list = f->findChild<QListWidget*>("ListTrack");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(0)).center());
    EXPECT_EQ(f->editor().seite(), 0);
    EXPECT_EQ(Cell(*f, 1, 0), "1");

    // An edit in a later window reaches the point of that window.
    QTest::mouseClick(next, Qt::LeftButton);
    SelectCell(*f, 2, 5);
    Type(*f, "33");
    // The open editor stays over its cell when the grid scrolls.
    f->grid()->verticalScrollBar()->setValue(f->grid()->verticalScrollBar()->value() + 40);
    EXPECT_EQ(f->cellEditor()->geometry(), f->grid()->visualRect(f->model()->index(1, 5)));
    QTest::keyClick(f->cellEditor(), Qt::Key_Return);
    EXPECT_EQ(m.session.store.Tracks[0].Points[15001].Alt, OptInt(33));
    EXPECT_EQ(m.session.store.Tracks[0].Points[1].Alt, OptInt(101));
}

TEST(EditorForm, RightButtonMenuCopiesCutsDeletesAndPastesTheBlock) {
    StartedMainForm m;
    FillStore(m.session.store);
    FormEditor* f = OpenEditor(m);
    ASSERT_NE(f, nullptr);
    QMenu* menu = f->editMenu();
    EXPECT_EQ(menu->objectName(), "MenEditBearbeiten");
    QStringList captions;
    for (QAction* a : menu->actions())
        if (!a->isSeparator()) captions << a->text();
    EXPECT_EQ(captions.mid(0, 5), (QStringList{"kopieren", "ausschneiden", Text("löschen"), Text("einfügen"),
                                               Text("Datensätze löschen")}));
    EXPECT_TRUE(captions.contains("Digicam"));
    EXPECT_TRUE(captions.contains("Zeile einfügen"));

    // The right button over the grid opens it; the clipboard commands are on,
    // "einfügen" only once something was copied; the bulk commands and the
    // photos are on; "Datensätze löschen", which has no action, is off.
    SelectCell(*f, 2, 3);
    emit f->grid()->customContextMenuRequested(f->grid()->visualRect(f->model()->index(1, 3)).center());
    QTRY_VERIFY_WITH_TIMEOUT(menu->isVisible(), 2000);
    for (const char* on : {"MenCopy", "MenCut", "MenDel"}) EXPECT_TRUE(menu->findChild<QAction*>(on)->isEnabled()) << on;
    EXPECT_FALSE(menu->findChild<QAction*>("MenIns")->isEnabled());
    for (const char* off : {"MenArrLöschen"}) {
        const QAction* a = f->findChild<QAction*>(QString::fromUtf8(off));
        ASSERT_NE(a, nullptr) << off;
        EXPECT_FALSE(a->isEnabled()) << off;
    }
    for (const char* on :
         {"MenZeileDel", "MenGeoidKorr", "MenTPzuW", "MenNB", "MenDat2WGS", "MenEdVerschieben", "MenEdDigiCam"}) {
        const QAction* a = f->findChild<QAction*>(QString::fromUtf8(on));
        ASSERT_NE(a, nullptr) << on;
        EXPECT_TRUE(a->isEnabled()) << on;
    }
    EXPECT_FALSE(f->findChild<QPushButton*>("CommandGE")->isEnabled());
    menu->hide();

    // A 2 by 2 block of the route view pasted at the grid's last row keeps
    // only its first block row.
    f->findChild<QRadioButton*>("OptionNMEA1")->click();
    ASSERT_EQ(f->model()->rowCount(), 3);
    const QModelIndex a = f->model()->index(0, 3), b = f->model()->index(1, 4);
    f->grid()->selectionModel()->setCurrentIndex(a, QItemSelectionModel::NoUpdate);
    f->grid()->selectionModel()->select(QItemSelection(a, b), QItemSelectionModel::ClearAndSelect);
    auto& route = m.session.store.Routes[0].Points;
    route[0].Desc = "erste";
    route[1].Desc = "zweite";
    menu->findChild<QAction*>("MenCopy")->trigger();
    EXPECT_EQ(f->editor().copyText(), ":Start:erste\r\n:Mitte:zweite\r\n");
    SelectCell(*f, 3, 3);
    emit menu->aboutToShow();
    EXPECT_TRUE(menu->findChild<QAction*>("MenIns")->isEnabled());
    menu->findChild<QAction*>("MenIns")->trigger();
    EXPECT_EQ(route[2].Name, "Start");
    EXPECT_EQ(route[2].Desc, "erste");
    EXPECT_EQ(Cell(*f, 3, 4), "erste");

    // "ausschneiden" empties what it copied; "löschen" empties without copying.
    SelectCell(*f, 1, 3);
    menu->findChild<QAction*>("MenCut")->trigger();
    EXPECT_EQ(route[0].Name, "");
    EXPECT_EQ(f->editor().copyText(), ":Start\r\n");
    SelectCell(*f, 2, 4);
    menu->findChild<QAction*>("MenDel")->trigger();
    EXPECT_EQ(route[1].Desc, "");
    EXPECT_EQ(f->editor().copyText(), ":Start\r\n");
}

TEST(EditorForm, SourceChoiceListsNamesAndColumnLook) {
    StartedMainForm m;
    FillStore(m.session.store);
    FormEditor* f = OpenEditor(m);
    ASSERT_NE(f, nullptr);
    f->resize(1250, 520);
    QApplication::processEvents();
    auto* listTrack = f->findChild<QListWidget*>("ListTrack");
    auto* listRoute = f->findChild<QListWidget*>("ListRoute");
    auto* header = f->grid()->horizontalHeader();

    // Computed columns in black on the inactive border colour, fields plain.
    const QModelIndex computed = f->model()->index(0, 10), field = f->model()->index(0, 2);
    EXPECT_EQ(f->model()->data(computed, Qt::BackgroundRole).value<QColor>(), EditorTableModel::computedBackground());
    EXPECT_EQ(f->model()->data(computed, Qt::ForegroundRole).value<QColor>(), QColor(Qt::black));
    EXPECT_FALSE(f->model()->data(field, Qt::BackgroundRole).isValid());
    EXPECT_EQ(f->model()->headerData(13, Qt::Horizontal, Qt::DisplayRole).toString(), Text(" Höhe"));

    // Every column wide enough for its heading and for the first row's text.
    auto fits = [&](const char* view) {
        const QFontMetrics cellFm = f->grid()->fontMetrics(), headFm = header->fontMetrics();
        for (int c = 0; c < f->model()->columnCount(); ++c) {
            const QString head = f->model()->headerData(c, Qt::Horizontal, Qt::DisplayRole).toString();
            EXPECT_GE(header->sectionSize(c), headFm.horizontalAdvance(head) + 8) << view << " " << c;
            for (int r = 0; r < std::min(3, f->model()->rowCount()); ++r)
                EXPECT_GE(header->sectionSize(c), cellFm.horizontalAdvance(Cell(*f, r + 1, c)) + 6)
                    << view << " " << c << " " << Cell(*f, r + 1, c).toStdString();
        }
    };
    fits("track");
    EXPECT_FALSE(SavedShot(*f, "FormEditor-Track.png").isEmpty());

    // The second track from the list, its name in the name box; a change of
    // the name reaches the store at once.
    listTrack->setCurrentRow(1);
    EXPECT_EQ(f->editor().element(), 1);
    EXPECT_EQ(f->model()->rowCount(), 1);
    auto* name = f->findChild<QLineEdit*>("TextTrackName");
    EXPECT_EQ(name->text(), "Abend");
    name->selectAll();
    QTest::keyClicks(name, "Nacht");
    EXPECT_EQ(m.session.store.Tracks[1].Name, "Nacht");

    f->findChild<QRadioButton*>("OptionNMEA1")->click();
    EXPECT_EQ(f->editor().view(), EditorView::Route);
    EXPECT_TRUE(listRoute->isVisible());
    EXPECT_FALSE(listTrack->isVisible());
    EXPECT_EQ(f->findChild<QLineEdit*>("TextRouteName")->text(), "Tour");
    EXPECT_EQ(f->model()->columnCount(), 13);
    EXPECT_EQ(Cell(*f, 1, 3), "Start");
    EXPECT_EQ(f->model()->data(f->model()->index(0, 11), Qt::BackgroundRole).value<QColor>(),
              EditorTableModel::computedBackground());
    fits("route");
    EXPECT_FALSE(SavedShot(*f, "FormEditor-Route.png").isEmpty());

    m.session.store.WayPoints[1].ForeColor = 255;
    m.session.store.WayPoints[1].BackColor = 65280;
    f->findChild<QRadioButton*>("OptionNMEA2")->click();
    EXPECT_EQ(f->editor().view(), EditorView::Waypoint);
    EXPECT_FALSE(listRoute->isVisible());
    EXPECT_FALSE(listTrack->isVisible());
    EXPECT_EQ(f->model()->headerData(0, Qt::Horizontal, Qt::DisplayRole).toString(), Text("Lfd."));
    EXPECT_EQ(Cell(*f, 1, 3), Text("Hütte"));
    // The colour sample: "X" in the waypoint's colours.
    EXPECT_EQ(Cell(*f, 2, 10), "X");
    EXPECT_EQ(f->model()->data(f->model()->index(1, 10), Qt::ForegroundRole).value<QColor>(), QColor(255, 0, 0));
    EXPECT_EQ(f->model()->data(f->model()->index(1, 10), Qt::BackgroundRole).value<QColor>(), QColor(0, 255, 0));
    fits("waypoint");
    EXPECT_FALSE(SavedShot(*f, "FormEditor-Waypoint.png").isEmpty());

    f->findChild<QRadioButton*>("OptionNMEA0")->click();
    EXPECT_EQ(f->editor().view(), EditorView::Track);
    EXPECT_EQ(f->editor().element(), 1);
}

TEST(EditorForm, GridFillsTheWindowBelowTheControlsAndSmallSizesLeaveItAlone) {
    // The rule in numbers: 4 px from the left, the top given, filling the
    // rest less 4 px; a width or height of 7 px or less is left as it was.
    const QRect was(4, 70, 300, 200);
    EXPECT_EQ(FormEditor::gridPlace({800, 600}, was, 4, 70, 7), QRect(4, 70, 792, 526));
    EXPECT_EQ(FormEditor::gridPlace({14, 600}, was, 4, 70, 7), QRect(4, 70, 300, 526));
    EXPECT_EQ(FormEditor::gridPlace({800, 80}, was, 4, 70, 7), QRect(4, 70, 792, 200));
    EXPECT_EQ(FormEditor::gridPlace({15, 81}, was, 4, 70, 7), was);
    EXPECT_EQ(FormEditor::gridPlace({16, 82}, was, 4, 70, 7), QRect(4, 70, 8, 8));

    StartedMainForm m;
    FillStore(m.session.store);
    FormEditor* f = OpenEditor(m);
    ASSERT_NE(f, nullptr);
    for (QSize size : {QSize(900, 500), QSize(1300, 760)}) {
        f->resize(size);
        QApplication::processEvents();
        const QWidget* area = f->centralWidget();
        const QRect g = f->grid()->geometry();
        EXPECT_EQ(g.left(), 4);
        EXPECT_EQ(g.width(), area->width() - 8);
        EXPECT_EQ(g.top() + g.height(), area->height() - 4);
        // Below every control above it.
        for (const char* c : {"ListTrack", "TextTrackName", "CommandTrackAnalyse", "OptionNMEA2"}) {
            const QWidget* w = f->findChild<QWidget*>(c);
            EXPECT_LE(w->mapTo(area, QPoint(0, w->height())).y(), g.top()) << c;
            EXPECT_LE(w->mapTo(area, QPoint(w->width(), 0)).x(), area->width()) << c;
        }
    }
}

}  // namespace
}  // namespace ortelix
