#include "OziTestSupport.h"

#include "appformats/ModOziMap.h"
#include "appformats/ModOziMapComments.h"
#include "appformats/ModOziMapCopy.h"
#include "coordinates/Entfernung.h"
#include "core/FileIO.h"

namespace ortelix {
namespace {

class OziMap : public OziTest {
protected:
    // A picture of the Taunus whose bottom left and top right corners lie a
    // little off the rectangle, as the corners of a grid map do.
    static OziMapDaten Taunus(double modus, std::string margin, std::string imageType = {}) {
        OziMapDaten d;
        d.imageFile = "/maps/Karte Taunus.bmp";
        d.lonL = 8.25, d.latO = 50.3, d.lonR = 8.75, d.latU = 50.05;
        d.lonL2 = 8.2501, d.latU2 = 50.0499, d.lonR2 = 8.7499, d.latO2 = 50.3001;
        d.width = 2001, d.height = 1501;
        d.modus = modus;
        d.margin = std::move(margin);
        d.imageType = std::move(imageType);
        return d;
    }
    static std::string Golden(const std::string& name) {
        return ReadFileBytes(std::string(ORTELIX_SOURCE_DIR) + "/tests/data/ozi/" + name);
    }
};

TEST_F(OziMap, GoldenFilesForTheThreeProjectionModes) {
    EXPECT_EQ(OziMapText(Taunus(kModusGeo, "0")), Golden("taunus-geo.map"));
    EXPECT_EQ(OziMapText(Taunus(9, "10", "jpg")), Golden("taunus-tm9.map"));
    EXPECT_EQ(OziMapText(Taunus(kModusUTM, "-5")), Golden("taunus-utm.map"));
}

TEST_F(OziMap, LayoutOfTheFile) {
    const std::vector<std::string> l = lines(OziMapText(Taunus(kModusGeo, "")));
    ASSERT_EQ(l.size(), 56u);
    EXPECT_EQ(l[1], "Karte Taunus");
    EXPECT_EQ(l[2], "Karte Taunus.bmp");
    EXPECT_EQ(l[8], "Map Projection,Latitude/Longitude,PolyCal,No,AutoCalOnly,No,BSBUseWPX,No");
    EXPECT_EQ(l[9].substr(0, 31), "Point01,xy,    1,    1,in, deg,");
    EXPECT_EQ(l[10].substr(0, 31), "Point02,xy, 2001, 1501,in, deg,");
    // 28 empty points, Point03 to Point30.
    for (int i = 3; i <= 30; ++i) {
        const std::string& p = l[static_cast<size_t>(i) + 8];
        EXPECT_EQ(p.substr(0, 7), (i < 10 ? "Point0" : "Point") + std::to_string(i));
        EXPECT_EQ(p.substr(7), ",xy,     ,     ,in, deg,    ,        ,N,    ,        ,E, grid,   ,           ,           ,N");
    }
    EXPECT_EQ(l[39], "Projection Setup,,,,,,,,,,");
    EXPECT_EQ(l[43], "MM0,Yes");
    EXPECT_EQ(l[44], "MMPNUM,4");
    // The scale is the diagonal's length over its pixels.
    const double mm1b = Entfernung(8.25, 50.3, 8.75, 50.05) / std::sqrt(2001.0 * 2001 + 1501.0 * 1501);
    EXPECT_NEAR(std::stod(l[53].substr(5)), mm1b, 1e-6);
    EXPECT_GT(mm1b, 17.0);
    EXPECT_LT(mm1b, 19.0);
    EXPECT_EQ(l[54], "MOP,Map Open Position,1000,750");
    EXPECT_EQ(l[55], "IWH,Map Image Width/Height,2001,1501");
}

TEST_F(OziMap, MarginZeroPutsCornersOnTheEdgeWhilePoint01StaysAtOne) {
    const std::vector<std::string> l = lines(OziMapText(Taunus(kModusGeo, "0")));
    EXPECT_EQ(l[45], "MMPXY,1,0,0");
    EXPECT_EQ(l[46], "MMPXY,2,2001,0");
    EXPECT_EQ(l[47], "MMPXY,3,2001,1501");
    EXPECT_EQ(l[48], "MMPXY,4,0,1501");
    EXPECT_EQ(l[49], "MMPLL,1, 8.250000, 50.300000");
    EXPECT_EQ(l[50], "MMPLL,2, 8.749900, 50.300100");
    EXPECT_EQ(l[51], "MMPLL,3, 8.750000, 50.050000");
    EXPECT_EQ(l[52], "MMPLL,4, 8.250100, 50.049900");
    EXPECT_EQ(l[9].substr(0, 22), "Point01,xy,    1,    1");

    // A margin moves pixels and degrees inwards by the same amount.
    const std::vector<std::string> m = lines(OziMapText(Taunus(kModusGeo, "10")));
    EXPECT_EQ(m[45], "MMPXY,1,10,10");
    EXPECT_EQ(m[47], "MMPXY,3,1991,1491");
    EXPECT_EQ(m[49], "MMPLL,1, 8.252499, 50.298334");  // 10 · 0.5/2001 and 10 · 0.25/1501
    EXPECT_EQ(m[51], "MMPLL,3, 8.747501, 50.051666");
    // Negative margins and margins wider than the picture count as 0.
    for (const char* bad : {"-3", "1502", "abc", ""}) {
        const std::vector<std::string> z = lines(OziMapText(Taunus(kModusGeo, bad)));
        EXPECT_EQ(z[45], "MMPXY,1,0,0") << bad;
        EXPECT_EQ(z[49], "MMPLL,1, 8.250000, 50.300000") << bad;
    }
    EXPECT_EQ(lines(OziMapText(Taunus(kModusGeo, "1501")))[45], "MMPXY,1,1501,1501");
}

TEST_F(OziMap, TransverseMercatorSetupByMeridian) {
    const auto setup = [this](double m) { return lines(OziMapText(Taunus(m, "0")))[39]; };
    EXPECT_EQ(setup(9),
              "Projection Setup,     0.000000000,    9.000000000,     1.000000000,      3500000.00,            0.00,,,,,");
    EXPECT_NE(setup(3).find(",    3.000000000,     1.000000000,      1500000.00,"), std::string::npos);
    EXPECT_NE(setup(12).find(",    12.000000000,     1.000000000,      4500000.00,"), std::string::npos);
    EXPECT_NE(setup(10.5).find(",      4000000.00,"), std::string::npos);  // the whole part of 40
    EXPECT_EQ(lines(OziMapText(Taunus(6, "0")))[8],
              "Map Projection,Transverse Mercator,PolyCal,No,AutoCalOnly,No,BSBUseWPX,No");
    EXPECT_EQ(lines(OziMapText(Taunus(kModusUTM, "0")))[8],
              "Map Projection,(UTM) Universal Transverse Mercator,PolyCal,No,AutoCalOnly,No,BSBUseWPX,No");
}

TEST_F(OziMap, DegreesMinutesAndHemispheres) {
    EXPECT_EQ(OziGrad(50.3), "  50");
    EXPECT_EQ(OziGrad(-8.9), "   8");
    EXPECT_EQ(OziGrad(-179.5), " 179");
    EXPECT_EQ(OziMinuten(50.5), " 30.000001");
    EXPECT_EQ(OziMinuten(0), "  0.000001");  // the added millionth keeps the decimals
    EXPECT_EQ(OziMinuten(5.123455 / 60), "  5.123456");
    EXPECT_EQ(OziMinuten(-(12.345677 / 60)), " 12.345678");
    // 59.9999999 minutes stay in the field as 60, without a carry into the degrees.
    EXPECT_EQ(OziMinuten(7 + 59.9999999 / 60), " 60.000000");

    OziMapDaten d = Taunus(kModusGeo, "0");
    d.lonL = 0, d.latO = 0;      // exactly 0: N and E
    d.lonR = -0.5, d.latU = -0.25;
    const std::vector<std::string> l = lines(OziMapText(d));
    EXPECT_EQ(l[9], "Point01,xy,    1,    1,in, deg,   0,  0.000001,N,   0,  0.000001,E, grid,   ,           ,           ,N");
    EXPECT_EQ(l[10],
              "Point02,xy, 2001, 1501,in, deg,   0, 15.000001,S,   0, 30.000001,W, grid,   ,           ,           ,S");
}

TEST_F(OziMap, ImageTypeDecidesTheImageLineAndTheFileSitsBesideTheImage) {
    OziMapDaten d = Taunus(kModusGeo, "0", "gif");
    d.imageFile = path("Blatt 1.bmp");
    OziMapSchreiben(d);
    const std::vector<std::string> l = lines(read("Blatt 1.map"));
    EXPECT_EQ(l[1], "Blatt 1");
    EXPECT_EQ(l[2], "Blatt 1.gif");
}

TEST_F(OziMap, ReaderTakesTitleImageAndTheMMPLLCorners) {
    OziMapDaten d = Taunus(kModusGeo, "10");
    d.imageFile = path("K.png");
    OziMapSchreiben(d);
    const OziMapInfo info = OziMapLesen(path("K.map"));
    EXPECT_EQ(info.title, "K");
    EXPECT_EQ(info.imageFile, "K.png");
    EXPECT_DOUBLE_EQ(info.corners[0][0], 8.252499);
    EXPECT_DOUBLE_EQ(info.corners[0][1], 50.298334);
    EXPECT_DOUBLE_EQ(info.corners[2][0], 8.747501);
    EXPECT_DOUBLE_EQ(info.corners[3][1], 50.051566);

    // Foreign files: any case, blanks, corners out of range and out of order.
    const OziMapInfo other = OziMapLesenText(
        "OziExplorer Map Data File Version 2.2\nTitel\nC:\\Karten\\bild.jpg\nPoint01,xy,1,1\n"
        "mmpll,3,  9.5, 49.5\nMMPLL,7,1,1\nMMPLL , 1 , 8.5, 50.5\nMMPXY,1,0,0\n");
    EXPECT_EQ(other.title, "Titel");
    EXPECT_EQ(other.imageFile, "C:\\Karten\\bild.jpg");
    EXPECT_DOUBLE_EQ(other.corners[0][0], 8.5);
    EXPECT_DOUBLE_EQ(other.corners[0][1], 50.5);
    EXPECT_DOUBLE_EQ(other.corners[2][0], 9.5);
    EXPECT_DOUBLE_EQ(other.corners[2][1], 49.5);
}

TEST_F(OziMap, EinlesenAddsOneAreaPerFileOrPerFolder) {
    for (const char* name : {"a", "b"}) {
        OziMapDaten d = Taunus(kModusGeo, "0");
        d.imageFile = path(std::string(name) + ".bmp");
        OziMapSchreiben(d);
    }
    write("notes.txt", "MMPLL,1,1,1\n");
    OziMapEinlesen(*session, path("a.map"));
    ASSERT_EQ(store().Flaechen.size(), 1u);
    const Flaeche& f = store().Flaechen[0];
    EXPECT_EQ(f.Name, "a");
    EXPECT_DOUBLE_EQ(f.West, 8.25);
    EXPECT_DOUBLE_EQ(f.North, 50.3);
    EXPECT_DOUBLE_EQ(f.East, 8.75);
    EXPECT_DOUBLE_EQ(f.South, 50.05);

    OziMapEinlesen(*session, dir.string());
    EXPECT_EQ(store().Flaechen.size(), 3u);
    EXPECT_EQ(store().FlaecheCount, 3);
    EXPECT_EQ(store().Flaechen[2].Name, "b");
}

TEST_F(OziMap, CommentsAndFeaturesBecomeWaypoints) {
    write("c.map",
          "OziExplorer Map Data File Version 2.2\r\nT\r\nt.bmp\r\n"
          "MMPLL,1, 8.0, 50.0\r\n"
          "MC,1,50.25,8.5\r\n"
          "  \"Ein Kommentar\"  \r\n"
          "mf,x, Burg ,50.5,8.75,a,b,c, \"Ruine\" \r\n"
          "erste Zeile\r\n"
          " Text der Burg \r\n"
          "MC,2\r\n"              // no position: no waypoint at 0/0,
          "MC,3,50.75,8.25\r\n"   // and this line is still the text of the one before
          "MF,4,Ohne,,\r\n"
          "eins\r\nzwei\r\n"
          "MM0,Yes\r\n");
    OziKommentareLesen(*session, path("c.map"));
    const auto& w = store().WayPoints;
    ASSERT_EQ(w.size(), 2u);
    EXPECT_DOUBLE_EQ(w[0].Lat, 50.25);
    EXPECT_DOUBLE_EQ(w[0].Lon, 8.5);
    EXPECT_EQ(w[0].Cmt, "Ein Kommentar");
    EXPECT_EQ(w[1].Name, "Burg");
    EXPECT_EQ(w[1].Desc, "Ruine");
    EXPECT_DOUBLE_EQ(w[1].Lat, 50.5);
    EXPECT_DOUBLE_EQ(w[1].Lon, 8.75);
    EXPECT_EQ(w[1].Cmt, "Text der Burg");
}

TEST_F(OziMap, CopiesTheMapsThatMeetTheAreaWithTheirImages) {
    std::filesystem::create_directories(dir / "src");
    std::filesystem::create_directories(dir / "dst");
    auto map = [&](const std::string& name, double w, double n, double e, double s, bool withImage) {
        OziMapDaten d = Taunus(kModusGeo, "0");
        d.imageFile = path("src/" + name + ".bmp");
        d.lonL = d.lonL2 = w, d.latO = d.latO2 = n, d.lonR = d.lonR2 = e, d.latU = d.latU2 = s;
        OziMapSchreiben(d);
        if (withImage) write("src/" + name + ".bmp", "BM" + name);
    };
    map("inside", 8.1, 50.4, 8.3, 50.2, true);
    map("overlap", 8.9, 50.9, 9.5, 50.5, true);
    map("touch", 9.0, 50.2, 9.2, 50.0, false);  // meets the east edge exactly
    map("east", 9.1, 50.4, 9.3, 50.2, true);
    map("north", 8.1, 51.5, 8.3, 51.1, true);
    Flaeche area;
    area.West = 8.0, area.North = 51.0, area.East = 9.0, area.South = 50.0;
    const size_t n = OziKartenKopieren(*session, area, path("src"), path("dst"));
    EXPECT_EQ(n, 3u);
    EXPECT_TRUE(exists("dst/inside.map"));
    EXPECT_EQ(read("dst/inside.bmp"), "BMinside");
    EXPECT_TRUE(exists("dst/overlap.map"));
    EXPECT_TRUE(exists("dst/overlap.bmp"));
    EXPECT_TRUE(exists("dst/touch.map"));
    EXPECT_FALSE(exists("dst/east.map"));
    EXPECT_FALSE(exists("dst/north.map"));
    EXPECT_FALSE(exists("dst/north.bmp"));
    EXPECT_EQ(store().StatusText.text(), "Fertig");
}

TEST_F(OziMap, CopyDialogAsksForBothFolders) {
    std::filesystem::create_directories(dir / "src");
    std::filesystem::create_directories(dir / "dst");
    OziMapDaten d = Taunus(kModusGeo, "0");
    d.imageFile = path("src/k.bmp");
    OziMapSchreiben(d);
    platform.fileChoices.push_back({path("src/k.map"), 1});
    platform.fileChoices.push_back({path("dst"), 1});
    Flaeche area;
    area.West = 8.0, area.North = 51.0, area.East = 9.0, area.South = 50.0;
    OziKartenKopierenDialog(*session, area);
    ASSERT_EQ(platform.fileDialogTitles.size(), 2u);
    EXPECT_EQ(platform.fileDialogTitles[0], "Ordner mit den vorhandenen Karten wählen");
    EXPECT_EQ(platform.fileDialogTitles[1], "Ziel Ordner angeben");
    EXPECT_TRUE(exists("dst/k.map"));
    ASSERT_FALSE(platform.messages.empty());
    EXPECT_EQ(platform.messages[0].text.substr(0, 28), "Es sollen bestimmte Karten f");
}

}  // namespace
}  // namespace ortelix
