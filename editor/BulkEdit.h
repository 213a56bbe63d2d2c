#pragma once
// The row commands of the editor's menu "Bearbeiten": delete the shown
// element, delete or insert rows, a new element, and the split at a row.
// Each changes the store and shows the grid again through the editor.
#include "editor/BulkTarget.h"

namespace ortelix {

// "Alles löschen": the shown track or route, or every waypoint, after a
// yes/no box. False when the user said no.
bool AllesLoeschen(Session& s, ModuleEditor& ed);
// "Zeile löschen": the marked elements.
void ZeileLoeschen(Session& s, ModuleEditor& ed, Marked m);
// "Zeile einfügen": one empty element at the current row (Lat and Lon 0).
void ZeileEinfuegen(Session& s, ModuleEditor& ed, int row);
// "Datensätze erweitern": a new empty track or route, shown at once.
void DatensaetzeErweitern(Session& s, ModuleEditor& ed);
// "Datesätze trennen": the points from the row on become a new track or
// route, which is then shown. False when nothing was split.
bool DatensaetzeTrennen(Session& s, ModuleEditor& ed, int row);

}  // namespace ortelix
