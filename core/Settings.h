#pragma once
// The options table in the per-user settings store: application "Ortelix",
// sections "Setup", "Kartenexport" (also spelt "KartenExport", one section)
// and "Ordner". Saved only on command and once when the program ends.
#include <string>
#include <vector>

#include "core/Options.h"

namespace ortelix {

class Session;

// Writes every option key; "ComPort" too, which loading leaves alone.
void SaveSettings(Session& s);
// Reads every key over the reset values: a missing key takes the value that
// ResetSettings gives (never 0: a store left by an abnormal end may hold only
// the "Ordner" keys), and so does a key whose value does not read or lies out
// of range (core/OptionBounds.h), with a German notice for each. The caller
// shows the notices (the command line and the desktop on stderr).
std::vector<std::string> LoadSettings(Session& s, bool mapStitcherFound = false);
// The reset values; they stay unsaved until SaveSettings. Without MapStitcher
// its check box of FormMapExp is forced off.
void ResetSettings(Options& o, bool mapStitcherFound);
// The part of the reset that belongs to FormMapExp ("Grundeinstellung" of
// its menu): its check boxes, number fields, lists and corner fields.
void ResetMapExpSettings(Options& o, bool mapStitcherFound);

// Start-up: the first start (an empty store) resets, every other start
// loads. Returns the notices of LoadSettings.
std::vector<std::string> RestoreSettings(Session& s, bool mapStitcherFound);

}  // namespace ortelix
