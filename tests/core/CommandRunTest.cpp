// Running commands: the abort flag belongs to one command, a read that brings
// nothing is said, a failed read leaves no date choice behind, "Neu" forgets
// the old areas, and writers of several files ask once before overwriting.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "appformats/ModOziExport.h"
#include "appformats/ModOziRoute.h"
#include "commands/CommandRun.h"
#include "commands/CommandTable.h"
#include "core/Failure.h"
#include "core/FileIO.h"
#include "core/ModulMain.h"
#include "core/ReadFilter.h"
#include "core/Session.h"
#include "fake/FakePlatform.h"
#include "fake/TestFiles.h"

namespace ortelix {
namespace {

namespace fs = std::filesystem;

fs::path Folder(const std::string& name) { return testfiles::FreshFolder("test-commandrun", name); }

using testfiles::Put;

// `tracks` tracks of `points` points each, all on one day, and one waypoint.
std::string Gpx(int tracks, int points, const std::string& day = "2024-06-01") {
    std::string t = "<?xml version=\"1.0\"?>\n<gpx version=\"1.1\" creator=\"test\">";
    for (int k = 0; k < tracks; ++k) {
        t += "<trk><trkseg>";
        for (int i = 0; i < points; ++i)
            t += "<trkpt lat=\"50." + std::to_string(100000 + i) + "\" lon=\"8." + std::to_string(100000 + k) +
                 "\"><time>" + day + "T10:00:00Z</time></trkpt>\n";
        t += "</trkseg></trk>";
    }
    return t + "<wpt lat=\"50.5\" lon=\"8.5\"><name>W</name></wpt></gpx>\n";
}

const Command& Gpx() { return *FindCommand("MenEinGPX"); }

TEST(CommandRun, TheAbortFlagIsSetOnlyByWaitAndEndsWithItsCommand) {
    const fs::path dir = Folder("abort");
    const std::string file = Put(dir / "lang.gpx", Gpx(1, 20000));
    FakePlatform p;
    Session s(p);

    // The right button held through a whole read: polled, but no abort.
    p.rightButtonDown = true;
    EXPECT_TRUE(ReadWith(s, Gpx(), file));
    EXPECT_GT(p.yields, 0);
    EXPECT_FALSE(s.UserAbort);
    EXPECT_EQ(s.store.TrackPointTotal(), 20000);
    EXPECT_TRUE(p.messages.empty());

    // A wait is where the button aborts, with its message.
    EXPECT_FALSE(Wait(s, 5));
    EXPECT_TRUE(s.UserAbort);
    ASSERT_EQ(p.messages.size(), 1u);
    EXPECT_EQ(p.messages[0].text, "Abbruch mit rechter Maustaste erfolgt!");
    EXPECT_EQ(p.messages[0].title, "Abbruch durch Benutzer");

    // The next command starts without the earlier abort: read, batch, write.
    p.rightButtonDown = false;
    EXPECT_TRUE(ReadWith(s, Gpx(), file));
    EXPECT_EQ(s.store.TrackPointTotal(), 40000);
    s.UserAbort = true;
    EXPECT_EQ(BatchRead(s, {file}), 1);
    EXPECT_EQ(s.store.TrackPointTotal(), 60000);
    s.UserAbort = true;
    p.fileChoices.push_back({(dir / "aus.gpx").string(), 1});
    EXPECT_TRUE(WriteWith(s, *FindCommand("MenAusgangGPX")));
    EXPECT_FALSE(s.UserAbort);
    s.UserAbort = true;
    BeginCommand(s);
    EXPECT_FALSE(s.UserAbort);
}

TEST(CommandRun, AReadThatBringsNothingIsSaidAndBatchReadingGoesOn) {
    const fs::path dir = Folder("empty");
    const std::string empty = Put(dir / "a-leer.gpx", "<?xml version=\"1.0\"?>\n<gpx version=\"1.1\"></gpx>\n");
    const std::string cut = Put(dir / "b-abgebrochen.gpx", "<gpx><trk><trkseg><trkpt lat=\"50\" lo");
    const std::string full = Put(dir / "c-voll.gpx", Gpx(2, 3));
    FakePlatform p;
    Session s(p);

    EXPECT_EQ(ReadFileWith(s, Gpx(), empty), ReadOutcome::Empty);
    EXPECT_EQ(s.store.StatusText.text(), "Keine Daten gefunden: a-leer.gpx");
    EXPECT_FALSE(ReadWith(s, Gpx(), cut));
    EXPECT_EQ(s.store.StatusText.text(), "Keine Daten gefunden: b-abgebrochen.gpx");
    EXPECT_TRUE(p.messages.empty());  // nothing failed: the line says it
    EXPECT_EQ(ReadFileWith(s, Gpx(), full), ReadOutcome::Read);
    EXPECT_EQ(s.store.StatusText.text(), "Fertig");
    // Waypoints alone are something.
    const std::string wpt = Put(dir / "d-wpt.gpx", "<gpx><wpt lat=\"1\" lon=\"2\"></wpt></gpx>");
    EXPECT_EQ(ReadFileWith(s, Gpx(), wpt), ReadOutcome::Read);
    EXPECT_EQ(ReadFileWith(s, Gpx(), (dir / "fehlt.gpx").string()), ReadOutcome::Failed);
    ASSERT_EQ(p.messages.size(), 1u);

    Session batch(p);
    EXPECT_EQ(BatchRead(batch, {empty, cut, (dir / "fehlt.gpx").string(), full}), 1);
    EXPECT_EQ(batch.store.TrackPointTotal(), 6);
    EXPECT_EQ(batch.store.StatusText.text(), "Fertig");
}

// A reader that notes its dates, lets the user choose, and then fails before
// it clears the choice.
void FailsAfterAskingDates(Session& s, const std::string&) {
    NoteDate(s, Date(SerialFromCivil(2024, 6, 1)));
    NoteDate(s, Date(SerialFromCivil(2024, 6, 2)));
    AskDates(s);
    throw FileError("Ein-/Ausgabefehler");
}

TEST(CommandRun, AFailedReadLeavesNoDateChoiceForTheNextFile) {
    const fs::path dir = Folder("dates");
    FakePlatform p;
    Session s(p);
    p.dateAnswer = {true, false};  // only the 1st of June
    const Command failing{"Test", "Test", nullptr, CommandKind::Read, "Test", nullptr, FailsAfterAskingDates, "", nullptr};
    EXPECT_EQ(ReadFileWith(s, failing, "x"), ReadOutcome::Failed);
    ASSERT_EQ(p.datesAsked.size(), 2u);

    // A file of the 3rd of June alone: no question, every point kept.
    p.datesAsked.clear();
    EXPECT_TRUE(ReadWith(s, Gpx(), Put(dir / "juni3.gpx", Gpx(1, 5, "2024-06-03"))));
    EXPECT_TRUE(p.datesAsked.empty());
    EXPECT_EQ(s.store.TrackPointTotal(), 5);
}

TEST(CommandRun, NeuForgetsTheRegionsOfTheOldAreas) {
    FakePlatform p;
    Session s(p);
    s.options.List[8] = 1;  // waypoints only inside the areas read
    auto area = [&](double w, double n, double e, double so) {
        Flaeche& f = NewFlaeche(s.store);
        f.West = w, f.North = n, f.East = e, f.South = so;
    };
    auto waypoint = [&](double lon, double lat) {
        GeoPointIn w;
        w.lon = lon;
        w.lat = lat;
        w.name = "W";
        AddWayPoint(s, w);
        return s.store.WayPoints.size();
    };
    area(8, 51, 9, 50);
    EXPECT_EQ(waypoint(8.5, 50.5), 1u);
    EXPECT_EQ(waypoint(11.5, 48.5), 1u);  // outside: refused

    NeuCommand(s, {});
    EXPECT_EQ(s.store.Flaechen.size(), 0u);
    area(11, 49, 12, 48);  // as many areas as before, elsewhere
    EXPECT_EQ(waypoint(11.5, 48.5), 1u);
    EXPECT_EQ(waypoint(8.5, 50.5), 1u);  // the old area no longer counts
}

TEST(CommandRun, SeveralFilesAreWrittenAfterOneQuestion) {
    const fs::path dir = Folder("numbered");
    const std::string three = Put(dir / "drei.gpx", Gpx(3, 2));
    FakePlatform p;
    Session s(p);
    ASSERT_TRUE(ReadWith(s, Gpx(), three));
    Put(dir / "tour1.plt", "alt1");
    Put(dir / "tour3.plt", "alt3");
    const Command& plt = *FindCommand("MenAusgangOziTrack");

    // No: not one file is written, and the command counts as not done.
    p.fileChoices.push_back({(dir / "tour.plt").string(), 1});
    p.answers.push_back(Answer::No);
    EXPECT_FALSE(WriteWith(s, plt));
    ASSERT_EQ(p.messages.size(), 1u);
    EXPECT_EQ(p.messages[0].text,
              "Diese Dateien existieren schon und werden überschrieben:\r\ntour1.plt\r\ntour3.plt\r\n\r\nÜberschreiben?");
    EXPECT_EQ(p.messages[0].title, "Datei speichern");
    EXPECT_EQ(p.messages[0].buttons, Buttons::YesNo);
    EXPECT_EQ(ReadFileBytes((dir / "tour1.plt").string()), "alt1");
    EXPECT_FALSE(fs::exists(dir / "tour2.plt"));

    // Yes: all three, and the status line names them.
    p.messages.clear();
    p.fileChoices.push_back({(dir / "tour.plt").string(), 1});
    EXPECT_TRUE(WriteWith(s, plt));
    EXPECT_EQ(p.messages.size(), 1u);
    EXPECT_EQ(s.store.StatusText.text(), "Geschrieben: tour1.plt, tour2.plt, tour3.plt");
    EXPECT_NE(ReadFileBytes((dir / "tour3.plt").string()).find("OziExplorer Track Point File"), std::string::npos);

    // Nothing there yet: no question at all.
    p.messages.clear();
    p.fileChoices.push_back({(dir / "neu.plt").string(), 1});
    EXPECT_TRUE(WriteWith(s, plt));
    EXPECT_TRUE(p.messages.empty());

    // The OziExplorer set: one question over routes, tracks and waypoints.
    p.fileChoices.push_back({(dir / "tour").string(), 1});
    EXPECT_TRUE(WriteWith(s, *FindCommand("MenAusOziAllesSpeichern")));
    ASSERT_EQ(p.messages.size(), 1u);
    EXPECT_EQ(p.messages[0].text,
              "Diese Dateien existieren schon und werden überschrieben:\r\ntour1.plt\r\ntour2.plt\r\ntour3.plt\r\n\r\n"
              "Überschreiben?");
    EXPECT_EQ(s.store.StatusText.text(), "Geschrieben: tour1.plt, tour2.plt, tour3.plt, tour.wpt");
    EXPECT_TRUE(fs::exists(dir / "tour.wpt"));

    // A long series is named in part, then counted.
    std::vector<std::string> many;
    for (int i = 1; i <= 25; ++i) many.push_back(Put(dir / ("v" + std::to_string(i) + ".plt"), "x"));
    p.messages.clear();
    EXPECT_TRUE(ConfirmOverwriteFiles(s, many));
    ASSERT_EQ(p.messages.size(), 1u);
    EXPECT_NE(p.messages[0].text.find("\r\nv20.plt\r\n... und 5 weitere\r\n\r\nÜberschreiben?"), std::string::npos)
        << p.messages[0].text;
    EXPECT_EQ(p.messages[0].text.find("v21.plt"), std::string::npos);
}

TEST(CommandRun, NothingOfItsKindIsAFailedWrite) {
    const fs::path dir = Folder("nothing");
    FakePlatform p;
    Session s(p);
    // An empty store: the OziExplorer set writes not even its waypoint file.
    p.fileChoices.push_back({(dir / "leer").string(), 1});
    EXPECT_FALSE(WriteWith(s, *FindCommand("MenAusOziAllesSpeichern")));
    ASSERT_EQ(p.messages.size(), 1u);
    EXPECT_EQ(p.messages[0].text, "Kein Datensatz vorhanden!");
    EXPECT_EQ(p.messages[0].title, "Datensatz wählen");
    EXPECT_TRUE(fs::is_empty(dir));

    // Waypoints but no route: the route writer has nothing; the next write is judged afresh.
    ASSERT_TRUE(ReadWith(s, Gpx(), Put(dir / "w.gpx", "<gpx><wpt lat=\"1\" lon=\"2\"></wpt></gpx>")));
    p.fileChoices.push_back({(dir / "r.rte").string(), 1});
    EXPECT_FALSE(WriteWith(s, *FindCommand("MenAusgangOziRoute")));
    EXPECT_FALSE(fs::exists(dir / "r.rte"));
    p.fileChoices.push_back({(dir / "w.wpt").string(), 1});
    EXPECT_TRUE(WriteWith(s, *FindCommand("MenAusgangOziWayPoint")));

    // A route file whose companion waypoint file exists asks about the companion.
    ASSERT_TRUE(ReadWith(s, Gpx(), Put(dir / "r.gpx", "<gpx><rte><rtept lat=\"1\" lon=\"2\"></rtept></rte></gpx>")));
    Put(dir / "r.rte.wpt", "alt");
    p.messages.clear();
    p.answers.push_back(Answer::No);
    p.fileChoices.push_back({(dir / "r.rte").string(), 1});
    EXPECT_FALSE(WriteWith(s, *FindCommand("MenAusgangOziRoute")));
    ASSERT_EQ(p.messages.size(), 1u);
    EXPECT_NE(p.messages[0].text.find("\r\nr.rte.wpt\r\n"), std::string::npos);
    EXPECT_FALSE(fs::exists(dir / "r.rte"));
    EXPECT_EQ(ReadFileBytes((dir / "r.rte.wpt").string()), "alt");
}

TEST(CommandRun, SettingsThatCannotBeStoredAreReported) {
    FakePlatform p;
    Session s(p);
    StoreSettingsCommand(s, {});
    EXPECT_TRUE(p.messages.empty());
    p.settingsFailure = "Die Einstellungsdatei kann nicht geschrieben werden: /x/Ortelix.ini";
    StoreSettingsCommand(s, {});
    ASSERT_EQ(p.messages.size(), 1u);
    EXPECT_EQ(p.messages[0].text,
              "Die Daten können nicht gespeichert werden.\r\n\r\nUrsache: Die Einstellungsdatei kann nicht geschrieben "
              "werden: /x/Ortelix.ini");
    EXPECT_EQ(p.messages[0].icon, Icon::Critical);
}

}  // namespace
}  // namespace ortelix
