#pragma once
// The one table of commands: the menus of the desktop, batch reading and the
// command line's format names all come from it.
#include <string>
#include <string_view>
#include <vector>

namespace ortelix {

class Session;

enum class CommandKind {
    Read,    // file dialog, then the reader
    Write,   // save dialog, then the writer
    Tool,    // opens a tool form of the desktop
    Setup,   // shows a settings frame of the main form
    Action,  // runs at once; asks for what it needs itself
    Help,
    End,
};

using FileJob = void (*)(Session&, const std::string& path);

struct Command {
    const char* control;     // MenEinGPX
    const char* caption;     // "GPX"
    const char* menu;        // "MenEingang", a submenu "MenEingang/OziExplorer"; "" the menu bar; nullptr none
    CommandKind kind;
    const char* title;       // dialog and failure-message title; nullptr: the caption
    const char* filter;      // "GPX File (*.gpx)|*.gpx|..."; nullptr: all files
    FileJob run;             // nullptr while the command is not built yet
    const char* extensions;  // lower case, blank separated: "gpx xml"
    const char* format;      // the command line's format name, or nullptr
    const char* batch = "";  // the extensions that batch reading gives to this reader
};

const std::vector<Command>& CommandTable();
const Command* FindCommand(std::string_view control);

// The reader or writer of a command-line format, by name or by file extension.
const Command* FindFormat(std::string_view nameOrExtension, CommandKind kind);
// The batch reader for a lower-case extension; nullptr to skip the file.
const Command* BatchReader(std::string_view extension);

// The title of a command's dialog and failure message, and its filter.
std::string CommandTitle(const Command& c);
std::string CommandFilter(const Command& c);

// The caption of a top-level menu: "MenEingang" is "Eingang".
const char* MenuCaption(std::string_view menu);

}  // namespace ortelix
