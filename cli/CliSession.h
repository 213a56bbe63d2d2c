#pragma once
// What every command of the command line shares: its session on the console
// platform, the options from the settings file, and the common flags.
#include <memory>
#include <string>
#include <vector>

#include "core/Session.h"
#include "platform/console/ConsolePlatform.h"

namespace ortelix {

struct CliContext {
    ConsolePlatform platform;
    std::unique_ptr<Session> session;
    std::vector<std::string> positional;
    std::string inputFormat, outputFormat;
    std::string error;  // set when the flags cannot be used
};

// Parses -i, -o, --set NAME=VALUE and --dates; the rest is positional.
// Returns false (with ctx.error) on a bad flag.
bool PrepareCli(CliContext& ctx, const std::vector<std::string>& args);

// Reads one file with the reader for its format (or the given one). False,
// with the message on stderr, when it failed or brought nothing.
bool ReadInput(CliContext& ctx, const std::string& path, const std::string& format);

}  // namespace ortelix
