#include "forms/FrameTrackFilter.h"

#include <QCheckBox>

#include "core/Session.h"
#include "forms/FixedListTexts.h"
#include "forms/OptionsFrame.h"

namespace ortelix {

QWidget* MakeFrameTrackFilter(Session& s, QWidget* parent) {
    auto* f = new OptionsFrame(s, "Track Filter", parent);
    f->setObjectName("FrameTrackFilter");
    f->addCheck(11, QString::fromUtf8("nur Koordinaten innerhalb der Karten übernehmen"),
                QString::fromUtf8("Nur Punkte in Deutschland und Österreich: Länge -10° bis 40°, Breite 15° bis 59°"));
    f->addList(7, "Koordinatenabstand", FixedListTexts(7));
    f->addCheck(9, "nur innerhalb dieser Zeit");
    f->addTime(0, "von", QString::fromUtf8("Eintrag über NMEA-Simulator (Cut von)"));
    f->addTime(1, "bis", "(Cut bis)");
    f->addCheck(8, "Datum, Zeit und Speed nicht übernehmen");
    f->addCheck(6, "Tracks teilen bei Trackpunkt");
    f->addNumber(1, "Punkte", QString::fromUtf8("Maximale Größe von jedem Teiltrack"));
    f->addCheck(14, "Tracks automatisch teilen wenn Unterbrechung: ");
    f->addNumber(2, "Minuten");
    f->addNumber(3, "km");
    f->addCheck(18, "Waypoint, wenn Pause >");
    f->addNumber(0, "Minuten");
    f->addCheck(12, QString::fromUtf8("Tracks anhängen"));
    f->addCheck(7, QString::fromUtf8("prüfe NMEA Checksum"));
    f->addCheck(29, QString::fromUtf8("Höhenwerte prüfen"),
                QString::fromUtf8("Der Trackpunkt wird übersprungen, wenn der Höhenwert 0 Meter beträgt"));
    f->addCheck(21, QString::fromUtf8("Geoid Höhenkorrektur"));
    // Check(22) is the second copy of the same option in another frame.
    if (auto* geoid = f->findChild<QCheckBox*>("Check21")) {
        int& copy = s.options.Check[22];
        QObject::connect(geoid, &QCheckBox::toggled, f, [&copy](bool on) { copy = on ? 1 : 0; });
    }
    f->addNumber(25, "Trackzeiten + Stunden", "Stunden werden zu den Trackzeiten addiert");
    f->refresh();
    return f;
}

}  // namespace ortelix
