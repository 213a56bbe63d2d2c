// The Top50 overlay as read: keys in any order, the temporary lists and their
// transfer, round trips with the writer, and files that are not what they claim.
#include "OziTestSupport.h"

#include "appformats/ModuleTop50Ovl.h"
#include "commands/CommandRun.h"
#include "commands/CommandTable.h"
#include "core/Failure.h"
#include "core/Settings.h"

namespace ortelix {
namespace {

class Top50OvlReader : public OziTest {
protected:
    void SetUp() override {
        OziTest::SetUp();
        ResetSettings(session->options, false);
    }
    // Reads through the command, as the menu and the command line do.
    ReadOutcome readFile(const std::string& name, const std::string& bytes) {
        write(name, bytes);
        return ReadFileWith(*session, *FindCommand("MenEinTop50OVL"), path(name));
    }
    static std::string crlf(const std::string& text) {
        std::string out;
        for (char c : text) {
            if (c == '\n') out += '\r';
            out += c;
        }
        return out;
    }
};

// GPSBabel's order: Typ, Group, Col, Art before Zoom, coordinates before
// sizes; and every other kind with its keys shuffled.
TEST_F(Top50OvlReader, KeysInAnyOrderAndEveryKind) {
    const std::string ovl = crlf(
        "[Symbol 1]\nTyp=3\nGroup=1\nCol=3\nArt=1\nZoom=1\nSize=104\nPunkte=2\n"
        "XKoord0=11.5\nYKoord0=48.1\nXKoord1=11,6\nYKoord1=48,2\n"
        "[Symbol 2]\nTyp=6\nXKoord=9.25\nYKoord=50.5\nCol=1\nWidth=20\nGroup=2\nHeight=20\nDir=100\n"
        "[Symbol 3]\nTyp=2\nText=Rathaus M\xFC" "nster\nYKoord=51.0\nXKoord=7.5\nFont=1\nSize=110\n"
        "[Symbol 4]\nTyp=5\nyKoord=52.0\nxKoord=8.0\n"
        "[Symbol 5]\nTyp=7\nZoom=1\nXKoord= 8.25 \nYKoord=52.25\n"
        "[Symbol 6]\nTyp=1\nPath=c:\\bild.bmp\nXKoord=6.0\nYKoord=49.0\n"
        "[Symbol 7]\nTyp=9\nXKoord=1.0\nYKoord=1.0\n"
        "[Symbol 8]\nTyp=4\nGroup=1\nArt=1\nCol=1\nArea=8\nZoom=1\nSize=102\nPunkte=4\n"
        "XKoord0=7.0\nYKoord0=51.0\nXKoord1=8.0\nYKoord1=51.0\nXKoord2=8.0\nYKoord2=50.0\n"
        "XKoord3=7.0\nYKoord3=50.0\n"
        "[Overlay]\nSymbols=8\n[MapLage]\nMapName=X\nCenterLat=50\nCenterLong=8\n");
    ASSERT_EQ(readFile("tour.ovl", ovl), ReadOutcome::Read);
    ASSERT_EQ(store().Routes.size(), 1u);
    EXPECT_EQ(store().Routes[0].Name, "R1-tour");
    ASSERT_EQ(store().Routes[0].Points.size(), 2u);
    EXPECT_DOUBLE_EQ(store().Routes[0].Points[1].Lon, 11.6);  // decimal comma read
    EXPECT_DOUBLE_EQ(store().Routes[0].Points[1].Lat, 48.2);
    // Waypoints in file order; the unknown Typ=9 is skipped.
    ASSERT_EQ(store().WayPoints.size(), 5u);
    const auto& w = store().WayPoints;
    EXPECT_EQ(w[0].Desc, "Kreis");
    EXPECT_EQ(w[0].Name, "");
    EXPECT_DOUBLE_EQ(w[0].Lon, 9.25);
    EXPECT_DOUBLE_EQ(w[0].Lat, 50.5);
    EXPECT_EQ(w[1].Name, "Rathaus M\xC3\xBCnster");
    EXPECT_DOUBLE_EQ(w[1].Lon, 7.5);
    EXPECT_EQ(w[2].Desc, "Rechteck");
    EXPECT_DOUBLE_EQ(w[2].Lat, 52.0);
    EXPECT_EQ(w[3].Desc, "Dreieck");
    EXPECT_DOUBLE_EQ(w[3].Lon, 8.25);
    EXPECT_EQ(w[4].Desc, "Bitmap");
    ASSERT_EQ(store().Flaechen.size(), 1u);
    const Flaeche& f = store().Flaechen[0];
    EXPECT_DOUBLE_EQ(f.West, 7.0);
    EXPECT_DOUBLE_EQ(f.North, 51.0);
    EXPECT_DOUBLE_EQ(f.East, 8.0);
    EXPECT_DOUBLE_EQ(f.South, 50.0);

    // The texts of the "OVL Import" frame name the symbols; routes count per file.
    session->options.Text[1] = "Brunnen";
    ASSERT_EQ(readFile("zwei.ovl", ovl), ReadOutcome::Read);
    EXPECT_EQ(store().Routes.back().Name, "R1-zwei");
    EXPECT_EQ(store().WayPoints[5].Desc, "Brunnen");
}

TEST_F(Top50OvlReader, AreasTakeFirstAndThirdCornerAsTheyStand) {
    const std::string ovl = crlf(
        "[Symbol 1]\nTyp=4\nPunkte=4\nXKoord0=9.0\nYKoord0=48.0\nXKoord1=8.0\nYKoord1=48.0\n"
        "XKoord2=8.0\nYKoord2=49.0\nXKoord3=9.0\nYKoord3=49.0\n");
    ASSERT_EQ(readFile("a.ovl", ovl), ReadOutcome::Read);
    ASSERT_EQ(store().Flaechen.size(), 1u);
    EXPECT_DOUBLE_EQ(store().Flaechen[0].West, 9.0);
    EXPECT_DOUBLE_EQ(store().Flaechen[0].North, 48.0);
    EXPECT_DOUBLE_EQ(store().Flaechen[0].East, 8.0);
    EXPECT_DOUBLE_EQ(store().Flaechen[0].South, 49.0);
}

// Tracks come back as routes, with every point; waypoints and areas as written.
TEST_F(Top50OvlReader, RoundTripThroughTheWriter) {
    session->options.List[25] = 1;  // "Rechteck"
    NewTrack(store(), "Spur");
    for (int i = 0; i < 500; ++i) {
        TrackPoint p;
        p.Lon = 11.0 + i * 0.00012345678;
        p.Lat = 48.0 - i * 0.0000987654;
        store().Tracks[0].Points.push_back(p);
    }
    NewRoute(store(), "Weg");
    store().Routes[0].Points.push_back(MakePoint(12.125, 47.5, ""));
    store().Routes[0].Points.push_back(MakePoint(12.25, 47.75, ""));
    store().WayPoints.push_back(MakePoint(10.5, 49.5, "Straße"));
    Flaeche& f = NewFlaeche(store());
    f.West = 10;
    f.North = 50;
    f.East = 11;
    f.South = 49;
    ASSERT_TRUE(WriteFileWith(*session, *FindCommand("MenAusgangTop50OVL"), path("rt.ovl")));

    Session back(platform);
    ResetSettings(back.options, false);
    back.options.List[8] = 0;
    ASSERT_EQ(ReadFileWith(back, *FindCommand("MenEinTop50OVL"), path("rt.ovl")), ReadOutcome::Read);
    ASSERT_EQ(back.store.Routes.size(), 2u);
    EXPECT_EQ(back.store.Routes[0].Name, "R1-rt");
    EXPECT_EQ(back.store.Routes[1].Name, "R2-rt");
    ASSERT_EQ(back.store.Routes[0].Points.size(), 500u);
    for (size_t i = 0; i < 500; ++i) {
        EXPECT_NEAR(back.store.Routes[0].Points[i].Lon, store().Tracks[0].Points[i].Lon, 5.1e-9);  // eight decimals: half a unit of 1e-8
        EXPECT_NEAR(back.store.Routes[0].Points[i].Lat, store().Tracks[0].Points[i].Lat, 5.1e-9);  // eight decimals: half a unit of 1e-8
    }
    EXPECT_DOUBLE_EQ(back.store.Routes[1].Points[1].Lat, 47.75);
    // The track's and route's names, the rectangle and the waypoint's name.
    ASSERT_EQ(back.store.WayPoints.size(), 4u);
    EXPECT_EQ(back.store.WayPoints[0].Name, "Spur");
    EXPECT_EQ(back.store.WayPoints[1].Name, "Weg");
    EXPECT_EQ(back.store.WayPoints[2].Desc, "Rechteck");
    EXPECT_EQ(back.store.WayPoints[3].Name, "Straße");
    ASSERT_EQ(back.store.Flaechen.size(), 1u);
    EXPECT_DOUBLE_EQ(back.store.Flaechen[0].West, 10);
    EXPECT_DOUBLE_EQ(back.store.Flaechen[0].South, 49);
}

TEST_F(Top50OvlReader, BadInputSaysSoAndKeepsWhatWasRead) {
    // A broken number: the sections before it and the points of the broken
    // one read so far reach the store.
    const std::string broken = crlf(
        "[Symbol 1]\nTyp=6\nXKoord=8.5\nYKoord=50.5\n"
        "[Symbol 2]\nTyp=3\nPunkte=3\nXKoord0=9.0\nYKoord0=49.0\nXKoord1=abc\nYKoord1=49.1\n"
        "[Symbol 3]\nTyp=6\nXKoord=7.0\nYKoord=51.0\n");
    EXPECT_EQ(readFile("kaputt.ovl", broken), ReadOutcome::Failed);
    ASSERT_FALSE(platform.messages.empty());
    EXPECT_EQ(platform.messages.back().text.rfind(FailureText(kReadFailed, ""), 0), 0u);
    EXPECT_NE(platform.messages.back().text.find("Zeile 10"), std::string::npos);
    EXPECT_EQ(platform.messages.back().title, "Top50 Overlay auswählen");
    EXPECT_EQ(store().WayPoints.size(), 1u);
    ASSERT_EQ(store().Routes.size(), 1u);
    EXPECT_EQ(store().Routes[0].Points.size(), 1u);
    EXPECT_EQ(store().StatusText.text(), "Fertig");

    // A binary overlay of the viewer.
    platform.messages.clear();
    EXPECT_EQ(readFile("bin.ovl", std::string("DOMGVCRD Ovlfile V2.0:\0\0\x01\x02", 27)), ReadOutcome::Failed);
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_NE(platform.messages[0].text.find("bin\xC3\xA4re"), std::string::npos);

    // No section at all.
    platform.messages.clear();
    EXPECT_EQ(readFile("leer.ovl", "nur Text\r\nohne Abschnitt\r\n"), ReadOutcome::Failed);
    EXPECT_EQ(platform.messages.size(), 1u);

    // A huge count is no promise: only the points that stand there are read,
    // and the file ending inside a section keeps them.
    platform.messages.clear();
    ClearStore(store());
    EXPECT_EQ(readFile("gross.ovl", crlf("[Symbol 1]\nTyp=3\nPunkte=99999999999999\nXKoord0=9.0\nYKoord0=49.0\n"
                                         "XKoord1=9.1\nYKoord1=49.1\nXKoord2=9.2")),
              ReadOutcome::Read);
    EXPECT_TRUE(platform.messages.empty());
    ASSERT_EQ(store().Routes.size(), 1u);
    EXPECT_EQ(store().Routes[0].Points.size(), 2u);

    // A section whose kind line is missing is skipped; lines without "=" too.
    ClearStore(store());
    EXPECT_EQ(readFile("ohne.ovl", crlf("[Symbol 1]\nXKoord=1\nYKoord=2\n[Symbol 2]\nTyp=5\nMüll\nXKoord=3\nYKoord=4\n")),
              ReadOutcome::Read);
    ASSERT_EQ(store().WayPoints.size(), 1u);
    EXPECT_DOUBLE_EQ(store().WayPoints[0].Lon, 3);
}

}  // namespace
}  // namespace ortelix
