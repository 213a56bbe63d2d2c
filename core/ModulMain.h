#pragma once
// The shell's routines that every command shares: the file dialog with its
// rules, the wait with the right-mouse abort, help.
#include <string>
#include <vector>

#include "platform/Platform.h"

namespace ortelix {

class Session;

enum class DialogMode { Open, Save };

inline constexpr const char* kTempFolderRefused = "Dieser Ordner darf nicht verwendet werden!";
inline constexpr const char* kOverwriteQuestion = "Die Datei existiert schon. Überschreiben?";
inline constexpr const char* kOverwriteTitle = "Datei speichern";
inline constexpr const char* kAbortText = "Abbruch mit rechter Maustaste erfolgt!";
inline constexpr const char* kAbortTitle = "Abbruch durch Benutzer";
inline constexpr const char* kVersion = "v. 3.9a";

// The file dialog of every command. It opens in the folder and with the
// filter last used under this title (section "Ordner"), and remembers both
// for an accepted choice. In save mode it refuses the temporary folder and
// asks before overwriting. An empty path means nothing was chosen.
FileChoice FileDialog(Session& s, const std::string& title, const std::string& filter, int filterIndex,
                      DialogMode mode, const std::string& defaultName = {});

// Before a writer makes several files at once (one per track or route, or a
// companion file): one question that names those of them that exist already,
// with the title "Datei speichern". True when none exists or the user says
// yes; on no the writer writes nothing and its command counts as not done.
inline constexpr const char* kFilesExistText = "Diese Dateien existieren schon und werden überschrieben:";
inline constexpr const char* kOverwriteShort = "Überschreiben?";
bool ConfirmOverwriteFiles(Session& s, const std::vector<std::string>& files);

// True when the path lies in the temporary folder, which no command may write into.
bool InTempFolder(const std::string& path, const std::string& tempFolder);

// Waits the seconds times the pause factor of the map export (ZahlInput(4)),
// giving the event loop time. The right mouse button ends the wait, sets
// UserAbort and tells the user; returns false then.
bool Wait(Session& s, double seconds);

// "mapstitcherc.exe" in the program's folder switches the stitcher options on.
bool MapStitcherFound(Session& s);

// The help: the manual beside the program (README.md) with the system's viewer.
// Returns the path opened, empty when there is none.
std::string HelpFile(const std::string& programFolder);
bool OpenHelp(Session& s);

}  // namespace ortelix
