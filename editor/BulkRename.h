#pragma once
// The menu "Umbenennen": names and descriptions of the route view (the shown
// route) and the waypoint view; the track view has no names and is left
// alone. The two captions "Beschreibung wird Name" and "Name wird
// Beschreibung" read the other way round from what they do: that stands.
#include "editor/BulkTarget.h"

namespace ortelix {

// "Name <> Beschreibung".
bool NameBeschreibungTauschen(Session& s, ModuleEditor& ed);
// "Beschreibung wird Name": Desc takes the name, after a yes/no box.
bool BeschreibungWirdName(Session& s, ModuleEditor& ed);
// "Name wird Beschreibung": Name takes the description, after a yes/no box.
bool NameWirdBeschreibung(Session& s, ModuleEditor& ed);
// "Lfd Nummer als Name": R01P001 in a route, WP001 for waypoints.
bool LfdNummerAlsName(Session& s, ModuleEditor& ed);
// "Namen kürzen": to a length asked for (characters, not bytes).
bool NamenKuerzen(Session& s, ModuleEditor& ed);
// "Umlaute ersetzen", "UTF8 zu ASCII", "ASCII zu UTF8" in Name and Desc.
bool UmlauteErsetzen(Session& s, ModuleEditor& ed);
bool Utf8ZuAscii(Session& s, ModuleEditor& ed);
bool AsciiZuUtf8(Session& s, ModuleEditor& ed);
// "Trackname aus Datum": every track named by a text, "_" and the date of
// its first point ("Tour_2006-02-16").
bool TracknameAusDatum(Session& s, ModuleEditor& ed);

}  // namespace ortelix
