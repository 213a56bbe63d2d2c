#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <new>
#include <random>

#include "coordinates/ModPointInPolygon.h"
#include "core/ModulArray.h"
#include "core/Session.h"
#include "fake/FakePlatform.h"

// Counts allocations while a test asks for it, to show that the point test allocates nothing.
namespace {
thread_local long gAllocations = 0;
thread_local bool gCounting = false;
}  // namespace
void* operator new(std::size_t n) {
    if (gCounting) ++gAllocations;
    if (void* p = std::malloc(n ? n : 1)) return p;
    throw std::bad_alloc();
}
void operator delete(void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }

namespace ortelix {
namespace {

// The reference: even-odd crossing count for the centre of cell (x, y).
bool CentreInside(const std::vector<PolyPunkt>& poly, int32_t x, int32_t y) {
    const double px = x + 0.5, py = y + 0.5;
    bool inside = false;
    for (size_t i = 0, j = poly.size() - 1; i < poly.size(); j = i++) {
        const double xi = poly[i].x, yi = poly[i].y, xj = poly[j].x, yj = poly[j].y;
        if ((yi > py) != (yj > py) && px < xi + (py - yi) * (xj - xi) / (yj - yi)) inside = !inside;
    }
    return inside;
}

TEST(PointInPolygon, RectangleEdgesLowSideInsideHighSideOutside) {
    const Region r = MakeRegion({{100, 200}, {110, 200}, {110, 230}, {100, 230}});
    EXPECT_TRUE(PtInRegion(r, 100, 200));   // low corner
    EXPECT_TRUE(PtInRegion(r, 109, 229));
    EXPECT_FALSE(PtInRegion(r, 110, 229));  // high x edge
    EXPECT_FALSE(PtInRegion(r, 109, 230));  // high y edge
    EXPECT_FALSE(PtInRegion(r, 110, 230));
    EXPECT_FALSE(PtInRegion(r, 99, 210));
    EXPECT_FALSE(PtInRegion(r, 105, 199));
    EXPECT_EQ(r.bandTop.size(), 1u);  // one band for all 30 rows
    // Two equal corners: nothing inside.
    EXPECT_TRUE(MakeRegion({{5, 5}, {5, 5}, {9, 9}, {9, 9}}).empty());
    EXPECT_TRUE(MakeRegion({}).empty());
    EXPECT_FALSE(PtInRegion(MakeRegion({}), 0, 0));
}

TEST(PointInPolygon, GridCellsRoundDown) {
    EXPECT_EQ(GridCell(8.12345), 81234);
    EXPECT_EQ(GridCell(0.00005), 0);
    EXPECT_EQ(GridCell(-0.00005), -1);  // cells 1 apart
    EXPECT_EQ(GridCell(-8.12345), -81235);
    // Points within one cell answer alike.
    const Region r = MakeRegion({{0, 0}, {10, 0}, {10, 10}, {0, 10}});
    EXPECT_EQ(PtInRegion(r, GridCell(0.00091), 0), PtInRegion(r, GridCell(0.00099), 0));
    EXPECT_FALSE(PtInRegion(r, GridCell(-0.00001), 5));
}

TEST(PointInPolygon, SelfCrossingAndSlopedPolygonsMatchTheEvenOddRule) {
    std::mt19937 rng(7);
    std::uniform_int_distribution<int32_t> coord(-400, 400);
    for (int round = 0; round < 12; ++round) {
        std::vector<PolyPunkt> poly(3 + round % 9);
        for (PolyPunkt& p : poly) p = {coord(rng), coord(rng)};
        const Region r = MakeRegion(poly);
        for (int32_t y = -410; y <= 410; y += 5)
            for (int32_t x = -410; x <= 410; x += 5)
                ASSERT_EQ(PtInRegion(r, x, y), CentreInside(poly, x, y)) << round << ": " << x << " " << y;
    }
    // A bow tie: the triangles left and right are inside, above and below not.
    const Region bow = MakeRegion({{0, 0}, {100, 100}, {100, 0}, {0, 100}});
    EXPECT_TRUE(PtInRegion(bow, 10, 50));
    EXPECT_TRUE(PtInRegion(bow, 90, 50));
    EXPECT_FALSE(PtInRegion(bow, 50, 10));
    EXPECT_FALSE(PtInRegion(bow, 50, 90));
}

TEST(PointInPolygon, ManyTestsAllocateNothing) {
    // A 2000-corner circle around Germany; 300000 tests.
    std::vector<PolyPunkt> circle;
    for (int i = 0; i < 2000; ++i) {
        const double a = i * 2 * M_PI / 2000;
        circle.push_back({GridCell(10 + 4 * std::cos(a)), GridCell(51 + 3 * std::sin(a))});
    }
    FakePlatform platform;
    Session s(platform);
    Flaeche& f = NewFlaeche(s.store);
    for (const PolyPunkt& p : circle) f.Polygon.push_back({p.x / 10000.0, p.y / 10000.0});
    AlleRegionenBauen(s);
    long inside = 0;
    gAllocations = 0;
    gCounting = true;
    for (int i = 0; i < 300000; ++i) inside += PunktInEinerFlaeche(s, 5.5 + (i % 1000) * 0.009, 47.5 + (i / 1000) * 0.0233);
    gCounting = false;
    EXPECT_EQ(gAllocations, 0);
    // The share inside is the circle's share of the sampled box (pi * 4 * 3 / (9 * 7)).
    EXPECT_NEAR(inside / 3e5, M_PI * 12 / 63, 0.01);
}

TEST(PointInPolygon, AreasOfTheStoreAndThePolygonFile) {
    FakePlatform platform;
    platform.dataFolder = ::testing::TempDir();
    Session s(platform);
    EXPECT_FALSE(PunktInEinerFlaeche(s, 9, 50));  // no areas yet
    Flaeche& a = NewFlaeche(s.store);
    a.West = 9, a.North = 50.5, a.East = 9.5, a.South = 50;
    Flaeche& b = NewFlaeche(s.store);
    b.West = -1, b.North = 1, b.East = 1, b.South = -1;
    AlleRegionenBauen(s);
    EXPECT_TRUE(PunktInEinerFlaeche(s, 9.2, 50.2));
    EXPECT_TRUE(PunktInEinerFlaeche(s, 9, 50));       // west and south edge
    EXPECT_FALSE(PunktInEinerFlaeche(s, 9.5, 50.2));  // east edge
    EXPECT_FALSE(PunktInEinerFlaeche(s, 9.2, 50.5));  // north edge
    EXPECT_TRUE(PunktInEinerFlaeche(s, -0.5, 0.5));   // the second area
    FlaecheRegionBauen(s, 2);
    EXPECT_TRUE(PunktInFlaeche(s, 0, 0));
    EXPECT_FALSE(PunktInFlaeche(s, 9.2, 50.2));

    const std::string name = "ortelix-polygon-test.txt";
    std::ofstream(platform.dataFolder + "/" + name) << "\"9.0\"|50.0\r\n 10.0 | 50.0\n10.0|51.0\n9.0|51.0\n";
    EXPECT_FALSE(PunktImPolygon(s, 9.5, 50.5));  // before any polygon
    PolygonDateiLesen(s, name);
    EXPECT_TRUE(PunktImPolygon(s, 9.5, 50.5));
    EXPECT_TRUE(PunktImPolygon(s, 9, 50));
    EXPECT_FALSE(PunktImPolygon(s, 10, 50.5));
    // A blank line is the corner (0, 0): the polygon reaches down to it.
    std::ofstream(platform.dataFolder + "/" + name) << "0.002|0.004\n0.004|0.004\n\n";
    PolygonDateiLesen(s, name);
    EXPECT_TRUE(PunktImPolygon(s, 0.00201, 0.00301));
    EXPECT_FALSE(PunktImPolygon(s, 0.00101, 0.00301));
    std::remove((platform.dataFolder + "/" + name).c_str());
}

}  // namespace
}  // namespace ortelix
