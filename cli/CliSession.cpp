#include "cli/CliSession.h"

#include <cstdio>

#include "cli/DatesFlag.h"
#include "commands/CommandRun.h"
#include "commands/CommandTable.h"
#include "coordinates/Datum.h"
#include "coordinates/Geoid.h"
#include "core/Failure.h"
#include "core/ModulMain.h"
#include "core/ModulShared.h"
#include "core/Settings.h"

namespace ortelix {


bool PrepareCli(CliContext& ctx, const std::vector<std::string>& args) {
    ctx.session = std::make_unique<Session>(ctx.platform);
    // The tables of the program folder, as at start-up; then the options of
    // the settings file, so that --set overrides them.
    HelmertEinlesen(*ctx.session);
    GeoidLaden(*ctx.session);
    // A value of the settings file out of range takes its reset value; say which.
    for (const std::string& notice : RestoreSettings(*ctx.session, MapStitcherFound(*ctx.session)))
        std::fprintf(stderr, "%s\n", notice.c_str());
    std::vector<std::pair<std::string, std::string>> sets;
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        auto value = [&](std::string& into) {
            if (i + 1 >= args.size()) {
                ctx.error = "Dem Schalter " + a + " fehlt ein Wert";
                return false;
            }
            into = args[++i];
            return true;
        };
        if (a == "-i") {
            if (!value(ctx.inputFormat)) return false;
        } else if (a == "-o") {
            if (!value(ctx.outputFormat)) return false;
        } else if (a == "--set") {
            std::string kv;
            if (!value(kv)) return false;
            const size_t eq = kv.find('=');
            if (eq == std::string::npos) {
                ctx.error = "--set erwartet NAME=WERT: " + kv;
                return false;
            }
            sets.emplace_back(kv.substr(0, eq), kv.substr(eq + 1));
        } else if (a == "--dates") {
            std::string d;
            if (!value(d) || !ApplyDatesFlag(ctx.platform, d, ctx.error)) return false;
        } else if (a.size() > 1 && a[0] == '-' && a != "-") {
            ctx.error = "Unbekannter Schalter: " + a;
            return false;
        } else {
            ctx.positional.push_back(a);
        }
    }
    for (const auto& [name, val] : sets) {
        if (!SetOption(ctx.session->options, name, val)) {
            ctx.error = (OptionNameKnown(name) ? "Wert außerhalb des Bereichs: " : "Unbekannte Einstellung: ") + name +
                        "=" + val;
            return false;
        }
    }
    return true;
}

bool ReadInput(CliContext& ctx, const std::string& path, const std::string& format) {
    const std::string key = format.empty() ? LowerExtension(path) : format;
    const Command* reader = FindFormat(key, CommandKind::Read);
    if (!reader) {
        std::fprintf(stderr, "%s: kein Leseformat für \"%s\" (ortelix formats zeigt die Formate)\n", path.c_str(),
                     key.c_str());
        return false;
    }
    Session& s = *ctx.session;
    switch (ReadFileWith(s, *reader, path)) {
        case ReadOutcome::Read: return true;
        case ReadOutcome::Empty: std::fprintf(stderr, "%s\n", s.store.StatusText.text().c_str()); return false;
        case ReadOutcome::Failed: return false;  // the failure handler has said why
    }
    return false;
}

}  // namespace ortelix
