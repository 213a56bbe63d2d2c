#include "forms/FramesTop50.h"

#include <QEvent>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>

#include "appformats/ModuleTop50Karte.h"
#include "core/Session.h"
#include "forms/FixedListTexts.h"
#include "forms/OptionsFrame.h"

namespace ortelix {

namespace {
const QString kTransparent = "Transparent";
const QString kZoom = "Zoom";
const QString kZoomTip = "Symbolgröße it Maßstabsabhängig";

OptionsFrame* Frame(Session& s, QWidget* parent, const char* name, const QString& caption) {
    auto* f = new OptionsFrame(s, caption, parent);
    f->setObjectName(name);
    return f;
}

QString Q(const std::string& text) { return QString::fromStdString(text); }

// Reads the options again whenever the frame is shown: the automatic choice
// moves the map list after every read and write.
class RefreshOnShow : public QObject {
public:
    explicit RefreshOnShow(OptionsFrame* frame) : QObject(frame), frame_(frame) {}
    bool eventFilter(QObject* watched, QEvent* e) override {
        if (watched == frame_ && e->type() == QEvent::Show) frame_->refresh();
        return false;
    }

private:
    OptionsFrame* frame_;
};
}  // namespace

QWidget* MakeFrameTop50Karte(Session& s, QWidget* parent) {
    auto* f = Frame(s, parent, "FrameTop50Karte", "Top50 Karte");
    f->addCheck(0, "Karte automatisch wählen", "Es wird automatisch eine Karte für den Kartenbezug im Geogrid Viewer gewählt");
    f->addList(2, "Punkt der Kartenwahl", FixedListTexts(2));
    QStringList entries;
    for (const TopKarte& k : s.options.Top50.Karten) entries << Q(TopKarteBeschreibung(k));
    if (entries.isEmpty()) {
        f->addNote("Die Kartenliste (names.dat) ist nicht geladen.");
        return f;
    }
    f->addListBox(9, "Karte für den Kartenbezug", entries);
    auto* form = static_cast<QFormLayout*>(f->layout());
    auto* beschreibung = new QLabel(f);
    beschreibung->setObjectName("LabelKarte");
    beschreibung->setWordWrap(true);
    auto* ausdehnung = new QLabel(f);
    ausdehnung->setObjectName("LabelKoordinaten");
    ausdehnung->setWordWrap(true);
    auto* karte = new QLineEdit(f);
    karte->setObjectName("Karte");
    karte->setToolTip("Interner Kartenname für Kartenbezug im Geogrid Viewer");
    form->addRow(beschreibung);
    form->addRow(ausdehnung);
    form->addRow("Karte", karte);
    QObject::connect(karte, &QLineEdit::textEdited, f,
                     [&s](const QString& t) { s.options.Top50.KarteText = t.toStdString(); });
    // A row chosen, by a click or by the options being loaded: the labels
    // describe it and the box takes its map code.
    auto* list = f->findChild<QListWidget*>("List9");
    QObject::connect(list, &QListWidget::currentRowChanged, f, [&s, beschreibung, ausdehnung, karte](int row) {
        KarteWaehlen(s, row);
        const TopKarte* k = GewaehlteKarte(s);
        beschreibung->setText(k ? Q(TopKarteBeschreibung(*k)) : QString());
        ausdehnung->setText(k ? Q(TopKarteAusdehnung(*k)) : QString());
        karte->setText(Q(Top50MapName(s)));
    });
    f->installEventFilter(new RefreshOnShow(f));
    return f;
}

QWidget* MakeFrameTop50Track(Session& s, QWidget* parent) {
    auto* f = Frame(s, parent, "FrameTop50Track", "Tracks/Flächen Top50");
    // Five sets of colour and width: the nth track takes set ((n - 1) mod 5) + 1.
    for (int set = 0; set < 5; ++set) {
        f->addList(10 + set, QString("Farbe Track %1").arg(set + 1), FixedListTexts(10));
        f->addList(15 + set, QString("Linienstärke Track %1").arg(set + 1), FixedListTexts(15));
    }
    f->addList(21, "Farbe Fläche", FixedListTexts(21));
    f->addList(20, "Linienstärke Fläche", FixedListTexts(20));
    f->addList(33, "Schriftgröße Trackname", FixedListTexts(33));
    f->addCheck(3, kTransparent);
    f->addCheck(23, kZoom, kZoomTip);
    return f;
}

QWidget* MakeFrameTop50Route(Session& s, QWidget* parent) {
    auto* f = Frame(s, parent, "FrameTop50Route", "Routen Top50");
    f->addList(22, "Farbe", FixedListTexts(22));
    f->addList(23, "Linienstärke", FixedListTexts(23));
    f->addList(32, "Schriftgröße Routenname", FixedListTexts(32));
    f->addCheck(4, kTransparent);
    f->addCheck(2, "Richtungspfeil", "Wegepunkte zeigen mit Pfeil zum nächsten Punkt");
    f->addList(24, "Pfeilform", FixedListTexts(24));
    f->addCheck(24, kZoom, kZoomTip);
    return f;
}

QWidget* MakeFrameTop50WayPoint(Session& s, QWidget* parent) {
    auto* f = Frame(s, parent, "FrameTop50WayPoint", "Waypoints Top50");
    f->addList(25, "Symbol", FixedListTexts(25));
    f->addList(26, "Farbe", FixedListTexts(26));
    f->addList(27, "Größe", FixedListTexts(27));
    f->addList(28, "Gruppe", FixedListTexts(28));
    f->addCheck(25, kZoom, kZoomTip);
    return f;
}

QWidget* MakeFrameTop50Texte(Session& s, QWidget* parent) {
    auto* f = Frame(s, parent, "FrameTop50Texte", "Texte Top50");
    f->addList(29, "Schriftgröße Name", FixedListTexts(29));
    f->addList(35, "Lage Name", FixedListTexts(35));
    f->addList(30, "Schriftgröße Beschreibung", FixedListTexts(30));
    f->addList(42, "Lage Beschreibung", FixedListTexts(42));
    f->addList(31, "Schriftgröße Information", FixedListTexts(31));
    f->addList(46, "Lage Information", FixedListTexts(46));
    f->addList(36, "Schrift", FixedListTexts(36));
    f->addCheck(5, kTransparent);
    f->addCheck(26, kZoom, kZoomTip);
    return f;
}

QWidget* MakeFrameTop50Import(Session& s, QWidget* parent) {
    auto* f = Frame(s, parent, "FrameTop50Import", "OVL Import");
    f->addNote("Als WayPoint-Description wird der Text direkt übernommen.");
    // Text(0) to (3): the description of a waypoint made of that symbol.
    const char* kinds[] = {"Bitmap", "Kreis", "Rechteck", "Dreieck"};
    for (int i = 0; i < 4; ++i) f->addText(i, kinds[i]);
    for (int i = 0; i < 4; ++i)
        f->findChild<QLineEdit*>(QString("Text%1").arg(i))
            ->setToolTip("Dieser Text wird als WayPoint-Description übernommen");
    f->addNote("Ein Top50 Text-Symbol  wird mit dem Text übernommen");
    return f;
}

}  // namespace ortelix
