// The Top50 overlay as written: sections, keys and their order, the settings
// that choose colours, widths, symbols and texts, and the command around it.
#include "OziTestSupport.h"

#include <algorithm>

#include "appformats/ModuleTop50Ovl.h"
#include "appformats/ModuleTop50OvlStyle.h"
#include "commands/CommandRun.h"
#include "commands/CommandTable.h"
#include "core/FileIO.h"
#include "core/Settings.h"

namespace ortelix {
namespace {

class Top50OvlWriter : public OziTest {
protected:
    void SetUp() override {
        OziTest::SetUp();
        ResetSettings(session->options, false);
    }
    void addTrack(const std::string& name, std::vector<std::pair<double, double>> pts) {
        NewTrack(store(), name);
        for (auto [lon, lat] : pts) {
            TrackPoint p;
            p.Lon = lon;
            p.Lat = lat;
            store().Tracks.back().Points.push_back(p);
        }
    }
    void addRoute(const std::string& name, std::vector<std::pair<double, double>> pts) {
        NewRoute(store(), name);
        for (auto [lon, lat] : pts) store().Routes.back().Points.push_back(MakePoint(lon, lat, ""));
    }
    std::vector<std::string> text(OvlCounts* counts = nullptr) {
        OvlPlace place;
        place.mapName = "TK50";
        return lines(Top50OvlText(*session, place, counts));
    }
    // The lines of section n ("[Symbol n]" up to the next bracket).
    static std::vector<std::string> section(const std::vector<std::string>& all, const std::string& head) {
        std::vector<std::string> out;
        auto it = std::find(all.begin(), all.end(), head);
        if (it == all.end()) return out;
        for (++it; it != all.end() && !it->empty() && (*it)[0] != '['; ++it) out.push_back(*it);
        return out;
    }
    static int count(const std::vector<std::string>& all, const std::string& line) {
        return static_cast<int>(std::count(all.begin(), all.end(), line));
    }
};

// A small store with every kind of object, written with the reset settings
// plus arrows, and compared byte for byte with an overlay checked by hand.
TEST_F(Top50OvlWriter, GoldenOverlayOfEveryKind) {
    session->options.Check[2] = 1;  // arrows
    session->options.List[27] = 0;  // "120": 10 x 10
    addTrack("Tour", {{11.5, 48.1}, {11.501, 48.1005}, {11.502, 48.101}});
    addRoute("Weg", {{11.6, 48.2}, {11.6, 48.21}});
    GeoPoint w = MakePoint(11.55, 48.15, "Hütte", "Rast");
    w.Cmt = "Quelle";
    store().WayPoints.push_back(w);
    Flaeche& f = NewFlaeche(store());
    f.West = 11.4;
    f.North = 48.3;
    f.East = 11.7;
    f.South = 48.0;
    OvlPlace place;
    place.mapName = "BY_SUED";
    const std::string got = Top50OvlText(*session, place);
    const std::string want = ReadFileBytes(std::string(ORTELIX_SOURCE_DIR) + "/tests/data/top50/golden.ovl");
    EXPECT_EQ(got, want);
    // Windows-1252 and CR LF: "ü" is one byte, no bare line feed.
    EXPECT_NE(got.find("Text=H\xFCtte\r\n"), std::string::npos);
    EXPECT_EQ(std::count(got.begin(), got.end(), '\n'), std::count(got.begin(), got.end(), '\r'));
}

TEST_F(Top50OvlWriter, ArrowsPointAlongTheRouteAndAOnePointRouteHasNone) {
    session->options.Check[2] = 1;
    session->options.List[24] = 0;                                // arrow form (7, 2, 12, 8)
    addRoute("Eins", {{10.0, 50.0}});                             // one point: no arrow
    addRoute("Nord", {{10.0, 50.0}, {10.0, 50.01}, {10.02, 50.01}});  // north, then east
    const auto all = text();
    const auto one = section(all, "[Symbol 1]");
    ASSERT_FALSE(one.empty());
    EXPECT_EQ(one[0], "Typ=3");
    EXPECT_EQ(count(one, "Punkte=1"), 1);
    EXPECT_EQ(count(all, "Punkte=3"), 1);
    // Symbols 3 and 4 are the arrows of the second route, at the earlier point.
    const auto a1 = section(all, "[Symbol 3]");
    const auto a2 = section(all, "[Symbol 4]");
    ASSERT_EQ(a1.size(), 11u);
    EXPECT_EQ(a1[0], "Typ=7");
    EXPECT_EQ(a1[1], "Group=2");
    EXPECT_EQ(a1[2], "Width=12");
    EXPECT_EQ(a1[3], "Height=8");
    EXPECT_EQ(a1[4], "Dir=190");
    EXPECT_EQ(a1[7], "Size=101");
    EXPECT_EQ(a1[8], "Area=2");
    EXPECT_EQ(a1[9], "XKoord=10.00000000");
    EXPECT_EQ(a1[10], "YKoord=50.00000000");
    EXPECT_EQ(a2[4], "Dir=100");
    EXPECT_EQ(a2[10], "YKoord=50.01000000");
    EXPECT_TRUE(section(all, "[Symbol 5]").empty() || section(all, "[Symbol 5]")[0] == "Typ=2");
    EXPECT_EQ(ArrowDir(0), 190);
    EXPECT_EQ(ArrowDir(90), 100);
    EXPECT_EQ(ArrowDir(180), 370);
    EXPECT_EQ(ArrowDir(270), 280);
    // Without the check box no arrow at all.
    session->options.Check[2] = 0;
    EXPECT_EQ(count(text(), "Dir=190"), 0);
}

TEST_F(Top50OvlWriter, TrackSetsCycleAndTheSixthTrackTakesTheFirst) {
    auto& L = session->options.List;
    for (int k = 0; k < 5; ++k) {
        L[10 + k] = k;      // colours Rot, Grün, Blau, Gelb, Schwarz: Col 1..5
        L[15 + k] = k + 1;  // widths "2".."6": Size 102..106
    }
    session->options.Check[23] = 1;  // tracks zoom with the scale
    for (int n = 1; n <= 6; ++n) addTrack("T" + std::to_string(n), {{10.0 + n, 50.0}, {10.0 + n, 50.1}});
    const auto all = text();
    for (int n = 1; n <= 6; ++n) {
        const auto sec = section(all, "[Symbol " + std::to_string(n) + "]");
        ASSERT_GE(sec.size(), 7u) << n;
        const int set = (n - 1) % 5;
        EXPECT_EQ(sec[2], "Col=" + std::to_string(set + 1)) << n;
        EXPECT_EQ(sec[3], "Zoom=2") << n;
        EXPECT_EQ(sec[4], "Size=" + std::to_string(102 + set)) << n;
    }
    // "keine Linie" for set 2 drops the second track's line only.
    L[16] = 9;
    const auto without = text();
    EXPECT_EQ(count(without, "Typ=3"), 5);
    EXPECT_EQ(count(without, "XKoord0=12.00000000"), 0);
}

TEST_F(Top50OvlWriter, WaypointSymbolsAndTextsFollowTheSettings) {
    auto& o = session->options;
    o.List[25] = 2;   // "Kreis"
    o.List[27] = 2;   // "400": 40 x 40
    o.List[28] = 1;   // group 2
    o.List[26] = 8;   // "Türkis" gives Col=2
    o.List[29] = 3;   // name 12
    o.List[30] = 0;   // "kein Text" for descriptions
    o.List[31] = 8;   // information 30
    o.List[35] = 4;   // name two steps north
    o.List[46] = 2;   // information one step east
    o.List[36] = 2;   // font 3
    o.Check[5] = 1;   // transparent waypoint texts
    o.Check[26] = 1;  // texts zoom
    GeoPoint w = MakePoint(8.0, 49.0, "Gipfel", "nicht gezeigt");
    w.Cmt = "Aussicht";
    store().WayPoints.push_back(w);
    store().WayPoints.push_back(MakePoint(8.5, 49.5, ""));  // no name: symbol only
    OvlCounts c;
    const auto all = text(&c);
    EXPECT_EQ(c.points, 2);
    EXPECT_EQ(c.texts, 2);
    const auto sym = section(all, "[Symbol 1]");
    const std::vector<std::string> wantSym = {"Typ=6",  "Group=2", "Width=40", "Height=40", "Dir=100", "Art=1",
                                              "Col=2",  "Zoom=1",  "Size=102", "Area=2",    "XKoord=8.00000000",
                                              "YKoord=49.00000000"};
    EXPECT_EQ(sym, wantSym);
    const auto name = section(all, "[Symbol 3]");
    const std::vector<std::string> wantName = {"Typ=2",  "Group=2", "Col=2", "Area=1", "Zoom=2", "Size=112",
                                               "Font=3", "Dir=100", "XKoord=8.00000000",
                                               "YKoord=49.00100000", "Text=Gipfel"};
    EXPECT_EQ(name, wantName);
    const auto info = section(all, "[Symbol 4]");
    ASSERT_EQ(info.size(), 11u);
    EXPECT_EQ(info[5], "Size=130");
    EXPECT_EQ(info[8], "XKoord=8.00050000");
    EXPECT_EQ(info[10], "Text=Aussicht");
    EXPECT_EQ(count(all, "Text=nicht gezeigt"), 0);

    // The bitmap symbol carries the picture's path instead of a shape.
    o.List[25] = 0;
    o.Check[25] = 1;
    OvlPlace place;
    place.picturePath = "bitmap/rot.bmp";
    const auto bmp = section(lines(Top50OvlText(*session, place)), "[Symbol 1]");
    const std::vector<std::string> wantBmp = {"Typ=1",   "Group=2",   "Width=44",    "Height=44",
                                              "Dir=100", "Zoom=2",    "Trans=2",     "TransByte=2",
                                              "Path=bitmap/rot.bmp", "XKoord=8.00000000", "YKoord=49.00000000"};
    EXPECT_EQ(bmp, wantBmp);
}

TEST_F(Top50OvlWriter, ClosingSectionsCentreOnTheDataOrTheChosenPoint) {
    addTrack("A", {{10.0, 50.0}, {12.0, 51.0}});
    store().WayPoints.push_back(MakePoint(14.0, 47.0, "W"));
    const auto all = text();
    const auto overlay = section(all, "[Overlay]");
    ASSERT_EQ(overlay.size(), 1u);
    EXPECT_EQ(overlay[0], "Symbols=4");  // line, track name, waypoint symbol, waypoint name
    const auto lage = section(all, "[MapLage]");
    const std::vector<std::string> want = {"MapName=TK50",         "DimmFc=100",     "ZoomFc=100",
                                           "CenterLat=49.00000000", "CenterLong=12.00000000", "RefOn=1",
                                           "RefLat=49.00000000",    "RefLong=12.00000000"};
    EXPECT_EQ(lage, want);
    EXPECT_EQ(all.back(), "RefLong=12.00000000");
    OvlPlace chosen;
    chosen.hasCentre = true;
    chosen.centreLon = 10.25;
    chosen.centreLat = 50.5;
    const auto at = section(lines(Top50OvlText(*session, chosen)), "[MapLage]");
    EXPECT_EQ(at[3], "CenterLat=50.50000000");
    EXPECT_EQ(at[7], "RefLong=10.25000000");
}

TEST_F(Top50OvlWriter, CommandWritesStatusAndEmptyStoreLeavesEmptyFile) {
    const Command* c = FindCommand("MenAusgangTop50OVL");
    ASSERT_NE(c, nullptr);
    ASSERT_NE(c->run, nullptr);
    EXPECT_EQ(FindFormat("ovl", CommandKind::Write), c);
    EXPECT_EQ(FindFormat("ovl", CommandKind::Read), FindCommand("MenEinTop50OVL"));
    EXPECT_EQ(BatchReader("ovl"), FindCommand("MenEinTop50OVL"));

    write("alt.ovl", "old bytes");
    EXPECT_FALSE(WriteFileWith(*session, *c, path("alt.ovl")));
    EXPECT_TRUE(exists("alt.ovl"));
    EXPECT_EQ(read("alt.ovl"), "");
    ASSERT_FALSE(platform.messages.empty());
    EXPECT_EQ(platform.messages.back().text, kOvlNoSymbols);
    EXPECT_EQ(platform.messages.back().title, kOvlNoSymbolsTitle);

    session->options.Check[2] = 1;
    addTrack("T", {{10.0, 50.0}, {10.1, 50.1}});
    addRoute("R", {{10.0, 50.0}, {10.1, 50.0}, {10.2, 50.0}});
    Flaeche& f = NewFlaeche(store());
    f.West = 9;
    f.North = 51;
    f.East = 11;
    f.South = 49;
    session->options.List[25] = 3;  // "Dreieck"
    session->options.List[24] = 0;  // arrows (7, 2, 12, 8)
    store().WayPoints.push_back(MakePoint(10.0, 50.0, "P"));
    const size_t before = platform.messages.size();
    ASSERT_TRUE(WriteFileWith(*session, *c, path("neu.ovl")));
    EXPECT_EQ(platform.messages.size(), before);
    EXPECT_EQ(store().StatusText.text(), "Fertig: LOG=2; Punkte=1; Texte=3; Flächen=1");
    EXPECT_EQ(count(lines(read("neu.ovl")), "Typ=7"), 3);  // two arrows and the triangle
}

TEST_F(Top50OvlWriter, BitmapIsCopiedBesideTheTarget) {
    write("bild", "BMbytes");
    const std::string target = path("out/tour.ovl");
    std::filesystem::create_directories(dir / "out");
    const std::string p = TopBilderSichern(path("bild"), path("viewer-bitmaps"), target);
    EXPECT_EQ(p, path("out/bitmap/bild.bmp"));
    EXPECT_EQ(read("out/bitmap/bild.bmp"), "BMbytes");
    // A picture in the viewer's own folder stays where it is.
    std::filesystem::create_directories(dir / "viewer");
    write("viewer/rot.bmp", "x");
    EXPECT_EQ(TopBilderSichern(path("viewer/rot.bmp"), path("viewer"), target), path("viewer/rot.bmp"));
    EXPECT_EQ(TopBilderSichern("", path("viewer"), target), "");
}

TEST_F(Top50OvlWriter, CheckOverlayHasAnAreaAndANumberPerPart) {
    const std::vector<OvlRechteck> teile = {{8.0, 50.0, 8.5, 49.5}, {8.5, 50.0, 9.0, 49.5}};
    KartenCheckOvl(path("plan"), teile, "HE");
    const auto all = lines(read("plan_Check.ovl"));
    const std::vector<std::string> area = {"Typ=4",  "Group=1", "Art=1", "Col=1", "Area=8", "Zoom=1", "Size=105",
                                           "Punkte=4", "XKoord0=8.50000000", "YKoord0=50.00000000",
                                           "XKoord1=9.00000000", "YKoord1=50.00000000", "XKoord2=9.00000000",
                                           "YKoord2=49.50000000", "XKoord3=8.50000000", "YKoord3=49.50000000"};
    EXPECT_EQ(section(all, "[Symbol 3]"), area);
    const std::vector<std::string> number = {"Typ=2",  "Group=2", "Col=3",   "Area=2", "Zoom=1", "Size=116",
                                             "Font=1", "Dir=100", "XKoord=8.75000000", "YKoord=49.75000000",
                                             "Text=plan_02"};
    EXPECT_EQ(section(all, "[Symbol 4]"), number);
    EXPECT_EQ(section(all, "[Overlay]"), std::vector<std::string>{"Symbols=4"});
    EXPECT_EQ(section(all, "[MapLage]"), (std::vector<std::string>{"MapName=HE", "DimmFc=100", "ZoomFc=100"}));
}

}  // namespace
}  // namespace ortelix
