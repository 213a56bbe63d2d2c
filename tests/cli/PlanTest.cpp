// ortelix plan through the built program: the parts of area files, one line
// each, with the meridian of the flag, the type, the .map or latitude/longitude.
#include <algorithm>
#include <filesystem>

#include "cli/CliTestSupport.h"
#include "core/FileIO.h"

namespace ortelix {
namespace {

using testing::CliTest;

class Plan : public CliTest {};

// An area of 0.3 by 0.2 degrees at 50 north: some 21.5 by 22.2 km.
constexpr const char* kArea = "9.0;50.2;9.3;50.0;Rhein\n";
// The form's fields as the tests mean them, whatever the settings' reset says.
const std::string kPlan = "plan --set ZahlInput0=9 --set ZahlInput1=20 --set ZahlInput2=1 ";

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> out;
    size_t pos = 0;
    while (pos < text.size()) {
        size_t end = text.find('\n', pos);
        if (end == std::string::npos) end = text.size();
        out.push_back(text.substr(pos, end - pos));
        pos = end + 1;
    }
    return out;
}

TEST_F(Plan, OneLineAPartNorthFirstWithItsSize) {
    const std::string area = File("rhein.csv", kArea);
    // Without "Karten teilen" the area is one part; pixels at 9 m.
    auto r = Ortelix(kPlan + area);
    ASSERT_EQ(r.code, 0) << r.out;
    // The corners come back through the grid some 2.35 m further north.
    EXPECT_EQ(r.out, "1 9.000000 50.200021 9.300000 50.000021 2389x2466 Pixel (Ost x Nord) 22x22 km 484 km2 Fläche\n");

    r = Ortelix(kPlan + "--set Check11=1 --set ZahlInput1=12 --set ZahlInput2=0 --meridian 9 " + area);
    ASSERT_EQ(r.code, 0) << r.out;
    const auto lines = Lines(r.out);
    ASSERT_EQ(lines.size(), 4u) << r.out;
    // North first; the grid's lines of equal northing fall towards the east.
    EXPECT_EQ(lines[0], "1 9.000000 50.200021 9.150312 50.100119 1194x1233 Pixel (Ost x Nord) 11x11 km 121 km2 Fläche");
    EXPECT_EQ(lines[1].substr(0, 40), "2 9.150625 50.199924 9.300623 50.099827 ");
    EXPECT_EQ(lines[3], "4 9.150312 50.100119 9.300000 50.000021 1194x1233 Pixel (Ost x Nord) 11x11 km 121 km2 Fläche");

    // The form's own names: Check11 is its "Karten teilen", not the main form's.
    r = Ortelix(kPlan + "--set Check11=1 --set Check5=1 --set ZahlInput7=20 --set ZahlInput1=600 --set ZahlInput2=0 "
                "--type 6 " + area);
    ASSERT_EQ(r.code, 0) << r.out;
    EXPECT_EQ(Lines(r.out).size(), 4u) << r.out;  // 600 pixels of 20 m
    EXPECT_NE(r.out.find(" 537x555 Pixel (Ost x Nord) 11x11 km 121 km2 Fläche"), std::string::npos) << r.out;
}

TEST_F(Plan, TheMeridianComesFromTheFlagTheTypeTheMapOrLatLong) {
    const std::string map = File("karte.map",
                                 "OziExplorer Map Data File Version 2.2\r\nKarte\r\nkarte.jpg\r\n1 ,Map Code,\r\n"
                                 "WGS 84,WGS 84,   0.0000,   0.0000,WGS 84\r\nReserved 1\r\nReserved 2\r\n"
                                 "Magnetic Variation,,,E\r\n"
                                 "Map Projection,Transverse Mercator,PolyCal,No,AutoCalOnly,No,BSBUseWPX,No\r\n"
                                 "Projection Setup,     0.000000000,    12.000000000,     1.000000000,"
                                 "      4500000.00,            0.00,,,,,\r\n"
                                 "MMPLL,1,   9.000000,  50.200000\r\nMMPLL,2,   9.300000,  50.200000\r\n"
                                 "MMPLL,3,   9.300000,  50.000000\r\nMMPLL,4,   9.000000,  50.000000\r\n");
    const std::string split = kPlan + "--set Check11=1 ";
    const auto fromMap = Ortelix(split + map);
    ASSERT_EQ(fromMap.code, 0) << fromMap.out;
    EXPECT_EQ(Lines(fromMap.out).size(), 4u);
    EXPECT_EQ(fromMap.out, Ortelix(split + "--meridian 12 " + map).out);
    EXPECT_NE(fromMap.out, Ortelix(split + "--meridian 9 " + map).out);

    const std::string area = File("rhein.csv", kArea);
    const auto latlong = Ortelix(split + area);
    EXPECT_EQ(latlong.out, Ortelix(split + "--meridian latlong " + area).out);
    EXPECT_EQ(latlong.out, Ortelix(split + "--meridian LAT/LONG " + area).out);
    EXPECT_NE(latlong.out, Ortelix(split + "--meridian 12 " + area).out);
    // Google Earth draws in degrees, MagicMaps at 9 (12 for the Bavarian CD).
    EXPECT_EQ(Ortelix(split + "--type 5 " + map).out.substr(0, 60), latlong.out.substr(0, 60));
    EXPECT_EQ(Ortelix(split + "--type 3 --set ZahlInput0=9 " + area).out.substr(0, 60),
              Ortelix(split + "--meridian 9 " + area).out.substr(0, 60));
    EXPECT_EQ(Ortelix(split + "--type 3 --set Check18=1 " + area).out.substr(0, 60),
              Ortelix(split + "--meridian 12 " + area).out.substr(0, 60));
}

TEST_F(Plan, TracksRoutesAndWaypointsOfOtherFilesBecomeAreas) {
    const std::string gpx = File("tour.gpx",
                                 "<?xml version=\"1.0\"?>\n<gpx version=\"1.1\" creator=\"t\">\n"
                                 "<wpt lat=\"48.0\" lon=\"11.0\"><name>A</name></wpt>\n"
                                 "<wpt lat=\"48.1\" lon=\"11.1\"><name>B</name></wpt>\n"
                                 "<trk><name>T</name><trkseg><trkpt lat=\"50.0\" lon=\"8.0\"/>"
                                 "<trkpt lat=\"50.05\" lon=\"8.1\"/></trkseg></trk>\n</gpx>\n");
    // Each area at the meridian of its own first point: its west edge.
    const auto r = Ortelix(kPlan + gpx);
    ASSERT_EQ(r.code, 0) << r.out;
    const auto lines = Lines(r.out);
    ASSERT_EQ(lines.size(), 2u) << r.out;
    // North first: the track's area, then the waypoints'.
    EXPECT_EQ(lines[0].substr(0, 40), "1 8.000000 50.050064 8.099896 49.999978 ");
    EXPECT_EQ(lines[1].substr(0, 42), "2 11.000000 48.100064 11.099807 47.999977 ");
    // At meridian 9 the track's frame reaches west of its first point.
    EXPECT_EQ(Ortelix(kPlan + "--meridian 9 " + gpx).out.substr(0, 40), "1 7.998978 50.049194 8.100918 50.000847 ");
}

TEST_F(Plan, WritesTheAreaFileAndTheCheckFiles) {
    const std::string area = File("rhein.csv", kArea);
    const auto r = Ortelix(kPlan + "--set Check11=1 --set ZahlInput1=12 --set ZahlInput2=0 --meridian 9 --csv " +
                           Path("teile.csv") + " --check " +
                           Path("blick") + " " + area);
    ASSERT_EQ(r.code, 0) << r.out;
    const std::string csv = ReadFileBytes(Path("teile.csv"));
    EXPECT_EQ(csv.substr(0, 56), "9.000000 ; 50.200021 ; 9.150312 ; 50.100119 ; teile001\r\n");
    EXPECT_EQ(std::count(csv.begin(), csv.end(), '\n'), 4);
    EXPECT_NE(ReadFileBytes(Path("blick_Check.plt")).find("Track Point File"), std::string::npos);
    EXPECT_NE(ReadFileBytes(Path("blick_Check.wpt")).find(",_04,"), std::string::npos);
    EXPECT_NE(ReadFileBytes(Path("blick_Check.csv")).find(" ; blick_Check004\r\n"), std::string::npos);

    // The written area file plans again to the same parts, one each.
    const auto again = Ortelix(kPlan + "--meridian 9 " + Path("teile.csv"));
    EXPECT_EQ(Lines(again.out).size(), 4u) << again.out;
}

TEST_F(Plan, BadLinesAreCountedAndBadCallsRefused) {
    const std::string area = File("mixed.csv", std::string(kArea) + "1;2;3\nx;y;z;w\n\n# Kommentar\n9;9\n");
    auto r = Ortelix(kPlan + area);
    EXPECT_EQ(r.code, 0);
    EXPECT_NE(r.out.find("3 fehlerhafte Zeilen übersprungen"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("\n1 9.000000 50.200021 9.300000"), std::string::npos) << r.out;

    EXPECT_EQ(Ortelix(kPlan + "--type 10 " + area).code, 2);
    EXPECT_EQ(Ortelix(kPlan + "--meridian neun " + area).code, 2);
    EXPECT_EQ(Ortelix(kPlan + "--set Check99=1 " + area).code, 2);
    EXPECT_EQ(Ortelix("plan").code, 2);
    r = Ortelix(kPlan + File("leer.csv", "# nichts\n"));
    EXPECT_EQ(r.code, 1);
    EXPECT_NE(r.out.find("Keine Kartenteile"), std::string::npos) << r.out;
    EXPECT_EQ(Ortelix(kPlan + Path("fehlt.csv")).code, 1);
}

}  // namespace
}  // namespace ortelix
