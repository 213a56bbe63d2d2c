#pragma once
// The command-line face: `ortelix COMMAND ...` without a display.
#include <string>
#include <vector>

namespace ortelix {

// Runs a command; returns the exit code. `handled` is false when the
// arguments name no command, so that the caller opens the workbench.
int RunCommandLine(const std::vector<std::string>& args, bool& handled);

}  // namespace ortelix
