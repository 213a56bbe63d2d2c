#include "commands/StartUp.h"

#include "coordinates/Datum.h"
#include "core/ModulMain.h"
#include "core/Session.h"
#include "core/Settings.h"

namespace ortelix {

std::string StartUp(Session& s) {
    HelmertEinlesen(s);
    ClearStore(s.store);
    s.UserAbort = false;
    RestoreSettings(s, MapStitcherFound(s));
    return s.platform.tempFolder();
}

void EndProgram(Session& s) { SaveSettings(s); }

}  // namespace ortelix
