// The settings page of the export form: its number fields, switches and
// lists bound to the options, the rules between them, "Speichern" and
// "Grundeinstellung".
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include "appformats/ModuleTop50Karte.h"
#include "forms/FormMapExp.h"
#include "forms/WheelGuard.h"
#include "mapexport/ModKarteFlaeche.h"

namespace ortelix {

namespace {

QString Q(const char* utf8) { return QString::fromUtf8(utf8); }
QString Q(const std::string& s) { return QString::fromStdString(s); }

struct Caption {
    const char* caption;
    const char* tip;
};

// ZahlInput(i): caption before the field and its tip. Fields 1 and 2 take
// their caption from Check(5) (km or pixels).
constexpr Caption kZahlen[9] = {
    {"Meter pro Pixel", "Wert mal 10.000 entspricht in etwa dem Kartenmaßtab."},
    {"Kartenseite [km]", "maximale Kartengröße"},
    {"Überlappung [km]", "Überlappung der einzelnen Kartenstücke"},
    {"warte auf MagicMaps ", nullptr},
    {"Kartenexport Verzögerungsaktor", "Die Pausen beim Kartenexport werden mit diesem Wert multipliziert"},
    {"[%] Maßstab", "Kartenbilder werden mit Photoshop verkleinert"},
    {"Google Earth", "Zeit für das Sreaming zum Bildaufbau"},
    {"Maßstab [Meter pro Pixel]", "Voreinstellung zum Teilen der Karten"},
    {"Ozi MovingMap [Pix]", "Ozi Karte wird vor Erreichen des Kartenrandes gewechselt"},
};

constexpr Caption kChecks[21] = {
    {"Ortelix im Vordergrund halten", "Bei manchen Grafikkarten kann es zu Bildfehlern kommen"},
    {"Photoshop Script ausführen", nullptr},
    {"keine Kartenteile außerhalb ", "Kartenteile, die außerhalb des Flächenbereiches liegen, werden nicht erzeugt"},
    {"Komprimiert", nullptr},
    {"keine leeren MagcMaps Kacheln", "Kacheln und Kartenteile außerhalb der MagicMaps Karte werden übersprungen"},
    {"km/Pixel", "Werte sind km oder Pixel"},
    {"Photoshop verwenden", "Photoshop wird über API ferngesteuert"},
    {"PathAway Karten erzeugen", nullptr},
    {"Tracks", nullptr},
    {"Routen", nullptr},
    {"Wegepunkte", nullptr},
    {"Karten teilen", "Die Karte wird in mehrere kleinere Teilstücke aufgeteilt."},
    {"Komplette Karte exportieren", "Es wird eine Vorlage mit Flächen geladen."},
    {"MapStitcher starten", nullptr},
    {"Photoshop Bild-Optimierung", nullptr},
    {"Google Earth Version 3", nullptr},
    {"Karte automatisch wählen", "Die warscheinlichste Top50 Karte wird ausgewählt."},
    {"frei17", "Es wird eine *.geo  Kalibrierungsdatei erzeugt"},
    {"Meridian 12", "Nur bei der CD Bayern Haken setzen"},
    {"1:50.000", "Es wird eine größere Kartenfläche exportiert."},
    {"1:70.000", "Es wird eine größere Kartenfläche exportiert."},
};

QLabel* Note(QWidget* parent, const char* text) {
    auto* l = new QLabel(Q(text), parent);
    l->setWordWrap(true);
    return l;
}

QGroupBox* Group(QWidget* parent, const char* caption) {
    auto* g = new QGroupBox(Q(caption), parent);
    new QVBoxLayout(g);
    return g;
}

}  // namespace

QCheckBox* FormMapExp::addCheck(QWidget* parent, int index) {
    const Caption& c = kChecks[index];
    auto* box = new QCheckBox(Q(c.caption), parent);
    box->setObjectName(QString("Check%1").arg(index));
    if (c.tip) box->setToolTip(Q(c.tip));
    int& option = session_.options.MapExpCheck[static_cast<size_t>(index)];
    connect(box, &QCheckBox::toggled, this, [&option](bool on) { option = on ? 1 : 0; });
    // The rules follow what the user does, not a refresh.
    connect(box, &QCheckBox::clicked, this, [this, index] { checkClicked(index); });
    loaders_.push_back([box, &option] { box->setChecked(option != 0); });
    checks_[static_cast<size_t>(index)] = box;
    parent->layout()->addWidget(box);
    return box;
}

QLineEdit* FormMapExp::addZahl(QWidget* parent, int index) {
    const Caption& c = kZahlen[index];
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(QString("ZahlInput%1").arg(index));
    if (c.tip) edit->setToolTip(Q(c.tip));
    edit->setMaximumWidth(80);
    auto* label = new QLabel(Q(c.caption), parent);
    label->setObjectName(QString("LabelZahl%1").arg(index));
    std::string& option = session_.options.ZahlInput[static_cast<size_t>(index)];
    connect(edit, &QLineEdit::textEdited, this, [this, index, &option](const QString& t) {
        option = t.toStdString();
        zahlEdited(index);
    });
    loaders_.push_back([edit, &option] {
        const QString t = Q(option);
        if (edit->text() != t) edit->setText(t);
    });
    zahlen_[static_cast<size_t>(index)] = edit;
    zahlLabels_[static_cast<size_t>(index)] = label;
    auto* row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(edit);
    row->addStretch(1);
    static_cast<QBoxLayout*>(parent->layout())->addLayout(row);
    return edit;
}

QComboBox* FormMapExp::addList(QWidget* parent, int index, const QStringList& entries) {
    auto* list = new QComboBox(parent);
    list->setObjectName(QString("List%1").arg(index));
    list->addItems(entries);
    int& option = session_.options.MapExpList[static_cast<size_t>(index)];
    connect(list, &QComboBox::activated, this, [&option](int row) { option = row; });
    loaders_.push_back([list, &option] { list->setCurrentIndex(option < list->count() ? option : -1); });
    lists_[static_cast<size_t>(index)] = list;
    parent->layout()->addWidget(list);
    return list;
}

QScrollArea* FormMapExp::buildSettingsPage() {
    auto* inside = new QWidget;
    auto* grid = new QGridLayout(inside);
    grid->addWidget(buildNumbers(), 0, 0);
    grid->addWidget(buildChecks(), 0, 1);
    grid->addWidget(buildLists(), 0, 2);
    auto* buttons = new QHBoxLayout;
    auto* store = new QPushButton(Q("Speichern"), inside);
    store->setObjectName("CmdMapExpStore");
    auto* reset = new QPushButton(Q("Grundeinstellung"), inside);
    reset->setObjectName("CmdMapExpRes");
    auto* back = new QPushButton(Q("Zurück"), inside);
    back->setObjectName("CmdMapExpSetUpEnde");
    buttons->addWidget(store);
    buttons->addWidget(reset);
    buttons->addStretch(1);
    buttons->addWidget(back);
    grid->addLayout(buttons, 1, 0, 1, 3);
    connect(store, &QPushButton::clicked, this, [this] { runCommand("MenMapExpStore"); });
    connect(reset, &QPushButton::clicked, this, [this] { runCommand("MenMapExpRes"); });
    connect(back, &QPushButton::clicked, this, [this] { showSettings(false); });

    auto* area = new QScrollArea(this);
    area->setObjectName("FrameMapExpSetUp");
    area->setWidget(inside);
    area->setWidgetResizable(true);
    GuardWheel(area);
    return area;
}

QWidget* FormMapExp::buildNumbers() {
    auto* col = new QWidget;
    auto* layout = new QVBoxLayout(col);
    layout->setContentsMargins(0, 0, 0, 0);
    QGroupBox* teilen = Group(col, "Karten teilen");
    addCheck(teilen, 11);
    addCheck(teilen, 5);
    addZahl(teilen, 1);
    addZahl(teilen, 2);
    addZahl(teilen, 7);
    addZahl(teilen, 0);
    addCheck(teilen, 2);
    layout->addWidget(teilen);

    QGroupBox* pause = Group(col, "zusätzliche Pause für langsame Rechner");
    addZahl(pause, 3);
    static_cast<QBoxLayout*>(zahlen_[3]->parentWidget()->layout()->itemAt(0)->layout())
        ->insertWidget(2, new QLabel(Q("Sekunden"), pause));
    addZahl(pause, 4);
    pause->layout()->addWidget(
        Note(pause, "größer 1 langsam aber sicher; kleiner 1 schneller aber problematisch"));
    layout->addWidget(pause);

    QGroupBox* weitere = Group(col, "Kartenbilder");
    addZahl(weitere, 5);
    addZahl(weitere, 6);
    static_cast<QBoxLayout*>(weitere->layout()->itemAt(1)->layout())->insertWidget(2, new QLabel(Q("Sekunden"), weitere));
    addZahl(weitere, 8);
    layout->addWidget(weitere);
    layout->addStretch(1);
    return col;
}

QWidget* FormMapExp::buildChecks() {
    auto* col = new QWidget;
    auto* layout = new QVBoxLayout(col);
    layout->setContentsMargins(0, 0, 0, 0);
    QGroupBox* allgemein = Group(col, "Kartenexport");
    for (int i : {0, 16, 12, 4, 18}) addCheck(allgemein, i);
    allgemein->layout()->addWidget(
        Note(allgemein, "nur bei der MagicMaps CD Bayern Haken setzen  (NICHT bei der DVD Bayern)"));
    for (int i : {15, 17, 19, 20}) addCheck(allgemein, i);
    layout->addWidget(allgemein);

    QGroupBox* nachher = Group(col, "Nachbearbeitung");
    for (int i : {6, 1, 14, 13, 7, 3}) addCheck(nachher, i);
    auto* ps = new QPushButton(Q("PS App Suchen"), nachher);
    ps->setObjectName("CmdFindPSExe");
    ps->setEnabled(false);  // the image editor is not driven yet
    nachher->layout()->addWidget(ps);
    layout->addWidget(nachher);

    QGroupBox* unbenutzt = Group(col, "Unbenutzt");
    for (int i : {8, 9, 10}) addCheck(unbenutzt, i);
    layout->addWidget(unbenutzt);
    layout->addStretch(1);
    return col;
}

QWidget* FormMapExp::buildLists() {
    auto* col = new QWidget;
    auto* layout = new QVBoxLayout(col);
    layout->setContentsMargins(0, 0, 0, 0);
    QGroupBox* swiss = Group(col, "Swiss Map Maßstab");
    addList(swiss, 0,
            {"1:20.000", "1:50.000", "1:200.000", "1:300.000 Satellitenbild", "1:1.000.000",
             Q("1:2.000.000 Kantonskarte")})
        ->setToolTip(Q("Dieser Maßstab muss auch im SwissMap-Viewer gewählt werden."));
    layout->addWidget(swiss);
    QGroupBox* farben = Group(col, "PathAway Farben");
    addList(farben, 1, {"65536 Farben", "256 Farben", "16 Farben", "Grau", Q("Schwarzweiß")});
    layout->addWidget(farben);
    QGroupBox* typ = Group(col, "Bilddateityp");
    addList(typ, 2, {Q("unverändert"), "ozf2", "gif", "tif", "ecw", "jpg"})
        ->setToolTip(Q("In den Kalibrierungsdateien werden andere Bilddateitypen eingetragen."));
    typ->layout()->addWidget(Note(typ, "Nur wenn Sie das Kartenbild nachträglich in ein anderes Bildformat "
                                       "wandeln, darf die Dateierweiterung geändert werden."));
    layout->addWidget(typ);
    // The maps of magicmaps.dat come with the MagicMaps export.
    QGroupBox* mm = Group(col, "MagicMaps Karte");
    addList(mm, 3, {})->setToolTip(Q("MagicMaps Karte auswählen"));
    layout->addWidget(mm);
    QGroupBox* stitch = Group(col, "MapStitcher Farbtiefe");
    addList(stitch, 4, {"8 bit", "15 bit", "16 bit", "24 bit", "32 bit"})
        ->setToolTip(Q("MapStitcher erzeugt Bilddateien mit dieser Farbtiefe"));
    layout->addWidget(stitch);
    for (QGroupBox* g : {swiss, farben, typ, mm, stitch}) g->setMaximumWidth(260);
    layout->addStretch(1);
    return col;
}

// The captions and enabled states that follow the switches.
void FormMapExp::applyRules() {
    const Options& o = session_.options;
    const bool pixel = o.MapExpCheck[5] != 0;
    zahlLabels_[1]->setText(Q(pixel ? "Kartenseite [Pix]" : "Kartenseite [km]"));
    zahlLabels_[2]->setText(Q(pixel ? "Überlappung [Pix]" : "Überlappung [km]"));
    zahlen_[7]->setEnabled(pixel);
    zahlLabels_[7]->setVisible(pixel);
    lists_[3]->setEnabled(o.MapExpCheck[4] != 0 || o.MapExpCheck[12] != 0);
    // Metres per pixel count where the export draws the picture itself.
    const KartenFrame f = session_.plan.Frame;
    zahlen_[0]->setEnabled(f != KartenFrame::Top50 && f != KartenFrame::Tk25 && f != KartenFrame::Swiss);
}

void FormMapExp::checkClicked(int index) {
    Options& o = session_.options;
    applyRules();
    if (index == 16) {
        // The main form's automatic map choice is this switch.
        o.Check[0] = o.MapExpCheck[16];
        if (o.Check[0] != 0) KarteAutomatisch(session_);
    } else if (index == 18) {
        session_.plan.KartenMeridian = o.MapExpCheck[18] != 0 ? 12 : 9;
    } else {
        return;
    }
    const int nr = session_.plan.TeilNummer;
    TeileAlleFlaechen(session_, session_.plan.KartenMeridian);
    if (index == 16) SortiereKarten(session_);
    session_.plan.TeilNummer = nr;
    showPlan();
}

void FormMapExp::zahlEdited(int index) {
    if (index != 0) showPart(session_.plan.TeilNummer);
}

}  // namespace ortelix
