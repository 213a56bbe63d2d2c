// The editor's menus: "Bearbeiten" with the clipboard commands of the grid,
// which the right mouse button also opens, and the menus of the bulk
// commands and the photo tool, which stand disabled until those come.
#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <string_view>

#include "editor/ModuleEditor.h"
#include "forms/FormEditor.h"
#include "forms/FormMain.h"

namespace ortelix {

namespace {

// Commands of the editor's menus that come with the bulk commands and the
// photo tool: they stand in their menus, disabled, until then.
struct PendingCommand {
    const char* control;
    const char* caption;
};

const PendingCommand kBearbeiten[] = {{"MenEdKoordClip", "Koordinaten in Zwischenablage für TTQV"},
                                      {"MenEdWpVonVlip", "Neuer Waypoint aus TTQV-Zwischenablage"},
                                      {"MenEdDelAlles", "Alles löschen"},
                                      {"MenZeileDel", "Zeile löschen"},
                                      {"MenZeileIns", "Zeile einfügen"},
                                      {"MenArrErweitern", "Datensätze erweitern"},
                                      {"MenArrTrennen", "Datesätze trennen"},
                                      {"MenGeoidKorr", "Geoid Höhenkorrektur"},
                                      {"MenHochKorr", "Höhenwerte korrigieren"},
                                      {"MenStdKorrektur", "GPS-Zeit nach Ortszeit"},
                                      {"MenEdZeitNeu", "Zeiten neu berechnen"},
                                      {"EdWPbeiZeit", "Waypoint bei Zeitpunkt"},
                                      {"MenFarbwWP", "Farbe Waypoints ändern"},
                                      {"MenEdDigiCam", "Digicam"}};
const PendingCommand kUebertragen[] = {{"MenTPzuW", "Trackpoint zu Waypoint"}, {"MenRpToWp", "Routepoint zu Waypoint"},
                                       {"MenTrzuRt", "Track zu Route"},        {"MenTrZuWp", "Track zu Waypoint"},
                                       {"MenRzuTr", "Route zu Track"},         {"MenRzuW", "Route zu Waypoint"},
                                       {"MenWzuR", "Waypoint zu Route"}};
const PendingCommand kUmbenennen[] = {{"MenNB", "Name <> Beschreibung"},
                                      {"MenNamNachDesc", "Beschreibung wird Name"},
                                      {"MenDescNachNam", "Name wird Beschreibung"},
                                      {"MenNamNum", "Lfd Nummer als Name"},
                                      {"MenNamCut", "Namen kürzen"},
                                      {"MenUml", "Umlaute ersetzen"},
                                      {"MenUTF8toASCII", "UTF8 zu ASCII"},
                                      {"MenASCIItoUTF8", "ASCII zu UTF8"},
                                      {"MenNeuTrackZeit", "Neue Trackzeiten"},
                                      {"MenTrackNameAusdat", "Trackname aus Datum"}};
const PendingCommand kProjektion[] = {
    {"MenDat2WGS", "Datum > WGS84"}, {"MenWGS2Dat", "WGS84 > Datum"}, {"MenHelm", "Datum wählen"}};

QAction* Pending(QWidget* in, const PendingCommand& c) {
    auto* a = new QAction(QString::fromUtf8(c.caption), in);
    a->setObjectName(c.control);
    a->setEnabled(false);
    a->setToolTip(QString::fromUtf8(kNotAvailable));
    return a;
}

template <size_t N>
QMenu* PendingMenu(QMenuBar* bar, const char* name, const char* caption, const PendingCommand (&commands)[N]) {
    QMenu* m = bar->addMenu(QString::fromUtf8(caption));
    m->setObjectName(name);
    m->setToolTipsVisible(true);
    for (const PendingCommand& c : commands) m->addAction(Pending(m, c));
    return m;
}

}  // namespace

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
    for (const PendingCommand& c : kBearbeiten) {
        if (std::string_view(c.control) == "MenEdDigiCam") menEditBearbeiten_->addSeparator();
        menEditBearbeiten_->addAction(Pending(menEditBearbeiten_, c));
    }
    // Nothing to paste before something was copied.
    connect(menEditBearbeiten_, &QMenu::aboutToShow, this, [this, ins] { ins->setEnabled(editor_->hasCopy()); });

    PendingMenu(bar, "MenUebertragen", "Übertragen", kUebertragen);
    PendingMenu(bar, "MenUmbenennen", "Umbenennen", kUmbenennen);
    PendingMenu(bar, "MenProjektion", "Projektion", kProjektion);
    QAction* move = Pending(bar, {"MenEdVerschieben", "Verschieben"});
    bar->addAction(move);
    QAction* end = bar->addAction("Ende");
    end->setObjectName("MenEditEnde");
    connect(end, &QAction::triggered, this, &QWidget::close);
}

}  // namespace ortelix
