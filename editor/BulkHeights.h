#pragma once
// The altitude commands of "Bearbeiten": the geoid height taken off, and a
// correction value added and a factor applied. Both act on every element of
// the shown source; an element without an altitude keeps none.
#include "editor/BulkTarget.h"

namespace ortelix {

// "Geoid Höhenkorrektur": Alt - N, whole metres. False when the user said no.
bool GeoidHoehenkorrektur(Session& s, ModuleEditor& ed);
// "Höhenwerte korrigieren": (Alt + Wert) * Faktor, whole metres. False when
// a box was left empty.
bool HoehenwerteKorrigieren(Session& s, ModuleEditor& ed);

}  // namespace ortelix
