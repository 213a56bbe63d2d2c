#include "forms/FrameWayPointFilter.h"

#include "core/Session.h"
#include "forms/FixedListTexts.h"
#include "forms/OptionsFrame.h"

namespace ortelix {

QWidget* MakeFrameWayPointFilter(Session& s, QWidget* parent) {
    auto* f = new OptionsFrame(s, "Waypoint Filter", parent);
    f->setObjectName("FrameWayPointFilter");
    f->addList(8, "Waypoints", FixedListTexts(8));
    f->addNumber(20, "Radius (km)");
    // Degrees and decimal minutes, in the order of the fields.
    const char* corners[] = {"Links oben", "Rechts unten", "Mittelpunkt"};
    int field = 8;
    for (const char* corner : corners) {
        f->addNote(QString::fromUtf8(corner));
        f->addNumber(field++, QString::fromUtf8("Länge Grad"));
        f->addNumber(field++, QString::fromUtf8("Länge Minuten"));
        f->addNumber(field++, "Breite Grad");
        f->addNumber(field++, "Breite Minuten");
    }
    f->refresh();
    return f;
}

}  // namespace ortelix
