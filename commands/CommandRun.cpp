#include "commands/CommandRun.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "core/Failure.h"
#include "core/ModulMain.h"
#include "core/ModulShared.h"
#include "core/Session.h"
#include "core/Settings.h"

namespace ortelix {


std::string ChooseInput(Session& s, const Command& c) {
    FileChoice f = FileDialog(s, CommandTitle(c), CommandFilter(c), 1, DialogMode::Open);
    s.DialogFilterIndex = f.filterIndex;
    return f.path;
}

bool ReadWith(Session& s, const Command& c, const std::string& path) {
    if (!c.run) return false;
    s.store.PendingName = SplitPath(path, 1);
    return RunReader(s, CommandTitle(c), [&] { c.run(s, path); });
}

bool WriteWith(Session& s, const Command& c) {
    if (!c.run) return false;
    const FileChoice f = FileDialog(s, CommandTitle(c), CommandFilter(c), 1, DialogMode::Save);
    if (f.path.empty()) return false;
    s.DialogFilterIndex = f.filterIndex;
    s.store.PendingName.clear();
    return RunWriter(s, CommandTitle(c), [&] { c.run(s, f.path); });
}

std::vector<std::string> FolderFiles(const std::string& folder) {
    std::vector<std::string> files;
    std::error_code ec;
    for (const auto& e : std::filesystem::directory_iterator(folder, ec)) {
        if (e.is_regular_file(ec)) files.push_back(e.path().string());
    }
    std::sort(files.begin(), files.end());
    return files;
}

int BatchRead(Session& s, const std::vector<std::string>& paths) {
    int read = 0;
    for (const std::string& path : paths) {
        if (s.UserAbort) break;
        const Command* reader = BatchReader(LowerExtension(path));
        if (!reader) continue;
        if (ReadWith(s, *reader, path)) ++read;
        s.pollEvents();
    }
    s.store.StatusText.set("Fertig");
    return read;
}

void NeuCommand(Session& s, const std::string&) {
    ClearStore(s.store);
    s.UserAbort = false;
}

void BatchReadCommand(Session& s, const std::string&) {
    const FileChoice f = FileDialog(s, kBatchTitle, kBatchFilter, 1, DialogMode::Open);
    if (f.path.empty()) return;
    if (f.filterIndex == 2) BatchRead(s, FolderFiles(SplitPath(f.path, 3)));
    else BatchRead(s, {f.path});
}

void StoreSettingsCommand(Session& s, const std::string&) { SaveSettings(s); }

void ResetSettingsCommand(Session& s, const std::string&) {
    if (s.platform.messageBox(kResetQuestion, "Grundeinstellung", Buttons::YesNo, Icon::Question) != Answer::Yes) return;
    ResetSettings(s.options, MapStitcherFound(s));
}

void OpenHelpCommand(Session& s, const std::string&) { OpenHelp(s); }

}  // namespace ortelix
