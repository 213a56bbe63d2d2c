#pragma once
// The run of `convert` that other commands share: the inputs read into one
// store, a step of the command's own on it, and the store written to the
// target in its format.
#include <functional>
#include <string>

#include "cli/CliSession.h"

namespace ortelix {

class Session;

// ctx comes from PrepareCli: the last positional argument is the target, the
// others are the inputs. The target's format is settled and checked against
// the inputs before anything is read; then every input is read, `between`
// runs on the store (when given) and the target is written. Returns the exit
// code: 2 when the call cannot work (usage on stderr), 1 when an input could
// not be read (the target stays untouched) or the target not written, 0 when
// it was written.
int ConvertRun(CliContext& ctx, const std::string& usage, const std::function<void(Session&)>& between = {});

}  // namespace ortelix
