#pragma once
// Qt's own file dialog as the program uses it, not the desktop's: its texts
// are Qt's translated ones, it never reads the files it lists, its dates and
// sizes are German, and its columns are wide enough to read them.
class QFileDialog;
class QAbstractFileIconProvider;

namespace ortelix {

// icons must outlive the dialog (a PlainFileIcons).
void SetUpFileDialog(QFileDialog& dialog, QAbstractFileIconProvider& icons);

}  // namespace ortelix
