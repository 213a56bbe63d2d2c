#pragma once
// The menu "Projektion": the shown source's coordinates from the chosen
// datum to WGS 84 and back. Altitudes stay as they are.
#include "editor/BulkTarget.h"

namespace ortelix {

// "Datum > WGS84" and "WGS84 > Datum", after a yes/no box titled by the
// datum. False without a chosen datum or when the user said no.
bool DatumNachWgs84(Session& s, ModuleEditor& ed);
bool Wgs84NachDatum(Session& s, ModuleEditor& ed);

}  // namespace ortelix
