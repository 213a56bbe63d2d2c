#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>
#include <sstream>

#include "cli/CliTestSupport.h"
#include "core/Charset.h"
#include "core/FileIO.h"
#include "fake/Tools.h"
#include "mapexport/Kalibrierung.h"

namespace ortelix::testing {
namespace {

// The Taunus sheet, small: 160 x 120 pixels from 8.512346 E 50.312346 N to 8.9 E 50.1 N.
constexpr const char* kCorners = "160 120 8.512346 50.312346 8.9 50.1";

std::string Shell(const std::string& cmd) { return testtools::CommandOutput(cmd + " 2>&1"); }


std::vector<double> Numbers(const std::string& text) {
    std::istringstream in(text);
    std::vector<double> v;
    double x;
    while (in >> x) v.push_back(x);
    return v;
}

class Calibrate : public CliTest {
protected:
    std::string Image() {
        QImage img(160, 120, QImage::Format_RGB32);
        img.fill(Qt::darkGreen);
        const std::string p = Path("Taunus.jpg");
        EXPECT_TRUE(img.save(QString::fromStdString(p), "JPG"));
        return p;
    }
    // The names the command printed, one a line, without the folder.
    std::string Printed(const std::string& out) {
        std::string names;
        std::istringstream in(out);
        std::string line;
        while (std::getline(in, line)) names += std::filesystem::path(line).filename().string() + "|";
        return names;
    }
    Kalibrierung Sheet(double meridian) {
        Kalibrierung k;
        k.BildDatei = Path("Taunus.jpg");
        k.BildBreite = 160, k.BildHoehe = 120;
        k.LaengeWest = 8.512346, k.BreiteNord = 50.312346, k.LaengeOst = 8.9, k.BreiteSued = 50.1;
        k.KartenMeridian = meridian;
        return k;
    }
    QJsonObject Info(const std::string& file) {
        return QJsonDocument::fromJson(QByteArray::fromStdString(Shell("gdalinfo -json '" + file + "'"))).object();
    }
};

TEST_F(Calibrate, WritesTheMapAndTheFilesBesideTheImageAndPrintsThemInOrder) {
    const std::string image = Image();
    CliResult r = Ortelix("calibrate " + image + " " + kCorners);
    EXPECT_EQ(r.code, 0) << r.out;
    EXPECT_EQ(Printed(r.out),
              "Taunus.map|Taunus_Kalibrierung.txt|Taunus_Kali.loc|Taunus.gmi|Taunus.kal|Taunus.geo|"
              "Taunus.cal_Kompass|Taunus.mcx|");
    EXPECT_EQ(ReadFileBytes(Path("Taunus.kal")), EncodeFromUtf8(KalText(Sheet(1000)), Charset::Windows1252));
    EXPECT_NE(ReadFileBytes(Path("Taunus.map")).find("Map Projection,Latitude/Longitude,"), std::string::npos);

    r = Ortelix("calibrate " + image + " " + kCorners + " --meridian 9 --set List2=3 --set ZahlInput8=10");
    EXPECT_EQ(r.code, 0) << r.out;
    EXPECT_EQ(Printed(r.out),
              "Taunus.map|Taunus_Kalibrierung.txt|Taunus.prj|Taunus.jgw|Taunus.ers|Taunus_Kali.loc|Taunus.gmi|"
              "Taunus.kal|Taunus.geo|Taunus.cal_Kompass|Taunus.mcx|");
    const std::string map = ReadFileBytes(Path("Taunus.map"));
    EXPECT_NE(map.find("\r\nTaunus.tif\r\n"), std::string::npos);
    EXPECT_NE(map.find("\r\nMMPXY,3,150,110\r\n"), std::string::npos);
    EXPECT_NE(map.find("Map Projection,Transverse Mercator,"), std::string::npos);
    EXPECT_EQ(ReadFileBytes(Path("Taunus.mcx")), EncodeFromUtf8(McxText(Sheet(9), "tif"), Charset::Windows1252));
    EXPECT_EQ(ReadFileBytes(Path("Taunus.jgw")), JgwText(Sheet(9)));

    r = Ortelix("calibrate " + image + " " + kCorners + " --meridian utm");
    EXPECT_EQ(r.code, 0) << r.out;
    EXPECT_NE(ReadFileBytes(Path("Taunus_Kalibrierung.txt")).find("\r\nKartenprojektion: UTM\r\n"), std::string::npos);
}

TEST_F(Calibrate, RefusesWrongCallsAndReportsAFailedFile) {
    const std::string image = Image();
    EXPECT_EQ(Ortelix("calibrate " + image + " 160 120 8.5 50.3 8.9").code, 2);
    EXPECT_EQ(Ortelix("calibrate " + image + " 160 x 8.5 50.3 8.9 50.1").code, 2);
    EXPECT_EQ(Ortelix("calibrate " + image + " " + kCorners + " --meridian mitte").code, 2);
    EXPECT_EQ(Ortelix("calibrate " + image + " " + kCorners + " --set Karte2=1").code, 2);
    EXPECT_FALSE(std::filesystem::exists(Path("Taunus.map")));

    std::filesystem::create_directory(Path("Taunus.geo"));
    const CliResult r = Ortelix("calibrate " + image + " " + kCorners);
    EXPECT_EQ(r.code, 1);
    EXPECT_NE(r.out.find("Die Daten können nicht gespeichert werden."), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("Taunus.kal\n"), std::string::npos);
    EXPECT_NE(r.out.find("Taunus.mcx\n"), std::string::npos);
    EXPECT_TRUE(std::filesystem::is_directory(Path("Taunus.geo")));
}

// GDAL reads the .map: pixel (1,1) is the top left corner and (w,h) the
// bottom right, to 1e-7 degrees (the file's minutes have six decimals).
TEST_F(Calibrate, GdalPlacesTheMapCornersWhereTheyWereGiven) {
    if (!testtools::HaveTool("gdaltransform")) GTEST_SKIP() << "gdaltransform (gdal-bin) fehlt";
    const std::string image = Image();
    for (const char* meridian : {"9", "latlong"}) {
        SCOPED_TRACE(meridian);
        ASSERT_EQ(Ortelix("calibrate " + image + " " + kCorners + " --meridian " + meridian).code, 0);
        const std::vector<double> v =
            Numbers(Shell("printf '1 1\\n160 120\\n' | gdaltransform -t_srs '+proj=longlat +datum=WGS84' -output_xy '" +
                        Path("Taunus.map") + "'"));
        ASSERT_EQ(v.size(), 4u);
        EXPECT_NEAR(v[0], 8.512346, 1e-7);
        EXPECT_NEAR(v[1], 50.312346, 1e-7);
        EXPECT_NEAR(v[2], 8.9, 1e-7);
        EXPECT_NEAR(v[3], 50.1, 1e-7);
    }
}

// The world file and the ER Mapper header name the top left corner as the
// centre of pixel (0,0): GDAL's origin lies half a pixel west and north.
TEST_F(Calibrate, GdalReadsTheWorldFileTheErsHeaderAndTheProjection) {
    if (!testtools::HaveTool("gdalinfo") || !testtools::HaveTool("gdalsrsinfo")) GTEST_SKIP() << "gdalinfo/gdalsrsinfo (gdal-bin) fehlt";
    const std::string image = Image();
    ASSERT_EQ(Ortelix("calibrate " + image + " " + kCorners + " --meridian 9").code, 0);
    const WeltDatei w = BerechneWeltDatei(Sheet(9));
    for (const std::string file : {image, Path("Taunus.ers")}) {
        SCOPED_TRACE(file);
        const QJsonObject info = Info(file);
        const QJsonArray gt = info["geoTransform"].toArray();
        ASSERT_EQ(gt.size(), 6);
        EXPECT_NEAR(gt[0].toDouble(), w.Ost - w.PixelX / 2, 1e-3);
        EXPECT_NEAR(gt[1].toDouble(), w.PixelX, 1e-6);
        EXPECT_NEAR(gt[3].toDouble(), w.Nord - w.PixelY / 2, 1e-3);
        EXPECT_NEAR(gt[5].toDouble(), w.PixelY, 1e-6);
        EXPECT_EQ(info["size"].toArray()[0].toInt(), 160);
        EXPECT_EQ(info["size"].toArray()[1].toInt(), 120);
    }
    EXPECT_EQ(Info(Path("Taunus.ers"))["driverShortName"].toString(), "ERS");
    const std::string proj = Shell("gdalsrsinfo -o proj4 '" + Path("Taunus.prj") + "'");
    EXPECT_NE(proj.find("+proj=tmerc"), std::string::npos) << proj;
    EXPECT_NE(proj.find("+lon_0=9 "), std::string::npos) << proj;
    EXPECT_NE(proj.find("+x_0=3500000 "), std::string::npos) << proj;
    EXPECT_NE(proj.find("+k=1 "), std::string::npos) << proj;
}

// PROJ with the Potsdam shift gives our Gauss-Krueger corners to 2 cm east;
// our series lie 2.2 to 2.6 m north of PROJ in Germany.
TEST_F(Calibrate, ProjAgreesWithTheGridCornersOfTheWorldFile) {
    if (!testtools::HaveTool("cs2cs")) GTEST_SKIP() << "cs2cs (proj-bin) fehlt";
    const std::string image = Image();
    ASSERT_EQ(Ortelix("calibrate " + image + " " + kCorners + " --meridian 9").code, 0);
    const std::vector<double> jgw = Numbers(ReadFileBytes(Path("Taunus.jgw")));
    ASSERT_EQ(jgw.size(), 6u);
    const std::vector<double> proj = Numbers(
        Shell("printf '8.512346 50.312346\\n8.9 50.1\\n' | cs2cs -f %.4f +proj=longlat +datum=WGS84 +to +proj=tmerc "
            "+lat_0=0 +lon_0=9 +k=1 +x_0=3500000 +y_0=0 +ellps=bessel "
            "+towgs84=591.28,81.35,396.39,1.477,-0.0736,-1.458,9.82 +units=m"));
    ASSERT_EQ(proj.size(), 6u);
    EXPECT_NEAR(jgw[4], proj[0], 0.02);
    EXPECT_GE(jgw[5] - proj[1], 2.2);
    EXPECT_LE(jgw[5] - proj[1], 2.6);
    const double east2 = jgw[4] + 160 * jgw[0], north2 = jgw[5] + 120 * jgw[3];
    EXPECT_NEAR(east2, proj[3], 0.02);
    EXPECT_GE(north2 - proj[4], 2.2);
    EXPECT_LE(north2 - proj[4], 2.6);
}

}  // namespace
}  // namespace ortelix::testing
