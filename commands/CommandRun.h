#pragma once
// Running the commands of the table: the input and output dialogs around a
// reader or writer, batch reading, and the commands without a file.
#include <string>
#include <vector>

#include "commands/CommandTable.h"

namespace ortelix {

class Session;

inline constexpr const char* kBatchTitle = "Irgend eine Datei auswählen";
inline constexpr const char* kBatchFilter = "Eine Datei (*.*)|*.*|Alle Dateien (*.*)|*.*";
inline constexpr const char* kResetQuestion = "Sollen wirklich alle Einstellungen zurückgesetzt werden?";

inline constexpr const char* kNoDataFound = "Keine Daten gefunden: ";

// What every command does first: the abort flag of an earlier command goes.
void BeginCommand(Session& s);

// The input dialog of a reader; empty when nothing was chosen.
std::string ChooseInput(Session& s, const Command& c);

enum class ReadOutcome { Read, Empty, Failed };
// Runs the reader on one file under the one failure handler; the track and
// route names of the file take its base name. A failure also drops the date
// choice that a two-pass reader may have left. A read that adds no track
// point, route point, waypoint or area says "Keine Daten gefunden: " and the
// file's name on the status line. The desktop, batch reading and the command
// line all read through here.
ReadOutcome ReadFileWith(Session& s, const Command& reader, const std::string& path);
// The read command: BeginCommand, then ReadFileWith. False unless something was read.
bool ReadWith(Session& s, const Command& c, const std::string& path);
// The save dialog and the writer. False when nothing was written.
bool WriteWith(Session& s, const Command& c);
// The writer on a chosen target, under the one failure handler, the Top50
// map chosen first. The desktop and the command line write through here.
bool WriteFileWith(Session& s, const Command& writer, const std::string& path);

// Batch reading of files: each goes by its lower-case extension to its
// reader; an extension without one is skipped. Returns the files read.
int BatchRead(Session& s, const std::vector<std::string>& paths);
// The files of a folder in the order of the listing (by name).
std::vector<std::string> FolderFiles(const std::string& folder);

// The commands that need no file dialog of their own (path is unused).
// "Neu" empties the store and forgets the regions made of its areas.
void NeuCommand(Session& s, const std::string& path);
void BatchReadCommand(Session& s, const std::string& path);
void StoreSettingsCommand(Session& s, const std::string& path);
void ResetSettingsCommand(Session& s, const std::string& path);
void OpenHelpCommand(Session& s, const std::string& path);

}  // namespace ortelix
