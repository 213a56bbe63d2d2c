#include "cli/ConvertRun.h"

#include <cstdio>
#include <sys/stat.h>

#include "appformats/ModOziExport.h"
#include "commands/CommandRun.h"
#include "commands/CommandTable.h"
#include "core/ModulShared.h"

namespace ortelix {

namespace {

constexpr const char* kFormatsHint = "(ortelix formats zeigt die Formate)";

// The writer for the target, or nullptr after saying why there is none. The
// OziExplorer set, whose extension row is empty, is found only by its name.
const Command* TargetWriter(const std::string& output, const std::string& formatFlag) {
    if (output.empty()) {
        std::fprintf(stderr, "kein Schreibformat für einen leeren Dateinamen\n");
        return nullptr;
    }
    struct stat st {};
    if (::stat(output.c_str(), &st) == 0 && S_ISDIR(st.st_mode)) {
        std::fprintf(stderr, "%s: kein Schreibformat für einen Ordner\n", output.c_str());
        return nullptr;
    }
    const std::string key = formatFlag.empty() ? LowerExtension(output) : formatFlag;
    if (key.empty()) {
        std::fprintf(stderr, "%s: kein Schreibformat ohne Dateiendung; -o FORMAT nennt es %s\n", output.c_str(),
                     kFormatsHint);
        return nullptr;
    }
    const Command* writer = FindFormat(key, CommandKind::Write);
    if (!writer)
        std::fprintf(stderr, "%s: kein Schreibformat für \"%s\" %s\n", output.c_str(), key.c_str(), kFormatsHint);
    return writer;
}

// True when an input is the target file itself, by any name or link: it
// would be replaced by what was read from it.
bool SameFile(const std::string& input, const std::string& output) {
    struct stat in {}, out {};
    if (::stat(output.c_str(), &out) != 0 || !S_ISREG(out.st_mode)) return false;
    return ::stat(input.c_str(), &in) == 0 && in.st_dev == out.st_dev && in.st_ino == out.st_ino;
}

// The input that a target file is, if any.
const std::string* InputAmong(const std::vector<std::string>& inputs, const std::string& target) {
    for (const std::string& in : inputs)
        if (SameFile(in, target)) return &in;
    return nullptr;
}

}  // namespace

int ConvertRun(CliContext& ctx, const std::string& usage, const std::function<void(Session&)>& between) {
    if (ctx.positional.size() < 2) {
        std::fprintf(stderr, "%s\n", usage.c_str());
        return 2;
    }
    const std::string output = ctx.positional.back();
    const std::vector<std::string> inputs(ctx.positional.begin(), ctx.positional.end() - 1);
    const Command* writer = TargetWriter(output, ctx.outputFormat);
    if (!writer) return 2;
    if (const std::string* in = InputAmong(inputs, output)) {
        std::fprintf(stderr, "Eingabe und Ausgabe sind dieselbe Datei: %s\n", in->c_str());
        return 2;
    }
    bool ok = true;
    for (const std::string& in : inputs) ok = ReadInput(ctx, in, ctx.inputFormat) && ok;
    // A store missing one input is not what the user asked for: the target
    // stays as it is.
    if (!ok) {
        std::fprintf(stderr, "%s wird nicht geschrieben.\n", output.c_str());
        return 1;
    }
    Session& s = *ctx.session;
    if (between) between(s);
    // The OziExplorer set names its files after what is in the store: none of
    // them may be an input either.
    if (writer->run == OziExportieren) {
        for (const std::string& target : OziExportFiles(s.store, output)) {
            if (const std::string* in = InputAmong(inputs, target)) {
                std::fprintf(stderr, "Eingabe und Ausgabe sind dieselbe Datei: %s\n", in->c_str());
                return 2;
            }
        }
    }
    return WriteFileWith(s, *writer, output) ? 0 : 1;
}

}  // namespace ortelix
