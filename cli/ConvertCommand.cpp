#include <cstdio>

#include "cli/CliCommands.h"
#include "cli/CliSession.h"
#include "commands/CommandTable.h"
#include "core/Failure.h"
#include "core/ModulShared.h"

namespace ortelix {

int ConvertCommand(const std::vector<std::string>& args) {
    CliContext ctx;
    if (!PrepareCli(ctx, args)) {
        std::fprintf(stderr, "%s\n", ctx.error.c_str());
        return 2;
    }
    if (ctx.positional.size() < 2) {
        std::fprintf(stderr, "Aufruf: ortelix convert [-i FORMAT] [-o FORMAT] [--set NAME=WERT]... EINGABE... AUSGABE\n");
        return 2;
    }
    const std::string output = ctx.positional.back();
    std::string outKey = ctx.outputFormat;
    if (outKey.empty()) outKey = LowerExtension(output);
    const Command* writer = FindFormat(outKey, CommandKind::Write);
    if (!writer) {
        std::fprintf(stderr, "%s: kein Schreibformat für \"%s\" (ortelix formats zeigt die Formate)\n", output.c_str(),
                     outKey.c_str());
        return 2;
    }
    bool ok = true;
    for (size_t i = 0; i + 1 < ctx.positional.size(); ++i) ok = ReadInput(ctx, ctx.positional[i], ctx.inputFormat) && ok;
    // What was read is written even when one input failed; the exit code tells.
    Session& s = *ctx.session;
    s.store.PendingName.clear();
    ok = RunWriter(s, CommandTitle(*writer), [&] { writer->run(s, output); }) && ok;
    return ok ? 0 : 1;
}

}  // namespace ortelix
