// ortelix convert INPUT... OUTPUT: every input into one store, the store
// into the target's format.
#include <cstdio>

#include "cli/CliCommands.h"
#include "cli/ConvertRun.h"

namespace ortelix {

int ConvertCommand(const std::vector<std::string>& args) {
    CliContext ctx;
    if (!PrepareCli(ctx, args)) {
        std::fprintf(stderr, "%s\n", ctx.error.c_str());
        return 2;
    }
    return ConvertRun(ctx, "Aufruf: ortelix convert [-i FORMAT] [-o FORMAT] [--set NAME=WERT]... EINGABE... AUSGABE");
}

}  // namespace ortelix
