#pragma once
// The start-up and ending sequences of the program, shared by the desktop
// and the command line.
#include <string>

namespace ortelix {

class Session;

// An empty store, the datum table read, the options restored (reset on the
// first start), the temporary folder made. Returns the temporary folder.
std::string StartUp(Session& s);
// Ending: the options are saved.
void EndProgram(Session& s);

}  // namespace ortelix
