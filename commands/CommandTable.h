#pragma once
// The one table of commands: the menus of the desktop, batch reading and the
// command line's format names all come from it.
#include <string>
#include <string_view>
#include <vector>

namespace ortelix {

class Session;

enum class CommandKind { Read, Write, Tool, Setup, Help };

using FileJob = void (*)(Session&, const std::string& path);

struct Command {
    const char* control;     // MenEinGPX
    const char* caption;     // "GPX"
    const char* menu;        // the menu and submenu path, "MenEingang" or "MenEingang/OziExplorer"
    CommandKind kind;
    const char* title;       // dialog and failure-message title
    const char* filter;      // "GPX File (*.gpx)|*.gpx|..."
    FileJob run;             // nullptr while the command is not built yet
    const char* extensions;  // lower case, blank separated: "gpx xml"
    const char* format;      // the command line's format name, or nullptr
};

const std::vector<Command>& CommandTable();
const Command* FindCommand(std::string_view control);

// The reader or writer of a command-line format, by name or by file extension.
const Command* FindFormat(std::string_view nameOrExtension, CommandKind kind);
// The batch reader for a lower-case extension; nullptr to skip the file.
const Command* BatchReader(std::string_view extension);

}  // namespace ortelix
