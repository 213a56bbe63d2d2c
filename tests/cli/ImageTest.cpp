#include <QColor>
#include <QImage>

#include <cstdlib>
#include <cstring>
#include <set>

#include "cli/CliTestSupport.h"
#include "core/FileIO.h"
#include "core/Session.h"
#include "fake/FakePlatform.h"
#include "fake/Tools.h"
#include "raster/BmpRead.h"
#include "raster/ImageConvert.h"

namespace ortelix::testing {
namespace {

void SetPixel(cDIBSection& d, int x, int row, uint8_t r, uint8_t g, uint8_t b) {
    uint8_t* p = d.ScanLine(row) + 3 * x;
    p[0] = b;
    p[1] = g;
    p[2] = r;
}

bool SameBits(const cDIBSection& a, const cDIBSection& b) {
    return a.Width() == b.Width() && a.Height() == b.Height() &&
           std::memcmp(a.DIBSectionBitsPtr(), b.DIBSectionBitsPtr(), a.BitsSize()) == 0;
}

// Notes the status line whenever a picture is encoded.
class StatusFake : public FakePlatform {
public:
    Session* session = nullptr;
    std::vector<std::string> statusWhenEncoding;
    std::optional<std::string> encodeImage(const Picture& picture, const std::string& format, int quality,
                                           std::string& error) override {
        statusWhenEncoding.push_back(session->store.StatusText.text());
        return FakePlatform::encodeImage(picture, format, quality, error);
    }
};

class ImageConvertTest : public CliTest {};

TEST_F(ImageConvertTest, ConverterPicksWriterByExtensionAndReportsStatus) {
    StatusFake platform;
    Session s(platform);
    platform.session = &s;
    cDIBSection pic;
    ASSERT_TRUE(pic.Create(3, 2));
    pic.RandomiseBits(false, 9);

    ImageSaveOptions options;
    ASSERT_TRUE(SaveImageFile(s, pic, Path("a.JPEG"), options));
    ASSERT_TRUE(SaveImageFile(s, pic, Path("a.png"), options));
    ASSERT_EQ(platform.encoded.size(), 2u);
    EXPECT_EQ(platform.encoded[0].format, "JPG");
    EXPECT_EQ(platform.encoded[0].quality, 90);
    EXPECT_EQ(platform.encoded[1].format, "PNG");
    EXPECT_EQ(platform.encoded[0].picture.pixels, pic.ToPicture().pixels);
    EXPECT_EQ(platform.statusWhenEncoding, (std::vector<std::string>{"Erzeuge JPG Datei...", "Erzeuge PNG Datei..."}));
    EXPECT_EQ(s.store.StatusText.text(), "Fertig");
    EXPECT_EQ(ReadFileBytes(Path("a.JPEG")), "JPG 3x2");

    // BMP and GIF are ours: nothing goes to the libraries.
    ASSERT_TRUE(SaveImageFile(s, pic, Path("b.bmp"), options));
    EXPECT_TRUE(SameBits(ReadBmpFile(Path("b.bmp")), pic));
    options.depth = 8;
    ASSERT_TRUE(SaveImageFile(s, pic, Path("c.bmp"), options));
    EXPECT_TRUE(SameBits(ReadBmpFile(Path("c.bmp")), pic));  // six colours fit the table
    EXPECT_EQ(uint8_t(ReadFileBytes(Path("c.bmp"))[28]), 8);
    ASSERT_TRUE(SaveImageFile(s, pic, Path("d.gif"), options));
    EXPECT_EQ(ReadFileBytes(Path("d.gif")).substr(0, 6), "GIF87a");
    EXPECT_EQ(platform.encoded.size(), 2u);
    EXPECT_EQ(s.store.StatusText.text(), "Fertig");

    EXPECT_THROW(SaveImageFile(s, pic, Path("e.tif"), options), FileError);
    // A library that fails keeps the old file.
    File("old.png", "alt");
    platform.imageCodecs = false;
    EXPECT_THROW(SaveImageFile(s, pic, Path("old.png"), options), FileError);
    EXPECT_EQ(ReadFileBytes(Path("old.png")), "alt");
}

TEST_F(ImageConvertTest, LoadingCodecsAndSize) {
    FakePlatform platform;
    Session s(platform);
    EXPECT_TRUE(ImageCodecsReady(s));
    EXPECT_TRUE(platform.messages.empty());
    platform.imageCodecs = false;
    EXPECT_FALSE(ImageCodecsReady(s));
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].text, "Die DLL 'janGraphics.dll' konnte nicht initialisiert werden!");
    EXPECT_EQ(platform.messages[0].title, "FEHLER!");

    // A BMP is read by our reader whatever its name; anything else by the libraries.
    cDIBSection pic;
    ASSERT_TRUE(pic.Create(2, 2));
    pic.RandomiseBits(true, 4);
    pic.SavePicture(Path("really-a-bmp.png"));
    EXPECT_TRUE(SameBits(LoadImageFile(s, Path("really-a-bmp.png")), pic));
    Picture p;
    p.width = 1;
    p.height = 2;
    p.pixels = {0xFF0000FF, 0xFFFF0000};
    platform.decodable["PNGDATA"] = p;
    const cDIBSection decoded = LoadImageFile(s, File("x.png", "PNGDATA"));
    EXPECT_EQ(decoded.Height(), 2);
    EXPECT_EQ(decoded.ScanLine(1)[0], 0xFF);  // top pixel blue
    EXPECT_EQ(decoded.ScanLine(0)[2], 0xFF);  // bottom pixel red
    try {
        LoadImageFile(s, File("y.png", "garbage"));
        ADD_FAILURE() << "garbage was read";
    } catch (const FileError& e) {
        EXPECT_NE(std::string(e.what()).find("Unbekanntes Bildformat"), std::string::npos);
    }

    platform.imageSizes[Path("x.png")] = {640, 480};
    EXPECT_EQ(BildInfo(s, Path("x.png")), (std::pair{640, 480}));
    EXPECT_FALSE(BildInfo(s, Path("nothing.png")).has_value());

    EXPECT_EQ(ImageKindOf("/a.b/c.JpG"), ImageKind::Jpg);
    EXPECT_EQ(ImageKindOf("/a.gif/c"), ImageKind::Unknown);
    EXPECT_EQ(ImageKindOf("c.Bmp"), ImageKind::Bmp);
}

class Image : public CliTest {
protected:
    // A picture with one-pixel stripes of red and blue, `w` x `h`, as a 24-bit BMP.
    std::string Stripes(const std::string& name, int w, int h) {
        cDIBSection d;
        d.Create(w, h);
        for (int row = 0; row < h; ++row)
            for (int x = 0; x < w; ++x) SetPixel(d, x, row, x % 2 ? 255 : 0, 0, x % 2 ? 0 : 255);
        d.SavePicture(Path(name));
        return Path(name);
    }
};

TEST_F(Image, ConvertsBetweenFormatsKeepingPixels) {
    const std::string bmp = Stripes("in.bmp", 11, 5);
    auto r = Ortelix("image " + bmp + " " + Path("out.png"));
    ASSERT_EQ(r.code, 0) << r.out;
    const QImage png(QString::fromStdString(Path("out.png")));
    ASSERT_EQ(png.width(), 11);
    EXPECT_EQ(png.pixel(0, 0), qRgb(0, 0, 255));
    EXPECT_EQ(png.pixel(1, 4), qRgb(255, 0, 0));
    // PNG back to BMP: the same bytes as the original.
    r = Ortelix("image " + Path("out.png") + " " + Path("back.bmp"));
    ASSERT_EQ(r.code, 0) << r.out;
    EXPECT_TRUE(SameBits(ReadBmpFile(Path("back.bmp")), ReadBmpFile(bmp)));

    // Shrunk to 30 %, the stripes become even purple.
    r = Ortelix("image " + Stripes("wide.bmp", 100, 10) + " " + Path("small.png") + " --resize 30x3");
    ASSERT_EQ(r.code, 0) << r.out;
    const QImage small(QString::fromStdString(Path("small.png")));
    ASSERT_EQ(small.size(), QSize(30, 3));
    for (int x = 0; x < 30; ++x) {
        EXPECT_NEAR(qRed(small.pixel(x, 1)), 128, 26) << x;
        EXPECT_NEAR(qBlue(small.pixel(x, 1)), 128, 26) << x;
    }

    // JPEG at quality 90, as ImageMagick estimates it.
    r = Ortelix("image " + bmp + " " + Path("out.jpg"));
    ASSERT_EQ(r.code, 0) << r.out;
    EXPECT_FALSE(QImage(QString::fromStdString(Path("out.jpg"))).isNull());
    if (testtools::HaveTool("identify")) {
        EXPECT_EQ(testtools::CommandOutput("identify -format %Q " + Path("out.jpg")), "90");
    }
}

// ImageMagick's -scale averages boxes too: a noisy picture shrunk by a
// fraction lands within one level of it everywhere.
TEST_F(Image, ShrinkingAgreesWithImageMagickScale) {
    if (!testtools::HaveTool("compare") || !testtools::HaveTool("identify"))
        GTEST_SKIP() << "ImageMagick is not installed";
    cDIBSection noise;
    ASSERT_TRUE(noise.Create(301, 203));
    noise.RandomiseBits(false, 21);
    noise.SavePicture(Path("noise.bmp"));
    const auto r = Ortelix("image " + Path("noise.bmp") + " " + Path("ours.bmp") + " --resize 97x61");
    ASSERT_EQ(r.code, 0) << r.out;
    // /usr/bin: the real ImageMagick, not a stand-in earlier on the path.
    const std::string magick = testtools::HaveTool("/usr/bin/convert") ? "/usr/bin/convert" : "convert";
    ASSERT_EQ(std::system((magick + " " + Path("noise.bmp") + " -scale 97x61! " + Path("ref.bmp")).c_str()), 0);
    const std::string pae =
        testtools::CommandOutput("compare -metric PAE " + Path("ours.bmp") + " " + Path("ref.bmp") + " null: 2>&1");
    EXPECT_LE(std::atof(pae.c_str()), 257.0) << pae;  // 257: one level of 255 on ImageMagick's 16-bit scale
}

TEST_F(Image, GifAndLowDepthBmpFollowTheFlags) {
    const std::string bmp = Stripes("in.bmp", 9, 4);
    auto r = Ortelix("image " + bmp + " " + Path("out.gif") + " --colors 2 --transparent FF0000");
    ASSERT_EQ(r.code, 0) << r.out;
    const QImage gif(QString::fromStdString(Path("out.gif")));
    ASSERT_EQ(gif.width(), 9);
    EXPECT_EQ(qAlpha(gif.pixel(1, 0)), 0);  // red is the transparent colour
    EXPECT_EQ(gif.pixel(0, 0), qRgb(0, 0, 255));
    EXPECT_EQ(ReadFileBytes(Path("out.gif")).substr(0, 6), "GIF89a");

    r = Ortelix("image " + bmp + " " + Path("four.bmp") + " --depth 4 --colors 3");
    ASSERT_EQ(r.code, 0) << r.out;
    const std::string four = ReadFileBytes(Path("four.bmp"));
    EXPECT_EQ(uint8_t(four[28]), 4);
    EXPECT_TRUE(SameBits(ReadBmp(four), ReadBmpFile(bmp)));
    r = Ortelix("image " + bmp + " " + Path("two.bmp") + " --depth 2");  // counts as 1 bit
    ASSERT_EQ(r.code, 0) << r.out;
    EXPECT_EQ(uint8_t(ReadFileBytes(Path("two.bmp"))[28]), 1);

    r = Ortelix("image " + bmp + " " + Path("web.gif") + " --web-safe");
    ASSERT_EQ(r.code, 0) << r.out;
    EXPECT_EQ(QImage(QString::fromStdString(Path("web.gif"))).pixel(1, 0), qRgb(255, 0, 0));
}

TEST_F(Image, FailuresKeepTheOldFile) {
    const std::string out = File("out.png", "alt");
    std::string broken = ReadFileBytes(Stripes("in.bmp", 50, 50));
    broken.resize(broken.size() / 2);
    auto r = Ortelix("image " + File("broken.bmp", broken) + " " + out);
    EXPECT_EQ(r.code, 1);
    EXPECT_NE(r.out.find("Die Daten können nicht eingelesen werden."), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("Dateiende"), std::string::npos) << r.out;
    EXPECT_EQ(ReadFileBytes(out), "alt");

    r = Ortelix("image " + File("text.png", "kein Bild") + " " + out);
    EXPECT_EQ(r.code, 1);
    EXPECT_NE(r.out.find("Die Daten können nicht eingelesen werden."), std::string::npos) << r.out;
    EXPECT_EQ(ReadFileBytes(out), "alt");

    r = Ortelix("image " + Path("in.bmp") + " " + Path("nowhere/x.png"));
    EXPECT_EQ(r.code, 1);
    EXPECT_NE(r.out.find("Die Daten können nicht gespeichert werden."), std::string::npos) << r.out;

    for (const char* bad : {" --colors 0", " --colors 257", " --resize 10", " --transparent 12345G", " --frob"})
        EXPECT_EQ(Ortelix("image " + Path("in.bmp") + " " + Path("o.gif") + bad).code, 2) << bad;
    EXPECT_EQ(Ortelix("image " + Path("in.bmp") + " " + Path("o.tif")).code, 2);
}

}  // namespace
}  // namespace ortelix::testing
