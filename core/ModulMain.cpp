#include "core/ModulMain.h"

#include <charconv>
#include <sys/stat.h>

#include "core/ModulShared.h"
#include "core/Session.h"

namespace ortelix {

namespace {
constexpr const char* kFolders = "Ordner";

int FilterIndexSetting(Platform& p, const std::string& title, int fallback) {
    auto v = p.readSetting(kFolders, title + "Filter");
    if (!v) return fallback;
    int x = 0;
    auto r = std::from_chars(v->data(), v->data() + v->size(), x);
    return r.ec == std::errc() && x >= 1 ? x : fallback;
}

std::string IntText(int v) {
    char buf[16];
    auto r = std::to_chars(buf, buf + sizeof buf, v);
    return std::string(buf, r.ptr);
}
}  // namespace

bool InTempFolder(const std::string& path, const std::string& tempFolder) {
    return !tempFolder.empty() && path.find(tempFolder) != std::string::npos;
}

FileChoice FileDialog(Session& s, const std::string& title, const std::string& filter, int filterIndex,
                      DialogMode mode, const std::string& defaultName) {
    Platform& p = s.platform;
    const std::string folder = p.readSetting(kFolders, title).value_or("");
    const int index = FilterIndexSetting(p, title, filterIndex);
    FileChoice c = p.fileDialog(title, filter, index, mode == DialogMode::Save, folder, defaultName);
    if (c.path.empty()) return {};
    if (mode == DialogMode::Save) {
        if (InTempFolder(c.path, p.tempFolder())) {
            p.messageBox(kTempFolderRefused, title, Buttons::Ok, Icon::Warning);
            return {};
        }
        if (FileExists(c.path) &&
            p.messageBox(kOverwriteQuestion, kOverwriteTitle, Buttons::YesNo, Icon::Question) != Answer::Yes)
            return {};
    }
    p.writeSetting(kFolders, title, SplitPath(c.path, 3));
    p.writeSetting(kFolders, title + "Filter", IntText(c.filterIndex));
    return c;
}

bool ConfirmOverwriteFiles(Session& s, const std::vector<std::string>& files) {
    // Enough names to see what is meant; a long series ends with a count.
    constexpr size_t kNamesShown = 20;
    std::string text = kFilesExistText;
    size_t existing = 0;
    for (const std::string& f : files) {
        struct stat st {};
        if (::lstat(f.c_str(), &st) != 0) continue;
        if (++existing <= kNamesShown) text += "\r\n" + SplitPath(f, 2);
    }
    if (existing == 0) return true;
    if (existing > kNamesShown) text += "\r\n... und " + IntText(static_cast<int>(existing - kNamesShown)) + " weitere";
    text += "\r\n\r\n";
    text += kOverwriteShort;
    if (s.platform.messageBox(text, kOverwriteTitle, Buttons::YesNo, Icon::Question) == Answer::Yes) return true;
    s.NothingWritten = true;
    return false;
}

bool Wait(Session& s, double seconds) {
    Platform& p = s.platform;
    // The clock is monotonic, so no run past midnight needs a correction.
    const double end = p.now() + seconds * s.options.Zahl(4);
    while (p.now() < end) {
        if (p.yield()) {
            s.UserAbort = true;
            p.messageBox(kAbortText, kAbortTitle, Buttons::Ok, Icon::Information);
            return false;
        }
    }
    return true;
}

bool MapStitcherFound(Session& s) { return FileExists(s.platform.programFolder() + "/mapstitcherc.exe"); }

std::string HelpFile(const std::string& programFolder) {
    // Installed: share/ortelix/README.md; in a build tree the sources lie two
    // folders up from its data folder.
    for (const char* rel : {"/Ortelix.md", "/README.md", "/../README.md", "/../../README.md"}) {
        const std::string path = programFolder + rel;
        if (FileExists(path)) return path;
    }
    return {};
}

bool OpenHelp(Session& s) {
    const std::string path = HelpFile(s.platform.programFolder());
    if (path.empty() || !s.platform.openWithSystem(path)) {
        s.platform.messageBox("Die Hilfedatei wurde nicht gefunden.", "Hilfe", Buttons::Ok, Icon::Warning);
        return false;
    }
    return true;
}

}  // namespace ortelix
