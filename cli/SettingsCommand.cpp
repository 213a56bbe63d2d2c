#include <cstdio>

#include "cli/CliCommands.h"
#include "cli/CliSession.h"
#include "core/Failure.h"
#include "core/ModulMain.h"
#include "core/Settings.h"
#include "platform/QtCommon.h"

namespace ortelix {

// "ortelix settings": every option with its name and value, as the settings
// file holds it (with --set overrides shown, not stored);
// "ortelix settings reset": the reset values, stored.
int SettingsCommand(const std::vector<std::string>& args) {
    CliContext ctx;
    if (!PrepareCli(ctx, args)) {
        std::fprintf(stderr, "%s\n", ctx.error.c_str());
        return 2;
    }
    Session& s = *ctx.session;
    if (ctx.positional.size() == 1 && ctx.positional[0] == "reset") {
        ResetSettings(s.options, MapStitcherFound(s));
        SaveSettings(s);
        const std::string problem = s.platform.settingsProblem();
        if (!problem.empty()) {
            s.platform.messageBox(FailureText(kWriteFailed, problem), "Grundeinstellung", Buttons::Ok, Icon::Critical);
            return 1;
        }
        std::printf("Die Grundeinstellung ist gespeichert: %s\n", qtcommon::SettingsPath().c_str());
        return 0;
    }
    if (!ctx.positional.empty()) {
        std::fprintf(stderr, "Aufruf: ortelix settings [--set NAME=WERT]... | ortelix settings reset\n");
        return 2;
    }
    std::printf("# %s\n", qtcommon::SettingsPath().c_str());
    for (const OptionEntry& e : ListOptions(s.options)) std::printf("%s=%s\n", e.name.c_str(), e.value.c_str());
    return 0;
}

}  // namespace ortelix
