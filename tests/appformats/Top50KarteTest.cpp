// The Top50 map table (names.dat), the map code of a point, the row of a
// code, and the automatic and fixed choice of the map.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "appformats/ModuleTop50Karte.h"
#include "commands/CommandRun.h"
#include "commands/CommandTable.h"
#include "core/FileIO.h"
#include "core/InfoFrame.h"
#include "core/OptionBounds.h"
#include "core/ModulArray.h"
#include "core/ReadFilter.h"
#include "core/Session.h"
#include "fake/FakePlatform.h"
#include "fake/TestFiles.h"

namespace ortelix {
namespace {

const std::vector<std::string> kCodes = {"BW", "BYN", "BYS", "BB",  "HE",  "MVP", "LGN", "NRW",
                                         "RPS", "SN", "LSA", "SHH", "TH",  "AUW", "AUO", "KEINE"};

std::vector<TopKarte> ShippedMaps() {
    return ParseNamesDat(ReadFileBytes(std::string(ORTELIX_DATA_DIR) + "/names.dat"));
}

bool Inside(const TopKarte& k, double lon, double lat) {
    return lon >= k.W && lon <= k.O && lat >= k.S && lat <= k.N;
}

TEST(Top50Karte, TopLandFollowsItsBandsWithLowerBoundsIncluded) {
    EXPECT_EQ(TopLand(14.32, 47), "AUO");     // both lower bounds belong to AUO's range
    EXPECT_EQ(TopLand(14.3199, 47), "AUW");
    EXPECT_EQ(TopLand(14.32, 46.99), "AUO");  // the band below, same split
    EXPECT_EQ(TopLand(9.5, 47.2), "AUW");
    EXPECT_EQ(TopLand(9.49, 47.2), "KEINE");
    EXPECT_EQ(TopLand(11.5, 46.6), "KEINE");  // between 11.2 and 12.14 south of 47
    EXPECT_EQ(TopLand(10, 55), "KEINE");      // 55 and over: no band
    EXPECT_EQ(TopLand(10, 54.99), "SHH");
    EXPECT_EQ(TopLand(10, 46.39), "KEINE");
    // "to 10.12" has no lower bound: anything west of it in that band is BW.
    EXPECT_EQ(TopLand(-5, 47.7), "BW");
    EXPECT_EQ(TopLand(10.12, 47.7), "BYS");
    EXPECT_EQ(TopLand(14, 48.7), "KEINE");    // between 13.83 and 14.78
    // The east side of 53.2 to 53.3 is a gap; the west side is not.
    EXPECT_EQ(TopLand(12, 53.2), "KEINE");
    EXPECT_EQ(TopLand(12, 53.25), "KEINE");
    EXPECT_EQ(TopLand(14.69, 53.299), "KEINE");
    EXPECT_EQ(TopLand(9, 53.25), "LGN");
    EXPECT_EQ(TopLand(12, 53.3), "BB");
    EXPECT_EQ(TopLand(12, 53.19), "BB");
    EXPECT_EQ(TopLand(8.2, 52.2), "LGN");     // the second of the two LGN ranges
    EXPECT_EQ(TopLand(8.5, 52.2), "NRW");
    EXPECT_EQ(TopLand(12.5, 50.2), "SN");
    EXPECT_EQ(TopLand(13, 50.2), "KEINE");
}

TEST(Top50Karte, NamesDatRowsAreTrimmedAndShortLinesGiveNone) {
    const std::string text =
        "\xEF\xBB\xBF# a comment | with | bars | 1 | 2 | 3 | 4\r\n"
        "\r\n"
        "  Top50 Hessen |  TOP50_HE | 50000 | 51.66 | 49.39 | 10.24 | 7.77 | Potsdam | 9  \r\n"
        "only | six | fields | 1 | 2 | 3\n"
        "Karte | K | 25000x | 1.5abc | 1 | 2 | 0\n"
        "Ü|U|1|2|3|4|5|f8|2000|extra\n";
    const std::vector<TopKarte> rows = ParseNamesDat(text);
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0].Name, "Top50 Hessen");
    EXPECT_EQ(rows[0].MapCode, "TOP50_HE");
    EXPECT_EQ(rows[0].Massstab, 50000);
    EXPECT_DOUBLE_EQ(rows[0].N, 51.66);
    EXPECT_DOUBLE_EQ(rows[0].S, 49.39);
    EXPECT_DOUBLE_EQ(rows[0].O, 10.24);
    EXPECT_DOUBLE_EQ(rows[0].W, 7.77);
    EXPECT_EQ(rows[0].Feld8, "Potsdam");
    EXPECT_EQ(rows[0].Meridian, 9);
    EXPECT_EQ(rows[0].Zeile, "Top50 Hessen |  TOP50_HE | 50000 | 51.66 | 49.39 | 10.24 | 7.77 | Potsdam | 9");
    // Numbers by their leading part; a row of seven fields has no meridian.
    EXPECT_EQ(rows[1].Massstab, 25000);
    EXPECT_DOUBLE_EQ(rows[1].N, 1.5);
    EXPECT_EQ(rows[1].Feld8, "");
    EXPECT_EQ(rows[1].Meridian, 0);
    EXPECT_EQ(rows[2].Name, "Ü");
    EXPECT_EQ(rows[2].Meridian, 2000);

    EXPECT_EQ(TopKarteBeschreibung(rows[0]), "Top50 Hessen (MapCode: TOP50_HE) 1:50000");
    EXPECT_EQ(TopKarteBeschreibung(rows[2]), "Ü (MapCode: UTM) 1:1");
    TopKarte latlong = rows[0];
    latlong.Meridian = 1000;
    EXPECT_EQ(TopKarteBeschreibung(latlong), "Top50 Hessen (MapCode: Lat/Long) 1:50000");
    TopKarte longNumbers = rows[0];
    longNumbers.N = 51.123456789;
    longNumbers.W = 7;
    EXPECT_EQ(TopKarteAusdehnung(longNumbers), "N/S = 51.1234 - 49.39O/W = 10.24 - 7");
}

TEST(Top50Karte, AMissingTableSaysSoAndLeavesTheListEmpty) {
    FakePlatform p;
    p.dataFolder = "/nonexistent-ortelix-folder";
    Session s(p);
    s.options.Top50.Karten.resize(3);
    EXPECT_FALSE(TopKartenEinlesen(s));
    EXPECT_TRUE(s.options.Top50.Karten.empty());
    ASSERT_EQ(p.messages.size(), 1u);
    EXPECT_EQ(p.messages[0].text, "Die Kartendaten können nicht eingelesen werden.");
    EXPECT_EQ(GewaehlteKarte(s), nullptr);
    EXPECT_EQ(KartenAnzeige(s), "");

    FakePlatform good;
    Session t(good);
    EXPECT_TRUE(TopKartenEinlesen(t));
    EXPECT_EQ(t.options.Top50.Karten.size(), ShippedMaps().size());
    EXPECT_TRUE(good.messages.empty());
}

// Each code's row, and a town of its region that must lie in the row's
// extent and give the code: the table is checked against the code table.
struct RegionCheck {
    const char* code;
    const char* nameHas;
    const char* town;
    double lon, lat;
};
const RegionCheck kRegions[] = {
    {"BW", "Baden-Württemberg", "Stuttgart", 9.18, 48.78},
    {"BYN", "Bayern Nord", "Nürnberg", 11.08, 49.45},
    {"BYS", "Bayern Süd", "München", 11.58, 48.14},
    {"BB", "Brandenburg", "Berlin", 13.40, 52.52},
    {"HE", "Hessen", "Wiesbaden", 8.24, 50.08},
    {"MVP", "Mecklenburg", "Schwerin", 11.42, 53.63},
    {"LGN", "Niedersachsen", "Hannover", 9.73, 52.37},
    {"NRW", "Nordrhein-Westfalen", "Düsseldorf", 6.78, 51.23},
    {"RPS", "Rheinland-Pfalz", "Koblenz", 7.59, 50.36},
    {"SN", "Sachsen", "Dresden", 13.74, 51.05},
    {"LSA", "Sachsen-Anhalt", "Magdeburg", 11.63, 52.13},
    {"SHH", "Schleswig-Holstein", "Kiel", 10.14, 54.32},
    {"TH", "Thüringen", "Erfurt", 11.03, 50.98},
    {"AUW", "ÖK50-West", "Innsbruck", 11.39, 47.27},
    {"AUO", "ÖK50-Ost", "Wien", 16.37, 48.21},
    {"KEINE", "Länderübersicht", "Prag", 14.42, 50.08},
};

TEST(Top50Karte, EveryCodeFindsItsOwnRegionsRowInTheShippedTable) {
    const std::vector<TopKarte> maps = ShippedMaps();
    ASSERT_GE(maps.size(), kCodes.size());
    std::vector<int> found;
    for (const RegionCheck& r : kRegions) {
        SCOPED_TRACE(r.code);
        const int row = TopKarteFinden(maps, r.code);
        ASSERT_GE(row, 0);
        const TopKarte& k = maps[static_cast<size_t>(row)];
        EXPECT_NE(k.Name.find(r.nameHas), std::string::npos) << k.Name;
        EXPECT_EQ(TopLand(r.lon, r.lat), r.code) << r.town;
        EXPECT_TRUE(Inside(k, r.lon, r.lat)) << r.town << " outside " << k.Zeile;
        EXPECT_EQ(TopKarteFuerPunkt(maps, r.lon, r.lat), row);
        // A state's sheet set: its centre lies in the state by the code table
        // too (Austria's west half reaches north into Bavaria's band, and the
        // overview covers several codes).
        if (std::string(r.code).size() <= 3 && r.code[0] != 'A') {
            EXPECT_EQ(TopLand((k.W + k.O) / 2, (k.S + k.N) / 2), r.code) << k.Zeile;
        }
        found.push_back(row);
    }
    // Sixteen codes, sixteen different rows.
    std::sort(found.begin(), found.end());
    EXPECT_EQ(std::unique(found.begin(), found.end()), found.end());
    for (const std::string& c : kCodes) EXPECT_GE(TopKarteFinden(maps, c), 0) << c;
    EXPECT_EQ(TopKarteFinden(maps, "XX"), -1);

    // Every row is a plausible map of the region: limits in order, a sheet
    // set of 1:50 000 no wider than 8 degrees, everything in Central Europe.
    bool swiss = false;
    for (const TopKarte& k : maps) {
        SCOPED_TRACE(k.Zeile);
        EXPECT_GT(k.N, k.S);
        EXPECT_GT(k.O, k.W);
        EXPECT_GE(k.S, 45.5);
        EXPECT_LE(k.N, 55.1);
        EXPECT_GE(k.W, 5.5);
        EXPECT_LE(k.O, 17.5);
        EXPECT_FALSE(k.MapCode.empty());
        if (k.Massstab == 50000) {
            EXPECT_LE(k.O - k.W, 8);
        } else {
            EXPECT_EQ(k.Massstab, 1000000);
        }
        if (Inside(k, 7.45, 46.95) && k.Massstab == 50000) swiss = true;  // Bern
    }
    EXPECT_TRUE(swiss);
}

TEST(Top50Karte, FindingTakesTheFirstFittingRowByItsLowerCasedName) {
    auto rows = [](std::vector<std::string> names) {
        std::vector<TopKarte> r;
        for (auto& n : names) {
            TopKarte k;
            k.Name = n;
            k.MapCode = "C" + std::to_string(r.size());
            r.push_back(k);
        }
        return r;
    };
    // "sa" stands in Niedersachsen too: the earlier row wins.
    const auto niedersFirst = rows({"Top50 Niedersachsen", "Top50 Sachsen-Anhalt"});
    EXPECT_EQ(TopKarteFinden(niedersFirst, "LSA"), 0);
    EXPECT_EQ(TopKarteFinden(niedersFirst, "LGN"), 0);
    // Both words for Bavaria; capitals and umlauts count in lower case.
    const auto bayern = rows({"TOP50 BAYERN NORD", "TOP50 BAYERN SÜD", "Bayern Süd 1:25"});
    EXPECT_EQ(TopKarteFinden(bayern, "BYN"), 0);
    EXPECT_EQ(TopKarteFinden(bayern, "BYS"), 1);
    // The German sheet sets need "top" and "50"; Austria and the overview not.
    const auto plain = rows({"Hessen 1:50", "Top 25 Hessen", "ÖK50-WEST", "ÖK50-Ost", "LÄNDERÜBERSICHT"});
    EXPECT_EQ(TopKarteFinden(plain, "HE"), -1);
    EXPECT_EQ(TopKarteFinden(plain, "AUW"), 2);
    EXPECT_EQ(TopKarteFinden(plain, "AUO"), 3);
    EXPECT_EQ(TopKarteFinden(plain, "KEINE"), 4);
    EXPECT_EQ(TopKarteFinden({}, "BW"), -1);
}

GeoPointIn Point(double lon, double lat) {
    GeoPointIn p;
    p.lon = lon;
    p.lat = lat;
    return p;
}

// A session with the shipped table, data added straight to the store.
struct MapSession {
    FakePlatform p;
    Session s{p};
    MapSession() {
        s.options.Top50.Karten = ShippedMaps();
        s.options.List[8] = 0;
    }
    void track(std::vector<std::pair<double, double>> pts) {
        NewTrack(s.store, "t");
        for (auto [lon, lat] : pts) {
            TrackPointIn p;
            p.lon = lon;
            p.lat = lat;
            StoreTrackPoint(s.store, p);
        }
    }
    void route(std::vector<std::pair<double, double>> pts) {
        NewRoute(s.store, "r");
        for (auto [lon, lat] : pts) AddRoutePoint(s.store, Point(lon, lat));
    }
    int row(const char* code) const { return TopKarteFinden(s.options.Top50.Karten, code); }
};

TEST(Top50Karte, TheAutomaticPointIsStartMiddleOrEndOfTheFirstTrackThenRouteThenWaypoints) {
    MapSession m;
    EXPECT_FALSE(AutomatischerPunkt(m.s).has_value());
    AddWayPoint(m.s, Point(8, 50));
    AddWayPoint(m.s, Point(10, 52));
    auto at = [&] { return *AutomatischerPunkt(m.s); };
    EXPECT_DOUBLE_EQ(at().Lon, 9);  // middle of the waypoint box
    EXPECT_DOUBLE_EQ(at().Lat, 51);
    m.route({{1, 40}, {2, 41}, {3, 42}, {4, 43}});
    m.s.options.List[2] = 1;  // "Mitte" of four points: the second
    EXPECT_DOUBLE_EQ(at().Lon, 2);
    NewTrack(m.s.store, "empty");  // a track without points does not count
    EXPECT_DOUBLE_EQ(at().Lon, 2);
    m.track({{11, 45}, {12, 46}, {13, 47}, {14, 48}, {15, 49}});
    m.track({{20, 30}});
    m.s.options.List[2] = 0;  // "Anfang"
    EXPECT_DOUBLE_EQ(at().Lon, 11);
    EXPECT_DOUBLE_EQ(at().Lat, 45);
    m.s.options.List[2] = 1;  // "Mitte" of five: the third
    EXPECT_DOUBLE_EQ(at().Lon, 13);
    m.s.options.List[2] = 2;  // "Ende"
    EXPECT_DOUBLE_EQ(at().Lon, 15);
    EXPECT_DOUBLE_EQ(at().Lat, 49);
}

TEST(Top50Karte, AutomaticChoiceMovesTheListAndTheBoxAndAFixedChoiceStays) {
    MapSession m;
    m.s.options.Check[0] = 1;
    m.s.options.List[2] = 2;
    m.s.options.List[9] = m.row("HE");
    m.track({{9.18, 48.78}, {11.58, 48.14}});  // Stuttgart to München: ends in BYS
    KarteAutomatisch(m.s);
    EXPECT_EQ(m.s.options.List[9], m.row("BYS"));
    EXPECT_EQ(m.s.options.Top50.KarteText, "TOP50_BYS");
    EXPECT_EQ(Top50MapName(m.s), "TOP50_BYS");
    EXPECT_EQ(KartenAnzeige(m.s), "Top50 Bayern Süd (auto)");
    EXPECT_EQ(InfoValues(m.s, GewaehlteKarte(m.s)->Name).LabelInfo[10], "Top50 Bayern Süd (auto)");
    m.s.options.List[2] = 0;
    KarteAutomatisch(m.s);
    EXPECT_EQ(GewaehlteKarte(m.s)->MapCode, "TOP50_BW");

    // A code without a row leaves the map as it stands.
    m.s.options.Top50.Karten.erase(m.s.options.Top50.Karten.begin() + m.row("BYS"));
    const int bw = m.s.options.List[9];
    m.s.options.List[2] = 2;
    KarteAutomatisch(m.s);
    EXPECT_EQ(m.s.options.List[9], bw);
    EXPECT_EQ(m.s.options.Top50.KarteText, "TOP50_BW");

    // Fixed: the row of List(9), whatever the data.
    m.s.options.Check[0] = 0;
    m.s.options.List[9] = m.row("SHH");
    m.s.options.Top50.KarteText.clear();
    m.s.options.List[2] = 0;
    KarteAutomatisch(m.s);
    EXPECT_EQ(m.s.options.List[9], m.row("SHH"));
    EXPECT_EQ(Top50MapName(m.s), "TOP50_SHH");
    EXPECT_EQ(KartenAnzeige(m.s), "Top50 SH/HH Schleswig-Holstein und Hamburg (fix)");
    m.s.options.Top50.KarteText = "Eigene Karte";
    EXPECT_EQ(Top50MapName(m.s), "Eigene Karte");
    m.s.options.List[9] = 99;
    EXPECT_EQ(GewaehlteKarte(m.s), nullptr);
    EXPECT_EQ(KartenAnzeige(m.s), "");
}

TEST(Top50Karte, TheMapIsChosenAfterEachReadAndBeforeEachWrite) {
    MapSession m;
    m.s.options.Check[0] = 1;
    m.s.options.List[2] = 0;
    const std::filesystem::path dir = testfiles::FreshFolder("top50", "hooks");
    const std::string gpx = testfiles::Put(dir / "hessen.gpx",
                                           "<?xml version=\"1.0\"?><gpx><trk><name>t</name><trkseg>"
                                           "<trkpt lat=\"50.11\" lon=\"8.68\"></trkpt>"
                                           "<trkpt lat=\"50.5\" lon=\"9.0\"></trkpt></trkseg></trk></gpx>");
    const Command* reader = FindFormat("gpx", CommandKind::Read);
    const Command* writer = FindFormat("gpx", CommandKind::Write);
    ASSERT_TRUE(reader && writer);
    ASSERT_EQ(ReadFileWith(m.s, *reader, gpx), ReadOutcome::Read);
    EXPECT_EQ(m.s.options.List[9], m.row("HE"));
    EXPECT_EQ(m.s.options.Top50.KarteText, "TOP50_HE");
    // "Ende" chosen after the read: the write takes the last point's map.
    m.s.store.Tracks[0].Points.back().Lon = 11.58;
    m.s.store.Tracks[0].Points.back().Lat = 48.14;
    m.s.options.List[2] = 2;
    ASSERT_TRUE(WriteFileWith(m.s, *writer, (dir / "out.gpx").string()));
    EXPECT_EQ(m.s.options.List[9], m.row("BYS"));
    // Fixed: neither moves it.
    m.s.options.Check[0] = 0;
    m.s.options.List[9] = m.row("TH");
    ASSERT_EQ(ReadFileWith(m.s, *reader, gpx), ReadOutcome::Read);
    ASSERT_TRUE(WriteFileWith(m.s, *writer, (dir / "out.gpx").string()));
    EXPECT_EQ(m.s.options.List[9], m.row("TH"));
}

TEST(Top50Karte, WaypointFilterInsideTheMapTestsTheChosenRowsExtent) {
    MapSession m;
    m.s.options.List[8] = 4;  // "Innerhalb der Karte "
    m.s.options.List[9] = m.row("HE");
    const TopKarte& he = *GewaehlteKarte(m.s);
    EXPECT_TRUE(WayPointWanted(m.s, 8.68, 50.11));    // Frankfurt
    EXPECT_FALSE(WayPointWanted(m.s, 11.58, 48.14));  // München
    EXPECT_TRUE(WayPointWanted(m.s, he.W, he.N));     // the corners belong to it
    EXPECT_TRUE(WayPointWanted(m.s, he.O, he.S));
    EXPECT_FALSE(WayPointWanted(m.s, he.O + 0.001, he.S));
    m.s.options.List[9] = m.row("BYS");
    EXPECT_FALSE(WayPointWanted(m.s, 8.68, 50.11));
    EXPECT_TRUE(WayPointWanted(m.s, 11.58, 48.14));
}

int Entry(size_t list, std::string_view text) {
    const auto& e = FixedListEntries(list);
    return static_cast<int>(std::find(e.begin(), e.end(), text) - e.begin());
}

TEST(Top50Karte, ColourListsGiveTheirColNumbers) {
    // The shared list: Col= is the position from 1, in every Top50 colour list.
    for (size_t list : {10u, 11u, 12u, 13u, 14u, 21u, 22u}) {
        EXPECT_EQ(TopFarbe(Entry(list, "Rot")), 1);
        EXPECT_EQ(TopFarbe(Entry(list, "Weiß")), 6);
        EXPECT_EQ(TopFarbe(Entry(list, "Magenta")), 8);
        EXPECT_EQ(TopFarbe(Entry(list, "Cyan")), 9);
    }
    // The waypoint list: Cyan stands eighth and gives 8, Türkis gives 2.
    EXPECT_EQ(TopWegpunktFarbe(Entry(26, "Rot")), 1);
    EXPECT_EQ(TopWegpunktFarbe(Entry(26, "Unsichtbar")), 7);
    EXPECT_EQ(TopWegpunktFarbe(Entry(26, "Cyan")), 8);
    EXPECT_EQ(TopWegpunktFarbe(Entry(26, "Türkis")), 2);
    EXPECT_EQ(FixedListEntries(26).size(), 9u);
}

}  // namespace
}  // namespace ortelix
