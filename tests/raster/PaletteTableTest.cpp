// The colour table: nearest colour, web-safe colours, the per-picture
// lookup, and JASC-PAL files both ways.
#include <gtest/gtest.h>

#include <random>

#include "core/FileIO.h"
#include "fake/TestFiles.h"
#include "raster/cPalette.h"

namespace ortelix {
namespace {

TEST(PaletteTable, ClosestIndexAndWebSafe) {
    cPalette pal;
    EXPECT_EQ(pal.ClosestIndex(1, 2, 3), -1);
    pal.Add(10, 0, 0);
    pal.Add(0, 10, 0);
    pal.Add(0, 0, 10);
    pal.Add(10, 0, 0);
    EXPECT_EQ(pal.Count(), 4);
    EXPECT_EQ(pal.ClosestIndex(0, 0, 0), 0);    // all three at 100: the first
    EXPECT_EQ(pal.ClosestIndex(0, 5, 5), 1);    // 50 against 50: the first of the tie
    EXPECT_EQ(pal.ClosestIndex(0, 4, 6), 2);    // 72 against 32
    EXPECT_EQ(pal.ClosestIndex(250, 0, 0), 0);  // equal colours: the first
    pal.Clear();
    EXPECT_EQ(pal.Count(), 0);

    pal.CreateWebSafe();
    ASSERT_EQ(pal.Count(), 216);
    EXPECT_EQ(pal.Colour(0), (PaletteColour{0, 0, 0}));
    EXPECT_EQ(pal.Colour(1), (PaletteColour{0, 0, 51}));
    EXPECT_EQ(pal.Colour(36), (PaletteColour{51, 0, 0}));
    EXPECT_EQ(pal.Colour(215), (PaletteColour{255, 255, 255}));
    EXPECT_EQ(pal.ClosestIndex(26, 26, 26), 43);  // 26 is nearer 51 than 0
    EXPECT_EQ(pal.ClosestIndex(25, 128, 230), 0 * 36 + 3 * 6 + 5);
}

TEST(PaletteTable, LookupAnswersAsClosestIndex) {
    std::mt19937 random(11);
    cPalette pal;
    for (int i = 0; i < 200; ++i) pal.Add(uint8_t(random()), uint8_t(random()), uint8_t(random()));
    pal.Add(pal.Colour(17).Red, pal.Colour(17).Green, pal.Colour(17).Blue);  // a tie to the end
    PaletteLookup lookup(pal);
    int mismatches = 0;
    // Many colours hit the same cache slot; repeated colours come from the cache.
    for (int round = 0; round < 2; ++round) {
        std::mt19937 colours(5);
        for (int i = 0; i < 60000; ++i) {
            const uint8_t r = uint8_t(colours()), g = uint8_t(colours() & 0xF0), b = uint8_t(colours());
            if (lookup.Index(r, g, b) != pal.ClosestIndex(r, g, b)) ++mismatches;
        }
    }
    EXPECT_EQ(mismatches, 0);
    EXPECT_EQ(lookup.Index(pal.Colour(17).Red, pal.Colour(17).Green, pal.Colour(17).Blue), 17);
}

TEST(PaletteTable, JascPalFiles) {
    const auto dir = testfiles::FreshFolder("test-palette", "jasc");
    cPalette pal;
    pal.Add(0, 0, 0);
    pal.Add(255, 128, 7);
    const std::string path = (dir / "a.pal").string();
    pal.Save(path);
    EXPECT_EQ(ReadFileBytes(path), "JASC-PAL\r\n0100\r\n2\r\n0 0 0\r\n255 128 7\r\n");

    cPalette back;
    back.Add(1, 1, 1);
    back.Load(path);
    EXPECT_EQ(back.Colours(), pal.Colours());
    // Unix line ends read the same.
    back.Load(testfiles::Put(dir / "unix.pal", "JASC-PAL\n0100\n1\n12 34 56\n"));
    EXPECT_EQ(back.Colours(), (std::vector<PaletteColour>{{12, 34, 56}}));

    for (const char* bad : {"", "JASC-PAL\r\n0200\r\n1\r\n1 2 3\r\n", "JASC-PAL\r\n0100\r\n2\r\n1 2 3\r\n",
                            "JASC-PAL\r\n0100\r\n1\r\n1 2 256\r\n", "JASC-PAL\r\n0100\r\n1\r\n1 2\r\n",
                            "JASC-PAL\r\n0100\r\nx\r\n"}) {
        cPalette keep;
        keep.Add(9, 9, 9);
        EXPECT_THROW(keep.Load(testfiles::Put(dir / "bad.pal", bad)), FileError) << bad;
        EXPECT_EQ(keep.Count(), 1) << bad;
    }
    EXPECT_THROW(back.Load((dir / "missing.pal").string()), FileError);
}

}  // namespace
}  // namespace ortelix
