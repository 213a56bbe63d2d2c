// Cutting areas into map parts: counts, strides, overlaps, corrected fields,
// the inside test and the meridian of each area.
#include <gtest/gtest.h>

#include "coordinates/GaussKrueger.h"
#include "core/Session.h"
#include "fake/FakePlatform.h"
#include "fake/TestFiles.h"
#include "mapexport/ModKarteFlaeche.h"

namespace ortelix {
namespace {

constexpr double kR0 = 3500000;  // Rechtswert on meridian 9
constexpr double kH0 = 5540000;  // about 50 degrees north

// A part's edges back in metres at meridian 9: west, east, south, north.
std::array<double, 4> Metres(const KartenTeil& t) {
    double rw, hn, re, hs;
    GeoNachGKMeridian(t.LaengeWest, t.BreiteNord, 9, rw, hn);
    GeoNachGKMeridian(t.LaengeOst, t.BreiteSued, 9, re, hs);
    return {rw - kR0, re - kR0, hs - kH0, hn - kH0};
}

// The series there and back do not meet exactly: a northing comes back some
// 2.35 m further north, nearly the same over a few dozen kilometres.
double NorthDrift() {
    double lon, lat, r, h;
    GKNachGeoMeridian(kR0, kH0, 9, lon, lat);
    GeoNachGKMeridian(lon, lat, 9, r, h);
    return h - kH0;
}

void ExpectEdges(const KartenTeil& t, double w, double e, double s, double n) {
    const auto m = Metres(t);
    const double drift = NorthDrift();
    EXPECT_NEAR(drift, 2.35, 0.01);
    EXPECT_NEAR(m[0], w, 1e-4);
    EXPECT_NEAR(m[1], e, 1e-4);
    EXPECT_NEAR(m[2] - drift, s, 0.03);
    EXPECT_NEAR(m[3] - drift, n, 0.03);
}

struct Plan : ::testing::Test {
    FakePlatform p;
    Session s{p};
    void SetUp() override {
        s.options.MapExpCheck[11] = 1;  // "Karten teilen"
        p.temp = testfiles::FreshFolder("mapexport", std::string("temp-") +
                                        ::testing::UnitTest::GetInstance()->current_test_info()->name())
                     .string();
    }
    void Cut(double east, double north) { TeileFlaeche(s, 1, kR0, kR0 + east, kH0, kH0 + north, 9); }
    const std::vector<KartenTeil>& parts() const { return s.plan.KartenTeilListe; }
};

TEST_F(Plan, ColumnsAreACeilingThatForgivesAHundredMillionthAndAllEqual) {
    // Side 20 km, overlap 1 km: a step of 19000 m.
    Cut(38000, 1000);
    ASSERT_EQ(parts().size(), 2u);
    ExpectEdges(parts()[0], 0, 19500, 0, 1000);
    ExpectEdges(parts()[1], 18500, 38000, 0, 1000);

    s.plan.KartenTeilListe.clear();
    Cut(38000.1, 1000);
    ASSERT_EQ(parts().size(), 3u);
    const double w = 38000.1 / 3;
    EXPECT_NEAR(w, 12666.7, 1e-9);
    ExpectEdges(parts()[0], 0, w + 500, 0, 1000);
    ExpectEdges(parts()[1], w - 500, 2 * w + 500, 0, 1000);
    ExpectEdges(parts()[2], 2 * w - 500, 38000.1, 0, 1000);
}

TEST_F(Plan, OverlapOnInnerEdgesOnlyAndNoneForASingleColumn) {
    // 10 km wide is one column; 30 km high two rows, south row first.
    Cut(10000, 30000);
    ASSERT_EQ(parts().size(), 2u);
    ExpectEdges(parts()[0], 0, 10000, 0, 15500);
    ExpectEdges(parts()[1], 0, 10000, 14500, 30000);

    // Three by three: the middle part has half an overlap on all four sides.
    s.plan.KartenTeilListe.clear();
    Cut(57000, 57000);
    ASSERT_EQ(parts().size(), 9u);
    ExpectEdges(parts()[4], 18500, 38500, 18500, 38500);
    ExpectEdges(parts()[8], 37500, 57000, 37500, 57000);

    // Without "Karten teilen" an area is one part whatever its size.
    s.plan.KartenTeilListe.clear();
    s.options.MapExpCheck[11] = 0;
    Cut(57000, 57000);
    ASSERT_EQ(parts().size(), 1u);
    ExpectEdges(parts()[0], 0, 57000, 0, 57000);
}

TEST_F(Plan, ASmallAreaIsOnePartAndAZeroExtentOneColumn) {
    Cut(19000, 19000);
    ASSERT_EQ(parts().size(), 1u);
    ExpectEdges(parts()[0], 0, 19000, 0, 19000);

    // A line due north: no width, still one column of two rows.
    s.plan.KartenTeilListe.clear();
    Cut(0, 20000);
    ASSERT_EQ(parts().size(), 2u);
    ExpectEdges(parts()[0], 0, 0, 0, 10500);
}

TEST_F(Plan, ANegativeOverlapWidensTheStepThenIsZeroForTheAreasThatFollow) {
    s.options.ZahlInput[2] = "-1";
    Cut(42000, 1000);
    EXPECT_EQ(s.options.ZahlInput[2], "0");
    // Step 21000 m: two columns, meeting without overlap.
    ASSERT_EQ(parts().size(), 2u);
    ExpectEdges(parts()[0], 0, 21000, 0, 1000);
    ExpectEdges(parts()[1], 21000, 42000, 0, 1000);

    // The next area reads the corrected field: a step of 20000 m.
    s.plan.KartenTeilListe.clear();
    Cut(42000, 1000);
    EXPECT_EQ(parts().size(), 3u);
}

TEST_F(Plan, ASideEqualToTheOverlapIsRaisedToOneKilometreInKmAndInPixels) {
    s.options.ZahlInput[1] = "5";
    s.options.ZahlInput[2] = "5";
    Cut(2500, 500);
    EXPECT_EQ(s.options.ZahlInput[1], "1");
    // Step 1000 m, overlap 5000 m: three columns of 833.3 m.
    ASSERT_EQ(parts().size(), 3u);
    ExpectEdges(parts()[0], 0, 2500.0 / 3 + 2500, 0, 500);

    s.plan.KartenTeilListe.clear();
    s.options.MapExpCheck[5] = 1;  // pixels of 2 m
    s.options.ZahlInput[0] = "2";
    s.options.ZahlInput[1] = "300";
    s.options.ZahlInput[2] = "300";
    Cut(2500, 500);
    EXPECT_EQ(s.options.ZahlInput[1], "1");
    ASSERT_EQ(parts().size(), 3u);
    ExpectEdges(parts()[1], 2500.0 / 3 - 300, 5000.0 / 3 + 300, 0, 500);
}

TEST_F(Plan, NoMetresPerPixelPlansWithOneAndShowsWithATenth) {
    s.options.MapExpCheck[5] = 1;
    s.options.ZahlInput[0] = "0";
    s.options.ZahlInput[1] = "5000";
    s.options.ZahlInput[2] = "0";
    Cut(10000.1, 1000);
    ASSERT_EQ(parts().size(), 3u);  // 5000 m a side

    s.plan.KartenTeilListe.clear();
    s.options.ZahlInput[1] = "30000";
    Cut(20000.05, 10000.05);
    ASSERT_EQ(parts().size(), 1u);
    EXPECT_EQ(ZeigeKartenTeil(s, 1).Info, "200000x100000 Pixel (Ost x Nord) 20x10 km 200 km2 Fläche ");
}

TEST_F(Plan, TheSummaryCountsPixelsByTheFrameShown) {
    s.options.MapExpCheck[11] = 0;
    s.plan.KartenMeridian = 9;
    Cut(20000, 20000);
    const KartenTeilAnzeige a = ZeigeKartenTeil(s, 1);
    EXPECT_EQ(a.Info, "2222x2222 Pixel (Ost x Nord) 20x20 km 400 km2 Fläche ");
    EXPECT_EQ(a.Grenzen[0], "9.000000");
    EXPECT_EQ(s.plan.TeilNummer, 1);

    s.plan.Frame = KartenFrame::Top50;  // 1:50000 is 5 m a pixel
    EXPECT_EQ(ZeigeKartenTeil(s, 1).Info, "4000x4000 Pixel (Ost x Nord) 20x20 km 400 km2 Fläche ");
    s.plan.Frame = KartenFrame::Swiss;
    s.plan.MeterProPixel = SwissMeterProPixel(2);
    EXPECT_EQ(ZeigeKartenTeil(s, 1).Info, "1000x1000 Pixel (Ost x Nord) 20x20 km 400 km2 Fläche ");
    EXPECT_EQ(ZeigeKartenTeil(s, 2).Info, "");
}

// An area of a block in the west and a thin arm to the east that crosses the
// eastern part between its nine test points.
Flaeche Arm(double armSouth, double armNorth) {
    Flaeche f;
    f.Polygon = {{9.0, 50.0},  {9.0, 50.1},      {9.18, 50.1}, {9.18, armNorth},
                 {9.4, armNorth}, {9.4, armSouth}, {9.18, armSouth}, {9.18, 50.0}};
    f.West = 9.0, f.East = 9.4, f.South = 50.0, f.North = 50.1;
    return f;
}

TEST_F(Plan, APartTheAreaOnlyGrazesIsDroppedByTheNinePoints) {
    s.options.ZahlInput[1] = "15";
    s.options.ZahlInput[2] = "0";
    s.store.Flaechen.push_back(Arm(50.03, 50.045));
    TeileAlleFlaechen(s, 9);
    EXPECT_EQ(parts().size(), 2u);  // no inside test: both columns

    s.options.MapExpCheck[2] = 1;
    TeileAlleFlaechen(s, 9);
    ASSERT_EQ(parts().size(), 1u);
    EXPECT_NEAR(parts()[0].LaengeWest, 9.0, 1e-9);

    // An arm over the part's centre keeps it.
    s.store.Flaechen[0] = Arm(50.045, 50.055);
    TeileAlleFlaechen(s, 9);
    EXPECT_EQ(parts().size(), 2u);
}

TEST_F(Plan, MarkerMeridiansCutEachAreaAtItsOwnFirstLongitude) {
    for (double lon : {14.0, 6.0}) {
        Flaeche& f = NewFlaeche(s.store);
        f.West = lon, f.East = lon + 0.4, f.North = 50.1, f.South = 50.0;
    }
    const auto cut = [&](double m, size_t area) {
        Session one(p);
        one.options = s.options;
        one.store.Flaechen = {s.store.Flaechen[area]};
        TeileAlleFlaechen(one, m);
        return one.plan.KartenTeilListe;
    };
    const auto at14 = cut(14, 0), at6 = cut(6, 1), at9 = cut(9, 0);
    for (double marker : {1000.0, 2000.0}) {
        TeileAlleFlaechen(s, marker);
        ASSERT_EQ(parts().size(), 4u);
        for (size_t i = 0; i < 2; ++i) {
            EXPECT_EQ(parts()[i].LaengeOst, at14[i].LaengeOst);
            EXPECT_EQ(parts()[i].BreiteSued, at14[i].BreiteSued);
            EXPECT_EQ(parts()[i + 2].LaengeWest, at6[i].LaengeWest);
            EXPECT_EQ(parts()[i + 2].BreiteNord, at6[i].BreiteNord);
        }
    }
    // Cut at meridian 9 instead, the inner edge of the first area lies elsewhere.
    EXPECT_GT(std::abs(at9[0].LaengeOst - at14[0].LaengeOst), 1e-4);
}

TEST_F(Plan, TheTypeSetsFrameAndMeridianAndTheAreaTypesKeepThem) {
    s.store.Flaechen.push_back(Arm(50.03, 50.045));
    s.plan.KartenMeridian = 12;
    EXPECT_EQ(KartePlanen(s, 8), 2u);  // 28.6 km wide in 20 km parts
    EXPECT_EQ(s.plan.KartenMeridian, 12);
    EXPECT_EQ(s.plan.Frame, KartenFrame::Keiner);
    KartePlanen(s, 4);
    EXPECT_EQ(s.plan.KartenMeridian, 7.439583);
    EXPECT_EQ(s.plan.MeterProPixel, 2);
    EXPECT_EQ(s.plan.Frame, KartenFrame::Swiss);
    KartePlanen(s, 9);
    EXPECT_EQ(s.plan.Frame, KartenFrame::Swiss);
    s.options.MapExpCheck[18] = 1;
    KartePlanen(s, 3);
    EXPECT_EQ(s.plan.KartenMeridian, 12);
    KartePlanen(s, 5, true);
    EXPECT_EQ(s.plan.KartenMeridian, 12);
    KartePlanen(s, 5);
    EXPECT_EQ(s.plan.KartenMeridian, 1000);
    EXPECT_EQ(s.plan.TeilNummer, 1);

    // Pixel mode with "Karten teilen" takes the preset scale.
    s.options.MapExpCheck[5] = 1;
    s.options.ZahlInput[7] = "4,5";
    KartePlanen(s, 6);
    EXPECT_EQ(s.options.ZahlInput[0], "4,5");
    EXPECT_EQ(s.plan.KartenMeridian, 9);
}

TEST_F(Plan, PlanningClearsTheFilesAnEarlierExportLeftInTheTemporaryFolder) {
    namespace fs = std::filesystem;
    const fs::path temp(p.temp);
    testfiles::Put(temp / "Karte.bmp", "BM");
    testfiles::Put(temp / "ohne", "x");
    fs::create_directories(temp / "Kacheln.d");
    testfiles::Put(temp / "Kacheln.d" / "k1.png", "p");
    KartePlanen(s, 5);
    EXPECT_FALSE(fs::exists(temp / "Karte.bmp"));
    EXPECT_FALSE(fs::exists(temp / "ohne"));
    EXPECT_TRUE(fs::exists(temp / "Kacheln.d" / "k1.png"));
}

TEST_F(Plan, CornersAreTheViewersRectangle) {
    KartenTeil t{10.0, 10.4, 50.0, 50.1, ""};
    const auto geo = KartenEcken(t, 1000);
    EXPECT_EQ(geo[1][0], 10.4);
    EXPECT_EQ(geo[1][1], 50.1);
    EXPECT_EQ(geo[3][0], 10.0);
    EXPECT_EQ(geo[3][1], 50.0);
    // There and back through the grid the series drift some 2.35 m north.
    for (double m : {9.0, 2000.0}) {
        const auto e = KartenEcken(t, m);
        EXPECT_NEAR(e[0][0], 10.0, 1e-6);
        EXPECT_NEAR(e[0][1], 50.1 + 2.11e-5, 1e-7);
        EXPECT_NEAR(e[2][0], 10.4, 1e-6);
        EXPECT_NEAR(e[2][1], 50.0 + 2.11e-5, 1e-7);
    }
    // East of meridian 9 a line of equal northing bends south towards the
    // east: the top right corner lies south of the top left, the bottom left
    // north of the bottom right, by some 450 m here.
    const auto gk = KartenEcken(t, 9);
    EXPECT_NEAR(gk[1][1], 50.0959, 1e-4);
    EXPECT_NEAR(gk[3][1], 50.0042, 1e-4);
    // Around the part's own centre (UTM) the top edge runs level.
    const auto utm = KartenEcken(t, 2000);
    EXPECT_NEAR(utm[1][1], utm[0][1], 1e-4);
    EXPECT_NEAR(utm[3][1], utm[2][1], 1e-4);
}

}  // namespace
}  // namespace ortelix
