#include "commands/StartUp.h"

#include "coordinates/Datum.h"
#include "coordinates/Geoid.h"
#include "core/ModulMain.h"
#include "core/Session.h"
#include "core/Settings.h"

namespace ortelix {

std::string StartUp(Session& s) {
    HelmertEinlesen(s);
    GeoidLaden(s);  // heights stay 0 without the grid file
    ClearStore(s.store);
    s.UserAbort = false;
    RestoreSettings(s, MapStitcherFound(s));
    return s.platform.tempFolder();
}

void EndProgram(Session& s) { SaveSettings(s); }

}  // namespace ortelix
