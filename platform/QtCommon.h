#pragma once
// What the desktop and the command line share: the settings file (QSettings,
// INI, application "Ortelix") and the program's folders.
#include <optional>
#include <string>

namespace ortelix::qtcommon {

std::optional<std::string> ReadSetting(const std::string& section, const std::string& key);
void WriteSetting(const std::string& section, const std::string& key, const std::string& value);
bool HasSettings();
void SyncSettings();
// Empty when the settings file was written; else why not, in German.
std::string SettingsProblem();
// The path of the settings file, for messages and tests.
std::string SettingsPath();

// The local date and time now, as days since 1899-12-30.
double LocalNow();

// A file or a link opened with the system's association.
bool OpenWithSystem(const std::string& pathOrLink);

// The data folder beside the program (build tree) or share/ortelix when installed.
std::string ProgramFolder();
// $XDG_CACHE_HOME/ortelix/OXTemp, made when missing.
std::string TempFolder();

}  // namespace ortelix::qtcommon
