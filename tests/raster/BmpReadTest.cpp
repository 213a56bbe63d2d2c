#include <gtest/gtest.h>

#include <cstring>

#include "core/FileIO.h"
#include "raster/BmpRead.h"

namespace ortelix {
namespace {

void Put32(std::string& s, size_t at, uint32_t v) { std::memcpy(s.data() + at, &v, 4); }
void Put16(std::string& s, size_t at, uint16_t v) { std::memcpy(s.data() + at, &v, 2); }

// A BMP as another program writes it: 40-byte header, a colour table of
// `table` entries (B G R 0), the given pixel rows as they stand in the file.
std::string Bmp(int32_t width, int32_t height, uint16_t bits, const std::string& table, const std::string& rows,
                uint32_t compression = 0) {
    std::string h(54, '\0');
    h[0] = 'B';
    h[1] = 'M';
    Put32(h, 2, uint32_t(54 + table.size() + rows.size()));
    Put32(h, 10, uint32_t(54 + table.size()));
    Put32(h, 14, 40);
    Put32(h, 18, uint32_t(width));
    Put32(h, 22, uint32_t(height));
    Put16(h, 26, 1);
    Put16(h, 28, bits);
    Put32(h, 30, compression);
    if (bits <= 8) Put32(h, 46, uint32_t(table.size() / 4));  // colours used
    return h + table + rows;
}

std::array<int, 3> Rgb(const cDIBSection& d, int x, int rowFromTop) {
    const uint8_t* p = d.ScanLine(d.Height() - 1 - rowFromTop) + 3 * x;
    return {p[2], p[1], p[0]};
}

std::string Cause(const std::string& bytes) {
    try {
        ReadBmp(bytes);
    } catch (const FileError& e) {
        return e.what();
    }
    return "(gelesen)";
}

TEST(BmpRead, EveryDepthBottomUpAndTopDown) {
    const std::string twoColours = std::string("\x00\x00\xFF\x00", 4) + std::string("\xFF\x00\x00\x00", 4);  // red, blue
    // 1 bit, 3 x 2, bottom-up: bottom row 1 0 1, top row 0 1 0.
    const cDIBSection one =
        ReadBmp(Bmp(3, 2, 1, twoColours, std::string("\xA0\0\0\0\x40\0\0\0", 8)));
    EXPECT_EQ(one.Width(), 3);
    EXPECT_EQ(Rgb(one, 0, 1), (std::array{0, 0, 255}));
    EXPECT_EQ(Rgb(one, 1, 1), (std::array{255, 0, 0}));
    EXPECT_EQ(Rgb(one, 1, 0), (std::array{0, 0, 255}));
    EXPECT_EQ(Rgb(one, 2, 0), (std::array{255, 0, 0}));

    // 4 bits, top-down (negative height): top row indices 1 0, bottom 0 1.
    const cDIBSection four =
        ReadBmp(Bmp(2, -2, 4, twoColours, std::string("\x10\0\0\0\x01\0\0\0", 8)));
    EXPECT_EQ(four.Height(), 2);
    EXPECT_EQ(Rgb(four, 0, 0), (std::array{0, 0, 255}));
    EXPECT_EQ(Rgb(four, 1, 0), (std::array{255, 0, 0}));
    EXPECT_EQ(Rgb(four, 1, 1), (std::array{0, 0, 255}));

    // 8 bits, an index past a short table reads black.
    const cDIBSection eight = ReadBmp(Bmp(2, 1, 8, twoColours, std::string("\x01\x07\0\0", 4)));
    EXPECT_EQ(Rgb(eight, 0, 0), (std::array{0, 0, 255}));
    EXPECT_EQ(Rgb(eight, 1, 0), (std::array{0, 0, 0}));

    // 24 bits, width 1: rows padded to 4 bytes.
    const cDIBSection rgb = ReadBmp(Bmp(1, 2, 24, "", std::string("\x01\x02\x03\0\x04\x05\x06\0", 8)));
    EXPECT_EQ(Rgb(rgb, 0, 1), (std::array{3, 2, 1}));
    EXPECT_EQ(Rgb(rgb, 0, 0), (std::array{6, 5, 4}));

    // 32 bits B G R X, top-down.
    const cDIBSection x32 = ReadBmp(Bmp(1, -1, 32, "", std::string("\x0A\x0B\x0C\xFF", 4)));
    EXPECT_EQ(Rgb(x32, 0, 0), (std::array{12, 11, 10}));

    // 32 bits with bit fields R G B X in the low bytes.
    std::string masks(12, '\0');
    Put32(masks, 0, 0x000000FF);
    Put32(masks, 4, 0x0000FF00);
    Put32(masks, 8, 0x00FF0000);
    std::string fields = Bmp(1, 1, 32, masks, std::string("\x0A\x0B\x0C\x00", 4), 3);
    const cDIBSection bf = ReadBmp(fields);
    EXPECT_EQ(Rgb(bf, 0, 0), (std::array{10, 11, 12}));

    // The 12-byte OS/2 header: 16-bit sides, 3-byte table entries.
    std::string os2(26, '\0');
    os2[0] = 'B';
    os2[1] = 'M';
    Put32(os2, 10, 26 + 6);
    Put32(os2, 14, 12);
    Put16(os2, 18, 2);
    Put16(os2, 20, 1);
    Put16(os2, 22, 1);
    Put16(os2, 24, 1);
    os2 += std::string("\x10\x20\x30\x40\x50\x60", 6) + std::string("\x40\0\0\0", 4);
    const cDIBSection old = ReadBmp(os2);
    EXPECT_EQ(old.Width(), 2);
    EXPECT_EQ(Rgb(old, 0, 0), (std::array{0x30, 0x20, 0x10}));
    EXPECT_EQ(Rgb(old, 1, 0), (std::array{0x60, 0x50, 0x40}));
}

TEST(BmpRead, BrokenFilesFailWithTheirCause) {
    const std::string good = Bmp(2, 2, 24, "", std::string(16, '\x7F'));
    ASSERT_NO_THROW(ReadBmp(good));

    EXPECT_EQ(Cause("GIF89a"), "Die Datei ist keine BMP-Datei.");
    // Cut anywhere: header, table or pixels.
    for (size_t n : {size_t(2), size_t(17), size_t(30), size_t(54), good.size() - 1})
        EXPECT_NE(Cause(good.substr(0, n)), "(gelesen)") << n;
    EXPECT_NE(Cause(good.substr(0, good.size() - 1)).find("Dateiende"), std::string::npos);

    EXPECT_EQ(Cause(Bmp(0, 0, 24, "", "")), "Ungültige Bildgröße 0 x 0.");
    EXPECT_EQ(Cause(Bmp(-2, 2, 24, "", std::string(16, 0))), "Ungültige Bildgröße -2 x 2.");
    // A huge size in a small file is refused before anything is allocated.
    EXPECT_NE(Cause(Bmp(100000, 100000, 24, "", std::string(16, 0))).find("100000 x 100000"), std::string::npos);
    EXPECT_NE(Cause(Bmp(0x7FFFFFFF, int32_t(0x80000000), 32, "", std::string(16, 0))), "(gelesen)");
    EXPECT_EQ(Cause(Bmp(2, 2, 16, "", std::string(16, 0))), "Die Farbtiefe 16 Bit wird nicht unterstützt.");
    EXPECT_EQ(Cause(Bmp(2, 2, 7, "", std::string(16, 0))), "Die Farbtiefe 7 Bit wird nicht unterstützt.");
    EXPECT_NE(Cause(Bmp(2, 2, 8, "", std::string(16, 0), 1)).find("Komprimierte"), std::string::npos);

    // Offset past the end, or into the header.
    std::string lying = good;
    Put32(lying, 10, 1000);
    EXPECT_NE(Cause(lying).find("außerhalb"), std::string::npos);
    Put32(lying, 10, 20);
    EXPECT_NE(Cause(lying).find("außerhalb"), std::string::npos);
    // A header size larger than the file.
    lying = good;
    Put32(lying, 14, 5000);
    EXPECT_NE(Cause(lying), "(gelesen)");
    // A colour table that runs past the end.
    std::string noTable = Bmp(2, 1, 8, "", std::string(4, 0));
    EXPECT_EQ(Cause(noTable), "Die Farbtabelle reicht über das Dateiende.");
}

}  // namespace
}  // namespace ortelix
