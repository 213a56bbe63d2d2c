#include "commands/StartUp.h"

#include <cstdio>

#include "appformats/ModuleTop50Karte.h"
#include "coordinates/Datum.h"
#include "coordinates/Geoid.h"
#include "core/ModulMain.h"
#include "core/Session.h"
#include "core/Settings.h"

namespace ortelix {

std::string StartUp(Session& s) {
    HelmertEinlesen(s);
    TopKartenEinlesen(s);
    GeoidLaden(s);  // heights stay 0 without the grid file
    ClearStore(s.store);
    s.UserAbort = false;
    // A value of the settings file out of range takes its reset value; the
    // notice of it goes to stderr, before any window is up.
    for (const std::string& notice : RestoreSettings(s, MapStitcherFound(s)))
        std::fprintf(stderr, "%s\n", notice.c_str());
    return s.platform.tempFolder();
}

void EndProgram(Session& s) { SaveSettings(s); }

}  // namespace ortelix
