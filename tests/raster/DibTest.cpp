#include <gtest/gtest.h>

#include <cstring>

#include "core/FileIO.h"
#include "fake/FakePlatform.h"
#include "fake/TestFiles.h"
#include "platform/Platform.h"
#include "raster/BmpRead.h"
#include "raster/cDIBSection.h"

namespace ortelix {
namespace {

uint32_t LE32(const std::string& b, size_t at) {
    uint32_t v;
    std::memcpy(&v, b.data() + at, 4);
    return v;
}
uint16_t LE16(const std::string& b, size_t at) {
    uint16_t v;
    std::memcpy(&v, b.data() + at, 2);
    return v;
}

void SetPixel(cDIBSection& d, int x, int row, uint8_t r, uint8_t g, uint8_t b) {
    uint8_t* p = d.ScanLine(row) + 3 * x;
    p[0] = b;
    p[1] = g;
    p[2] = r;
}

TEST(Dib, CreateLaysOutPaddedBottomUpRowsAndFailsEmpty) {
    cDIBSection d;
    ASSERT_TRUE(d.Create(1, 3));
    EXPECT_EQ(d.BytesPerScanLine(), 4);
    EXPECT_EQ(d.BitsSize(), 12u);
    ASSERT_TRUE(d.Create(5, 2));
    EXPECT_EQ(d.Width(), 5);
    EXPECT_EQ(d.Height(), 2);
    EXPECT_EQ(d.BytesPerScanLine(), 16);  // 15 bytes padded to 16
    ASSERT_TRUE(d.Create(4, 1));
    EXPECT_EQ(d.BytesPerScanLine(), 12);

    for (auto [w, h] : {std::pair{0L, 5L}, {5L, 0L}, {-3L, 4L}, {100000L, 100000L}}) {
        EXPECT_FALSE(d.Create(w, h)) << w << "x" << h;
        EXPECT_TRUE(d.Empty());
        EXPECT_EQ(d.Width(), 0);
        EXPECT_EQ(d.BytesPerScanLine(), 0);
    }
}

TEST(Dib, PictureRoundTripKeepsTopRowOnTop) {
    Picture p;
    p.width = 2;
    p.height = 2;
    p.pixels = {0xFF112233, 0xFF445566, 0xFF778899, 0xFFAABBCC};  // top row first
    cDIBSection d;
    ASSERT_TRUE(d.CreateFromPicture(p));
    // The top row of the picture is the last scan line.
    const uint8_t* top = d.ScanLine(1);
    EXPECT_EQ(top[0], 0x33);
    EXPECT_EQ(top[1], 0x22);
    EXPECT_EQ(top[2], 0x11);
    EXPECT_EQ(d.ScanLine(0)[3], 0xCC);
    EXPECT_EQ(d.ToPicture().pixels, p.pixels);

    p.pixels.pop_back();  // fewer pixels than the size says
    EXPECT_FALSE(d.CreateFromPicture(p));
    EXPECT_TRUE(d.Empty());
}

TEST(Dib, SavePictureWritesHeaderAndZeroPadding) {
    const auto dir = testfiles::FreshFolder("raster", "save");
    cDIBSection d;
    ASSERT_TRUE(d.Create(3, 2));
    SetPixel(d, 0, 0, 255, 0, 0);
    SetPixel(d, 2, 1, 1, 2, 3);
    const std::string path = (dir / "a.bmp").string();
    d.SavePicture(path);
    const std::string f = ReadFileBytes(path);
    ASSERT_EQ(f.size(), 54u + 2 * 12);
    EXPECT_EQ(f.substr(0, 2), "BM");
    EXPECT_EQ(LE32(f, 2), f.size());  // bfSize is the file's length
    EXPECT_EQ(LE32(f, 10), 54u);
    EXPECT_EQ(LE32(f, 14), 40u);
    EXPECT_EQ(int32_t(LE32(f, 18)), 3);
    EXPECT_EQ(int32_t(LE32(f, 22)), 2);  // positive: bottom-up
    EXPECT_EQ(LE16(f, 26), 1);
    EXPECT_EQ(LE16(f, 28), 24);
    EXPECT_EQ(LE32(f, 30), 0u);
    EXPECT_EQ(LE32(f, 34), 24u);
    EXPECT_EQ(uint8_t(f[54 + 2]), 255);              // first pixel's red
    EXPECT_EQ(f.substr(54 + 9, 3), std::string(3, '\0'));  // padding of the bottom line
    EXPECT_EQ(f.substr(54 + 12 + 6, 3), "\x03\x02\x01");
    EXPECT_EQ(f.substr(54 + 12 + 9, 3), std::string(3, '\0'));

    const cDIBSection back = ReadBmpFile(path);
    ASSERT_EQ(back.BitsSize(), d.BitsSize());
    EXPECT_EQ(std::memcmp(back.DIBSectionBitsPtr(), d.DIBSectionBitsPtr(), d.BitsSize()), 0);

    cDIBSection empty;
    EXPECT_THROW(empty.SavePicture((dir / "b.bmp").string()), FileError);
}

TEST(Dib, ResampleAveragesStripesAndKeepsSameSize) {
    // One-pixel black and white stripes, shrunk to 30 %: every target pixel
    // covers 3.33 source columns, and area averaging gives even grey where
    // sampling would give stripes or blotches.
    cDIBSection d;
    ASSERT_TRUE(d.Create(100, 100));
    for (int row = 0; row < 100; ++row)
        for (int x = 0; x < 100; ++x) {
            const uint8_t v = x % 2 ? 255 : 0;
            SetPixel(d, x, row, v, v, v);
        }
    const cDIBSection small = d.Resample(30, 30);
    ASSERT_EQ(small.Width(), 30);
    ASSERT_EQ(small.Height(), 30);
    EXPECT_EQ(small.BytesPerScanLine(), 92);
    int lo = 255, hi = 0;
    for (int row = 0; row < 30; ++row)
        for (int i = 0; i < 90; ++i) {
            lo = std::min<int>(lo, small.ScanLine(row)[i]);
            hi = std::max<int>(hi, small.ScanLine(row)[i]);
        }
    EXPECT_GE(lo, 127 - 26);  // 3.33 columns: at most a third of a stripe off the mean
    EXPECT_LE(hi, 128 + 26);
    EXPECT_EQ(small.ScanLine(0)[90], 0);  // padding stays zero

    // Exact area means: 4 x 4 to 2 x 2 averages blocks, 3 to 2 columns
    // weighs the middle column half to each side.
    cDIBSection ramp;
    ASSERT_TRUE(ramp.Create(4, 4));
    for (int row = 0; row < 4; ++row)
        for (int x = 0; x < 4; ++x) SetPixel(ramp, x, row, uint8_t(x * 10 + row * 60), 0, 0);
    const cDIBSection quarter = ramp.Resample(2, 2);
    EXPECT_EQ(quarter.ScanLine(0)[2], 35);
    EXPECT_EQ(quarter.ScanLine(0)[5], 55);
    EXPECT_EQ(quarter.ScanLine(1)[2], 155);
    EXPECT_EQ(quarter.ScanLine(1)[5], 175);
    cDIBSection three;
    ASSERT_TRUE(three.Create(3, 1));
    for (int x = 0; x < 3; ++x) SetPixel(three, x, 0, 0, uint8_t(x * 90), 0);
    const cDIBSection two3 = three.Resample(1, 2);
    EXPECT_EQ(two3.ScanLine(0)[1], 30);
    EXPECT_EQ(two3.ScanLine(0)[4], 150);

    // Height comes first.
    const cDIBSection tall = d.Resample(7, 3);
    EXPECT_EQ(tall.Height(), 7);
    EXPECT_EQ(tall.Width(), 3);

    cDIBSection noise;
    ASSERT_TRUE(noise.Create(13, 9));
    noise.RandomiseBits(false, 7);
    const cDIBSection same = noise.Resample(9, 13);
    ASSERT_EQ(same.BitsSize(), noise.BitsSize());
    EXPECT_EQ(std::memcmp(same.DIBSectionBitsPtr(), noise.DIBSectionBitsPtr(), noise.BitsSize()), 0);

    // Growing a two-colour picture stays between the colours and keeps the ends.
    cDIBSection two;
    ASSERT_TRUE(two.Create(2, 1));
    SetPixel(two, 0, 0, 0, 0, 0);
    SetPixel(two, 1, 0, 200, 200, 200);
    const cDIBSection wide = two.Resample(1, 8);
    EXPECT_EQ(wide.ScanLine(0)[0], 0);
    EXPECT_EQ(wide.ScanLine(0)[21], 200);
    for (int x = 1; x < 8; ++x) EXPECT_GE(wide.ScanLine(0)[3 * x], wide.ScanLine(0)[3 * x - 3]);

    EXPECT_TRUE(d.Resample(0, 5).Empty());
}

TEST(Dib, RandomiseBitsGrayHasEqualChannelsAndClipboard) {
    cDIBSection d;
    ASSERT_TRUE(d.Create(5, 4));
    d.RandomiseBits(true, 3);
    int distinct = 0;
    for (int row = 0; row < 4; ++row)
        for (int x = 0; x < 5; ++x) {
            const uint8_t* p = d.ScanLine(row) + 3 * x;
            EXPECT_EQ(p[0], p[1]);
            EXPECT_EQ(p[1], p[2]);
            distinct += p[0] != d.ScanLine(0)[0];
        }
    EXPECT_GT(distinct, 10);
    EXPECT_EQ(d.ScanLine(0)[15], 0);  // padding untouched
    d.RandomiseBits(false, 3);
    bool colour = false;
    for (int x = 0; x < 5; ++x) colour |= d.ScanLine(0)[3 * x] != d.ScanLine(0)[3 * x + 1];
    EXPECT_TRUE(colour);

    FakePlatform platform;
    EXPECT_FALSE(d.CopyToClipboard(platform, true));
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].text, "I don't know how to put a DIB on the clipboard! Copy as bitmap instead!!!");
    EXPECT_FALSE(platform.clipboardPicture().has_value());
    EXPECT_TRUE(d.CopyToClipboard(platform, false));
    const auto pic = platform.clipboardPicture();
    ASSERT_TRUE(pic.has_value());
    cDIBSection back;
    ASSERT_TRUE(back.CreateFromPicture(*pic));
    EXPECT_EQ(std::memcmp(back.DIBSectionBitsPtr(), d.DIBSectionBitsPtr(), d.BitsSize()), 0);

    d.ClearUp();
    EXPECT_TRUE(d.Empty());
    EXPECT_EQ(d.Height(), 0);
    EXPECT_FALSE(cDIBSection::ApiError(2).empty());
}

}  // namespace
}  // namespace ortelix
