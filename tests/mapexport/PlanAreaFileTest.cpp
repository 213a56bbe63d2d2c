// The area text file both ways, the projection answer, the meridian of a
// .map, areas from the store and the Map-Check files.
#include <gtest/gtest.h>

#include <filesystem>

#include "commands/CommandTable.h"
#include "core/FileIO.h"
#include "core/Session.h"
#include "fake/FakePlatform.h"
#include "fake/TestFiles.h"
#include "mapexport/ModKarteFlaeche.h"

namespace ortelix {
namespace {

TEST(PlanAreaFile, WrittenPartsReadBackAsAreas) {
    FakePlatform p;
    Session s(p);
    s.plan.KartenTeilListe = {{8.5, 8.75, 49.9, 50.25, ""}, {-0.1234564, 1.0, -33.5, -33.0000004, ""}};
    const std::string text = FlaechenTextdateiText(s, "/x/Plan.csv");
    EXPECT_EQ(text,
              "8.500000 ; 50.250000 ; 8.750000 ; 49.900000 ; Plan001\r\n"
              "-0.123456 ; -33.000000 ; 1.000000 ; -33.500000 ; Plan002\r\n");

    EXPECT_EQ(FlaechenTextdateiLesenText(s, text), 0u);
    ASSERT_EQ(s.store.Flaechen.size(), 2u);
    const Flaeche& f = s.store.Flaechen[1];
    EXPECT_EQ(f.Name, "Plan002");
    EXPECT_DOUBLE_EQ(f.West, -0.123456);
    EXPECT_DOUBLE_EQ(f.North, -33.0);
    EXPECT_DOUBLE_EQ(f.East, 1.0);
    EXPECT_DOUBLE_EQ(f.South, -33.5);
    EXPECT_TRUE(f.Polygon.empty());
    EXPECT_EQ(s.store.FlaecheCount, 2);

    // Through a file, with the projection box of "Karten teilen".
    const auto dir = testfiles::FreshFolder("mapexport", "areafile");
    s.options.MapExpCheck[11] = 1;
    s.plan.KartenMeridian = 2000;
    p.inputs.push_back("7,5");
    FlaechenTextdateiSchreiben(s, (dir / "Teile.csv").string());
    EXPECT_EQ(s.plan.KartenMeridian, 7.5);
    EXPECT_EQ(ReadFileBytes((dir / "Teile.csv").string()).substr(0, 54),
              "8.500000 ; 50.250000 ; 8.750000 ; 49.900000 ; Teile001");
}

TEST(PlanAreaFile, CommentsAreSkippedSilentlyBadLinesCounted) {
    FakePlatform p;
    Session s(p);
    const size_t skipped = FlaechenTextdateiLesenText(s,
                                                      "# Flächen\n"
                                                      "Ende der Kopfzeile\n"
                                                      "\n"
                                                      "  8,5;50,25; 8.75 ;49.9; Weg am Bach | alt\r\n"
                                                      "1;2;3\n"
                                                      "a;b;c;d\n"
                                                      "8.5;;8.75;49.9\n"
                                                      "  -1 ; 2 ; 3 ; -4");
    EXPECT_EQ(skipped, 3u);
    EXPECT_EQ(UebersprungenText(skipped), "3 fehlerhafte Zeilen übersprungen");
    ASSERT_EQ(s.store.Flaechen.size(), 2u);
    EXPECT_EQ(s.store.Flaechen[0].Name, "Weg am Bach");
    EXPECT_EQ(s.store.Flaechen[0].West, 8.5);
    EXPECT_EQ(s.store.Flaechen[0].North, 50.25);
    EXPECT_EQ(s.store.Flaechen[1].Name, "");
    EXPECT_EQ(s.store.Flaechen[1].South, -4);
}

TEST(PlanAreaFile, ProjectionAnswersAndDefaults) {
    EXPECT_EQ(KartenprojektionWert(""), 1000);
    EXPECT_EQ(KartenprojektionWert("LAT/LONG"), 1000);
    EXPECT_EQ(KartenprojektionWert(" utm "), 2000);
    EXPECT_EQ(KartenprojektionWert("12"), 12);
    EXPECT_EQ(KartenprojektionWert("7,439583"), 7.439583);
    EXPECT_EQ(KartenprojektionVorgabe(1000), "Lat/Long");
    EXPECT_EQ(KartenprojektionVorgabe(2000), "UTM");
    EXPECT_EQ(KartenprojektionVorgabe(7.439583), "7.439583");

    // Without "Karten teilen" nothing is asked and the meridian stays.
    FakePlatform p;
    Session s(p);
    s.plan.KartenMeridian = 9;
    p.inputs.push_back("utm");
    KartenprojektionFragen(s);
    EXPECT_EQ(s.plan.KartenMeridian, 9);
    s.options.MapExpCheck[11] = 1;
    KartenprojektionFragen(s);
    EXPECT_EQ(s.plan.KartenMeridian, 2000);
}

TEST(PlanAreaFile, TheMeridianOfAMapFile) {
    const std::string head = "OziExplorer Map Data File Version 2.2\r\nKarte\r\nkarte.jpg\r\n1 ,Map Code,\r\n"
                             "WGS 84,WGS 84,   0.0000,   0.0000,WGS 84\r\nReserved 1\r\nReserved 2\r\n"
                             "Magnetic Variation,,,E\r\n";
    EXPECT_EQ(OziMapMeridian(head + "Map Projection,Transverse Mercator,PolyCal,No,AutoCalOnly,No,BSBUseWPX,No\r\n"
                                    "Point01,xy,    0,    0,in, deg,  50, 0.000000,N,   9, 0.000000,E, grid,,,,N\r\n"
                                    "Projection Setup,     0.000000000,    12.000000000,     1.000000000,"
                                    "      4500000.00,            0.00,,,,,\r\n"),
              12);
    EXPECT_EQ(OziMapMeridian(head + "Map Projection,Latitude/Longitude,PolyCal,No,AutoCalOnly,No,BSBUseWPX,No\r\n"
                                    "Projection Setup,,,,,,,,,,\r\n"),
              1000);
    EXPECT_EQ(OziMapMeridian(head + "Map Projection,(UTM) Universal Transverse Mercator,PolyCal,No\r\n"
                                    "Projection Setup,,,,,,,,,,\r\n"),
              2000);
    EXPECT_EQ(OziMapMeridian(head + "Map Projection,Mercator,PolyCal,No\r\nProjection Setup,,,,,,,,,,\r\n"), 0);
    EXPECT_EQ(OziMapMeridian(head), 0);
}

TEST(PlanAreaFile, AnAreaPerTrackPerRouteAndOneForAllWaypoints) {
    FakePlatform p;
    Session s(p);
    NewTrack(s.store, "Runde");
    s.store.Tracks[0].Points.resize(3);
    s.store.Tracks[0].Points[0].Lon = 8.0, s.store.Tracks[0].Points[0].Lat = 50.0;
    s.store.Tracks[0].Points[1].Lon = 8.3, s.store.Tracks[0].Points[1].Lat = 49.8;
    s.store.Tracks[0].Points[2].Lon = 7.9, s.store.Tracks[0].Points[2].Lat = 50.1;
    NewTrack(s.store, "leer");
    s.store.WayPoints.resize(2);
    s.store.WayPoints[0].Lon = 10, s.store.WayPoints[0].Lat = 48;
    s.store.WayPoints[1].Lon = 11, s.store.WayPoints[1].Lat = 47;
    s.store.WayPointListName = "Gipfel";

    // Through the tool menu's rows, as the main form runs them.
    for (const char* control : {"MenToolsFlAusTracks", "MenToolsFlAusRouten", "MenToolsFlAusWP"}) {
        const Command* c = FindCommand(control);
        ASSERT_NE(c, nullptr);
        ASSERT_NE(c->run, nullptr) << control;
        c->run(s, "");
    }
    ASSERT_EQ(s.store.Flaechen.size(), 2u);
    const Flaeche& t = s.store.Flaechen[0];
    EXPECT_EQ(t.Name, "Runde");
    EXPECT_EQ(t.West, 7.9);
    EXPECT_EQ(t.East, 8.3);
    EXPECT_EQ(t.South, 49.8);
    EXPECT_EQ(t.North, 50.1);
    ASSERT_EQ(t.Polygon.size(), 3u);
    EXPECT_EQ(t.Polygon[1][0], 8.3);
    EXPECT_EQ(s.store.Flaechen[1].Name, "Gipfel");
    EXPECT_EQ(s.store.Flaechen[1].West, 10);
    EXPECT_EQ(s.store.Flaechen[1].South, 47);

    // The track's own first point gives the meridian of a marker plan.
    TeileAlleFlaechen(s, 1000);
    ASSERT_EQ(s.plan.KartenTeilListe.size(), 2u);
    EXPECT_NEAR(s.plan.KartenTeilListe[0].LaengeWest, 7.9, 1e-6);
}

TEST(PlanAreaFile, MapCheckOutlinesEachPartAsATrackSegmentWithACentreWaypoint) {
    FakePlatform p;
    Session s(p);
    s.plan.KartenTeilListe = {{8.0, 8.2, 50.0, 50.1, ""}, {8.2, 8.4, 50.0, 50.1, ""}};
    s.plan.KartenMeridian = 1000;
    const auto dir = testfiles::FreshFolder("mapexport", "mapcheck");
    const auto files = MapCheckSchreiben(s, (dir / "Plan.txt").string());
    ASSERT_EQ(files.size(), 3u);
    EXPECT_EQ(files[0], (dir / "Plan_Check.plt").string());

    const std::string plt = ReadFileBytes(files[0]);
    EXPECT_NE(plt.find("0,2,16711935,Plan_Check,"), std::string::npos);
    EXPECT_NE(plt.find("\r\n10\r\n"), std::string::npos);
    // A segment starts at each part's top left corner, then runs round it.
    EXPECT_NE(plt.find(" 50.100000, 8.000000, 1,"), std::string::npos) << plt;
    EXPECT_NE(plt.find(" 50.100000, 8.200000, 1,"), std::string::npos);
    EXPECT_NE(plt.find(" 50.000000, 8.400000, 0,"), std::string::npos);
    size_t starts = 0;
    for (size_t at = plt.find(", 1,"); at != std::string::npos; at = plt.find(", 1,", at + 1)) ++starts;
    EXPECT_EQ(starts, 2u);

    const std::string wpt = ReadFileBytes(files[1]);
    EXPECT_NE(wpt.find("\r\n1,_01,50.050000,8.100000,"), std::string::npos) << wpt;
    EXPECT_NE(wpt.find("\r\n2,_02,50.050000,8.300000,"), std::string::npos);
    EXPECT_EQ(ReadFileBytes(files[2]), "8.000000 ; 50.100000 ; 8.200000 ; 50.000000 ; Plan_Check001\r\n"
                                       "8.200000 ; 50.100000 ; 8.400000 ; 50.000000 ; Plan_Check002\r\n");
}

}  // namespace
}  // namespace ortelix

namespace ortelix {
namespace {

TEST(PlanAreaFile, AMapGivesItsAreaAndItsMeridian) {
    const auto dir = testfiles::FreshFolder("mapexport", "mapareas");
    const std::string head = "OziExplorer Map Data File Version 2.2\r\nNord\r\nnord.jpg\r\n1 ,Map Code,\r\n"
                             "WGS 84,WGS 84,   0.0000,   0.0000,WGS 84\r\nReserved 1\r\nReserved 2\r\n"
                             "Magnetic Variation,,,E\r\n";
    const std::string corners = "MMPLL,1,   9.000000,  50.200000\r\nMMPLL,3,   9.300000,  50.000000\r\n";
    const std::string tm = testfiles::Put(
        dir / "a.map", head + "Map Projection,Transverse Mercator,PolyCal,No\r\n"
                              "Projection Setup,     0.000000000,    12.000000000,     1.000000000,,,,,,,\r\n" +
                           corners);
    FakePlatform p;
    Session s(p);
    EXPECT_EQ(MapFlaechenEinlesen(s, tm), 12);
    EXPECT_EQ(s.plan.KartenMeridian, 12);
    ASSERT_EQ(s.store.Flaechen.size(), 1u);
    EXPECT_EQ(s.store.Flaechen[0].Name, "Nord");
    EXPECT_EQ(s.store.Flaechen[0].West, 9.0);
    EXPECT_EQ(s.store.Flaechen[0].South, 50.0);

    // A projection the plan does not know leaves the meridian.
    const std::string other = testfiles::Put(
        dir / "b.map", head + "Map Projection,Mercator,PolyCal,No\r\nProjection Setup,,,,,,,,,,\r\n" + corners);
    EXPECT_EQ(MapFlaechenEinlesen(s, other), 0);
    EXPECT_EQ(s.plan.KartenMeridian, 12);
    EXPECT_EQ(s.store.Flaechen.size(), 2u);
}

}  // namespace
}  // namespace ortelix
