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

// The input dialog of a reader; empty when nothing was chosen.
std::string ChooseInput(Session& s, const Command& c);
// Runs the reader on the file under the one failure handler; the track and
// route names of the file take its base name. False when it failed.
bool ReadWith(Session& s, const Command& c, const std::string& path);
// The save dialog and the writer. False when nothing was written.
bool WriteWith(Session& s, const Command& c);

// Batch reading of files: each goes by its lower-case extension to its
// reader; an extension without one is skipped. Returns the files read.
int BatchRead(Session& s, const std::vector<std::string>& paths);
// The files of a folder in the order of the listing (by name).
std::vector<std::string> FolderFiles(const std::string& folder);

// The commands that need no file dialog of their own (path is unused).
void NeuCommand(Session& s, const std::string& path);
void BatchReadCommand(Session& s, const std::string& path);
void StoreSettingsCommand(Session& s, const std::string& path);
void ResetSettingsCommand(Session& s, const std::string& path);
void OpenHelpCommand(Session& s, const std::string& path);

}  // namespace ortelix
