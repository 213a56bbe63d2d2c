#include <gtest/gtest.h>

#include <filesystem>

#include "appformats/ModOziMap.h"
#include "coordinates/Entfernung.h"
#include "coordinates/GaussKrueger.h"
#include "core/Charset.h"
#include "core/FileIO.h"
#include "core/Session.h"
#include "fake/FakePlatform.h"
#include "fake/TestFiles.h"
#include "mapexport/Kalibrierung.h"

namespace ortelix {
namespace {

namespace fs = std::filesystem;

// The image of the golden files: a Taunus sheet with an umlaut in its name.
Kalibrierung Taunus(double meridian, const std::string& path = "/karten/hessen/Taunus Süd.jpg") {
    Kalibrierung k;
    k.BildDatei = path;
    k.BildBreite = 1600;
    k.BildHoehe = 1200;
    k.LaengeWest = 8.512346;
    k.BreiteNord = 50.312346;
    k.LaengeOst = 8.9;
    k.BreiteSued = 50.1;
    k.KartenMeridian = meridian;
    return k;
}

std::string Golden(const std::string& set, const std::string& name) {
    return ReadFileBytes(std::string(ORTELIX_SOURCE_DIR) + "/tests/data/calibration/" + set + "/" + name);
}

std::string Cp(const std::string& utf8) { return EncodeFromUtf8(utf8, Charset::Windows1252); }

TEST(Kalibrierung, EveryFileMatchesItsGoldenCopyAtMeridianNineAndInLatLong) {
    for (const auto& [set, meridian] : {std::pair<std::string, double>{"meridian9", 9}, {"latlong", 1000}}) {
        SCOPED_TRACE(set);
        const Kalibrierung k = Taunus(meridian);
        EXPECT_EQ(Cp(KalibrierungsBericht(k)), Golden(set, "Taunus Süd_Kalibrierung.txt"));
        EXPECT_EQ(Cp(KaliLocText(k)), Golden(set, "Taunus Süd_Kali.loc"));
        EXPECT_EQ(Cp(GmiText(k)), Golden(set, "Taunus Süd.gmi"));
        EXPECT_EQ(Cp(KalText(k)), Golden(set, "Taunus Süd.kal"));
        EXPECT_EQ(Cp(GeoText(k)), Golden(set, "Taunus Süd.geo"));
        EXPECT_EQ(Cp(CalKompassText(k)), Golden(set, "Taunus Süd.cal_Kompass"));
        EXPECT_EQ(Cp(McxText(k, "")), Golden(set, "Taunus Süd.mcx"));
        if (IstMeridian(meridian)) {
            EXPECT_EQ(Cp(PrjText(k)), Golden(set, "Taunus Süd.prj"));
            EXPECT_EQ(Cp(JgwText(k)), Golden(set, "Taunus Süd.jgw"));
            EXPECT_EQ(Cp(ErsText(k, "POTSDAM", TmgerName(9))), Golden(set, "Taunus Süd.ers"));
        }
    }
}

TEST(Kalibrierung, CornersAndMeasuresOfTheRectangleInDegreesAndOnTheGrid) {
    Kalibrierung k = Taunus(1000);
    KartenAbmessung a = BerechneKalibrierung(1000, k);
    EXPECT_EQ(a.LaengeOR, 8.9);
    EXPECT_EQ(a.BreiteOR, 50.312346);
    EXPECT_EQ(a.LaengeUL, 8.512346);
    EXPECT_EQ(a.BreiteUL, 50.1);
    EXPECT_NEAR(a.KmBreite, Entfernung(8.512346, 50.312346, 8.9, 50.312346) / 1000, 1e-12);
    EXPECT_NEAR(a.KmHoehe, 23.62, 0.01);  // 0.212346 degrees of latitude
    EXPECT_NEAR(a.MeterProPixelOst, a.KmBreite * 1000 / 1600, 1e-9);
    EXPECT_NEAR(a.MeterProPixelNord, a.KmHoehe * 1000 / 1200, 1e-9);
    EXPECT_EQ(BerechneKalibrierung(2000, k).LaengeOR, 8.9);

    // On the grid the far corners are squared: the top right corner lies on
    // the easting of the bottom right and the northing of the top left. The
    // Gauss-Krueger series there and back differ by about 2.35 m north at 50
    // degrees (the forward one lies north of PROJ, the inverse agrees), so the
    // northing holds to that margin and the easting to a millimetre.
    a = BerechneKalibrierung(9, k);
    EXPECT_GT(std::fabs(a.LaengeOR - 8.9), 1e-4);
    double R1, H1, R2, H2, R, H;
    GeoNachGKMeridian(k.LaengeWest, k.BreiteNord, 9, R1, H1);
    GeoNachGKMeridian(k.LaengeOst, k.BreiteSued, 9, R2, H2);
    GeoNachGKMeridian(a.LaengeOR, a.BreiteOR, 9, R, H);
    EXPECT_NEAR(R, R2, 1e-3);
    EXPECT_NEAR(H, H1, 2.6);
    GeoNachGKMeridian(a.LaengeUL, a.BreiteUL, 9, R, H);
    EXPECT_NEAR(R, R1, 1e-3);
    EXPECT_NEAR(H, H2, 2.6);
    EXPECT_NEAR(a.KmBreite, (R2 - R1) / 1000, 1e-12);
    EXPECT_NEAR(a.KmHoehe, (H1 - H2) / 1000, 1e-12);
    EXPECT_GT(a.MeterProPixelNord, 0);

    // No pixels: the corners still come, the resolutions stay untouched.
    k.BildBreite = 0;
    const KartenAbmessung z = BerechneKalibrierung(9, k);
    EXPECT_EQ(z.MeterProPixelOst, 0);
    EXPECT_EQ(z.MeterProPixelNord, 0);
    EXPECT_EQ(z.LaengeOR, a.LaengeOR);
    EXPECT_NEAR(z.KmBreite, a.KmBreite, 1e-12);
}

TEST(Kalibrierung, ProjectionFileNamesTheStripOfAnyMeridian) {
    Kalibrierung k = Taunus(7.5);
    const std::string prj = PrjText(k);
    EXPECT_NE(prj.find("\r\n7 30 0.000 /* central meridian\r\n"), std::string::npos) << prj;
    EXPECT_NE(prj.find("\r\n2500000.000 /* false easting (meters)\r\n"), std::string::npos) << prj;
    EXPECT_EQ(TmgerName(7.5), "TMGER2");
    k.KartenMeridian = 12;
    EXPECT_NE(PrjText(k).find("\r\n12 0 0.000 /* central meridian\r\n0 0 0.000"), std::string::npos);
    EXPECT_NE(PrjText(k).find("\r\n4500000.000 /* false easting"), std::string::npos);
    k.KartenMeridian = 9.0001;  // 0.36 seconds
    EXPECT_NE(PrjText(k).find("\r\n9 0 0.360 /* central"), std::string::npos);

    EXPECT_EQ(PrjAllgemein("GEODETIC", "WGS84", 0), "Projection     GEODETIC\r\nDatum          WGS84\r\nUnits          INVALID\r\n");
    EXPECT_NE(PrjAllgemein("a", "b", 2).find("Units          DEGREES\r\n"), std::string::npos);
    EXPECT_NE(PrjAllgemein("a", "b", 3).find("Units          FEET\r\n"), std::string::npos);
    EXPECT_NE(PrjAllgemein("a", "b", 7).find("Units          METERS\r\n"), std::string::npos);

    // The world file's pixel is the grid extent over the pixels, north down.
    const WeltDatei w = BerechneWeltDatei(Taunus(9));
    double R2, H2;
    WGS84NachGKMeridian(8.9, 50.1, 9, R2, H2);
    EXPECT_NEAR(w.Ost + 1600 * w.PixelX, R2, 1e-6);
    EXPECT_NEAR(w.Nord + 1200 * w.PixelY, H2, 1e-6);
    EXPECT_LT(w.PixelY, 0);
}

struct KalibrierungSchreiben : ::testing::Test {
    FakePlatform platform;
    Session s{platform};
    fs::path dir;
    void SetUp() override {
        dir = testfiles::FreshFolder("mapexport", ::testing::UnitTest::GetInstance()->current_test_info()->name());
    }
    std::string Image() { return testfiles::Put(dir / "Taunus Süd.jpg", "JPEG bytes"); }
    std::string Names(const std::vector<std::string>& paths) {
        std::string out;
        for (const auto& p : paths) out += fs::path(p).filename().string() + "|";
        return out;
    }
};

TEST_F(KalibrierungSchreiben, WritesEveryFileInTheOrderOfTheCallsInTheCodePage) {
    const Kalibrierung k = Taunus(9, Image());
    std::vector<std::string> written;
    ASSERT_TRUE(SchreibeKalibrierung(s, k, {}, written));
    EXPECT_EQ(Names(written),
              "Taunus Süd.map|Taunus Süd_Kalibrierung.txt|Taunus Süd.prj|Taunus Süd.jgw|Taunus Süd.ers|"
              "Taunus Süd_Kali.loc|Taunus Süd.gmi|Taunus Süd.kal|Taunus Süd.geo|Taunus Süd.cal_Kompass|"
              "Taunus Süd.mcx|");
    EXPECT_TRUE(platform.messages.empty());
    for (const std::string& p : written) {
        const std::string bytes = ReadFileBytes(p);
        SCOPED_TRACE(p);
        ASSERT_GE(bytes.size(), 2u);
        EXPECT_EQ(bytes.substr(bytes.size() - 2), "\r\n");
        size_t lf = 0, crlf = 0;
        for (size_t i = 0; i < bytes.size(); ++i) {
            if (bytes[i] == '\n') {
                ++lf;
                crlf += i > 0 && bytes[i - 1] == '\r';
            }
        }
        EXPECT_EQ(lf, crlf);
    }
    EXPECT_EQ(ReadFileBytes(written[1]), Cp(KalibrierungsBericht(k)));
    EXPECT_EQ(ReadFileBytes(written[9]), Cp(CalKompassText(k)));
    EXPECT_NE(ReadFileBytes(written[9]).find("s\xFC" "d unten*\r\n"), std::string::npos);
    EXPECT_EQ(ReadFileBytes(k.BildDatei), "JPEG bytes");

    // The .map carries the squared corners of the grid.
    const OziMapInfo map = OziMapLesen(written[0]);
    const KartenAbmessung a = BerechneKalibrierung(9, k);
    EXPECT_NEAR(map.corners[1][0], a.LaengeOR, 1e-6);
    EXPECT_NEAR(map.corners[1][1], a.BreiteOR, 1e-6);
    EXPECT_NEAR(map.corners[3][0], a.LaengeUL, 1e-6);
    EXPECT_NEAR(map.corners[3][1], a.BreiteUL, 1e-6);

    // Latitude/longitude has no grid sidecars.
    written.clear();
    const fs::path other = dir / "geo";
    fs::create_directory(other);
    ASSERT_TRUE(SchreibeKalibrierung(s, Taunus(1000, testfiles::Put(other / "b.png", "x")), {}, written));
    EXPECT_EQ(Names(written), "b.map|b_Kalibrierung.txt|b_Kali.loc|b.gmi|b.kal|b.geo|b.cal_Kompass|b.mcx|");
}

TEST_F(KalibrierungSchreiben, ImageTypeChangesOnlyTheMapAndMcxAndTheMarginOnlyTheMap) {
    const Kalibrierung k = Taunus(9, Image());
    std::vector<std::string> written;
    KalibrierungsLauf lauf;
    lauf.bildTyp = 3;  // "tif"
    lauf.margin = "10";
    ASSERT_TRUE(SchreibeKalibrierung(s, k, lauf, written));
    const std::string map = ReadFileBytes(written[0]);
    EXPECT_NE(map.find("\r\nTaunus S\xFC" "d.tif\r\n"), std::string::npos);
    EXPECT_NE(map.find("\r\nMMPXY,1,10,10\r\n"), std::string::npos);
    EXPECT_NE(ReadFileBytes(written.back()).find(" <File>Taunus S\xFC" "d.tif</File>"), std::string::npos);
    EXPECT_NE(ReadFileBytes(written[7]).find("Bitmap = Taunus S\xFC" "d.jpg\r\n"), std::string::npos);
    EXPECT_NE(ReadFileBytes(written[9]).find("$GPMAP,Taunus S\xFC" "d.jpg*"), std::string::npos);
    EXPECT_NE(ReadFileBytes(written[4]).find("\"Taunus S\xFC" "d.jpg\""), std::string::npos);
    EXPECT_EQ(BildTypText(0), "");
    EXPECT_EQ(BildTypText(1), "ozf2");
    EXPECT_EQ(BildTypText(5), "jpg");
}

TEST_F(KalibrierungSchreiben, AFailingFileIsReportedAndTheOthersAreStillWritten) {
    const Kalibrierung k = Taunus(9, Image());
    // A folder where the .gmi belongs: that file cannot be written.
    fs::create_directory(dir / "Taunus Süd.gmi");
    testfiles::Put(dir / "Taunus Süd.kal", "old");
    std::vector<std::string> written;
    EXPECT_FALSE(SchreibeKalibrierung(s, k, {}, written));
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].text.rfind("Die Daten können nicht gespeichert werden.\r\n\r\nUrsache: ", 0), 0u)
        << platform.messages[0].text;
    EXPECT_EQ(Names(written),
              "Taunus Süd.map|Taunus Süd_Kalibrierung.txt|Taunus Süd.prj|Taunus Süd.jgw|Taunus Süd.ers|"
              "Taunus Süd_Kali.loc|Taunus Süd.kal|Taunus Süd.geo|Taunus Süd.cal_Kompass|Taunus Süd.mcx|");
    EXPECT_TRUE(fs::is_directory(dir / "Taunus Süd.gmi"));
    EXPECT_EQ(ReadFileBytes(k.BildDatei), "JPEG bytes");
    EXPECT_EQ(ReadFileBytes((dir / "Taunus Süd.kal").string()), Cp(KalText(k)));
}

TEST_F(KalibrierungSchreiben, AnEmptyImageNameWritesNothing) {
    Kalibrierung k = Taunus(9, "");
    std::vector<std::string> written;
    EXPECT_TRUE(SchreibeKalibrierung(s, k, {}, written));
    EXPECT_TRUE(written.empty());
    EXPECT_TRUE(fs::is_empty(dir));
    EXPECT_TRUE(platform.messages.empty());
}

}  // namespace
}  // namespace ortelix
