#include "forms/SettingsFrames.h"

#include <QCheckBox>
#include <QLabel>
#include <QLayout>
#include <QListWidget>

#include "coordinates/Datum.h"
#include "core/Session.h"
#include "forms/FixedListTexts.h"
#include "forms/OptionsFrame.h"

namespace ortelix {

namespace {
const QString kTransparent = "Transparent";

OptionsFrame* Frame(Session& s, QWidget* parent, const char* name, const QString& caption) {
    auto* f = new OptionsFrame(s, caption, parent);
    f->setObjectName(name);
    return f;
}
}  // namespace

QWidget* MakeFrameDatum(Session& s, QWidget* parent) {
    auto* f = Frame(s, parent, "FrameDatum", "Datumstransformation");
    QStringList entries;
    for (const std::string& e : DatumEintraege(s.coords)) entries << QString::fromStdString(e);
    f->addCheck(1, "Koordinaten von und nach WGS84 transformieren",
                "Beim Einlesen und Ausgeben werden die Koordinaten umgerechnet");
    if (entries.isEmpty()) {
        f->addNote("Die Datumsliste (helmert.dat) ist nicht geladen.");
        return f;
    }
    f->addListBox(44, "Auf Datum der Einganskoordinaten klicken", entries);
    // The detail box follows the chosen datum and the check box; the values
    // themselves come from the datum module.
    auto* detail = new QLabel(f);
    detail->setObjectName("HelmertDetail");
    detail->setWordWrap(true);
    detail->setTextInteractionFlags(Qt::TextSelectableByMouse);
    f->layout()->addWidget(detail);
    auto show = [&s, detail] {
        const HelmertAnzeige a = HelmertAnzeigen(s);
        QStringList lines{QString::fromStdString(a.caption)};
        for (const std::string& l : a.detail) lines << QString::fromStdString(l);
        detail->setText(lines.join("\n"));
    };
    for (auto* list : f->findChildren<QListWidget*>())
        QObject::connect(list, &QListWidget::currentRowChanged, detail, show);
    for (auto* box : f->findChildren<QCheckBox*>()) QObject::connect(box, &QCheckBox::toggled, detail, show);
    show();
    return f;
}

QWidget* MakeFrameSwissMap(Session& s, QWidget* parent) {
    auto* f = Frame(s, parent, "FrameSwissMap", "Swiss Map 50");
    f->addCheck(19, kTransparent);
    f->addCheck(20, "Text", "Name und Beschreibung erscheinten unter Waypoint");
    f->addNumber(4, "Linienstärke");
    for (int i = 0; i < 6; ++i) f->addColour(i, QString("Farbe %1").arg(i + 1));
    return f;
}

QWidget* MakeFrameTk25Track(Session& s, QWidget* parent) {
    auto* f = Frame(s, parent, "FrameTk25Track", "TK25 Hessen Track");
    f->addCheck(17, kTransparent);
    return f;
}

QWidget* MakeFrameTk25Route(Session& s, QWidget* parent) {
    auto* f = Frame(s, parent, "FrameTk25Route", "TK25 Hessen Route");
    f->addCheck(16, kTransparent);
    return f;
}

QWidget* MakeFrameTk25WayPoint(Session& s, QWidget* parent) {
    auto* f = Frame(s, parent, "FrameTk25WayPoint", "TK25 Hessen Waypoint");
    f->addCheck(15, kTransparent);
    return f;
}

QWidget* MakeFrameGoogle(Session& s, QWidget* parent) {
    auto* f = Frame(s, parent, "FrameGoogle", "Google Earth");
    f->addNumber(22, "Transparenz");
    f->addNumber(23, "Linienstärke");
    f->addNumber(24, "Höhenverstärkung");
    f->addCheck(27, "Geschwindigkeit als Höhe anzeigen");
    f->addCheck(28, "Pfad bis zum  Boden verlängern");
    return f;
}

QWidget* MakeFrameASCII(Session& s, QWidget* parent) {
    auto* f = Frame(s, parent, "FrameASCII", "Text Datei");
    f->addList(1, "Trennzeichen", FixedListTexts(1));
    f->addList(0, "Kommentarzeichen", FixedListTexts(0));
    f->addCheck(13, "Text in \" \"");
    const char* columns[] = {"Nord (Latitude) Breitengrad", "Ost (Longitude) Längengrad", "Beschreibung", "Name",
                             "Information", "Höhe (m)", "Geschwindigkeit (km/h)", "Richtung", "Datum", "Zeit",
                             "GK-Hochwert", "GK-Rechtswert", "o2 Mobilfunk", "UTM"};
    for (int i = 0; i < 14; ++i) f->addListFeld(i, QString::fromUtf8(columns[i]));
    return f;
}

}  // namespace ortelix
