// `ortelix exif` and `ortelix geotag` as a user runs them, on photos that
// exiftool writes into a tiny JPEG of our own.
#include <gtest/gtest.h>

#include <cstdlib>

#include "CliTestSupport.h"
#include "core/FileIO.h"

namespace {

using Result = ortelix::testing::CliResult;

class ExifGeotag : public ortelix::testing::CliTest {
protected:
    void SetUp() override {
        CliTest::SetUp();
        if (std::system("exiftool -ver >/dev/null 2>&1") != 0) GTEST_SKIP() << "exiftool is not installed";
    }
    // A photo at dir/name with exiftool's tags, e.g. "-ModifyDate='2006:02:16 11:02:00'".
    std::string Photo(const std::string& name, const std::string& tags) {
        const std::filesystem::path p = dir / name;
        std::filesystem::create_directories(p.parent_path());
        std::filesystem::copy_file(std::filesystem::path(ORTELIX_SOURCE_DIR) / "tests/data/tiny.jpg", p,
                                   std::filesystem::copy_options::overwrite_existing);
        const std::string cmd = "exiftool -q -overwrite_original " + tags + " '" + p.string() + "'";
        EXPECT_EQ(std::system(cmd.c_str()), 0) << cmd;
        return p.string();
    }
    // Six points a minute apart from 16.02.2006 10:00:00 on, 0.001° apart to the north.
    std::string Track(const std::string& name, int firstSecond = 36000) {
        std::string gpx = "<gpx><trk><name>Runde</name><trkseg>";
        for (int i = 0; i < 6; ++i) {
            const int t = firstSecond + 60 * i;
            char line[200];
            std::snprintf(line, sizeof line,
                          "<trkpt lat=\"50.00%d\" lon=\"10\"><ele>%d</ele><time>2006-02-16T%02d:%02d:%02dZ</time></trkpt>",
                          i, 100 + i, t / 3600, t / 60 % 60, t % 60);
            gpx += line;
        }
        return File(name, gpx + "</trkseg></trk></gpx>");
    }
    size_t Count(const std::string& text, const std::string& what) {
        size_t n = 0;
        for (size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++n;
        return n;
    }
};

// The waypoint called `name` of a GPX text: its element from "<wpt" to "</wpt>".
std::string Waypoint(const std::string& gpx, const std::string& name) {
    const size_t at = gpx.find("<name>" + name + "</name>");
    if (at == std::string::npos) return {};
    const size_t start = gpx.rfind("<wpt", at), end = gpx.find("</wpt>", at);
    if (start == std::string::npos || end == std::string::npos) return {};
    return gpx.substr(start, end - start);
}

TEST_F(ExifGeotag, ExifPrintsTagsPerPhotoAndGoesOnPastOneThatCannotBeRead) {
    const std::string a = Photo("a.jpg", "-Make=Canon -ModifyDate='2006:02:16 16:23:10' -FNumber=2.8");
    const std::string b = Photo("b.jpg", "-ExifByteOrder=MM -Model='A80' -ModifyDate='2024:05:01 12:00:00'");
    const std::string png = File("bild.jpg", std::string("\x89PNG\r\n\x1a\n", 8) + std::string(64, '\0'));

    Result r = Ortelix("exif " + a);
    ASSERT_EQ(r.code, 0) << r.out;
    EXPECT_NE(r.out.find("Make: Canon\n"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("DateTime: 2006:02:16 16:23:10\n"), std::string::npos);
    EXPECT_NE(r.out.find("FNumber: 2.8\n"), std::string::npos);
    EXPECT_EQ(r.out.find("==>"), std::string::npos);
    // File order: IFD0's Make before the EXIF directory's FNumber.
    EXPECT_LT(r.out.find("Make: "), r.out.find("FNumber: "));

    r = Ortelix("exif " + a + " " + png + " " + b);
    EXPECT_EQ(r.code, 1) << r.out;
    EXPECT_NE(r.out.find(png + ": File is not in EXIF format.\n"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("==> " + a + " <==\n"), std::string::npos);
    EXPECT_NE(r.out.find("==> " + b + " <==\n"), std::string::npos);
    EXPECT_EQ(r.out.find("==> " + png), std::string::npos);
    EXPECT_NE(r.out.find("Model: A80\n"), std::string::npos);
    EXPECT_LT(r.out.find("==> " + a), r.out.find("==> " + b));
    EXPECT_EQ(Count(r.out, "DateTime: "), 2u);

    r = Ortelix("exif " + (dir / "fehlt.jpg").string());
    EXPECT_EQ(r.code, 1);
    EXPECT_NE(r.out.find("fehlt.jpg: Could not open the file.\n"), std::string::npos) << r.out;
    EXPECT_EQ(Ortelix("exif").code, 2);
}

TEST_F(ExifGeotag, GeotagPlacesAFoldersPhotosAndNamesTheSkippedOnes) {
    const std::string track = Track("runde.gpx");
    // The camera ran an hour ahead: 11:02:00 is the track's 10:02:00.
    const std::string a = Photo("fotos/a.jpg", "-ModifyDate='2006:02:16 11:02:00' -DateTimeOriginal='2006:02:16 12:00:00'");
    const std::string b = Photo("fotos/b Gipfel.JPG", "-ExifByteOrder=MM -ModifyDate='2006:02:16 11:05:00'");
    Photo("fotos/spaet.jpg", "-ModifyDate='2006:02:16 14:00:00'");          // outside the track: silent
    Photo("fotos/ohnezeit.jpg", "-DateTimeOriginal='2006:02:16 11:03:00'");  // no DateTime (306)
    File("fotos/kaputt.jpg", "kein Foto");
    File("fotos/notiz.txt", "");
    const std::string before = ortelix::ReadFileBytes(a) + ortelix::ReadFileBytes(b);
    const std::string out = Path("mit fotos.gpx");

    const Result r = Ortelix("geotag --photos " + Path("fotos") + " --offset 01:00:00 " + track + " '" + out + "'");
    ASSERT_EQ(r.code, 0) << r.out;
    EXPECT_NE(r.out.find("2 Waypoints aus 5 Fotos\n"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find(Path("fotos/ohnezeit.jpg") + ": keine Aufnahmezeit (EXIF-Tag 306 DateTime)\n"),
              std::string::npos)
        << r.out;
    EXPECT_NE(r.out.find(Path("fotos/kaputt.jpg") + ": kein EXIF-Block in den ersten 4096 Bytes\n"), std::string::npos);
    EXPECT_EQ(r.out.find("spaet.jpg"), std::string::npos);
    EXPECT_EQ(r.out.find("notiz.txt"), std::string::npos);
    EXPECT_EQ(ortelix::ReadFileBytes(a) + ortelix::ReadFileBytes(b), before);

    const std::string gpx = ortelix::ReadFileBytes(out);
    EXPECT_EQ(Count(gpx, "<wpt "), 2u) << gpx;
    EXPECT_NE(gpx.find("<trkpt"), std::string::npos);  // the track is written too
    const std::string wa = Waypoint(gpx, "a"), wb = Waypoint(gpx, "b Gipfel");
    EXPECT_NE(wa.find("lat=\"50.002"), std::string::npos) << wa;
    EXPECT_NE(wa.find("<ele>102"), std::string::npos) << wa;
    EXPECT_NE(wa.find("2006-02-16T10:02:00"), std::string::npos) << wa;
    EXPECT_NE(wa.find("<cmt>&lt;a href='file://" + Path("fotos/a.jpg") + "'&gt;Bild&lt;/a&gt;</cmt>"), std::string::npos)
        << wa;
    EXPECT_NE(wa.find("<desc>Runde nach 0.2 km und 00:02 Std:Min</desc>"), std::string::npos) << wa;
    EXPECT_NE(wb.find("lat=\"50.005"), std::string::npos) << wb;
    EXPECT_NE(wb.find("file://" + Path("fotos/b%20Gipfel.JPG")), std::string::npos) << wb;
    EXPECT_NE(wb.find("<desc>Runde nach 0.6 km und 00:05 Std:Min</desc>"), std::string::npos) << wb;

    // The waypoint filter of the settings ("only inside areas read", none
    // read) drops every hit: those photos are named, the late one is not.
    const Result filtered =
        Ortelix("geotag --set List8=1 --photos " + Path("fotos") + " --offset 01:00:00 " + track + " '" + out + "'");
    ASSERT_EQ(filtered.code, 0) << filtered.out;
    EXPECT_NE(filtered.out.find(a + ": vom Waypoint-Filter verworfen\n"), std::string::npos) << filtered.out;
    EXPECT_NE(filtered.out.find(b + ": vom Waypoint-Filter verworfen\n"), std::string::npos);
    EXPECT_EQ(filtered.out.find("spaet.jpg"), std::string::npos);
    EXPECT_EQ(Count(ortelix::ReadFileBytes(out), "<wpt "), 0u);
}

TEST_F(ExifGeotag, GeotagOffsetSignsOnePhotoAndBadCalls) {
    const std::string track = Track("runde.gpx");
    const std::string early = Photo("frueh.jpg", "-ModifyDate='2006:02:16 09:03:00'");
    const std::string out = Path("out.gpx");

    // A camera an hour behind: "-" adds the hour, 09:03:00 is the track's 10:03:00.
    Result r = Ortelix("geotag --offset -01:00:00 --photos " + early + " " + track + " " + out);
    ASSERT_EQ(r.code, 0) << r.out;
    std::string gpx = ortelix::ReadFileBytes(out);
    EXPECT_EQ(Count(gpx, "<wpt "), 1u) << gpx;
    EXPECT_NE(Waypoint(gpx, "frueh").find("lat=\"50.003"), std::string::npos) << gpx;

    // Without an offset the same photo lies before the track; with the hour
    // taken off it lies even further before: no waypoint, no line on stderr.
    for (const std::string& offset : {std::string(), std::string(" --offset 01:00:00")}) {
        r = Ortelix("geotag --photos " + early + offset + " " + track + " " + out);
        ASSERT_EQ(r.code, 0) << r.out;
        EXPECT_EQ(Count(ortelix::ReadFileBytes(out), "<wpt "), 0u);
        EXPECT_EQ(r.out, "0 Waypoints aus 1 Fotos\n");
    }
    // The same hour taken off a photo an hour late.
    const std::string late = Photo("spaet.jpg", "-ModifyDate='2006:02:16 11:01:00'");
    r = Ortelix("geotag --photos " + late + " --offset 1:00:00 -o gpx " + track + " " + out);
    ASSERT_EQ(r.code, 0) << r.out;
    EXPECT_NE(Waypoint(ortelix::ReadFileBytes(out), "spaet").find("lat=\"50.001"), std::string::npos);

    // Any writable format: the OziExplorer waypoint file, read back.
    const std::string wpt = Path("fotos.wpt");
    r = Ortelix("geotag --photos " + late + " --offset 01:00:00 " + track + " " + wpt);
    ASSERT_EQ(r.code, 0) << r.out;
    r = Ortelix("info " + wpt);
    EXPECT_NE(r.out.find("Eingelesene Wegepunkte: 1\n"), std::string::npos) << r.out;
    EXPECT_NE(ortelix::ReadFileBytes(wpt).find("spaet"), std::string::npos);

    // Calls that cannot work leave the target as it is.
    File("out.gpx", "alt");
    for (const std::string& bad :
         {"--offset 1h --photos " + late, "--offset 25:00:00 --photos " + late, "--photos " + late + " --offset", "--offset '' --photos " + late,
          "--offset - --photos " + late,
          "--photos " + Path("gibtsnicht"), std::string("--offset 01:00:00")}) {
        SCOPED_TRACE(bad);
        r = Ortelix("geotag " + bad + " " + track + " " + out);
        EXPECT_EQ(r.code, 2) << r.out;
        EXPECT_EQ(ortelix::ReadFileBytes(out), "alt");
    }
    EXPECT_EQ(Ortelix("geotag --photos " + late + " " + track).code, 2);
    // An input that cannot be read: exit 1, the target untouched.
    r = Ortelix("geotag --photos " + late + " " + Path("fehlt.gpx") + " " + out);
    EXPECT_EQ(r.code, 1) << r.out;
    EXPECT_EQ(ortelix::ReadFileBytes(out), "alt");
}

}  // namespace
