#pragma once
// The options table in the per-user settings store: application "Ortelix",
// sections "Setup", "Kartenexport" (also spelt "KartenExport", one section)
// and "Ordner". Saved only on command and once when the program ends.
#include "core/Options.h"

namespace ortelix {

class Session;

// Writes every option key; "ComPort" too, which loading leaves alone.
void SaveSettings(Session& s);
// Reads every key with its default; a key that cannot be read gives its default.
void LoadSettings(Session& s);
// The reset values; they stay unsaved until SaveSettings. Without MapStitcher
// its check box of FormMapExp is forced off.
void ResetSettings(Options& o, bool mapStitcherFound);

// Start-up: the first start (an empty store) resets, every other start loads.
void RestoreSettings(Session& s, bool mapStitcherFound);

}  // namespace ortelix
