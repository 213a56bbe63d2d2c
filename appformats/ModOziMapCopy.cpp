#include "appformats/ModOziMapCopy.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

#include "appformats/ModOziMap.h"
#include "core/FileIO.h"
#include "core/ModulArray.h"
#include "core/ModulShared.h"
#include "core/Session.h"
#include "platform/Platform.h"

namespace ortelix {

namespace fs = std::filesystem;

namespace {

// The image's name as line 3 holds it, which may carry a Windows folder.
std::string ImageName(const std::string& imageFile) {
    const size_t cut = imageFile.find_last_of("\\/");
    return cut == std::string::npos ? imageFile : imageFile.substr(cut + 1);
}

void CopyInto(const fs::path& from, const fs::path& folder) {
    std::error_code ec;
    fs::copy_file(from, folder / from.filename(), fs::copy_options::overwrite_existing, ec);
    if (ec) throw FileError(ErrorText(ec.value()));
}

// A folder from a dialog's answer: the path itself when it is a folder, else the file's folder.
std::string FolderOf(const std::string& chosen) {
    std::error_code ec;
    if (fs::is_directory(chosen, ec)) return chosen;
    return SplitPath(chosen, 3);
}

}  // namespace

bool OziKarteTrifft(const OziMapInfo& map, const Flaeche& b) {
    const double west = map.corners[0][0], north = map.corners[0][1];
    const double east = map.corners[2][0], south = map.corners[2][1];
    return !(east < b.West || west > b.East || north < b.South || south > b.North);
}

size_t OziKartenKopieren(Session& s, const Flaeche& bereich, const std::string& quelle, const std::string& ziel) {
    std::error_code ec;
    size_t copied = 0;
    for (const fs::path m : FilesWithExtension(quelle, "map")) {
        if (s.UserAbort) break;
        s.store.StatusText.set("Untersuche " + m.filename().string());
        s.progress();
        const OziMapInfo info = OziMapLesen(m.string());
        if (!OziKarteTrifft(info, bereich)) continue;
        CopyInto(m, ziel);
        const fs::path image = m.parent_path() / ImageName(info.imageFile);
        if (!info.imageFile.empty() && fs::is_regular_file(image, ec)) CopyInto(image, ziel);
        ++copied;
    }
    s.store.StatusText.set("Fertig");
    return copied;
}

void OziKartenKopierenDialog(Session& s, const Flaeche& bereich) {
    Platform& p = s.platform;
    if (p.messageBox("Es sollen bestimmte Karten für den OziExplorer ausgewählt und kopiert werden. Hierzu müssen "
                     "Sie zuerst einen Kartenbereich festlegen",
                     "OziExplorer", Buttons::OkCancel, Icon::Information) != Answer::Ok)
        return;
    const FileChoice from = p.fileDialog("Ordner mit den vorhandenen Karten wählen",
                                         "Ozi Kalibrierungsdateien (*.map)|*.map", 1, false, "", "");
    if (from.path.empty()) return;
    const FileChoice to = p.fileDialog("Ziel Ordner angeben", "Alle Dateien (*.*)|*.*", 1, true, "", "");
    if (to.path.empty()) return;
    p.setBusy(true);
    OziKartenKopieren(s, bereich, FolderOf(from.path), FolderOf(to.path));
    p.setBusy(false);
}

}  // namespace ortelix
