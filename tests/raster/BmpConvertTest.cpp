#include <gtest/gtest.h>

#include <cstring>
#include <set>

#include "core/FileIO.h"
#include "core/Session.h"
#include "fake/FakePlatform.h"
#include "fake/TestFiles.h"
#include "fake/Tools.h"
#include "raster/BmpConvert.h"
#include "raster/BmpRead.h"

namespace ortelix {
namespace {

uint32_t LE32(const std::string& b, size_t at) {
    uint32_t v;
    std::memcpy(&v, b.data() + at, 4);
    return v;
}

void SetPixel(cDIBSection& d, int x, int row, uint8_t r, uint8_t g, uint8_t b) {
    uint8_t* p = d.ScanLine(row) + 3 * x;
    p[0] = b;
    p[1] = g;
    p[2] = r;
}

std::array<int, 3> Rgb(const cDIBSection& d, int x, int row) {
    const uint8_t* p = d.ScanLine(row) + 3 * x;
    return {p[2], p[1], p[0]};
}

// A picture of `n` distinct colours in a row of `n` pixels, two rows high.
cDIBSection Colours(int n) {
    cDIBSection d;
    d.Create(n, 2);
    for (int row = 0; row < 2; ++row)
        for (int x = 0; x < n; ++x) SetPixel(d, x, row, uint8_t(x * 37), uint8_t(255 - x * 11), uint8_t(x * 5));
    return d;
}

TEST(BmpConvert, OneBitSplitsAt383AndOddDepthsCountAsOne) {
    cDIBSection d;
    ASSERT_TRUE(d.Create(3, 1));
    SetPixel(d, 0, 0, 128, 128, 127);  // 383: white
    SetPixel(d, 1, 0, 128, 127, 127);  // 382: black
    SetPixel(d, 2, 0, 255, 255, 255);
    cPalette none;
    for (int depth : {1, 2, 0, 24}) {
        const std::string f = IndexedBmpBytes(d, depth, none);
        EXPECT_EQ(uint8_t(f[28]), 1) << depth;
        ASSERT_EQ(f.size(), 54u + 8 + 4) << depth;
        EXPECT_EQ(LE32(f, 2), f.size());
        EXPECT_EQ(LE32(f, 10), 62u);
        EXPECT_EQ(LE32(f, 46), 2u);
        EXPECT_EQ(f.substr(54, 8), std::string("\0\0\0\0\xFF\xFF\xFF\0", 8));
        EXPECT_EQ(uint8_t(f[62]), 0xA0);  // 1 0 1, then zero bits
        EXPECT_EQ(f.substr(63, 3), std::string(3, '\0'));
    }
    const cDIBSection back = ReadBmp(IndexedBmpBytes(d, 2, none));
    EXPECT_EQ(Rgb(back, 0, 0), (std::array{255, 255, 255}));
    EXPECT_EQ(Rgb(back, 1, 0), (std::array{0, 0, 0}));
}

TEST(BmpConvert, FewColoursComeBackExactAtFourAndEightBits) {
    FakePlatform platform;
    Session s(platform);
    for (auto [depth, n] : {std::pair{4, 16}, {4, 5}, {8, 256}, {8, 1}}) {
        // 256 colours need a wider picture: two rows of 128.
        cDIBSection d = Colours(n);
        if (n == 256) {
            d.Create(128, 2);
            for (int row = 0; row < 2; ++row)
                for (int x = 0; x < 128; ++x) SetPixel(d, x, row, uint8_t(x * 2 + row), uint8_t(x), uint8_t(255 - x));
        }
        cPalette table;
        ASSERT_TRUE(BmpTable(s, d, depth, false, 256, table));
        EXPECT_EQ(table.Count(), n) << depth;
        const std::string f = IndexedBmpBytes(d, depth, table);
        EXPECT_EQ(uint8_t(f[28]), depth);
        EXPECT_EQ(LE32(f, 10), 54u + 4u * (1u << depth));
        EXPECT_EQ(LE32(f, 2), f.size());
        const cDIBSection back = ReadBmp(f);
        ASSERT_EQ(back.BitsSize(), d.BitsSize());
        EXPECT_EQ(std::memcmp(back.DIBSectionBitsPtr(), d.DIBSectionBitsPtr(), d.BitsSize()), 0) << depth << "/" << n;
    }
}

TEST(BmpConvert, ReducedTablesStayWithinTheirSize) {
    FakePlatform platform;
    Session s(platform);
    cDIBSection d;
    ASSERT_TRUE(d.Create(40, 40));
    d.RandomiseBits(false, 11);
    cPalette table;
    ASSERT_TRUE(BmpTable(s, d, 4, false, 256, table));
    EXPECT_LE(table.Count(), 16);
    EXPECT_GE(table.Count(), 2);
    ASSERT_TRUE(BmpTable(s, d, 8, false, 20, table));  // at most N colours
    EXPECT_LE(table.Count(), 20);
    const cDIBSection back = ReadBmp(IndexedBmpBytes(d, 8, table));
    std::set<std::array<int, 3>> seen;
    for (int row = 0; row < 40; ++row)
        for (int x = 0; x < 40; ++x) seen.insert(Rgb(back, x, row));
    EXPECT_LE(seen.size(), 20u);
    EXPECT_GT(seen.size(), 4u);

    ASSERT_TRUE(BmpTable(s, d, 8, true, 256, table));
    EXPECT_EQ(table.Count(), 216);
    cDIBSection one;
    one.Create(1, 1);
    SetPixel(one, 0, 0, 51, 102, 160);
    const cDIBSection snapped = ReadBmp(IndexedBmpBytes(one, 8, table));
    EXPECT_EQ(Rgb(snapped, 0, 0), (std::array{51, 102, 153}));
}

TEST(BmpConvert, ImageMagickReadsEveryDepth) {
    if (!testtools::HaveTool("identify")) GTEST_SKIP() << "ImageMagick is not installed";
    FakePlatform platform;
    Session s(platform);
    const auto dir = testfiles::FreshFolder("raster", "identify");
    cDIBSection d;
    ASSERT_TRUE(d.Create(13, 7));  // odd width: padding in every depth
    d.RandomiseBits(false, 5);
    const std::string rgb = (dir / "rgb.bmp").string();
    d.SavePicture(rgb);
    EXPECT_EQ(testtools::CommandOutput("identify -format '%w %h %m' " + rgb + " 2>&1"), "13 7 BMP3");
    // BMP3: ImageMagick names the 40-byte header so. Its pixel values: the top-left one.
    const uint8_t* topLeft = d.ScanLine(6);
    EXPECT_EQ(testtools::CommandOutput("convert " + rgb + " -format '%[fx:int(255*p{0,0}.r+0.5)],%[fx:int(255*p{0,0}.b+0.5)]' info: 2>&1"),
              std::to_string(topLeft[2]) + "," + std::to_string(topLeft[0]));
    for (int depth : {1, 4, 8}) {
        const std::string path = (dir / ("d" + std::to_string(depth) + ".bmp")).string();
        ASSERT_TRUE(BMPconvert(s, d, path, depth));
        EXPECT_EQ(testtools::CommandOutput("identify -format '%w %h %m' " + path + " 2>&1"), "13 7 BMP3") << depth;
        // ImageMagick's idea of the pixels equals our reader's.
        const cDIBSection ours = ReadBmpFile(path);
        const auto px = Rgb(ours, 12, 0);  // bottom-right
        EXPECT_EQ(testtools::CommandOutput("convert " + path +
                                           " -format '%[fx:int(255*p{12,6}.r+0.5)],%[fx:int(255*p{12,6}.g+0.5)],%[fx:int(255*p{12,6}.b+0.5)]' info: 2>&1"),
                  std::to_string(px[0]) + "," + std::to_string(px[1]) + "," + std::to_string(px[2]))
            << depth;
    }
}

}  // namespace
}  // namespace ortelix
