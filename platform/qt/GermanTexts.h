#pragma once
// Qt's own texts in German: the buttons of message boxes ("Ja", "Nein"), the
// file dialog ("Suchen in", "Dateiname", "Öffnen", "Abbrechen"), and dates
// and numbers in dialogs in the German form.
class QCoreApplication;

namespace ortelix {

// Loads Qt's German translations (Debian's qt6-translations-l10n) into the
// application and makes German the default locale. Returns false when the
// translations are not installed; the program then runs with Qt's English.
bool InstallGermanTexts(QCoreApplication& app);

}  // namespace ortelix
