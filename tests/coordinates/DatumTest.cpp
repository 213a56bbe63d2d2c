#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>

#include "coordinates/ModulTransformation.h"
#include "core/Session.h"
#include "fake/FakePlatform.h"

namespace ortelix {
namespace {

constexpr const char* kTable =
    "# comment\n"
    "\n"
    "\"Potsdam\"|\" Deutschland \"|6377397.155|6356078.963|598.1|73.7|418.2|-0.202|-0.045|2.455|1.0000067\r\n"
    " Blank|starts with a blank|6378137|6356752.31425\n"
    "Null|WGS|6378137|6356752.31425|0|0|0|0|0|0|1\n";

struct DatumSession {
    FakePlatform platform;
    Session s{platform};
    DatumSession() { s.coords.DatumListe = ParseHelmert(kTable); }
    void select(int listPosition, bool check) {
        s.options.List[44] = listPosition;
        s.options.Check[1] = check;
    }
};

TEST(Datum, ParseHelmertReadsRowsAndSkipsOnlyCommentsAndEmptyLines) {
    const auto rows = ParseHelmert(kTable);
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0].Name, "Potsdam");
    EXPECT_EQ(rows[0].Region, "Deutschland");
    EXPECT_DOUBLE_EQ(rows[0].HalbachseX, 6377397.155);
    EXPECT_DOUBLE_EQ(rows[0].rz, 2.455);
    EXPECT_DOUBLE_EQ(rows[0].Massstab, 1.0000067);  // CR of the line end ignored
    // A line starting with a blank is data; missing numbers are 0.
    EXPECT_EQ(rows[1].Name, "Blank");
    EXPECT_DOUBLE_EQ(rows[1].HalbachseY, 6356752.31425);
    EXPECT_EQ(rows[1].dx, 0);
    EXPECT_EQ(rows[1].Massstab, 0);
    EXPECT_TRUE(ParseHelmert("# only\n# comments\n").empty());
}

TEST(Datum, HelmertEinlesenReportsAMissingFileAndLeavesTheListEmpty) {
    FakePlatform platform;
    platform.dataFolder = "/nonexistent-ortelix-folder";
    Session s(platform);
    s.coords.DatumListe = ParseHelmert(kTable);
    EXPECT_FALSE(HelmertEinlesen(s));
    EXPECT_TRUE(s.coords.DatumListe.empty());
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].title, "Karten Projektion einlesen");
    EXPECT_EQ(platform.messages[0].icon, Icon::Critical);
    EXPECT_EQ(platform.messages[0].text.rfind(
                  "Die Helmert-Parameter können nicht eingelesen werden.\r\nÜberprüfen Sie die Datei "
                  "helmert.dat\r\n\r\nUrsache: ",
                  0),
              0u);
    // Without a table nothing can be selected: even a forced call copies.
    s.options.Check[1] = 1;
    double lonW = 0, latW = 0;
    DatumNachWGS84(s, 9, 50, lonW, latW, true);
    EXPECT_EQ(lonW, 9);
    EXPECT_EQ(latW, 50);
}

TEST(Datum, DeliveredTableHoldsTheExpectedDatums) {
    FakePlatform platform;
    Session s(platform);
    ASSERT_TRUE(HelmertEinlesen(s));
    EXPECT_TRUE(platform.messages.empty());
    for (const char* name : {"Potsdam (DHDN)", "Rauenberg (DHDN)", "MGI", "CH1903", "ED50", "ED87", "OSGB36",
                             "Amersfoort (RD)", "NTF", "Pulkovo 1942", "S-JTSK", "Hermannskogel", "NAD27", "Tokyo",
                             "ETRS89"}) {
        const Datum* d = FindDatum(s.coords.DatumListe, name);
        ASSERT_NE(d, nullptr) << name;
        EXPECT_FALSE(d->Region.empty()) << name;
        EXPECT_GT(d->HalbachseX, 6377000) << name;
        EXPECT_NEAR(d->Massstab, 1, 3e-5) << name;
    }
    const auto entries = DatumEintraege(s.coords);
    ASSERT_EQ(entries.size(), s.coords.DatumListe.size());
    EXPECT_EQ(entries[0], "Potsdam (DHDN) (Deutschland)");
    // Found by entry text and by row number too.
    EXPECT_EQ(FindDatum(s.coords.DatumListe, "mgi (oesterreich)"), FindDatum(s.coords.DatumListe, "MGI"));
    EXPECT_EQ(FindDatum(s.coords.DatumListe, "1"), &s.coords.DatumListe[0]);
    EXPECT_EQ(FindDatum(s.coords.DatumListe, "0"), nullptr);
}

TEST(Datum, PassThroughRules) {
    DatumSession d;
    double lonW = -1, latW = -1;
    // Check box clear and not forced: the input comes back exactly.
    d.select(0, false);
    DatumNachWGS84(d.s, 9.123456789, 50.987654321, lonW, latW, false);
    EXPECT_EQ(lonW, 9.123456789);
    EXPECT_EQ(latW, 50.987654321);
    // Forced, it runs.
    DatumNachWGS84(d.s, 9.123456789, 50.987654321, lonW, latW, true);
    EXPECT_NE(lonW, 9.123456789);
    // No selection (position -1): even forced copies.
    d.select(-1, true);
    DatumNachWGS84(d.s, 9, 50, lonW, latW, true);
    EXPECT_EQ(lonW, 9);
    EXPECT_EQ(latW, 50);
    // The pass-through of WGS84NachDatum copies the outputs back into the inputs.
    double inLon = 1, inLat = 2, outLon = 3, outLat = 4;
    WGS84NachDatum(d.s, inLon, inLat, outLon, outLat, true);
    EXPECT_EQ(inLon, 3);
    EXPECT_EQ(inLat, 4);
    EXPECT_EQ(outLon, 3);
}

TEST(Datum, SameVariablesInAndOutAndTheIdentityRowIsNotExact) {
    DatumSession d;
    d.select(2, true);  // the row with no shift and the WGS 84 axes
    double lon = 9, lat = 50;
    WGS84NachDatum(d.s, lon, lat, lon, lat, false);
    // Out on 1389.592 m, back on the ellipsoid: not the input, but close.
    EXPECT_NE(lat, 50);
    EXPECT_NEAR(lon, 9, 1e-9);
    EXPECT_NEAR(lat, 50, 1e-6);
    double lonW, latW;
    DatumNachWGS84(d.s, lon, lat, lonW, latW, false);
    EXPECT_NEAR(lonW, 9, 1e-9);
    EXPECT_NEAR(latW, 50, 1e-6);
}

TEST(Datum, PotsdamShiftMatchesPublishedDisplacement) {
    // cs2cs +proj=longlat +ellps=bessel +towgs84=591.28,81.35,396.39,1.477,
    // -0.0736,-1.458,9.82 (the same shift in PROJ's rotation sense) gives
    // 9.0010504 50.0011476 for WGS 84 (9, 50).
    double lon, lat;
    WGS84NachPotsdam(9, 50, lon, lat);
    EXPECT_NEAR(lon, 9.0010504, 3e-6);
    EXPECT_NEAR(lat, 50.0011476, 3e-6);
    double lonW, latW;
    PotsdamNachWGS84(lon, lat, lonW, latW);
    EXPECT_NEAR(lonW, 9, 1e-7);  // the two directions agree to centimetres
    EXPECT_NEAR(latW, 50, 1e-7);
}

TEST(Datum, ScaleBackwardsIsTheExactInverse) {
    Datum d;
    d.HalbachseX = kWgs84A;
    d.HalbachseY = kWgs84B;
    d.Massstab = 1.000001;
    // Forwards multiplies by 1.000001, backwards by exactly 1 / 1.000001.
    double X, Y, Z, X2, Y2, Z2;
    HelmertTransformation(1e6, 2e6, 3e6, X, Y, Z, 0, 0, 0, 0, 0, 0, d.Massstab);
    EXPECT_DOUBLE_EQ(X, 1e6 * 1.000001);
    HelmertTransformation(X, Y, Z, X2, Y2, Z2, 0, 0, 0, 0, 0, 0, 1 / d.Massstab);
    EXPECT_DOUBLE_EQ(X2, X * (1 / 1.000001));
    // A rotation of one second about z moves X by Y times 4.8481e-6.
    HelmertTransformation(0, 1e6, 0, X, Y, Z, 1, 2, 3, 0, 0, 1, 1);
    EXPECT_NEAR(X, 1 + 1e6 * 3.14159265358979 / 180 / 3600, 1e-9);
    EXPECT_DOUBLE_EQ(Y, 2 + 1e6);
    EXPECT_DOUBLE_EQ(Z, 3);
}

TEST(Datum, CartesianRoundTripAndQuadrants) {
    for (double lon : {-170.0, -90.5, -10.0, 0.5, 45.0, 120.0, 179.0}) {
        double X, Y, Z, lon2, lat2;
        GeoNachKartesisch(lon, -33.3, X, Y, Z, kBesselA, kBesselB, 0);
        KartesischNachGeo(X, Y, Z, lon2, lat2, kBesselA, kBesselB);
        EXPECT_NEAR(lon2, lon, 1e-9) << lon;
        EXPECT_NEAR(lat2, -33.3, 1e-9) << lon;
    }
    // Longitude 180 sits on the seam: either sign may come back.
    double X, Y, Z, lon2, lat2;
    GeoNachKartesisch(180, 0, X, Y, Z, kWgs84A, kWgs84B, 0);
    KartesischNachGeo(X, Y, Z, lon2, lat2, kWgs84A, kWgs84B);
    EXPECT_NEAR(std::fabs(lon2), 180, 1e-9);
}

TEST(Datum, EcefNachGeoGivesPositionSpeedAndCourse) {
    double X, Y, Z;
    GeoNachKartesisch(9, 50, X, Y, Z, kWgs84A, kWgs84B, 250);
    const double l = 9 * 3.14159265358979 / 180, p = 50 * 3.14159265358979 / 180;
    // Unit vectors north and east at the point.
    const double nX = -std::sin(p) * std::cos(l), nY = -std::sin(p) * std::sin(l), nZ = std::cos(p);
    const double eX = -std::sin(l), eY = std::cos(l);
    struct Case {
        double north, east, course;
    };
    for (const Case c : {Case{10, 0, 0}, Case{10, 10, 45}, Case{0, 10, 90}, Case{-10, 10, 135}, Case{-10, 0, 180},
                         Case{-10, -10, 225}, Case{0, -10, 270}, Case{10, -10, 315}, Case{0, 0, 0}}) {
        double lat, lon, h, speed, kurs;
        EcefNachGeo(X, Y, Z, c.north * nX + c.east * eX, c.north * nY + c.east * eY, c.north * nZ, lat, lon, h,
                    speed, kurs);
        EXPECT_NEAR(lat, 50, 1e-8);
        EXPECT_NEAR(lon, 9, 1e-9);
        EXPECT_NEAR(h, 250, 1e-3);
        EXPECT_NEAR(speed, std::hypot(c.north, c.east) * 3.6, 1e-6);
        EXPECT_NEAR(kurs, c.course, 1e-6) << c.north << " " << c.east;
    }
}

TEST(Datum, HelmertAnzeigenShowsTheSelectedRow) {
    DatumSession d;
    d.select(0, false);
    HelmertAnzeige a = HelmertAnzeigen(d.s);
    ASSERT_EQ(a.detail.size(), 12u);
    EXPECT_EQ(a.detail[0], "Helmert-Parameter");
    EXPECT_EQ(a.detail[1], "Name: Potsdam");
    EXPECT_EQ(a.detail[2], "Region: Deutschland");
    EXPECT_EQ(a.detail[3], "Halbachse X: 6377397.155");
    EXPECT_EQ(a.detail[8], "rx: -0.202");
    EXPECT_EQ(a.detail[11], "Massstab: 1.0000067");
    EXPECT_EQ(a.caption, "WGS 84");
    d.select(0, true);
    EXPECT_EQ(HelmertAnzeigen(d.s).caption, "Potsdam (Deutschland)");
}

}  // namespace
}  // namespace ortelix
