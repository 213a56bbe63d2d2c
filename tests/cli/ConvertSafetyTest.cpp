// `ortelix convert` never costs the user a file: a failed or empty read
// writes nothing, a target that names no format or is an input is refused,
// devices get the bytes or the real error, and pipes are read.
#include <gtest/gtest.h>

#include <set>
#include <sys/stat.h>

#include "CliTestSupport.h"
#include "core/FileIO.h"

namespace {

namespace fs = std::filesystem;
using Cli = ortelix::testing::CliTest;
using Result = ortelix::testing::CliResult;

const char* kTrack =
    "<gpx><trk><name>T</name><trkseg><trkpt lat=\"47.1\" lon=\"10.1\"></trkpt><trkpt lat=\"47.2\" lon=\"10.2\"></trkpt>"
    "<trkpt lat=\"47.3\" lon=\"10.3\"></trkpt></trkseg></trk><wpt lat=\"48\" lon=\"11\"><name>W</name></wpt></gpx>";

std::set<std::string> Names(const fs::path& dir) {
    std::set<std::string> names;
    for (const auto& e : fs::directory_iterator(dir)) names.insert(e.path().filename().string());
    return names;
}

bool Has(const Result& r, const std::string& text) { return r.out.find(text) != std::string::npos; }

TEST_F(Cli, AFailedOrEmptyReadLeavesTheTargetByteForByte) {
    const std::string good = File("gut.gpx", kTrack);
    const std::string before = "<gpx><wpt lat=\"1\" lon=\"2\"><name>bisher</name></wpt></gpx>\r\n";
    const std::string out = File("ziel.gpx", before);
    fs::create_directory(dir / "ordner.gpx");

    struct Case {
        std::string input, says;
    } cases[] = {
        {Path("fehlt.gpx"), "Datei oder Pfad nicht gefunden"},
        {File("x.unbekannt", "egal"), "kein Leseformat für \"unbekannt\""},
        {Path("ordner.gpx"), "Der Pfad ist ein Ordner"},
        {File("leer.gpx", "<?xml version=\"1.0\"?>\n<gpx version=\"1.1\"></gpx>\n"), "Keine Daten gefunden: leer.gpx"},
        {File("abbruch.gpx", "<gpx><trk><trkseg><trkpt lat="), "Keine Daten gefunden: abbruch.gpx"},
    };
    for (const Case& c : cases) {
        // The good input comes first: its data must not be written alone either.
        const Result r = Ortelix("convert " + good + " " + c.input + " " + out);
        EXPECT_EQ(r.code, 1) << c.input << "\n" << r.out;
        EXPECT_TRUE(Has(r, c.says)) << r.out;
        EXPECT_TRUE(Has(r, out + " wird nicht geschrieben.")) << r.out;
        EXPECT_EQ(ortelix::ReadFileBytes(out), before) << c.input;
    }
    // The same through the OziExplorer set: not one of its files appears.
    const auto names = Names(dir);
    EXPECT_EQ(Ortelix("convert -o ozi " + good + " " + Path("leer.gpx") + " " + Path("tour")).code, 1);
    EXPECT_EQ(Names(dir), names);

    // info says it too, shows what it read, and fails.
    const Result info = Ortelix("info " + good + " " + Path("leer.gpx"));
    EXPECT_EQ(info.code, 1);
    EXPECT_TRUE(Has(info, "Keine Daten gefunden: leer.gpx\n")) << info.out;
    EXPECT_TRUE(Has(info, "Eingelesene Trackpunkte: 3\n")) << info.out;
    EXPECT_EQ(Ortelix("info " + good).code, 0);
}

TEST_F(Cli, ATargetThatNamesNoWriterOrIsAnInputIsRefused) {
    const std::string in = File("a.gpx", kTrack);
    fs::create_directory(dir / "ordner");
    const auto names = Names(dir);

    Result r = Ortelix("convert " + in + " " + Path("ausgabe"));
    EXPECT_EQ(r.code, 2);
    EXPECT_TRUE(Has(r, "kein Schreibformat ohne Dateiendung")) << r.out;
    r = Ortelix("convert " + in + " " + Path("ordner"));
    EXPECT_EQ(r.code, 2);
    EXPECT_TRUE(Has(r, "kein Schreibformat für einen Ordner")) << r.out;
    r = Ortelix("convert -o gpx " + in + " " + Path("ordner"));  // a named format does not make a folder a file
    EXPECT_EQ(r.code, 2);
    r = Ortelix("convert " + in + " ''");
    EXPECT_EQ(r.code, 2);
    EXPECT_TRUE(Has(r, "kein Schreibformat für einen leeren Dateinamen")) << r.out;
    EXPECT_EQ(Names(dir), names);  // the OziExplorer set was not chosen by the missing extension

    // Input and output the same file, by its name and through a link.
    const std::string original = ortelix::ReadFileBytes(in);
    fs::create_symlink(in, dir / "link.gpx");
    for (const std::string& target : {in, Path("link.gpx"), dir.string() + "/./a.gpx"}) {
        r = Ortelix("convert " + in + " " + target);
        EXPECT_EQ(r.code, 2) << target;
        EXPECT_TRUE(Has(r, "Eingabe und Ausgabe sind dieselbe Datei: " + in)) << r.out;
    }
    r = Ortelix("convert " + Path("link.gpx") + " " + in);
    EXPECT_EQ(r.code, 2);
    EXPECT_EQ(ortelix::ReadFileBytes(in), original);
    EXPECT_TRUE(fs::is_symlink(dir / "link.gpx"));

    // By its name the OziExplorer set is still there: one file per track and the waypoints.
    r = Ortelix("convert -o ozi " + in + " " + Path("tour"));
    EXPECT_EQ(r.code, 0) << r.out;
    EXPECT_TRUE(fs::exists(dir / "tour1.plt"));
    EXPECT_TRUE(fs::exists(dir / "tour.wpt"));

    // Nor may one of the set's numbered files be an input: tour1.plt read
    // back into the set "tour" would be written over itself.
    const std::string plt = ortelix::ReadFileBytes(Path("tour1.plt"));
    r = Ortelix("convert -o ozi " + Path("tour1.plt") + " " + Path("tour"));
    EXPECT_EQ(r.code, 2) << r.out;
    EXPECT_TRUE(Has(r, "Eingabe und Ausgabe sind dieselbe Datei: " + Path("tour1.plt"))) << r.out;
    EXPECT_EQ(ortelix::ReadFileBytes(Path("tour1.plt")), plt);
}

TEST_F(Cli, InfoCountsWhatItRefused) {
    const std::string in = File("fern.gpx",
        "<gpx><trk><trkseg><trkpt lat=\"47.1\" lon=\"10.1\"/><trkpt lat=\"95\" lon=\"10.2\"/></trkseg></trk>"
        "<rte><rtept lat=\"47\" lon=\"10\"/><rtept lat=\"nan\" lon=\"10\"/><rtept lat=\"47\" lon=\"1e309\"/></rte>"
        "<wpt lat=\"-91\" lon=\"11\"/><wpt lat=\"48\" lon=\"11\"/></gpx>");
    const Result r = Ortelix("info " + in);
    EXPECT_EQ(r.code, 0) << r.out;
    for (const char* line : {"Eingelesene Trackpunkte: 1\n", "Überspungene Trackpunkte: 1\n", "Eingelesene Routenpunkte: 1\n",
                             "Übersprungene Routenpunkte: 2\n", "Eingelesene Wegepunkte: 1\n", "Übersprungene Wegepunkte: 1\n"})
        EXPECT_TRUE(Has(r, line)) << line << r.out;
}

TEST_F(Cli, DevicesAndPipes) {
    const std::string in = File("a.gpx", kTrack);
    Result r = Ortelix("convert " + in + " /dev/full -o gpx");
    EXPECT_EQ(r.code, 1);
    EXPECT_TRUE(Has(r, "Die Daten können nicht gespeichert werden.\n\nUrsache: Nicht genügend Speicherplatz auf dem "
                       "Datenträger")) << r.out;
    struct stat st {};
    ASSERT_EQ(::stat("/dev/full", &st), 0);
    EXPECT_TRUE(S_ISCHR(st.st_mode));
    EXPECT_EQ(Ortelix("convert " + in + " /dev/null -o gpx").code, 0);

    // To standard output (a pipe here), and from standard input.
    r = Ortelix("convert " + in + " /dev/stdout -o ozi-plt");
    EXPECT_EQ(r.code, 0) << r.out;
    EXPECT_TRUE(Has(r, "OziExplorer Track Point File Version 2.1\r\n")) << r.out;
    EXPECT_TRUE(Has(r, "\r\n 47.300000, 10.300000, 0, -777,")) << r.out;
    r = Ortelix("info -i gpx /dev/stdin", "cat " + in + " | ");
    EXPECT_EQ(r.code, 0) << r.out;
    EXPECT_TRUE(Has(r, "Eingelesene Trackpunkte: 3\n")) << r.out;
    EXPECT_TRUE(Has(r, "Eingelesene Wegepunkte: 1\n")) << r.out;
    r = Ortelix("convert -i gpx /dev/stdin " + Path("aus.plt"), "cat " + in + " | ");
    EXPECT_EQ(r.code, 0) << r.out;
    EXPECT_NE(ortelix::ReadFileBytes(Path("aus.plt")).find("\r\n 47.200000, 10.200000, 0, -777,"), std::string::npos);
    // An empty pipe brings nothing, and says so.
    r = Ortelix("info -i gpx /dev/stdin", "printf '' | ");
    EXPECT_EQ(r.code, 1);
    EXPECT_TRUE(Has(r, "Keine Daten gefunden: stdin")) << r.out;
}

TEST_F(Cli, NothingToWriteAndNumberedFilesOverExistingOnes) {
    // Waypoints only, to a track writer: nothing of its kind, nothing written, a failure.
    const std::string wpt = File("w.gpx", "<gpx><wpt lat=\"48\" lon=\"11\"><name>W</name></wpt></gpx>");
    Result r = Ortelix("convert " + wpt + " " + Path("t.plt"));
    EXPECT_EQ(r.code, 1);
    EXPECT_TRUE(Has(r, "Kein Datensatz vorhanden!")) << r.out;
    EXPECT_FALSE(fs::exists(dir / "t.plt"));
    r = Ortelix("convert " + wpt + " " + Path("t.rt2"));
    EXPECT_EQ(r.code, 1);
    EXPECT_TRUE(Has(r, "Kein Datensatz vorhanden!")) << r.out;

    // Two tracks give t1.plt and t2.plt. The named target is the user's
    // choice: existing numbered files are replaced, and the line says which.
    const std::string two = File("zwei.gpx",
                                 "<gpx><trk><trkseg><trkpt lat=\"1\" lon=\"1\"></trkpt></trkseg></trk>"
                                 "<trk><trkseg><trkpt lat=\"2\" lon=\"2\"></trkpt></trkseg></trk></gpx>");
    r = Ortelix("convert " + two + " " + Path("t.plt"));
    EXPECT_EQ(r.code, 0) << r.out;
    EXPECT_FALSE(Has(r, "existieren schon")) << r.out;
    File("t2.plt", "alt");
    r = Ortelix("convert " + two + " " + Path("t.plt"));
    EXPECT_EQ(r.code, 0) << r.out;
    EXPECT_TRUE(Has(r, "Datei speichern: Diese Dateien existieren schon und werden überschrieben:\nt1.plt\nt2.plt\n\n"
                       "Überschreiben? Ja\n")) << r.out;
    EXPECT_NE(ortelix::ReadFileBytes(Path("t2.plt")).find("\r\n 2.000000, 2.000000, 0, -777,"), std::string::npos);
}

}  // namespace
