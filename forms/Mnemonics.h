#pragma once
// Keyboard mnemonics for the items of one menu level (Alt+E opens "Eingang").
#include <QStringList>

namespace ortelix {

// The captions as menu texts: "&" before one letter or digit that no sibling
// uses, ignoring case. In menu order each caption takes the first free letter,
// the first letters of words before the others; one left without then takes a
// letter from an earlier sibling that can move to another of its own. Only
// when no such exchange helps does a caption stay without a mnemonic.
// A "&" of the caption itself is doubled, so that it shows as it stands.
QStringList WithMnemonics(const QStringList& captions);

// The caption again: the mnemonic marks removed, "&&" back to "&".
QString WithoutMnemonic(const QString& text);

// The mnemonic letter of a menu text, lower case; a null QChar when it has none.
QChar MnemonicOf(const QString& text);

}  // namespace ortelix
