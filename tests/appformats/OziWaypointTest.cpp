#include "OziTestSupport.h"

#include "appformats/ModOziWaypoint.h"

namespace ortelix {
namespace {

using OziWaypoint = OziTest;

TEST_F(OziWaypoint, WritesSixteenFieldsEndingInAComma) {
    GeoPoint a = MakePoint(8.2, 50.1, "Haus, Hof", "am Weg", 100);
    a.Date_ = 38000;
    a.Time_ = 43200;
    a.ForeColor = 255;
    a.BackColor = 65280;
    store().WayPoints.push_back(a);
    store().WayPoints.push_back(MakePoint(-1.25, -0.5, std::string(41, 'n')));
    OziWegepunkteSchreiben(*session, path("w.wpt"));
    const std::vector<std::string> l = lines(read("w.wpt"));
    ASSERT_EQ(l.size(), 6u);
    EXPECT_EQ(l[0], "OziExplorer Waypoint File Version 1.1");
    EXPECT_EQ(l[1], "WGS 84");
    EXPECT_EQ(l[2], "Reserved 2");
    EXPECT_EQ(l[3], "garmin");
    EXPECT_EQ(l[4], "1,Haus\xD1 Hof,50.100000,8.200000,38000.5,0,1,2,255,65280,am Weg,0,0,0,328,");
    EXPECT_EQ(l[5], "2," + std::string(40, 'n') + ",-0.500000,-1.250000,,0,1,2,,,,0,0,0,-777,");
    EXPECT_EQ(std::count(l[4].begin(), l[4].end(), ','), 15);
}

TEST_F(OziWaypoint, ReadsFieldsAndSkipsCommentsAndBlankLines) {
    write("w.wpt",
          "OziExplorer Waypoint File Version 1.1\r\n"
          "WGS 84\r\n"
          "Reserved 2\r\n"
          "garmin\r\n"
          "; a comment\r\n"
          "\r\n"
          ",50,8,no number\r\n"
          "1, \"Haus\xD1 Hof\" ,50.100000,8.200000,38000.5,0,1,2,255,65280, am \"Weg\" ,0,0,0,328,\r\n"
          "2,Kurz,-0.5,-1.25\r\n"
          "3,Null,51,9,,0,1,2,7,7,,0,0,0,0,6,0,17\r\n"
          "4,Leer,52,10,,0,1,2,0,65535,,0,0,0,-777,\r\n");
    OziWegepunkteLesen(*session, path("w.wpt"));
    const auto& w = store().WayPoints;
    ASSERT_EQ(w.size(), 4u);
    EXPECT_EQ(w[0].Name, "Haus\xC3\x91 Hof");  // 209 stays, no comma comes back
    EXPECT_EQ(w[0].Desc, "am Weg");
    EXPECT_DOUBLE_EQ(w[0].Lat, 50.1);
    EXPECT_DOUBLE_EQ(w[0].Lon, 8.2);
    EXPECT_EQ(w[0].Alt, OptInt(100));
    EXPECT_EQ(w[0].Date_, Date(38000));
    EXPECT_EQ(w[0].Time_, Time(43200));
    EXPECT_EQ(w[0].ForeColor, OptInt(255));
    EXPECT_EQ(w[0].BackColor, OptInt(65280));
    EXPECT_EQ(w[1].Name, "Kurz");
    EXPECT_TRUE(w[1].Alt.empty());
    EXPECT_TRUE(w[1].Date_.empty());
    EXPECT_EQ(w[2].Alt, OptInt(0));
    EXPECT_EQ(w[2].ForeColor, OptInt(0));  // equal colours count as none
    EXPECT_EQ(w[2].BackColor, OptInt(65535));
    EXPECT_TRUE(w[3].Alt.empty());
    EXPECT_EQ(store().WayPointCount, 4);
}

TEST_F(OziWaypoint, RoundTripKeepsWhatTheFormatHolds) {
    GeoPoint a = MakePoint(13.404954, 52.520008, "Berlin, Mitte", "Fernsehturm", 368);
    a.Date_ = 41000;
    a.Time_ = 3723;
    a.ForeColor = 16777215;
    a.BackColor = 255;
    store().WayPoints.push_back(a);
    store().WayPoints.push_back(MakePoint(-58.381592, -34.603722, "Süd", "", OptInt()));
    OziWegepunkteSchreiben(*session, path("rt.wpt"));
    Session again(platform);
    OziWegepunkteLesen(again, path("rt.wpt"));
    ASSERT_EQ(again.store.WayPoints.size(), 2u);
    const GeoPoint& b = again.store.WayPoints[0];
    EXPECT_EQ(b.Name, "Berlin\xC3\x91 Mitte");
    EXPECT_EQ(b.Desc, "Fernsehturm");
    EXPECT_DOUBLE_EQ(b.Lat, 52.520008);
    EXPECT_DOUBLE_EQ(b.Lon, 13.404954);
    EXPECT_EQ(b.Alt, OptInt(368));
    EXPECT_EQ(b.Date_, Date(41000));
    EXPECT_EQ(b.Time_, Time(3723));
    EXPECT_EQ(b.ForeColor, OptInt(16777215));
    EXPECT_EQ(b.BackColor, OptInt(255));
    EXPECT_EQ(again.store.WayPoints[1].Name, "Süd");  // through Windows-1252 and back
    EXPECT_TRUE(again.store.WayPoints[1].Alt.empty());
}

// Records without a position are no waypoints: not at 0/0, and they cost
// nothing, so a file of empty records stays as small in memory as it is.
TEST_F(OziWaypoint, RecordsWithoutAPositionAreSkipped) {
    std::string text = "OziExplorer Waypoint File Version 1.1\r\nWGS 84\r\nReserved 2\r\ngarmin\r\n";
    for (int i = 0; i < 100000; ++i) text += "1\r\n";
    text += "2,Nur Breite,50.5\r\n"
            "3,Text,Nord,Ost\r\n"
            "4,Leer,,\r\n"
            "5,Null,0.000000,0.000000,,0,1,2,0,65535,,0,0,0,-777,\r\n"  // a real place at 0/0 stays
            "6,Gut,50.5,8.25\r\n";
    OziWegepunkteLesenText(*session, text);
    const auto& w = store().WayPoints;
    ASSERT_EQ(w.size(), 2u);
    EXPECT_EQ(w[0].Name, "Null");
    EXPECT_EQ(w[0].Lat, 0);
    EXPECT_EQ(w[1].Name, "Gut");
    EXPECT_EQ(store().WayPointCount, 2);
    EXPECT_EQ(store().SkippedWayPoints, 0);  // no record was refused: there was none
}

// Numbers off the earth are refused and counted by the store, whatever the reader.
TEST_F(OziWaypoint, PositionsOffTheEarthAreCountedAsSkipped) {
    OziWegepunkteLesenText(*session,
                           "OziExplorer Waypoint File Version 1.1\r\nWGS 84\r\nReserved 2\r\ngarmin\r\n"
                           "1,A,1e309,8\r\n"
                           "2,B,91,8\r\n"
                           "3,C,50,-400\r\n"
                           "4,D,50,8,,0,1,2,0,65535,,0,0,0,1e300,\r\n"
                           "5,E,50,8,1e308,0,1,2,1e300,-1e300,,0,0,0,-777,\r\n");
    const auto& w = store().WayPoints;
    ASSERT_EQ(w.size(), 1u);
    EXPECT_EQ(w[0].Name, "E");
    EXPECT_TRUE(w[0].Date_.empty());     // a Tageswert far off the calendar is none
    EXPECT_EQ(store().SkippedWayPoints, 4);
}

}  // namespace
}  // namespace ortelix
