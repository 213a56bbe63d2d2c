#include "forms/FormMapExp.h"

#include <QAction>
#include <QApplication>
#include <QMenuBar>
#include <QScreen>
#include <QScrollArea>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <exception>
#include <filesystem>

#include "commands/CommandRun.h"
#include "appformats/ModOziMap.h"
#include "core/Failure.h"
#include "core/FileIO.h"
#include "core/ModulMain.h"
#include "core/Settings.h"
#include "mapexport/ModKarteFlaeche.h"
#include "platform/Platform.h"

namespace ortelix {

namespace {

QString Q(const char* utf8) { return QString::fromUtf8(utf8); }

constexpr const char* kTitle = "Kartenexport";
constexpr const char* kAreaFileFilter = "Textdatei (*.csv)|*.csv";
constexpr const char* kAreaFileReadFilter = "Textdatei (*.csv)|*.csv|Alle Dateien (*.*)|*.*";
constexpr const char* kOziMapFilter = "OziExplorer Map (*.map)|*.map";
constexpr const char* kMeridianPrompt =
    "Ausgerichtet - also gedreht - sind die Karten nach einem bestimmten (meist 9) Meridianwert. Diese Zahl "
    "müssen Sie eingeben. Wenige Karten sind nach Längen und Breitengrad gezeichnet. In diesem Fall, und wenn Sie "
    "den Meridianwert nicht wissen, klicken Sie auf ABBRECHEN.";
// Said when a planning command finds no area: the viewers' own sources of
// areas come with their exports.
constexpr const char* kNoAreas = "Keine Kartenteile: es sind keine Flächen eingelesen";

// One item of the menu "Karte". Items without a command lead into the
// viewer exports and the post-processing: they stand in the menu, disabled.
struct MenuItem {
    const char* control;
    const char* caption;
    const char* submenu;  // the items under "Flächen aus bereits eingelenenen"
};
constexpr MenuItem kMenu[] = {
    {"MapMenExpNeu", "Neu", nullptr},
    {"MenMapFlächenTxtEin", "Flächen Textdatei einlesen", nullptr},
    {"MenMapFlächenTxtAus", "Flächen Textdatei speichern", nullptr},
    {"MenFläAusEinTrack", "Tracks", "Flächen aus bereits eingelenenen"},
    {"MenFläAusEinRouten", "Routen", "Flächen aus bereits eingelenenen"},
    {"MenFläAusEinWP", "Waypoints", "Flächen aus bereits eingelenenen"},
    {"MenMapKaliInp", "Flächen aus OziMap einlesen", nullptr},
    {nullptr, nullptr, nullptr},
    {"MenMapExp1", "Top 50 Geogrid-Viewer 1.1", nullptr},
    {"MenMapExp3", "Tk25 Hessen Megatel-Viewer", nullptr},
    {"MenMapExp4", "MagicMaps", nullptr},
    {"MenMapExp2", "Swiss Map 50 v.1.0", nullptr},
    {"MenMapExp7", "Swiss Map 50 v.3", nullptr},
    {"MenMapExpSwiMapV3Quick", "Swiss Map 50 v.3 Schnellexport", nullptr},
    {"MenMapExp5", "Google Earth", nullptr},
    {"MenMergeBitMap", "RheinMain Luftbilder", nullptr},
    {"MenMapExpFindOziMap", "Kopiere Ozi Karte", nullptr},
    {"MenMergeOziMap", "ReMerge MagicMaps", nullptr},
    {"MenMap2KML", "Zeige Karte in Google Earth", nullptr},
    {nullptr, nullptr, nullptr},
    {"MapStitcherMerge", "MapStitcher ausführen", nullptr},
    {"MenPSScriptStart", "Photoshop Script ausführen", nullptr},
    {"MenMapExpToolsCal2Map", "Kalibrierung TTQV to Ozi", nullptr},
    {"MenMapExpPRCKali", "Test PRC", nullptr},
    {"MenMapExpTTQVBitmap", "Test TTQV Export in Bitmap", nullptr},
    {"MenMapExpTrackInFläche", "Hilfstrack für TTQV Multiseiten-Ausgabe", nullptr},
    {nullptr, nullptr, nullptr},
    {"MenMapExpSetUp", "Einstellungen", nullptr},
    {"MenMapExpMeri", "Karten-Meridian wählen", nullptr},
    {"MenMapExpStore", "Speichern", nullptr},
    {"MenMapExpRes", "Grundeinstellung", nullptr},
    {"MenMapHelp", "Hilfe", nullptr},
    {"MenMapExpEnde", "Ende", nullptr},
};

// The planning commands and their KartenTyp.
int TypOf(const QString& control) {
    static const std::map<QString, int> kTypen = {
        {"MenMapExp1", 1}, {"MenMapExp3", 2}, {"MenMapExp4", 3},     {"MenMapExp2", 4},
        {"MenMapExp5", 5}, {"MenMergeOziMap", 6}, {"MenMapExp7", 7},
    };
    const auto it = kTypen.find(control);
    return it == kTypen.end() ? 0 : it->second;
}

}  // namespace

FormMapExp::FormMapExp(Session& session, QWidget* owner) : QMainWindow(owner, Qt::Window), session_(session) {
    setObjectName("FormMapExp");
    setWindowTitle(Q(kTitle));
    setAttribute(Qt::WA_DeleteOnClose, false);
    pages_ = new QStackedWidget(this);
    pages_->addWidget(buildPlanPage());
    settings_ = buildSettingsPage();
    pages_->addWidget(settings_);
    setCentralWidget(pages_);
    buildMenu();
    refresh();
    showFrame(session_.plan.Frame);
    fitToContent();
}

QWidget* FormMapExp::open(Session& session, QWidget* owner) {
    if (owner)
        if (auto* form = owner->findChild<FormMapExp*>(QString(), Qt::FindDirectChildrenOnly)) {
            form->refresh();
            form->raise();
            form->activateWindow();
            return form;
        }
    return new FormMapExp(session, owner);
}

int FormMapExp::currentPage() const { return pages_->currentIndex(); }

void FormMapExp::buildMenu() {
    QMenu* karte = menuBar()->addMenu(Q("Karte"));
    karte->setObjectName("MenMapExp");
    QMenu* sub = nullptr;
    for (const MenuItem& m : kMenu) {
        if (!m.control) {
            karte->addSeparator();
            continue;
        }
        QMenu* into = karte;
        if (m.submenu) {
            if (!sub) {
                sub = karte->addMenu(Q(m.submenu));
                sub->setObjectName("MenFläAusEin");
            }
            into = sub;
        }
        QAction* a = into->addAction(Q(m.caption));
        const QString control = Q(m.control);
        a->setObjectName(control);
        connect(a, &QAction::triggered, this, [this, control] { runCommand(control); });
    }
    // What the viewer exports, the TTQV and PathAway code and the
    // post-processing do is not part of this program yet.
    for (const char* off : {"MenMapExpSwiMapV3Quick", "MenMergeBitMap", "MenMapExpFindOziMap", "MenMap2KML",
                            "MapStitcherMerge", "MenPSScriptStart", "MenMapExpToolsCal2Map", "MenMapExpPRCKali",
                            "MenMapExpTTQVBitmap", "MenMapExpTrackInFläche"})
        if (auto* a = karte->findChild<QAction*>(Q(off))) a->setEnabled(false);
}

void FormMapExp::runCommand(const QString& control) {
    for (QAction* a : menuBar()->findChildren<QAction*>(control))
        if (!a->isEnabled()) return;
    BeginCommand(session_);
    if (const int typ = TypOf(control)) return planen(typ);
    if (control == "MapMenExpNeu") return neu();
    if (control == "MenMapFlächenTxtEin") return flaechenTextEinlesen();
    if (control == "MenMapFlächenTxtAus") return flaechenTextSpeichern();
    if (control == "MenFläAusEinTrack") return flaechenAusStore(&FlaechenAusTracks);
    if (control == "MenFläAusEinRouten") return flaechenAusStore(&FlaechenAusRouten);
    if (control == "MenFläAusEinWP") return flaechenAusStore(&FlaechenAusWegepunkten);
    if (control == "MenMapKaliInp") return ozimapEinlesen();
    if (control == "MenMapExpSetUp") return showSettings(true);
    if (control == "MenMapExpMeri") return meridianWaehlen();
    if (control == "MenMapExpStore") return speichern();
    if (control == "MenMapExpRes") return grundeinstellung();
    if (control == "MenMapHelp") return OpenHelpCommand(session_, {});
    if (control == "MenMapExpEnde") close();
}

void FormMapExp::planen(int kartenTyp) {
    kartenTyp_ = kartenTyp;
    showSettings(false);
    // Types 8 and 9 have had their meridian from the area file or the .map.
    try {
        KartePlanen(session_, kartenTyp, kartenTyp == 8 || kartenTyp == 9);
    } catch (const std::exception& e) {
        message(std::string(e.what()) + " Fehler!", kTitle);
    }
    showFrame(session_.plan.Frame);
    refresh();
    if (session_.plan.KartenTeilListe.empty()) message(kNoAreas, kTitle);
}

void FormMapExp::neu() {
    NeuCommand(session_, {});
    session_.plan.KartenTeilListe.clear();
    session_.plan.TeilNummer = 0;
    showPlan();
}

void FormMapExp::flaechenTextEinlesen() {
    const FileChoice f = FileDialog(session_, "Flächen Textdatei", kAreaFileReadFilter, 1, DialogMode::Open);
    if (f.path.empty()) return;
    size_t skipped = 0;
    if (!RunReader(session_, "Flächen Textdatei", [&] { skipped = FlaechenTextdateiLesen(session_, f.path); }))
        return;
    if (skipped > 0) message(UebersprungenText(skipped), "Flächen Textdatei");
    KartenprojektionFragen(session_);
    planen(8);
}

void FormMapExp::flaechenTextSpeichern() {
    KartenprojektionFragen(session_);
    const FileChoice f = FileDialog(session_, "Flächen Textdatei schreiben", kAreaFileFilter, 1, DialogMode::Save);
    if (f.path.empty()) return;
    RunWriter(session_, "Flächen Textdatei schreiben", [&] { FlaechenTextdateiSchreiben(session_, f.path); });
}

void FormMapExp::flaechenAusStore(void (*make)(Session&, const std::string&)) {
    make(session_, {});
    planen(8);
}

void FormMapExp::ozimapEinlesen() {
    const FileChoice f = FileDialog(session_, "OziExplorer Map-Datei auswählen", kOziMapFilter, 1, DialogMode::Open);
    if (f.path.empty()) return;
    if (!RunReader(session_, "OziExplorer Map-Datei auswählen", [&] {
            const double m = OziMapMeridian(ReadFileBytes(f.path));
            if (m != 0) session_.plan.KartenMeridian = m;
            OziMapEinlesen(session_, f.path);
        }))
        return;
    planen(9);
}

void FormMapExp::mapCheck() {
    const FileChoice f =
        FileDialog(session_, "Ordner für Karten Check Dateien", "Dateiname wählen (*.*)|*.*", 1, DialogMode::Save);
    if (f.path.empty()) return;
    std::vector<std::string> written;
    if (RunWriter(session_, "Ordner für Karten Check Dateien", [&] { written = MapCheckSchreiben(session_, f.path); }))
        ReportFilesWritten(session_, written);
}

void FormMapExp::meridianWaehlen() {
    const auto answer = session_.platform.inputBox(kMeridianPrompt, "Kartenprojektion",
                                                   KartenprojektionVorgabe(session_.plan.KartenMeridian));
    session_.plan.KartenMeridian = KartenprojektionWert(answer.value_or(std::string()));
}

void FormMapExp::speichern() { SaveSettings(session_); }

void FormMapExp::grundeinstellung() {
    if (session_.platform.messageBox(kResetQuestion, kTitle, Buttons::YesNo, Icon::Question) != Answer::Yes) return;
    const std::string stitcher = session_.platform.programFolder() + "/mapstitcherc.exe";
    ResetMapExpSettings(session_.options, std::filesystem::exists(stitcher));
    refresh();
}

void FormMapExp::message(const std::string& text, const std::string& title) {
    session_.platform.messageBox(text, title, Buttons::Ok, Icon::Information);
}

void FormMapExp::showSettings(bool on) {
    pages_->setCurrentIndex(on ? 1 : 0);
    fitToContent();
}

// The window takes the size its page asks for, within the screen.
void FormMapExp::fitToContent() {
    QWidget* page = pages_->currentWidget();
    QSize want = page->sizeHint();
    if (auto* area = qobject_cast<QScrollArea*>(page); area && area->widget())
        want = area->widget()->sizeHint() + QSize(area->frameWidth() * 2 + 20, area->frameWidth() * 2 + 4);
    want.rheight() += menuBar()->sizeHint().height();
    if (const QScreen* screen = this->screen()) want = want.boundedTo(screen->availableGeometry().size());
    resize(want);
}

void FormMapExp::refresh() {
    for (const auto& load : loaders_) load();
    applyRules();
    showPlan();
}

}  // namespace ortelix
