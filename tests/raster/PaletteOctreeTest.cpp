// Octree colour reduction: exact colours when they fit, the hand-worked
// order of folding, the events, the stuck reduction and a bounded tree.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <tuple>

#include "core/Session.h"
#include "fake/FakePlatform.h"
#include "raster/cDIBSection.h"
#include "raster/cPalette.h"

namespace ortelix {
namespace {

using Rgb = std::tuple<int, int, int>;

// A picture from rows given bottom row first (the byte array's order).
cDIBSection Picture(const std::vector<std::vector<Rgb>>& rows) {
    cDIBSection dib;
    EXPECT_TRUE(dib.Create(long(rows[0].size()), long(rows.size())));
    for (size_t y = 0; y < rows.size(); ++y) {
        uint8_t* p = dib.ScanLine(int(y));
        for (const auto& [r, g, b] : rows[y]) {
            *p++ = uint8_t(b);
            *p++ = uint8_t(g);
            *p++ = uint8_t(r);
        }
    }
    return dib;
}

std::vector<Rgb> Colours(const cPalette& pal) {
    std::vector<Rgb> out;
    for (const PaletteColour& c : pal.Colours()) out.emplace_back(c.Red, c.Green, c.Blue);
    return out;
}

struct Recorder : PaletteListener {
    std::vector<std::string> events;
    void Started(long Max) override { events.push_back("start " + std::to_string(Max)); }
    void Step(long lPosition) override { events.push_back("step " + std::to_string(lPosition)); }
    void Ended(long lTimeMs) override { events.push_back("end " + std::to_string(lTimeMs)); }
};

TEST(PaletteOctree, ColoursThatFitComeBackExactly) {
    FakePlatform platform;
    Session s(platform);
    std::mt19937 random(7);
    std::set<Rgb> wanted;
    while (wanted.size() < 50) wanted.insert({int(random() % 256), int(random() % 256), int(random() % 256)});
    std::vector<Rgb> row(wanted.begin(), wanted.end());
    std::shuffle(row.begin(), row.end(), random);
    cPalette pal;
    ASSERT_TRUE(pal.CreateOptimal(s, Picture({row, row}), 64, 8));
    const std::vector<Rgb> got = Colours(pal);
    EXPECT_EQ(std::set<Rgb>(got.begin(), got.end()), wanted);
    EXPECT_EQ(pal.Count(), 50);

    // Exactly 256 colours fill the table to the last entry, in tree order
    // (here ascending red); a 257th folds the newest deepest node: 254 and 255
    // become (254 + 255) / 2 = 254 in whole numbers.
    std::vector<Rgb> reds;
    for (int i = 0; i < 256; ++i) reds.emplace_back(i, 0, 0);
    ASSERT_TRUE(pal.CreateOptimal(s, Picture({reds}), 256, 8));
    ASSERT_EQ(pal.Count(), 256);
    for (int i = 0; i < 256; ++i) EXPECT_EQ(pal.Colour(i), (PaletteColour{uint8_t(i), 0, 0})) << i;

    reds.emplace_back(0, 0, 1);
    ASSERT_TRUE(pal.CreateOptimal(s, Picture({reds}), 256, 8));
    ASSERT_EQ(pal.Count(), 256);
    EXPECT_EQ(pal.Colour(0), (PaletteColour{0, 0, 0}));
    EXPECT_EQ(pal.Colour(1), (PaletteColour{0, 0, 1}));
    EXPECT_EQ(pal.Colour(2), (PaletteColour{1, 0, 0}));
    EXPECT_EQ(pal.Colour(254), (PaletteColour{253, 0, 0}));
    EXPECT_EQ(pal.Colour(255), (PaletteColour{254, 0, 0}));
}

TEST(PaletteOctree, HandWorkedTrees) {
    FakePlatform platform;
    Session s(platform);
    cPalette pal;
    // Two levels (bits 7 and 6), three colours at most. Byte-array order:
    // (200,0,0) root 4 -> 4; (130,0,0) root 4 -> 0; then the top row:
    // (10,10,10) root 0 -> 0; (70,10,10) root 0 -> 4: four leaves. The newest
    // reducible node of level 1 is root 0: it folds to (80,20,20) / 2.
    // Tree order then gives root 0, root 4 -> 0, root 4 -> 4.
    const cDIBSection twoRows = Picture({{{200, 0, 0}, {130, 0, 0}}, {{10, 10, 10}, {70, 10, 10}}});
    ASSERT_TRUE(pal.CreateOptimal(s, twoRows, 3, 2));
    EXPECT_EQ(Colours(pal), (std::vector<Rgb>{{40, 10, 10}, {130, 0, 0}, {200, 0, 0}}));

    // Two colours at most from (200,0,0), (10,10,10), (130,0,0), (250,250,250):
    // the third leaf folds root 0 (one child, no gain), then root 4 into
    // (330,0,0) / 2; the fourth makes root 7 -> 7, folding root 7 (no gain)
    // and at last the root itself: (590,260,260) / 4 = (147,65,65).
    const cDIBSection oneRow = Picture({{{200, 0, 0}, {10, 10, 10}, {130, 0, 0}, {250, 250, 250}}});
    ASSERT_TRUE(pal.CreateOptimal(s, oneRow, 2, 2));
    EXPECT_EQ(Colours(pal), (std::vector<Rgb>{{147, 65, 65}}));
    // Without the fourth pixel two colours remain: (10,10,10) and (165,0,0).
    ASSERT_TRUE(pal.CreateOptimal(s, Picture({{{200, 0, 0}, {10, 10, 10}, {130, 0, 0}}}), 2, 2));
    EXPECT_EQ(Colours(pal), (std::vector<Rgb>{{10, 10, 10}, {165, 0, 0}}));
}

TEST(PaletteOctree, EventsStuckReductionAndBoundedTree) {
    FakePlatform platform;
    platform.yieldAdvance = 0.25;  // every row yields and a quarter second passes
    Session s(platform);
    Recorder rec;
    cPalette pal;
    std::vector<Rgb> row(3, Rgb{1, 2, 3});
    ASSERT_TRUE(pal.CreateOptimal(s, Picture({row, row, row, row, row}), 16, 8, &rec));
    EXPECT_EQ(rec.events, (std::vector<std::string>{"start 5", "step 1", "step 2", "step 3", "step 4", "step 5",
                                                    "end 1250"}));
    EXPECT_GE(platform.yields, 5);

    // No colour at all allowed: the reduction gets stuck at the root and asks.
    // "No" leaves an empty table; "yes" goes on with everything in the root.
    const cDIBSection two = Picture({{{0, 0, 0}, {100, 50, 20}}});
    platform.answers = {Answer::No};
    EXPECT_FALSE(pal.CreateOptimal(s, two, 0, 8));
    EXPECT_EQ(pal.Count(), 0);
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].text, "Error in reducing nodes");
    EXPECT_EQ(platform.messages[0].buttons, Buttons::YesNo);
    platform.answers = {Answer::Yes};
    ASSERT_TRUE(pal.CreateOptimal(s, two, 0, 8));
    EXPECT_EQ(Colours(pal), (std::vector<Rgb>{{50, 25, 10}}));
    EXPECT_EQ(platform.messages.size(), 2u);

    // 65,536 noisy pixels into 16 colours: folded nodes are reused, so the
    // tree never holds more than a path of eight per leaf.
    cDIBSection noise;
    ASSERT_TRUE(noise.Create(256, 256));
    noise.RandomiseBits(false, 3);
    ASSERT_TRUE(pal.CreateOptimal(s, noise, 16, 8));
    EXPECT_LE(pal.Count(), 16);
    EXPECT_GE(pal.Count(), 8);
    EXPECT_LE(pal.NodeCapacity(), size_t(2 + 8 * 17));
    pal.EraseNodes();
    EXPECT_EQ(pal.NodeCapacity(), 0u);
    EXPECT_EQ(pal.Count(), int(pal.Colours().size()));
}

}  // namespace
}  // namespace ortelix
