// GIF files as giflib reads them: the header and table bytes, pixels
// decoded by gif2rgb, transparency, progress and failures.
#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "core/FileIO.h"
#include "core/Session.h"
#include "fake/FakePlatform.h"
#include "fake/TestFiles.h"
#include "fake/Tools.h"
#include "raster/GifWriter.h"
#include "raster/cDIBSection.h"
#include "raster/cPalette.h"

namespace ortelix {
namespace {

namespace fs = std::filesystem;

fs::path Folder(const std::string& name) { return testfiles::FreshFolder("test-gif", name); }

// What the GIF should show: each pixel's nearest palette colour, top row
// first, as R G B bytes.
std::string Expected(const cDIBSection& pic, const cPalette& pal) {
    std::string rgb;
    for (int y = pic.Height() - 1; y >= 0; --y) {
        const uint8_t* p = pic.ScanLine(y);
        for (int x = 0; x < pic.Width(); ++x, p += 3) {
            const PaletteColour& c = pal.Colour(pal.ClosestIndex(p[2], p[1], p[0]));
            rgb += char(c.Red);
            rgb += char(c.Green);
            rgb += char(c.Blue);
        }
    }
    return rgb;
}

// gif2rgb's reading of the file: R G B bytes, top row first.
std::string Decoded(const fs::path& gif) {
    const fs::path rgb = gif.string() + ".rgb";
    fs::remove(rgb);
    testtools::CommandOutput("gif2rgb -1 -o '" + rgb.string() + "' '" + gif.string() + "' 2>&1");
    return fs::exists(rgb) ? ReadFileBytes(rgb.string()) : std::string("gif2rgb failed");
}

void Paint(cDIBSection& pic, int x, int y, uint8_t r, uint8_t g, uint8_t b) {
    uint8_t* p = pic.ScanLine(y) + 3 * x;
    p[0] = b;
    p[1] = g;
    p[2] = r;
}

TEST(GifWriter, HeaderTableAndTransparency) {
    FakePlatform platform;
    Session s(platform);
    const fs::path dir = Folder("header");
    cDIBSection pic;
    ASSERT_TRUE(pic.Create(3, 2));
    Paint(pic, 0, 1, 250, 10, 10);  // top row: nearly red, then black
    Paint(pic, 2, 0, 0, 0, 255);
    cPalette pal;
    pal.Add(0, 0, 0);
    pal.Add(255, 0, 0);
    pal.Add(0, 0, 255);
    pal.Add(255, 0, 0);

    const std::string plain = (dir / "plain.gif").string();
    ASSERT_TRUE(SaveGIF(s, pic, pal, plain, false, {}));
    const std::string bytes = ReadFileBytes(plain);
    ASSERT_GT(bytes.size(), 13u + 768 + 10 + 3);
    EXPECT_EQ(bytes.substr(0, 6), "GIF87a");
    EXPECT_EQ(bytes.substr(6, 7), std::string("\x03\x00\x02\x00\xF7\x00\x00", 7));
    EXPECT_EQ(bytes.substr(13, 12), std::string("\x00\x00\x00\xFF\x00\x00\x00\x00\xFF\xFF\x00\x00", 12));
    EXPECT_EQ(bytes.substr(25, 768 - 12), std::string(768 - 12, '\0'));
    EXPECT_EQ(bytes.substr(781, 11), std::string("\x2C\x00\x00\x00\x00\x03\x00\x02\x00\x00\x08", 11));
    EXPECT_EQ(bytes.back(), ';');

    // The first entry equal to the colour is transparent; a colour that no
    // entry has leaves the flag clear and index 0 unmarked.
    const std::string trans = (dir / "trans.gif").string();
    ASSERT_TRUE(SaveGIF(s, pic, pal, trans, true, {255, 0, 0}));
    const std::string t = ReadFileBytes(trans);
    EXPECT_EQ(t.substr(0, 6), "GIF89a");
    EXPECT_EQ(t.substr(781, 8), std::string("\x21\xF9\x04\x01\x00\x00\x01\x00", 8));
    EXPECT_EQ(t[789], '\x2C');
    if (testtools::HaveTool("giftext")) {
        const std::string text = testtools::CommandOutput("giftext '" + trans + "' 2>&1");
        EXPECT_NE(text.find("Transparency on: yes"), std::string::npos) << text;
        EXPECT_NE(text.find("Transparent Index: 1\n"), std::string::npos) << text;
    }
    ASSERT_TRUE(SaveGIF(s, pic, pal, trans, true, {1, 2, 3}));
    EXPECT_EQ(ReadFileBytes(trans).substr(781, 8), std::string("\x21\xF9\x04\x00\x00\x00\x00\x00", 8));
    if (testtools::HaveTool("giftext")) {
        const std::string text = testtools::CommandOutput("giftext '" + trans + "' 2>&1");
        for (const char* line : {"Screen Size - Width = 3, Height = 2.", "BitsPerPixel = 8, BackGround = 0, Aspect = 0.",
                                 "Transparency on: no", "Image Size - Left = 0, Top = 0, Width = 3, Height = 2.",
                                 "Image is Non Interlaced.", "GIF file terminated normally."})
            EXPECT_NE(text.find(line), std::string::npos) << line << "\n" << text;
    }
    if (testtools::HaveTool("gif2rgb")) {
        EXPECT_EQ(Decoded(plain), std::string("\xFF\x00\x00\x00\x00\x00\x00\x00\x00"
                                              "\x00\x00\x00\x00\x00\x00\x00\x00\xFF", 18));
        EXPECT_EQ(Decoded(trans), Expected(pic, pal));
    }
}

TEST(GifWriter, GiflibDecodesEveryPicture) {
    if (!testtools::HaveTool("gif2rgb")) GTEST_SKIP() << "giflib-tools not installed";
    FakePlatform platform;
    Session s(platform);
    const fs::path dir = Folder("decode");
    struct Case {
        std::string name;
        cDIBSection pic;
    };
    std::vector<Case> cases;
    {
        // Noise: nearly every pixel a new code, the table fills and clears
        // many times.
        cDIBSection noise;
        EXPECT_TRUE(noise.Create(301, 203));
        noise.RandomiseBits(false, 9);
        cases.push_back({"noise", std::move(noise)});
    }
    {
        // A smooth relief with lines: long strings, codes up to 12 bits.
        cDIBSection relief;
        EXPECT_TRUE(relief.Create(997, 61));
        for (int y = 0; y < 61; ++y)
            for (int x = 0; x < 997; ++x)
                Paint(relief, x, y, uint8_t(x / 4), uint8_t(100 + y), uint8_t(x % 7 == 0 ? 255 : 40));
        cases.push_back({"relief", std::move(relief)});
    }
    {
        cDIBSection column;  // width 1: one pixel a row, scan lines padded to 4 bytes
        EXPECT_TRUE(column.Create(1, 9));
        for (int y = 0; y < 9; ++y) Paint(column, 0, y, uint8_t(y * 30), 0, uint8_t(255 - y * 30));
        cases.push_back({"column", std::move(column)});
    }
    {
        cDIBSection plain;  // one colour: the longest strings
        EXPECT_TRUE(plain.Create(640, 480));
        for (int y = 0; y < 480; ++y)
            for (int x = 0; x < 640; ++x) Paint(plain, x, y, 12, 34, 56);
        cases.push_back({"plain", std::move(plain)});
    }
    for (const Case& c : cases) {
        for (int paletteKind = 0; paletteKind < 2; ++paletteKind) {
            cPalette pal;
            if (paletteKind == 0)
                ASSERT_TRUE(pal.CreateOptimal(s, c.pic, 256, 8));
            else
                pal.CreateWebSafe();
            const fs::path gif = dir / (c.name + std::to_string(paletteKind) + ".gif");
            ASSERT_TRUE(SaveGIF(s, c.pic, pal, gif.string(), paletteKind == 1, pal.Colour(0))) << gif;
            EXPECT_TRUE(Decoded(gif) == Expected(c.pic, pal)) << gif;
        }
    }
}

TEST(GifWriter, ProgressAndFailures) {
    FakePlatform platform;
    platform.yieldAdvance = 1;
    Session s(platform);
    const fs::path dir = Folder("fail");
    struct Percents : GifListener {
        std::vector<int> seen;
        void Progress(int p) override { seen.push_back(p); }
    } percents;
    cDIBSection pic;
    ASSERT_TRUE(pic.Create(5, 8));
    cPalette pal;
    pal.CreateWebSafe();
    ASSERT_TRUE(SaveGIF(s, pic, pal, (dir / "p.gif").string(), false, {}, &percents));
    EXPECT_EQ(percents.seen, (std::vector<int>{12, 25, 37, 50, 62, 75, 87, 100}));
    EXPECT_EQ(s.store.StatusText.text(), "Erzeuge GIF: 100");
    EXPECT_EQ(platform.yields, 8);

    // An existing file survives every failure, and none is made.
    const std::string old = testfiles::Put(dir / "old.gif", "old");
    cPalette none;
    EXPECT_FALSE(SaveGIF(s, pic, none, old, false, {}));
    cPalette tooMany;
    for (int i = 0; i < 257; ++i) tooMany.Add(uint8_t(i), 0, 0);
    EXPECT_FALSE(SaveGIF(s, pic, tooMany, old, false, {}));
    EXPECT_FALSE(SaveGIF(s, cDIBSection{}, pal, old, false, {}));
    EXPECT_EQ(ReadFileBytes(old), "old");
    EXPECT_FALSE(SaveGIF(s, pic, pal, (dir / "no" / "such.gif").string(), false, {}));
    EXPECT_FALSE(fs::exists(dir / "no"));
    std::size_t files = 0;
    for ([[maybe_unused]] const auto& e : fs::directory_iterator(dir)) ++files;
    EXPECT_EQ(files, 2u);  // p.gif and old.gif, no temporary left behind
}

}  // namespace
}  // namespace ortelix
