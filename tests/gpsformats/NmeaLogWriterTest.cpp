// Writing a track as an NMEA log: the three kinds, times counted from the
// wall clock, the geoid box, the record choice and the dialog, and the way
// back through the reader.
#include <gtest/gtest.h>

#include <cmath>
#include <unistd.h>

#include "commands/CommandTable.h"
#include "core/FileIO.h"
#include "core/ModulArray.h"
#include "core/Session.h"
#include "fake/FakePlatform.h"
#include "fake/TestFiles.h"
#include "gpsformats/Nmea.h"
#include "simulator/NmeaSentences.h"

namespace ortelix {
namespace {

// The fake platform, and the name each save dialog proposed.
class ProposingPlatform : public FakePlatform {
public:
    std::vector<std::string> proposals;
    FileChoice fileDialog(const std::string& title, const std::string& filter, int filterIndex, bool save,
                          const std::string& folder, const std::string& defaultName) override {
        proposals.push_back(defaultName);
        return FakePlatform::fileDialog(title, filter, filterIndex, save, folder, defaultName);
    }
};

std::vector<std::string> Lines(const std::string& text, const std::string& end) {
    std::vector<std::string> lines;
    size_t pos = 0;
    while (pos < text.size()) {
        size_t e = text.find(end, pos);
        if (e == std::string::npos) e = text.size();
        lines.push_back(text.substr(pos, e - pos));
        pos = e + end.size();
    }
    return lines;
}

TrackPoint Point(double lon, double lat, OptInt alt, OptDouble speed, OptShort course, Date date, Time time) {
    TrackPoint p;
    p.Lon = lon;
    p.Lat = lat;
    p.Alt = alt;
    p.Speed = speed;
    p.Course = course;
    p.Date_ = date;
    p.Time_ = time;
    return p;
}

const int32_t kDay = SerialFromCivil(2023, 7, 14);

class NmeaLogWriter : public ::testing::Test {
protected:
    void SetUp() override {
        dir = testfiles::FreshFolder("gpsformats", std::string("nmea-writer-") +
                                     ::testing::UnitTest::GetInstance()->current_test_info()->name());
        s.options.Check[21] = 0;
    }
    Track& AddTrack(const std::string& name) {
        s.store.Tracks.push_back(Track{name, {}});
        return s.store.Tracks.back();
    }
    std::string Path(const std::string& name) const { return (dir / name).string(); }

    ProposingPlatform p;
    Session s{p};
    std::filesystem::path dir;
};

TEST_F(NmeaLogWriter, EachPointIsOneReceiverCycle) {
    Track& t = AddTrack("t");
    t.Points.push_back(Point(-12.5, 52.25, 35, 100.0, -90, kDay, 8 * 3600 + 5 * 60 + 9));
    s.options.NMEABox[7] = "";  // no geoid difference
    const std::string text = NmeaLogText(t, s.options, kNmeaPlain, "x.nmea", p.localNow());
    const std::vector<std::string> lines = Lines(text, "\r\n");
    ASSERT_EQ(lines.size(), 7u);
    EXPECT_EQ(lines[0].substr(0, lines[0].size() - 3),
              "$GPGGA,080509.00,5215.0000,N,01230.0000,W,1,10,8.4,35.0,M,,M,1.7,0000");
    EXPECT_EQ(lines[1].substr(0, lines[1].size() - 3),
              "$GPRMC,080509.00,A,5215.0000,N,01230.0000,W,054.0,270.0,140723,,");
    EXPECT_EQ(lines[2].substr(0, lines[2].size() - 3), "$GPVTG,270.0,T,,,054.0,N,100.0,K");
    EXPECT_EQ(lines[3], "$GPGSA,A,3,08,24,10,27,28,17,26,29,,,,,2.3,1.4,1.9*37");
    for (const std::string& l : lines) EXPECT_TRUE(NmeaChecksumOk(l)) << l;
    EXPECT_EQ(text.substr(text.size() - 2), "\r\n");

    // The MN4 log is the same text.
    EXPECT_EQ(NmeaLogText(t, s.options, kNmeaMN4, "x.txt", p.localNow()), text);

    // The geoid box with a decimal comma, carried with the simulator's sign.
    s.options.NMEABox[7] = "-47,5";
    const std::string withGeoid = NmeaLogText(t, s.options, kNmeaPlain, "x.nmea", p.localNow());
    EXPECT_NE(withGeoid.find(",35.0,M,47.5,M,1.7,0000*"), std::string::npos) << withGeoid.substr(0, 90);
    s.options.NMEABox[7] = "12";
    EXPECT_NE(NmeaLogText(t, s.options, kNmeaPlain, "x.nmea", p.localNow()).find(",35.0,M,-12.0,M,"),
              std::string::npos);
}

TEST_F(NmeaLogWriter, TomTomLogHasItsHeaderAndLfAlone) {
    Track& t = AddTrack("t");
    for (int i = 0; i < 3; ++i) t.Points.push_back(Point(9 + i * 0.001, 50, 100, 30.0, 45, kDay, 3600 + i));
    const std::string path = Path("20230714010000GPS-1.pgl");
    WriteNmeaLog(s, path, kNmeaTomTom, 1);
    const std::string text = ReadFileBytes(path);
    EXPECT_EQ(text.find('\r'), std::string::npos);
    const std::vector<std::string> lines = Lines(text, "\n");
    ASSERT_EQ(lines.size(), 4u + 3 * 7);
    EXPECT_EQ(lines[0], "PTOM101,PocketPC,Pocket LOOX,2577,3.0*3B");
    EXPECT_EQ(lines[1], "$PTOM102,GPS Engine,364,TomTom Navigator GPS,Seriellkabel an COM1:*39");
    EXPECT_EQ(lines[2], "$PTOM103,031004,093021.000,031004,113021.000*3D");
    EXPECT_EQ(lines[3], "$PTOM104," + path + "-busy.pgl*5A");
    EXPECT_EQ(lines[4].substr(0, 17), "$GPGGA,010000.00,");
    EXPECT_EQ(lines[11].substr(0, 17), "$GPGGA,010001.00,");
    EXPECT_EQ(text.back(), '\n');
    EXPECT_EQ(s.store.StatusText.text(), "Fertig");
    EXPECT_FALSE(p.busy);
}

TEST_F(NmeaLogWriter, MissingTimesCountSecondsFromTheWallClock) {
    // The fake's wall clock reads 2024-06-01 12:00:00.
    Track& t = AddTrack("t");
    t.Points.push_back(Point(9, 50, {}, {}, {}, {}, {}));
    t.Points.push_back(Point(9.001, 50, {}, {}, {}, {}, {}));
    t.Points.push_back(Point(9.002, 50, {}, {}, {}, kDay, 23 * 3600 + 59 * 60 + 59));
    t.Points.push_back(Point(9.003, 50, {}, {}, {}, kDay, {}));
    const std::string text = NmeaLogText(t, s.options, kNmeaTomTom, "a.pgl", p.localNow());
    std::vector<std::string> rmc;
    for (const std::string& l : Lines(text, "\n"))
        if (l.rfind("$GPRMC", 0) == 0) rmc.push_back(l);
    ASSERT_EQ(rmc.size(), 4u);
    // One second on from the start, then the point's own time, then one on
    // from that across midnight (the date is the point's own).
    EXPECT_EQ(rmc[0].substr(0, 17), "$GPRMC,120001.00,");
    EXPECT_NE(rmc[0].find(",000.0,000.0,010624,,*"), std::string::npos) << rmc[0];
    EXPECT_EQ(rmc[1].substr(0, 17), "$GPRMC,120002.00,");
    EXPECT_EQ(rmc[2].substr(0, 17), "$GPRMC,235959.00,");
    EXPECT_NE(rmc[2].find(",140723,,*"), std::string::npos);
    EXPECT_EQ(rmc[3].substr(0, 17), "$GPRMC,000000.00,");
    // An empty altitude is written as 0.
    EXPECT_NE(text.find(",1,10,8.4,0.0,M,"), std::string::npos);
}

TEST_F(NmeaLogWriter, RoundTripThroughTheReader) {
    Track& t = AddTrack("t");
    for (int i = 0; i < 50; ++i) {
        const double lon = -3.7 + i * 0.000731, lat = 40.41 - i * 0.000517;
        t.Points.push_back(Point(lon, lat, 650 + i, 3.0 * i, static_cast<int16_t>((i * 37) % 360), kDay + i / 25,
                                 (i * 97) % kSecondsPerDay));
    }
    const std::string path = Path("round.nmea");
    WriteNmeaLog(s, path, kNmeaPlain, 1);

    Session back(p);
    back.options.Check[21] = 0;
    ReadNmeaLog(back, path, false);
    ASSERT_EQ(back.store.Tracks.size(), 1u);
    const std::vector<TrackPoint>& got = back.store.Tracks[0].Points;
    // Each cycle gives two points: the GGA's and the RMC's.
    ASSERT_EQ(got.size(), 100u);
    for (size_t i = 0; i < t.Points.size(); ++i) {
        const TrackPoint& want = t.Points[i];
        const TrackPoint& gga = got[2 * i];
        const TrackPoint& rmc = got[2 * i + 1];
        // Positions to the 1/10000 minute of the format: 1.7e-6 degrees.
        for (const TrackPoint* q : {&gga, &rmc}) {
            EXPECT_NEAR(q->Lon, want.Lon, 1e-6) << i;
            EXPECT_NEAR(q->Lat, want.Lat, 1e-6) << i;
            EXPECT_EQ(*q->Time_, *want.Time_) << i;
        }
        EXPECT_EQ(*gga.Alt, *want.Alt) << i;
        EXPECT_EQ(*rmc.Date_, *want.Date_) << i;
        EXPECT_EQ(*rmc.Course, *want.Course) << i;
        // Knots with one decimal, back times 1.8532 and cut: at most 1 km/h
        // below, never above.
        EXPECT_LE(*rmc.Speed, *want.Speed) << i;
        EXPECT_GE(*rmc.Speed, *want.Speed - 1) << i;
        // A GGA carries the date of the RMC before it; the first has none.
        if (i > 0) EXPECT_EQ(*gga.Date_, *t.Points[i - 1].Date_) << i;
    }
    EXPECT_TRUE(got[0].Date_.empty());
}

TEST_F(NmeaLogWriter, RecordChoiceDialogAndProposal) {
    // No track: nothing to write.
    const Command* c = FindCommand("MenAusgangNMEA");
    ASSERT_NE(c, nullptr);
    ASSERT_NE(c->run, nullptr);
    c->run(s, {});
    ASSERT_EQ(p.messages.size(), 1u);
    EXPECT_EQ(p.messages[0].text, "Kein Datensatz vorhanden!");
    EXPECT_EQ(p.messages[0].title, "Datensatz wählen");
    EXPECT_TRUE(p.fileDialogTitles.empty());

    AddTrack("first").Points.push_back(Point(9, 50, 1, {}, {}, kDay, 10 * 3600 + 11 * 60 + 12));
    AddTrack("second").Points.push_back(Point(10, 51, 2, {}, {}, {}, {}));
    AddTrack("second").Points.push_back(Point(11, 52, 3, {}, {}, {}, {}));
    // The second track, as a TomTom log: the proposal comes from the wall
    // clock (no time in the track) and the remembered filter entry.
    p.inputs = {"2"};
    p.settings[{"ordner", "NMEA Datei angebenFilter"}] = "2";
    const std::string target = Path("second.pgl");
    p.fileChoices = {{target, 2}};
    c->run(s, {});
    EXPECT_EQ(p.fileDialogTitles.back(), "NMEA Datei angeben");
    EXPECT_EQ(p.proposals.back(), "20240601120000GPS-1.pgl");
    const std::string text = ReadFileBytes(target);
    EXPECT_EQ(text.rfind("PTOM101,", 0), 0u);
    EXPECT_NE(text.find("5100.0000,N,01000.0000,E"), std::string::npos);
    EXPECT_EQ(text.find("5000.0000,N"), std::string::npos);

    // The first track, plain: the proposal is its first point's moment.
    p.inputs = {"1"};
    p.settings[{"ordner", "NMEA Datei angebenFilter"}] = "1";
    p.fileChoices = {{Path("first.nmea"), 1}};
    c->run(s, {});
    EXPECT_EQ(p.proposals.back(), "20230714101112GPS.nmea");
    EXPECT_EQ(ReadFileBytes(Path("first.nmea")).rfind("$GPGGA,101112.00,5000.0000,N,00900.0000,E,", 0), 0u);

    // A number outside the tracks, or cancel, writes nothing.
    const size_t dialogs = p.fileDialogTitles.size();
    p.inputs = {"4"};
    c->run(s, {});
    p.inputs = {""};
    c->run(s, {});
    EXPECT_EQ(p.fileDialogTitles.size(), dialogs);

    // An empty track is none to write.
    AddTrack("empty");
    p.inputs = {"4"};
    c->run(s, {});
    EXPECT_EQ(p.fileDialogTitles.size(), dialogs);
    EXPECT_EQ(p.messages.back().text, "Kein Datensatz vorhanden!");

    // The command line's writers: by name and by extension.
    EXPECT_EQ(FindFormat("nmea", CommandKind::Write)->run, &WriteNmeaLogPlain);
    EXPECT_EQ(FindFormat("pgl", CommandKind::Write)->run, &WriteNmeaLogTomTom);
}

TEST_F(NmeaLogWriter, RightButtonEndsTheLogWhereItStands) {
    Track& t = AddTrack("long");
    for (int i = 0; i < 10000; ++i) t.Points.push_back(Point(9 + i * 1e-5, 50, 100, {}, {}, kDay, i));
    const std::string path = Path("cut.nmea");
    p.rightButtonDown = true;
    WriteNmeaLog(s, path, kNmeaPlain, 1);
    EXPECT_TRUE(s.UserAbort);
    ASSERT_FALSE(p.messages.empty());
    EXPECT_EQ(p.messages.back().text, "Abbruch mit rechter Maustaste erfolgt!");
    // The cycles written before the first look stay a log of their own.
    const std::string text = ReadFileBytes(path);
    const size_t cycles = Lines(text, "\r\n").size() / 7;
    EXPECT_GT(cycles, 0u);
    EXPECT_LT(cycles, 10000u);
    EXPECT_EQ(text.substr(text.size() - 2), "\r\n");

    // A failed write leaves the old file as it was.
    if (::geteuid() == 0) return;  // root writes into any folder
    p.rightButtonDown = false;
    const std::string old = testfiles::Put(dir / "old.nmea", "old");
    std::filesystem::permissions(dir, std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    EXPECT_THROW(WriteNmeaLog(s, old, kNmeaPlain, 1), FileError);
    std::filesystem::permissions(dir, std::filesystem::perms::owner_all);
    EXPECT_EQ(ReadFileBytes(old), "old");
}

}  // namespace
}  // namespace ortelix
