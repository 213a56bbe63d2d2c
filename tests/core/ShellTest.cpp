// The shell: the file dialog's three rules, the wait with its abort, batch
// reading of a folder, the information frame and the command table.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <set>

#include "commands/CommandRun.h"
#include "commands/CommandTable.h"
#include "core/InfoFrame.h"
#include "core/ModulMain.h"
#include "core/Session.h"
#include "fake/FakePlatform.h"
#include "fake/TestFiles.h"

namespace ortelix {
namespace {

namespace fs = std::filesystem;

fs::path TestFolder(const std::string& name) { return testfiles::FreshFolder("test-shell", name); }

void WriteText(const fs::path& path, const std::string& text) { testfiles::Put(path, text); }

std::string Gpx(int points, const std::string& name) {
    std::string t = "<?xml version=\"1.0\"?>\n<gpx version=\"1.1\" creator=\"test\"><trk><name>" + name + "</name><trkseg>";
    for (int i = 0; i < points; ++i)
        t += "<trkpt lat=\"50." + std::to_string(100 + i) + "\" lon=\"8." + std::to_string(100 + i) + "\"></trkpt>";
    return t + "</trkseg></trk><wpt lat=\"50.5\" lon=\"8.5\"><name>W</name></wpt></gpx>\n";
}

TEST(FileDialog, RemembersFolderAndFilterPerTitle) {
    FakePlatform p;
    Session s(p);
    p.fileChoices.push_back({"/daten/touren/a.gpx", 2});
    FileChoice c = FileDialog(s, "GPX-Datei einlesen", "x|*.x|y|*.y", 1, DialogMode::Open);
    EXPECT_EQ(c.path, "/daten/touren/a.gpx");
    EXPECT_EQ(p.lastDialogFolder, "");
    EXPECT_EQ(p.lastDialogFilterIndex, 1);
    EXPECT_EQ((p.settings[{"ordner", "GPX-Datei einlesen"}]), "/daten/touren");
    EXPECT_EQ((p.settings[{"ordner", "GPX-Datei einlesenFilter"}]), "2");

    // The next dialog of that title opens there; another title does not.
    FileDialog(s, "GPX-Datei einlesen", "x|*.x|y|*.y", 1, DialogMode::Open);
    EXPECT_EQ(p.lastDialogFolder, "/daten/touren");
    EXPECT_EQ(p.lastDialogFilterIndex, 2);
    FileDialog(s, "GPX-Datei speichern", "x|*.x", 1, DialogMode::Save);
    EXPECT_EQ(p.lastDialogFolder, "");
    EXPECT_EQ(p.lastDialogFilterIndex, 1);
    EXPECT_TRUE(p.messages.empty());
}

TEST(FileDialog, SaveRefusesTheTempFolderAndAsksBeforeOverwriting) {
    FakePlatform p;
    Session s(p);
    const fs::path dir = TestFolder("dialog");
    p.temp = (dir / "OXTemp").string();

    p.fileChoices.push_back({p.temp + "/x.gpx", 1});
    EXPECT_EQ(FileDialog(s, "Speichern", "x|*.x", 1, DialogMode::Save).path, "");
    ASSERT_EQ(p.messages.size(), 1u);
    EXPECT_EQ(p.messages[0].text, "Dieser Ordner darf nicht verwendet werden!");
    // A refused folder is not remembered.
    EXPECT_EQ((p.settings.count({"ordner", "Speichern"})), 0u);
    // Reading from the temporary folder is allowed.
    p.fileChoices.push_back({p.temp + "/x.gpx", 1});
    EXPECT_EQ(FileDialog(s, "Lesen", "x|*.x", 1, DialogMode::Open).path, p.temp + "/x.gpx");

    const std::string existing = (dir / "da.gpx").string();
    WriteText(existing, "x");
    p.fileChoices.push_back({existing, 1});
    p.answers.push_back(Answer::No);
    EXPECT_EQ(FileDialog(s, "Speichern", "x|*.x", 1, DialogMode::Save).path, "");
    ASSERT_EQ(p.messages.size(), 2u);
    EXPECT_EQ(p.messages[1].text, "Die Datei existiert schon. Überschreiben?");
    EXPECT_EQ(p.messages[1].title, "Datei speichern");
    EXPECT_EQ(p.messages[1].buttons, Buttons::YesNo);

    p.fileChoices.push_back({existing, 1});
    p.answers.push_back(Answer::Yes);
    EXPECT_EQ(FileDialog(s, "Speichern", "x|*.x", 1, DialogMode::Save).path, existing);
    // A new file needs no question.
    p.fileChoices.push_back({(dir / "neu.gpx").string(), 1});
    EXPECT_EQ(FileDialog(s, "Speichern", "x|*.x", 1, DialogMode::Save).path, (dir / "neu.gpx").string());
    EXPECT_EQ(p.messages.size(), 3u);
}

TEST(Wait, ScalesByThePauseFactorAndStopsOnTheRightButton) {
    FakePlatform p;
    p.yieldAdvance = 0.01;
    Session s(p);
    s.options.ZahlInput[4] = "0,5";
    EXPECT_TRUE(Wait(s, 2));
    EXPECT_NEAR(p.clock, 1.0, 0.011);
    EXPECT_FALSE(s.UserAbort);

    p.rightButtonDown = true;
    const double before = p.clock;
    EXPECT_FALSE(Wait(s, 10));
    EXPECT_LT(p.clock - before, 0.05);
    EXPECT_TRUE(s.UserAbort);
    ASSERT_EQ(p.messages.size(), 1u);
    EXPECT_EQ(p.messages[0].text, "Abbruch mit rechter Maustaste erfolgt!");
    EXPECT_EQ(p.messages[0].title, "Abbruch durch Benutzer");

    // "Neu" clears the store and the abort flag.
    NeuCommand(s, "");
    EXPECT_FALSE(s.UserAbort);
}

TEST(BatchRead, ReadsEveryKnownFileOfTheFolderAndSkipsTheRest) {
    FakePlatform p;
    Session s(p);
    const fs::path dir = TestFolder("batch");
    WriteText(dir / "b.gpx", Gpx(3, "B"));
    WriteText(dir / "A.GPX", Gpx(2, "A"));
    WriteText(dir / "notiz.xyz", "nichts");
    WriteText(dir / "ohne", "nichts");
    WriteText(dir / "kaputt.gpx", "<gpx><trk><trkseg><trkpt lat=");

    // Filter entry 2: the whole folder of the chosen file.
    p.fileChoices.push_back({(dir / "notiz.xyz").string(), 2});
    BatchReadCommand(s, "");
    ASSERT_EQ(p.fileDialogTitles.size(), 1u);
    EXPECT_EQ(p.fileDialogTitles[0], "Irgend eine Datei auswählen");
    EXPECT_GE(s.store.Tracks.size(), 2u);
    EXPECT_EQ(s.store.TrackPointTotal(), 5);
    EXPECT_EQ(s.store.WayPoints.size(), s.store.Tracks.size() >= 3 ? 3u : 2u);
    EXPECT_EQ(s.store.StatusText.text(), "Fertig");
    // The broken file, if its reader refuses it, is told once with the reader's title.
    for (const auto& m : p.messages) EXPECT_EQ(m.title, "GPX-Datei einlesen");

    // Filter entry 1: the chosen file alone.
    ClearStore(s.store);
    p.fileChoices.push_back({(dir / "b.gpx").string(), 1});
    BatchReadCommand(s, "");
    EXPECT_EQ(s.store.TrackPointTotal(), 3);
    EXPECT_EQ(s.store.PendingName, "b");

    // The listing is by name.
    const auto files = FolderFiles(dir.string());
    ASSERT_EQ(files.size(), 5u);
    EXPECT_EQ(fs::path(files[0]).filename(), "A.GPX");
}

TEST(BatchRead, FollowsTheExtensionTable) {
    // Extensions of the batch table whose readers are built go to them ...
    ASSERT_NE(BatchReader("gpx"), nullptr);
    EXPECT_STREQ(BatchReader("gpx")->control, "MenEinGPX");
    // ... "xml" is GPX for the command line, but batch reading skips it ...
    EXPECT_EQ(BatchReader("xml"), nullptr);
    EXPECT_EQ(BatchReader("xyz"), nullptr);
    // ... and each extension of the table belongs to exactly one reader.
    std::multiset<std::string> owners;
    for (const Command& c : CommandTable()) {
        std::string b = c.batch;
        size_t pos = 0;
        while (pos < b.size()) {
            size_t end = b.find(' ', pos);
            if (end == std::string::npos) end = b.size();
            owners.insert(b.substr(pos, end - pos));
            pos = end + 1;
        }
    }
    for (const char* ext : {"pwtrk", "pwrte", "pwpts", "gpx", "txt", "nmea", "pgl", "log", "plt", "rte", "rt2", "wpt",
                            "loc", "db", "ovl", "kml", "asc", "ov2", "pth", "qu2", "qu3", "qu4", "xol", "smo"})
        EXPECT_EQ(owners.count(ext), 1u) << ext;
    EXPECT_EQ(owners.size(), 24u);
}

TEST(CommandTable, MenusHoldEveryCommandOnce) {
    std::set<std::string> controls;
    int perMenu[5] = {};
    const char* menus[] = {"MenEingang", "MenAusgang", "MenTools", "MenSetUp"};
    for (const Command& c : CommandTable()) {
        EXPECT_TRUE(controls.insert(c.control).second) << c.control;
        if (!c.menu) continue;
        const std::string m = c.menu;
        for (int i = 0; i < 4; ++i)
            if (m.rfind(menus[i], 0) == 0) ++perMenu[i];
        if (m.empty()) ++perMenu[4];
        if (c.kind == CommandKind::Read || c.kind == CommandKind::Write) {
            EXPECT_FALSE(CommandTitle(c).empty());
        }
    }
    EXPECT_EQ(perMenu[0], 62);
    EXPECT_EQ(perMenu[1], 42);
    EXPECT_EQ(perMenu[2], 11);
    EXPECT_EQ(perMenu[3], 18);
    EXPECT_EQ(perMenu[4], 2);
    EXPECT_STREQ(FindCommand("TTVoice")->caption, "Stimmen TomTom 3 nach TomTom  5");
    EXPECT_STREQ(FindCommand("MenEinGPX")->title, "GPX-Datei einlesen");
    EXPECT_EQ(FindFormat("gpx", CommandKind::Write)->run != nullptr, true);
    EXPECT_STREQ(MenuCaption("MenSetUp"), "Einstellungen");
}

TEST(InfoFrame, CountersAndNotices) {
    FakePlatform p;
    Session s(p);
    s.options.List[7] = 1;  // "Alle Punkte"
    NewTrack(s.store, "T");
    TrackPointIn tp;
    tp.lon = 8;
    tp.lat = 50;
    StoreTrackPoint(s.store, tp);
    StoreTrackPoint(s.store, tp);
    s.store.SkippedTrackPoints = 4;
    s.store.StatusText.set("Lese Trackpunkte: ", 2);
    InfoFrame f = InfoValues(s, "Frankfurt");
    EXPECT_EQ(f.LabelInfo[0], "1");
    EXPECT_EQ(f.LabelInfo[1], "2");
    EXPECT_EQ(f.LabelInfo[2], "4");
    EXPECT_EQ(f.LabelInfo[5], "0");
    EXPECT_EQ(f.LabelInfo[13], "0");
    EXPECT_EQ(f.LabelInfo[7], "");
    EXPECT_EQ(f.LabelInfo[8], "");
    EXPECT_EQ(f.LabelInfo[9], "");
    EXPECT_EQ(f.LabelInfo[10], "Frankfurt (fix)");
    EXPECT_EQ(f.StatusText, "Lese Trackpunkte: 2");

    s.options.Check[9] = 1;
    s.options.List[7] = 0;  // "Optimal"
    s.options.List[8] = 3;
    s.options.Check[0] = 1;
    f = InfoValues(s, "Frankfurt");
    EXPECT_EQ(f.LabelInfo[7], "Trackfilter aktiviert");
    EXPECT_EQ(f.LabelInfo[8], "Koordinatenabstand wird reduziert");
    EXPECT_EQ(f.LabelInfo[9], "WayPointfilter aktiviert");
    EXPECT_EQ(f.LabelInfo[10], "Frankfurt (auto)");
    EXPECT_EQ(InfoValues(s, "").LabelInfo[10], "");
    EXPECT_EQ(InfoCaption(2), "Überspungene Trackpunkte:");
    EXPECT_EQ(InfoCaption(13), "Eingelesene Flächen:");

    EXPECT_EQ(GridKindText(2000), "UTM");
    EXPECT_EQ(GridKindText(1000), "Lat/Long");
    EXPECT_EQ(GridKindText(9), "9");
    EXPECT_EQ(OriginText("3456789.123", "5543210.9"), "O = 3456789  N = 5543210");
}

TEST(Help, FindsTheManualBesideOrAboveTheDataFolder) {
    const fs::path dir = TestFolder("help");
    fs::create_directories(dir / "build" / "data");
    EXPECT_EQ(HelpFile((dir / "build" / "data").string()), "");
    WriteText(dir / "README.md", "# Ortelix");
    EXPECT_EQ(fs::path(HelpFile((dir / "build" / "data").string())), dir / "build" / "data" / ".." / ".." / "README.md");
    FakePlatform p;
    p.dataFolder = (dir / "build" / "data").string();
    Session s(p);
    EXPECT_TRUE(OpenHelp(s));
    ASSERT_EQ(p.opened.size(), 1u);
}

}  // namespace
}  // namespace ortelix
