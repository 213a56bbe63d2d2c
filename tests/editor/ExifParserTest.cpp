// The EXIF reader on photos made byte by byte: what each TIFF type shows,
// both byte orders, and defective blocks that must neither crash nor read
// outside the bytes.
#include <gtest/gtest.h>

#include <unistd.h>

#include "editor/clsEXIF.h"
#include "editor/ExifTestSupport.h"

namespace ortelix::testing {
namespace {

class ExifParserTest : public ::testing::Test {
protected:
    void SetUp() override {
        dir = std::filesystem::temp_directory_path() /
              ("ortelix-exif-" + std::to_string(::getpid()) + "-" +
               ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::create_directories(dir);
    }
    void TearDown() override { std::filesystem::remove_all(dir); }
    std::string Photo(const std::string& name, const std::string& bytes) {
        const auto p = dir / name;
        WriteBytes(p, bytes);
        return p.string();
    }
    std::filesystem::path dir;
};

// The same block in both byte orders must show the same texts.
TEST_F(ExifParserTest, TypesShowTheSameTextsInBothByteOrders) {
    for (bool big : {false, true}) {
        SCOPED_TRACE(big ? "MM" : "II");
        ExifBuilder b(big);
        const std::vector<std::vector<ExifEntry>> dirs = {
            {b.ascii(271, "Canon"), b.ascii(272, "A80"), b.shorts(274, {1}), b.shorts(296, {2}),
             {282, 5, 1, b.rational(180, 1)}, b.ascii(306, "2006:02:16 16:23:10"),
             {318, 5, 2, b.rational(3127, 10000) + b.rational(329, 1000)}, b.pointer(34665, 1),
             {1000, 1, 3, "\x01\x02\xff"}, {1001, 4, 2, b.u32(70000) + b.u32(4000000000u)},
             {1002, 8, 2, b.u16(0xfffe) + b.u16(5)}, {1003, 9, 1, b.u32(0xffffff9c)}, {1004, 6, 1, "\xfb"},
             {1005, 5, 3, b.rational(0, 0) + b.rational(7, 0) + b.rational(1, 3)},
             {1006, 10, 2, b.rational(0xffffffff, 0) + b.rational(0xfffffffd, 4)}},
            {{33437, 5, 1, b.rational(28, 10)}, {37377, 10, 1, b.rational(80, 10)},
             {37381, 5, 1, b.rational(297, 100)}, {37386, 5, 1, b.rational(78, 10)},
             {37382, 5, 1, b.rational(7, 2)}, {36864, 7, 4, "0220"}, {37121, 7, 4, std::string("\x01\x02\x03\x00", 4)},
             {37510, 7, 21, std::string("ASCII\0\0\0Urlaub am See", 21)}, {41728, 7, 1, "\x03"},
             {41729, 7, 1, "\x01"}, {40960, 7, 4, "0100"}, {37500, 7, 9, std::string("Nikon\0abc", 9)},
             b.shorts(40962, {640}), b.pointer(40965, 2)},
            {b.ascii(1, "R98"), {2, 7, 4, "0100"}}};
        clsEXIF e;
        ASSERT_TRUE(e.ReadMetaInfo(Photo("p.jpg", JpegWithExif(b.tiff(dirs), 30))));
        EXPECT_EQ(e.BigEndian(), big);
        EXPECT_EQ(e.TiffBase(), 2 + 2 + 30 + 2 + 2 + 6);  // SOI, comment, APP1 marker and length, "Exif\0\0"
        EXPECT_EQ(e.TagValue(271), "Canon");
        EXPECT_EQ(e.TagValue(272), "A80");  // fits in the entry itself
        EXPECT_EQ(e.TagValue(274), "1");    // a short is not read as ×65536 in MM
        EXPECT_EQ(e.TagValue(282), "180.000");
        EXPECT_EQ(e.TagValue(306), "2006:02:16 16:23:10");
        EXPECT_EQ(e.TagValue(318), "0.313 0.329");
        EXPECT_EQ(e.TagValue(1000), "1 2 255");
        EXPECT_EQ(e.TagValue(1001), "70000 4000000000");
        EXPECT_EQ(e.TagValue(1002), "-2 5");
        EXPECT_EQ(e.TagValue(1003), "-100");
        EXPECT_EQ(e.TagValue(1004), "-5");
        EXPECT_EQ(e.TagValue(1005), "undef inf 0.333");
        EXPECT_EQ(e.TagValue(1006), "-inf -0.750");
        EXPECT_EQ(e.TagValue(33437), "2.8");
        EXPECT_EQ(e.TagValue(37377), "8");
        EXPECT_EQ(e.TagValue(37381), "2.8");  // sqrt(2)^2.97
        EXPECT_EQ(e.TagValue(37386), "7.8");
        EXPECT_EQ(e.TagValue(37382), "3.5");
        EXPECT_EQ(e.TagValue(36864), "02.20");
        EXPECT_EQ(e.TagValue(37121), "YCbCr");
        EXPECT_EQ(e.TagValue(37510), "Urlaub am See");
        EXPECT_EQ(e.TagValue(41728), "3");
        EXPECT_EQ(e.TagValue(41729), "1");
        EXPECT_EQ(e.TagValue(40960), "0100");
        EXPECT_EQ(e.TagValue(37500), "Nikon");
        EXPECT_EQ(e.TagValue(40962), "640");
        EXPECT_EQ(e.TagValue(1), "R98");
        EXPECT_EQ(e.TagValue(2), "0100");
        EXPECT_EQ(e.TagValue(999), "Tag 999 not found.");
        // File order: IFD0, the EXIF directory, the interoperability directory.
        ASSERT_EQ(e.Tags().size(), 15u + 14u + 2u);
        EXPECT_EQ(e.Tags()[0].Tag, 271);
        EXPECT_EQ(e.Tags()[15].Tag, 33437);
        EXPECT_EQ(e.Tags()[29].Tag, 1);
        EXPECT_EQ(e.Tags()[7].Name, "ExifOffset");
        EXPECT_EQ(e.Tags()[7].ValueOffset, uint32_t(8 + 2 + 15 * 12 + 4));
        EXPECT_EQ(e.Tags()[4].Format, 5);
        EXPECT_EQ(e.Tags()[4].Components, 1);
        EXPECT_EQ(e.Tags()[8].Name, "Tag #1000");
        const std::string all = e.AllTags();
        EXPECT_EQ(all.substr(0, 25), "Make: Canon\r\nModel: A80\r\n");
        EXPECT_NE(all.find("\r\nExifVersion: 02.20\r\n"), std::string::npos);
    }
}

TEST_F(ExifParserTest, NamesComeFromTheTableAndTheIniFile) {
    ExifNames n;
    EXPECT_EQ(n.Name(306), "DateTime");
    EXPECT_EQ(n.Name(529), "YCbCrCoefficients");
    EXPECT_EQ(n.Name(41730), "CFAPattern");
    EXPECT_EQ(n.Name(40965), "ExifInteroperabilityOffset");
    EXPECT_EQ(n.Name(34855), "ISOSpeedRatings");
    EXPECT_EQ(n.Name(41986), "Tag #41986");
    const size_t built = n.size();
    EXPECT_EQ(built, 54u);
    n.AddIni("; comment\r\n41986=ExposureMode\r\n\r\n# more\n42016 = ImageUniqueID\nx=Bad\n70000=TooBig\n306=Aufnahme\n=\n");
    EXPECT_EQ(n.Name(41986), "ExposureMode");
    EXPECT_EQ(n.Name(42016), "ImageUniqueID");
    EXPECT_EQ(n.Name(306), "Aufnahme");
    EXPECT_EQ(n.size(), built + 2);
    // The shipped table loads from the program folder.
    const ExifNames shipped = LoadExifNames(ORTELIX_DATA_DIR);
    EXPECT_EQ(shipped.Name(41986), "ExposureMode");
    EXPECT_EQ(shipped.Name(1), "InteropIndex");
    EXPECT_EQ(LoadExifNames(dir.string()).size(), built);
}

TEST_F(ExifParserTest, FilesWithoutABlockSayWhy) {
    clsEXIF e;
    EXPECT_FALSE(e.ReadMetaInfo((dir / "missing.jpg").string()));
    EXPECT_EQ(e.State(), ExifState::NoFile);
    EXPECT_EQ(e.AllTags(), "Could not open the file.");
    EXPECT_FALSE(e.Problem().empty());

    const auto noExif = [&](const std::string& name, const std::string& bytes) {
        SCOPED_TRACE(name);
        clsEXIF x;
        EXPECT_FALSE(x.ReadMetaInfo(Photo(name, bytes)));
        EXPECT_EQ(x.State(), ExifState::NoExif);
        EXPECT_EQ(x.AllTags(), "File is not in EXIF format.");
        EXPECT_EQ(x.Problem(), "kein EXIF-Block in den ersten 4096 Bytes");
        EXPECT_TRUE(x.Tags().empty());
    };
    noExif("empty.jpg", "");
    static constexpr char kPng[] = "\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0\0\x01\0\0\0\x01\x08\x02\0\0\0";
    noExif("png.jpg", std::string(kPng, sizeof kPng - 1));
    ExifBuilder b(false);
    const std::string tiff = b.tiff({{b.ascii(306, "2006:02:16 16:23:10")}});
    noExif("late.jpg", JpegWithExif(tiff, 4100));
    noExif("exif-no-zero.jpg", "\xFF\xD8 Exif! no block here");
    // The block just inside the limit: the search sees it, its values are cut.
    clsEXIF edge;
    const std::string photo = JpegWithExif(tiff, 4096 - 16 - tiff.size() + 10);
    ASSERT_TRUE(edge.ReadMetaInfo(Photo("edge.jpg", photo)));
    EXPECT_EQ(edge.TagValue(306), "");  // its value lies behind byte 4096
}

TEST_F(ExifParserTest, DefectiveDirectoriesEndTheParseWithAReason) {
    for (bool big : {false, true}) {
        SCOPED_TRACE(big ? "MM" : "II");
        ExifBuilder b(big);
        const auto fails = [&](const std::string& bytes, const std::string& words, size_t tagsKept) {
            clsEXIF e;
            EXPECT_FALSE(e.ReadMetaInfo(Photo("d.jpg", bytes)));
            EXPECT_EQ(e.State(), ExifState::Defect);
            EXPECT_NE(e.Problem().find(words), std::string::npos) << e.Problem();
            EXPECT_EQ(e.Tags().size(), tagsKept);
        };
        // A loop: the EXIF directory is IFD0 itself.
        fails(JpegWithExif(b.tiff({{b.ascii(271, "X"), b.pointer(34665, 0)}})), "zweimal", 2);
        // The interoperability pointer back into the EXIF directory.
        fails(JpegWithExif(b.tiff({{b.pointer(34665, 1)}, {b.pointer(40965, 1)}})), "Schleife", 2);
        // A directory outside the bytes.
        fails(JpegWithExif(b.tiff({{{34665, 4, 1, b.u32(100000)}}})), "außerhalb", 1);
        // IFD0 itself outside.
        std::string t = b.tiff({{b.ascii(271, "X")}});
        t.replace(4, 4, b.u32(0xfffffff0u));
        fails(JpegWithExif(t), "IFD0", 0);
        // A count running past the end of the block (truncated file).
        t = b.tiff({{b.ascii(271, "Canon"), b.ascii(272, "Model")}});
        std::string photo = JpegWithExif(t);
        photo.resize(photo.size() - 2 - 4 - 12 - 4);  // cut into the second entry
        fails(photo, "läuft über das Ende", 0);
        t.replace(8, 2, b.u16(0xffff));
        fails(JpegWithExif(t), "läuft über das Ende", 0);
        // A header cut short.
        fails(std::string("\xFF\xD8\xFF\xE1\0\x0a" "Exif\0\0II*", 15), "TIFF-Kopf", 0);
    }
}

TEST_F(ExifParserTest, ValuesOutsideTheBytesGiveEmptyTexts) {
    ExifBuilder b(true);
    const std::vector<std::vector<ExifEntry>> dirs = {
        {b.ascii(270, "A long description"), {282, 5, 1, b.rational(72, 1)}, {1000, 4, 0x40000000u, b.u32(0)}}};
    std::string t = b.tiff(dirs);
    // The ASCII value's offset far behind the end, the rational's one byte short.
    t.replace(8 + 2 + 8, 4, b.u32(0x7ffffff0u));
    std::string photo = JpegWithExif(t);
    photo.resize(photo.size() - 2 - 4);  // the rational's last bytes and the JPEG end gone
    clsEXIF e;
    ASSERT_TRUE(e.ReadMetaInfo(Photo("o.jpg", photo)));
    ASSERT_EQ(e.Tags().size(), 3u);
    EXPECT_EQ(e.TagValue(270), "");
    EXPECT_EQ(e.TagValue(282), "");
    EXPECT_EQ(e.TagValue(1000), "");  // a count whose size passes 4 GB
    EXPECT_EQ(e.AllTags(), "ImageDescription: \r\nXResolution: \r\nTag #1000: \r\n");
}

}  // namespace
}  // namespace ortelix::testing
