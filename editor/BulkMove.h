#pragma once
// "Verschieben": the marked rows moved by a distance in metres at a course
// in degrees.
#include "editor/BulkTarget.h"

namespace ortelix {

// False when no row is marked (with the message) or a box was left empty.
bool Verschieben(Session& s, ModuleEditor& ed, Marked m);

}  // namespace ortelix
