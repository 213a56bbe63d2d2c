#include "commands/CommandRun.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "appformats/ModuleTop50Karte.h"
#include "coordinates/ModPointInPolygon.h"
#include "core/Failure.h"
#include "core/ReadFilter.h"
#include "core/ModulMain.h"
#include "core/ModulShared.h"
#include "core/Session.h"
#include "core/Settings.h"

namespace ortelix {


void BeginCommand(Session& s) { s.UserAbort = false; }

std::string ChooseInput(Session& s, const Command& c) {
    FileChoice f = FileDialog(s, CommandTitle(c), CommandFilter(c), 1, DialogMode::Open);
    s.DialogFilterIndex = f.filterIndex;
    return f.path;
}

namespace {
// Everything a read can add; readers only ever add, so a read that leaves
// this unchanged brought nothing.
int64_t ItemsInStore(const DataStore& st) {
    return st.TrackPointTotal() + st.RoutePointTotal() + static_cast<int64_t>(st.WayPoints.size()) +
           static_cast<int64_t>(st.Flaechen.size());
}
}  // namespace

ReadOutcome ReadFileWith(Session& s, const Command& reader, const std::string& path) {
    if (!reader.run) return ReadOutcome::Failed;
    const int64_t before = ItemsInStore(s.store);
    s.store.PendingName = SplitPath(path, 1);
    if (!RunReader(s, CommandTitle(reader), [&] { reader.run(s, path); })) {
        // A reader that asked for dates and broke off before clearing them
        // must not filter the next file by this one's choice.
        ClearDates(s);
        // What was read stays, so the map follows it all the same.
        KarteAutomatisch(s);
        return ReadOutcome::Failed;
    }
    KarteAutomatisch(s);
    if (ItemsInStore(s.store) != before) return ReadOutcome::Read;
    s.store.StatusText.set(kNoDataFound + SplitPath(path, 2));
    return ReadOutcome::Empty;
}

bool ReadWith(Session& s, const Command& c, const std::string& path) {
    BeginCommand(s);
    return ReadFileWith(s, c, path) == ReadOutcome::Read;
}

bool WriteWith(Session& s, const Command& c) {
    BeginCommand(s);
    if (!c.run) return false;
    const FileChoice f = FileDialog(s, CommandTitle(c), CommandFilter(c), 1, DialogMode::Save);
    if (f.path.empty()) return false;
    s.DialogFilterIndex = f.filterIndex;
    return WriteFileWith(s, c, f.path);
}

bool WriteFileWith(Session& s, const Command& writer, const std::string& path) {
    s.store.PendingName.clear();
    KarteAutomatisch(s);
    return RunWriter(s, CommandTitle(writer), [&] { writer.run(s, path); });
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
    BeginCommand(s);
    int read = 0;
    for (const std::string& path : paths) {
        if (s.UserAbort) break;
        const Command* reader = BatchReader(LowerExtension(path));
        if (!reader) continue;
        // A file that fails or holds nothing is said and passed; the next one follows.
        if (ReadFileWith(s, *reader, path) == ReadOutcome::Read) ++read;
        s.pollEvents();
    }
    s.store.StatusText.set("Fertig");
    return read;
}

void NeuCommand(Session& s, const std::string&) {
    ClearStore(s.store);
    // The regions are kept while the number of areas stays; areas read after
    // "Neu" must be tested, not the old ones.
    AlleRegionenVergessen(s);
    ClearDates(s);
    s.UserAbort = false;
}

void BatchReadCommand(Session& s, const std::string&) {
    const FileChoice f = FileDialog(s, kBatchTitle, kBatchFilter, 1, DialogMode::Open);
    if (f.path.empty()) return;
    if (f.filterIndex == 2) BatchRead(s, FolderFiles(SplitPath(f.path, 3)));
    else BatchRead(s, {f.path});
}

void StoreSettingsCommand(Session& s, const std::string&) {
    SaveSettings(s);
    const std::string problem = s.platform.settingsProblem();
    if (!problem.empty())
        s.platform.messageBox(FailureText(kWriteFailed, problem), "Speichern", Buttons::Ok, Icon::Critical);
}

void ResetSettingsCommand(Session& s, const std::string&) {
    if (s.platform.messageBox(kResetQuestion, "Grundeinstellung", Buttons::YesNo, Icon::Question) != Answer::Yes) return;
    ResetSettings(s.options, MapStitcherFound(s));
}

void OpenHelpCommand(Session& s, const std::string&) { OpenHelp(s); }

}  // namespace ortelix
