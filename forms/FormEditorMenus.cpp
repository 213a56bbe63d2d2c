// The editor's menus: "Bearbeiten" with the clipboard commands of the grid,
// which the right mouse button also opens, and the bulk commands of
// "Bearbeiten", "Übertragen", "Umbenennen" and "Projektion". Each entry calls
// one function of the editor's core; the form then shows the store again.
#include <QAction>
#include <QGuiApplication>
#include <QMenu>
#include <QMenuBar>
#include <string_view>

#include "core/Session.h"
#include "editor/BulkColours.h"
#include "editor/BulkEdit.h"
#include "editor/BulkHeights.h"
#include "editor/BulkMove.h"
#include "editor/BulkProjection.h"
#include "editor/BulkRename.h"
#include "editor/BulkTimes.h"
#include "editor/BulkTransfer.h"
#include "editor/BulkTtqv.h"
#include "editor/ModDigiCam.h"
#include "editor/ModuleEditor.h"
#include "editor/WebLinks.h"
#include "forms/EditorTableModel.h"
#include "forms/FormEditor.h"
#include "forms/FormMain.h"
#include "forms/FormTrackZeit.h"
#include "forms/FrameTable.h"
#include "forms/FrameWPColor.h"

namespace ortelix {

QMenu* FormEditor::bulkMenu(const char* name, const char* caption, const std::vector<BulkEntry>& entries) {
    QMenu* m = menuBar()->addMenu(QString::fromUtf8(caption));
    m->setObjectName(name);
    m->setToolTipsVisible(true);
    for (const BulkEntry& e : entries) addBulk(m, e);
    return m;
}

QAction* FormEditor::addBulk(QWidget* in, const BulkEntry& e) {
    auto* a = new QAction(QString::fromUtf8(e.caption), in);
    a->setObjectName(e.control);
    if (e.run) {
        connect(a, &QAction::triggered, this, [this, run = e.run] { runBulk(run); });
    } else {
        a->setEnabled(false);
        a->setToolTip(QString::fromUtf8(kNotAvailable));
    }
    in->addAction(a);
    return a;
}

void FormEditor::runBulk(const std::function<void()>& command) {
    commitPending();
    // The command fills the editor again itself; its boxes come up while the
    // grid still shows the old rows.
    command();
    model_->refill([] {});
    showLists();
    afterFill();
}

void FormEditor::buildMenus() {
    QMenuBar* bar = menuBar();
    menEditBearbeiten_ = bar->addMenu("Bearbeiten");
    menEditBearbeiten_->setObjectName("MenEditBearbeiten");
    menEditBearbeiten_->setToolTipsVisible(true);
    auto add = [this](const char* name, const char* caption, auto slot) {
        QAction* a = menEditBearbeiten_->addAction(QString::fromUtf8(caption));
        a->setObjectName(name);
        connect(a, &QAction::triggered, this, slot);
        return a;
    };
    add("MenCopy", "kopieren", [this] { runClipboard(&ModuleEditor::kopieren); });
    add("MenCut", "ausschneiden", [this] { runClipboard(&ModuleEditor::ausschneiden); });
    add("MenDel", "löschen", [this] { runClipboard(&ModuleEditor::loeschen); });
    QAction* ins = add("MenIns", "einfügen", [this] { paste(); });
    // "Datensätze löschen" stands in the menu and does nothing.
    QAction* arr = menEditBearbeiten_->addAction(QString::fromUtf8("Datensätze löschen"));
    arr->setObjectName(QString::fromUtf8("MenArrLöschen"));
    arr->setEnabled(false);
    menEditBearbeiten_->addSeparator();
    // Nothing to paste before something was copied.
    connect(menEditBearbeiten_, &QMenu::aboutToShow, this, [this, ins] { ins->setEnabled(editor_->hasCopy()); });

    Session& s = session_;
    ModuleEditor& ed = *editor_;
    auto marked = [this] {
        const GridRect g = selection();
        return Marked{g.row1, g.row2};
    };
    const std::vector<BulkEntry> bearbeiten = {
        {"MenEdKoordClip", "Koordinaten in Zwischenablage für TTQV",
         [&s, &ed, marked] { KoordinatenInZwischenablage(s, ed, marked().row); }},
        {"MenEdWpVonVlip", "Neuer Waypoint aus TTQV-Zwischenablage", [&s, &ed] { NeuerWaypointAusZwischenablage(s, ed); }},
        {"MenEdDelAlles", "Alles löschen", [&s, &ed] { AllesLoeschen(s, ed); }},
        {"MenZeileDel", "Zeile löschen", [&s, &ed, marked] { ZeileLoeschen(s, ed, marked()); }},
        {"MenZeileIns", "Zeile einfügen", [&s, &ed, marked] { ZeileEinfuegen(s, ed, marked().row); }},
        {"MenArrErweitern", "Datensätze erweitern", [&s, &ed] { DatensaetzeErweitern(s, ed); }},
        {"MenArrTrennen", "Datesätze trennen", [&s, &ed, marked] { DatensaetzeTrennen(s, ed, marked().row); }},
        {"MenGeoidKorr", "Geoid Höhenkorrektur", [&s, &ed] { GeoidHoehenkorrektur(s, ed); }},
        {"MenHochKorr", "Höhenwerte korrigieren", [&s, &ed] { HoehenwerteKorrigieren(s, ed); }},
        {"MenStdKorrektur", "GPS-Zeit nach Ortszeit", [&s, &ed] { GpsZeitNachOrtszeit(s, ed); }},
        {"MenEdZeitNeu", "Zeiten neu berechnen", [&s, &ed] { ZeitenNeuBerechnen(s, ed); }},
        {"EdWPbeiZeit", "Waypoint bei Zeitpunkt", [&s, &ed] { WaypointBeiZeitpunkt(s, ed); }},
        {"MenFarbwWP", "Farbe Waypoints ändern", [this] { showColourPanel(); }},
    };
    for (const BulkEntry& e : bearbeiten) addBulk(menEditBearbeiten_, e);
    menEditBearbeiten_->addSeparator();
    // The photos' waypoints; the waypoint view shows them at once.
    addBulk(menEditBearbeiten_, {"MenEdDigiCam", "Digicam", [&s, &ed] {
                                     DigiCam(s);
                                     ed.refill();
                                 }});

    bulkMenu("MenUebertragen", "Übertragen",
             {{"MenTPzuW", "Trackpoint zu Waypoint", [&s, &ed, marked] { TrackpointZuWaypoint(s, ed, marked().row); }},
              {"MenRpToWp", "Routepoint zu Waypoint", [&s, &ed, marked] { RoutepointZuWaypoint(s, ed, marked().row); }},
              {"MenTrzuRt", "Track zu Route", [&s, &ed] { TrackZuRoute(s, ed); }},
              {"MenTrZuWp", "Track zu Waypoint", [&s, &ed] { TrackZuWaypoint(s, ed); }},
              {"MenRzuTr", "Route zu Track", [&s, &ed] { RouteZuTrack(s, ed); }},
              {"MenRzuW", "Route zu Waypoint", [&s, &ed] { RouteZuWaypoint(s, ed); }},
              {"MenWzuR", "Waypoint zu Route", [&s, &ed] { WaypointZuRoute(s, ed); }}});
    bulkMenu("MenUmbenennen", "Umbenennen",
             {{"MenNB", "Name <> Beschreibung", [&s, &ed] { NameBeschreibungTauschen(s, ed); }},
              {"MenNamNachDesc", "Beschreibung wird Name", [&s, &ed] { BeschreibungWirdName(s, ed); }},
              {"MenDescNachNam", "Name wird Beschreibung", [&s, &ed] { NameWirdBeschreibung(s, ed); }},
              {"MenNamNum", "Lfd Nummer als Name", [&s, &ed] { LfdNummerAlsName(s, ed); }},
              {"MenNamCut", "Namen kürzen", [&s, &ed] { NamenKuerzen(s, ed); }},
              {"MenUml", "Umlaute ersetzen", [&s, &ed] { UmlauteErsetzen(s, ed); }},
              {"MenUTF8toASCII", "UTF8 zu ASCII", [&s, &ed] { Utf8ZuAscii(s, ed); }},
              {"MenASCIItoUTF8", "ASCII zu UTF8", [&s, &ed] { AsciiZuUtf8(s, ed); }},
              {"MenNeuTrackZeit", "Neue Trackzeiten", [this] { openTrackZeit(); }},
              {"MenTrackNameAusdat", "Trackname aus Datum", [&s, &ed] { TracknameAusDatum(s, ed); }}});
    bulkMenu("MenProjektion", "Projektion",
             {{"MenDat2WGS", "Datum > WGS84", [&s, &ed] { DatumNachWgs84(s, ed); }},
              {"MenWGS2Dat", "WGS84 > Datum", [&s, &ed] { Wgs84NachDatum(s, ed); }},
              {"MenHelm", "Datum wählen", [this] {
                   if (auto* main = qobject_cast<FormMain*>(parentWidget())) {
                       main->ShowFrame(kFrameDatum);
                       main->raise();
                       main->activateWindow();
                   }
               }}});
    addBulk(bar, {"MenEdVerschieben", "Verschieben", [&s, &ed, marked] { Verschieben(s, ed, marked()); }});
    QAction* end = bar->addAction("Ende");
    end->setObjectName("MenEditEnde");
    connect(end, &QAction::triggered, this, &QWidget::close);
}

void FormEditor::showColourPanel() {
    if (!colourPanel_) {
        colourPanel_ = new FrameWPColor(centralWidget(), [this](int32_t fore, int32_t back) {
            runBulk([this, fore, back] {
                const GridRect g = selection();
                FarbeWaypoints(session_, *editor_, {g.row1, g.row2}, fore, back);
            });
        });
        colourPanel_->adjustSize();
    }
    colourPanel_->move(centralWidget()->width() - colourPanel_->width() - 8, 8);
    colourPanel_->show();
    colourPanel_->raise();
}

void FormEditor::openTrackZeit() {
    if (editor_->view() != EditorView::Track) return;
    FormTrackZeit form(this);
    if (form.exec() != QDialog::Accepted) return;
    NeueTrackzeiten(session_, editor_->element(), form.wahl());
    editor_->refill();
}

void FormEditor::showWebMap(Qt::KeyboardModifiers keys) {
    WebKeys k;
    k.shift = keys.testFlag(Qt::ShiftModifier);
    k.ctrl = keys.testFlag(Qt::ControlModifier);
    k.alt = keys.testFlag(Qt::AltModifier);
    InternetKarteZeigen(session_, *editor_, selection().row2, k);
}

}  // namespace ortelix
