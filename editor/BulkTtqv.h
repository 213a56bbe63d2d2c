#pragma once
// Coordinates through the system clipboard in the form TouraTech QV pastes
// and copies: "N 48.500000°, O 11.250000 °".
#include <string>

#include "editor/BulkTarget.h"

namespace ortelix {

// The clipboard text of a position. TTQV's own form: no blank before the
// first degree sign, one before the second.
std::string TtqvText(double lon, double lat);
// "Koordinaten in Zwischenablage für TTQV": the position in the columns 1
// and 2 of the grid row to the clipboard. False on a row outside the grid.
bool KoordinatenInZwischenablage(Session& s, const ModuleEditor& ed, int row);
// "Neuer Waypoint aus TTQV-Zwischenablage": a waypoint "Clip001"... at the
// clipboard's position. False when the text is no such position.
bool NeuerWaypointAusZwischenablage(Session& s, ModuleEditor& ed);

}  // namespace ortelix
