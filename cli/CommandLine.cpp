#include "cli/CommandLine.h"

#include <cstdio>
#include <map>
#include <string_view>

#include "cli/CliCommands.h"

namespace ortelix {

int RunCommandLine(const std::vector<std::string>& args, bool& handled) {
    handled = false;
    if (args.empty()) return 0;
    const std::string& name = args[0];
    for (const CliCommand& c : CliCommands()) {
        if (name == c.name) {
            handled = true;
            return c.run(std::vector<std::string>(args.begin() + 1, args.end()));
        }
    }
    if (name == "--help" || name == "-h") {
        handled = true;
        return CliCommands().front().run({});
    }
    handled = true;
    std::fprintf(stderr, "Unbekannter Befehl: %s\n(ortelix help zeigt die Befehle)\n", name.c_str());
    return 2;
}

}  // namespace ortelix
