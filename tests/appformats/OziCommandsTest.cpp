// The OziExplorer commands: their rows in the command table, the batch export
// and the command line.
#include "OziTestSupport.h"

#include <cstdio>

#include "appformats/ModOzi.h"
#include "commands/CommandTable.h"
#include "commands/LineReaders.h"
#include "core/FileIO.h"
#include "core/ModulArray.h"

namespace ortelix {
namespace {

using OziCommands = OziTest;

TEST_F(OziCommands, TableRowsReachTheReadersAndWriters) {
    EXPECT_EQ(FindFormat("ozi-plt", CommandKind::Read), FindFormat("plt", CommandKind::Read));
    EXPECT_EQ(FindFormat("ozi-plt", CommandKind::Write)->run, &OziTrackDateienSchreiben);
    EXPECT_EQ(FindFormat("wpt", CommandKind::Write)->run, &OziWegepunkteDateiSchreiben);
    EXPECT_EQ(FindFormat("ozi-rte", CommandKind::Write)->run, &OziRouteSchreiben);
    EXPECT_EQ(FindFormat("rt2", CommandKind::Write)->run, &OziCERouteDateienSchreiben);
    EXPECT_EQ(FindFormat("ozi", CommandKind::Write)->run, &OziExportieren);
    EXPECT_EQ(BatchReader("plt"), FindCommand("MenEinOziTrack"));
    EXPECT_EQ(BatchReader("rte"), FindCommand("MenEinOziRoute"));
    EXPECT_EQ(BatchReader("rt2"), FindCommand("MenEinOzCEiRoute"));
    EXPECT_EQ(BatchReader("wpt"), FindCommand("MenEinOziWayPoint"));
    EXPECT_EQ(BatchReader("map"), nullptr);
    EXPECT_STREQ(FindCommand("MenEinOziWayPoint")->title, "OziExplorer  WayPoints auswählen");
    EXPECT_STREQ(FindCommand("MenEinOziTrack")->filter, "Ozi Track (*.plt)|*.plt|Alle Dateien (*.*)|*.*");
    EXPECT_STREQ(FindCommand("MenAusOziAllesSpeichern")->title, "Ozi Explorer Export");
    for (const char* c : {"MenEinOziTrack", "MenEinOziRoute", "MenEinOzCEiRoute", "MenEinOziWayPoint",
                          "MenEinOziMapInfos", "MenAusOziAllesSpeichern", "MenAusgangOziTrack", "MenAusgangOziRoute",
                          "MenAusgangOziCERoute", "MenAusgangOziWayPoint"}) {
        ASSERT_NE(FindCommand(c), nullptr) << c;
        EXPECT_NE(FindCommand(c)->run, nullptr) << c;
    }
}

TEST_F(OziCommands, MapInfosTakeTheWholeFolderWithTheSecondFilter) {
    for (const char* name : {"a", "b", "c"}) {
        OziMapDaten d;
        d.imageFile = path(std::string(name) + ".png");
        d.lonL = 8, d.latO = 51, d.lonR = 9, d.latU = 50;
        d.width = d.height = 100;
        OziMapSchreiben(d);
    }
    session->DialogFilterIndex = 1;
    OziMapEinlesenAuswahl(*session, path("b.map"));
    ASSERT_EQ(store().Flaechen.size(), 1u);
    EXPECT_EQ(store().Flaechen[0].Name, "b");
    session->DialogFilterIndex = 2;
    OziMapEinlesenAuswahl(*session, path("b.map"));
    EXPECT_EQ(store().Flaechen.size(), 4u);
}

TEST_F(OziCommands, BatchExportWritesTheCESet) {
    for (int i = 0; i < 2; ++i) {
        Route& r = store().Routes.emplace_back();
        r.Points.push_back(MakePoint(8 + i, 50, "R" + std::to_string(i)));
        Track& t = store().Tracks.emplace_back();
        t.Points.emplace_back().Lat = 50 + i;
    }
    store().WayPoints.push_back(MakePoint(8, 50, "W"));
    OziExportieren(*session, path("tour"));  // no extension: ".txt" first, dropped again
    for (const char* f : {"tour1.rt2", "tour2.rt2", "tour1.plt", "tour2.plt", "tour.wpt"})
        EXPECT_TRUE(exists(f)) << f;
    EXPECT_FALSE(exists("tour.txt"));
    EXPECT_EQ(lines(read("tour2.rt2"))[3], "W,R1,50.000000  ,9.000000  ,0");
    EXPECT_EQ(lines(read("tour2.plt"))[6].substr(0, 11), " 51.000000,");

    OziExportieren(*session, path("set.gpx"));
    EXPECT_TRUE(exists("set1.plt"));
    EXPECT_TRUE(exists("set.wpt"));
}

class OziCommandLine : public OziTest {
protected:
    int Ortelix(const std::string& args, std::string* out = nullptr) {
        std::string cmd = "ASAN_OPTIONS=detect_leaks=0 '" + std::string(ORTELIX_BINARY) + "' " + args + " 2>&1";
        std::FILE* p = ::popen(cmd.c_str(), "r");
        std::string text;
        char buf[4096];
        size_t n;
        while ((n = std::fread(buf, 1, sizeof buf, p)) > 0) text.append(buf, n);
        const int status = ::pclose(p);
        if (out) *out = text;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
};

TEST_F(OziCommandLine, ConvertWritesNumberedTracksAndReadsThemBack) {
    write("two.gpx",
          "<?xml version=\"1.0\"?>\n<gpx version=\"1.0\" creator=\"t\">\n"
          "<trk><name>A</name><trkseg><trkpt lat=\"50.1\" lon=\"8.1\"><ele>100</ele></trkpt></trkseg></trk>\n"
          "<trk><name>B</name><trkseg><trkpt lat=\"51.1\" lon=\"9.1\"></trkpt>"
          "<trkpt lat=\"51.2\" lon=\"9.2\"></trkpt></trkseg></trk>\n</gpx>\n");
    std::string out;
    ASSERT_EQ(Ortelix("convert '" + path("two.gpx") + "' '" + path("t.plt") + "'", &out), 0) << out;
    EXPECT_FALSE(exists("t.plt"));
    EXPECT_EQ(lines(read("t1.plt"))[6], " 50.100000, 8.100000, 0, 328, , , ");
    EXPECT_EQ(lines(read("t2.plt"))[5], "2");

    // A track gives no waypoints: nothing is written, and the call says so.
    ASSERT_EQ(Ortelix("convert -o ozi-wpt '" + path("t2.plt") + "' '" + path("w.txt") + "'", &out), 1) << out;
    EXPECT_NE(out.find("Kein Datensatz vorhanden!"), std::string::npos) << out;
    EXPECT_FALSE(exists("w.txt"));
    ASSERT_EQ(Ortelix("info '" + path("t1.plt") + "' '" + path("t2.plt") + "'", &out), 0) << out;
    EXPECT_NE(out.find("Eingelesene Trackpunkte: 3"), std::string::npos) << out;
}

TEST_F(OziCommandLine, OziMapWritesTheCalibrationBesideThePicture) {
    std::string out;
    ASSERT_EQ(Ortelix("ozi-map '" + path("Blatt.png") + "' 8.25 50.3 8.75 50.05 2001 1501 --meridian 9 --margin 10",
                      &out),
              0)
        << out;
    OziMapDaten d;
    d.imageFile = path("Blatt.png");
    d.lonL = d.lonL2 = 8.25, d.latO = d.latO2 = 50.3, d.lonR = d.lonR2 = 8.75, d.latU = d.latU2 = 50.05;
    d.width = 2001, d.height = 1501, d.modus = 9, d.margin = "10";
    EXPECT_EQ(read("Blatt.map"), OziMapText(d));

    ASSERT_EQ(Ortelix("ozi-map '" + path("u.png") + "' 8 51 9 50 10 10 --meridian utm", &out), 0) << out;
    EXPECT_EQ(lines(read("u.map"))[39], "Projection Setup,,,,,,,,,,");
    EXPECT_EQ(lines(read("u.map"))[8].substr(0, 21), "Map Projection,(UTM) ");

    EXPECT_EQ(Ortelix("ozi-map '" + path("x.png") + "' 8 51 9 50 10", &out), 2);
    EXPECT_EQ(Ortelix("ozi-map '" + path("x.png") + "' 8 51 9 50 10 zehn", &out), 2);
    EXPECT_EQ(Ortelix("ozi-map '" + path("x.png") + "' 8 51 9 50 10 10 --meridian", &out), 2);
    EXPECT_FALSE(exists("x.map"));
}

}  // namespace
}  // namespace ortelix

namespace ortelix {
namespace {

// The read rows go through the line readers with the OziExplorer format;
// formats not built yet say so instead of reading anything.
TEST_F(OziTest, ReadRowsUseTheLineReadersByFormat) {
    write("t.plt", "OziExplorer Track Point File Version 2.1\r\nWGS 84\r\nAltitude is in Feet\r\nReserved 3\r\n"
                   "0,2,255,t,0,0,2,8421376\r\n2\r\n  48.100000,  11.500000,0,328,,,\r\n"
                   "  48.200000,  11.600000,0,-777,,,\r\n");
    FindCommand("MenEinOziTrack")->run(*session, path("t.plt"));
    ASSERT_EQ(store().Tracks.size(), 1u);
    ASSERT_EQ(store().Tracks[0].Points.size(), 2u);
    EXPECT_EQ(store().Tracks[0].Points[1].Lon, 11.6);
    EXPECT_THROW(ReadTrackFile(*session, path("t.plt"), 5), FileError);
    EXPECT_THROW(ReadRouteFile(*session, path("t.plt"), 7), FileError);
    EXPECT_THROW(ReadWayPointFile(*session, path("t.plt"), 1), FileError);
    EXPECT_EQ(store().Tracks[0].Points.size(), 2u);
}

}  // namespace
}  // namespace ortelix
