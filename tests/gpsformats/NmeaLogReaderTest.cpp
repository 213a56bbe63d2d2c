// Reading NMEA logs into the store: the two passes with the date choice,
// the one pass of batch reading, the options, the end of a read.
#include <gtest/gtest.h>

#include "commands/CommandRun.h"
#include "commands/CommandTable.h"
#include "commands/LineReaders.h"
#include "core/ModulShared.h"
#include "core/ReadFilter.h"
#include "core/Session.h"
#include "fake/FakePlatform.h"
#include "fake/TestFiles.h"
#include "gpsformats/Nmea.h"
#include "simulator/NmeaSentences.h"

namespace ortelix {
namespace {

std::string Sentence(const std::string& body) {
    const std::string s = "$" + body + "*";
    return s + NmeaPruefsumme(s) + "\r\n";
}

// An RMC and a GGA line of one fix at 50 N, `east` minutes of longitude.
std::string Fix(const std::string& hhmmss, const std::string& ddmmyy, double east, int alt = 200) {
    const std::string lon = "009" + FormatPoint(east, "00.0000");
    return Sentence("GPRMC," + hhmmss + ".00,A,5000.0000,N," + lon + ",E,010.0,090.0," + ddmmyy + ",,") +
           Sentence("GPGGA," + hhmmss + ".00,5000.0000,N," + lon + ",E,1,07,1.2," + std::to_string(alt) + ".0,M,,M,,");
}

class NmeaLogReader : public ::testing::Test {
protected:
    void SetUp() override {
        dir = testfiles::FreshFolder("gpsformats", std::string("nmea-") +
                                     ::testing::UnitTest::GetInstance()->current_test_info()->name());
        s.options.Check[21] = 0;  // altitudes as the lines give them
    }
    std::string Put(const std::string& name, const std::string& bytes) { return testfiles::Put(dir / name, bytes); }
    const std::vector<TrackPoint>& Points(size_t track = 0) { return s.store.Tracks.at(track).Points; }

    FakePlatform p;
    Session s{p};
    std::filesystem::path dir;
};

TEST_F(NmeaLogReader, AcrossMidnightTheDateChoiceShowsBothDates) {
    const std::string log = Fix("235958", "310524", 1) + Fix("235959", "310524", 2) + Fix("000000", "010624", 3) +
                            Fix("000001", "010624", 4);
    const std::string path = Put("midnight.nmea", log);

    // Only the second day ticked: its points pass, and those of the first do not.
    p.dateAnswer = {false, true};
    s.store.PendingName = "midnight";
    ReadTrackFile(s, path, 1);
    EXPECT_EQ(p.datesAsked, (std::vector<std::string>{"2024-05-31", "2024-06-01"}));
    ASSERT_EQ(s.store.Tracks.size(), 1u);
    EXPECT_EQ(s.store.Tracks[0].Name, "midnight");
    // The RMC and the GGA of 00:00:00 and of 00:00:01; the GGA of 00:00:00
    // follows the RMC of the same second and so carries the new date.
    ASSERT_EQ(Points().size(), 4u);
    for (const TrackPoint& tp : Points()) EXPECT_EQ(*tp.Date_, SerialFromCivil(2024, 6, 1));
    EXPECT_EQ(*Points()[0].Time_, 0);
    EXPECT_EQ(*Points()[3].Time_, 1);
    EXPECT_TRUE(s.dates.Dates.empty()) << "the choice is cleared after the read";
    EXPECT_EQ(s.store.StatusText.text(), "Fertig");

    // Batch reading's one pass asks nothing and takes every fix.
    Session batch(p);
    batch.options.Check[21] = 0;
    p.datesAsked.clear();
    ReadTrackFile(batch, path, 2);
    EXPECT_TRUE(p.datesAsked.empty());
    ASSERT_EQ(batch.store.Tracks.size(), 1u);
    EXPECT_EQ(batch.store.Tracks[0].Points.size(), 8u);

    // A log of one day asks nothing either.
    Session oneDay(p);
    ReadTrackFile(oneDay, Put("day.nmea", Fix("120000", "010624", 1) + Fix("120001", "010624", 2)), 1);
    EXPECT_TRUE(p.datesAsked.empty());
    EXPECT_EQ(oneDay.store.Tracks.at(0).Points.size(), 4u);
}

TEST_F(NmeaLogReader, PointsCarryWhatTheirSentenceGives) {
    ReadNmeaLogText(s, Fix("101500", "150324", 30, 345), false);
    ASSERT_EQ(Points().size(), 2u);
    const TrackPoint& rmc = Points()[0];
    const TrackPoint& gga = Points()[1];
    EXPECT_NEAR(rmc.Lat, 50.0, 1e-12);
    EXPECT_NEAR(rmc.Lon, 9.5, 1e-12);
    // 10 knots of 1.8532 km/h is 18.532, cut to 18.
    EXPECT_DOUBLE_EQ(*rmc.Speed, 18);
    EXPECT_EQ(*rmc.Course, 90);
    EXPECT_TRUE(rmc.Alt.empty());
    EXPECT_EQ(*rmc.Date_, SerialFromCivil(2024, 3, 15));
    EXPECT_EQ(*gga.Alt, 345);
    EXPECT_EQ(*gga.Sat, 7);
    EXPECT_EQ(gga.Fix.view(), "1");
    EXPECT_TRUE(gga.Speed.empty());
    EXPECT_EQ(*gga.Date_, SerialFromCivil(2024, 3, 15));
    EXPECT_EQ(*gga.Time_, 10 * 3600 + 15 * 60);
}

TEST_F(NmeaLogReader, GgaOnlyLogsHaveNeitherDateNorSpeed) {
    std::string log;
    for (int i = 0; i < 5; ++i)
        log += Sentence("GPGGA,12000" + std::to_string(i) + ",4807.038,N,01131.00" + std::to_string(i) +
                        ",E,1,08,0.9,545.4,M,46.9,M,,");
    ReadNmeaLogText(s, log, true);
    EXPECT_TRUE(p.datesAsked.empty());
    ASSERT_EQ(Points().size(), 5u);
    for (const TrackPoint& tp : Points()) {
        EXPECT_TRUE(tp.Date_.empty());
        EXPECT_TRUE(tp.Speed.empty());
        EXPECT_TRUE(tp.Course.empty());
        EXPECT_EQ(*tp.Alt, 545);  // as it stands, rounded
        EXPECT_NEAR(tp.Lat, 48.1173, 1e-9);
    }
    EXPECT_EQ(*Points()[4].Time_, 12 * 3600 + 4);
}

TEST_F(NmeaLogReader, ChecksumOptionDropsLinesWithoutOne) {
    const std::string log = Fix("120000", "010624", 1) +
                            "$GPGGA,120001.00,5000.0000,N,00902.0000,E,1,07,1.2,200.0,M,,M,,\r\n" +
                            "$GPGGA,120002.00,5000.0000,N,00903.0000,E,1,07,1.2,200.0,M,,M,,*00\r\n" +
                            "GPGGA,120003.00,5000.0000,N,00904.0000,E,1,07,1.2,200.0,M,,M,,*47$\r\n";
    ReadNmeaLogText(s, log, true);
    EXPECT_EQ(Points().size(), 5u);

    Session checked(p);
    checked.options.Check[7] = 1;
    ReadNmeaLogText(checked, log, true);
    ASSERT_EQ(checked.store.Tracks.at(0).Points.size(), 2u);
    EXPECT_EQ(*checked.store.Tracks[0].Points[1].Time_, 12 * 3600);
}

TEST_F(NmeaLogReader, LineEndsOfEveryKind) {
    // LF alone (TomTom), CR LF, a CR alone, and a last line without an end.
    std::string crlf = Fix("120000", "010624", 1) + Fix("120001", "010624", 2);
    std::string lf, cr;
    for (char c : crlf) {
        if (c != '\r') lf += c;
        if (c != '\n') cr += c;
    }
    crlf.resize(crlf.size() - 2);
    for (const std::string& log : {lf, cr, crlf}) {
        Session one(p);
        one.options.Check[21] = 0;
        ReadNmeaLogText(one, log, false);
        ASSERT_EQ(one.store.Tracks.at(0).Points.size(), 4u);
        EXPECT_EQ(*one.store.Tracks[0].Points[3].Alt, 200);
    }
}

TEST_F(NmeaLogReader, EndWaypointStatisticsAndAppending) {
    s.options.Check[18] = 1;
    p.yieldAdvance = 1;  // every poll of the events reaches the platform
    std::vector<std::string> shown;
    p.onYield = [&] { shown.push_back(s.store.StatusText.text()); };
    s.store.PendingName = "tour";
    // 0.6 minutes of latitude in 2 minutes: 1.11 km.
    ReadNmeaLogText(s, Sentence("GPRMC,100000,A,5000.0000,N,00900.0000,E,,,010624,,") +
                           Sentence("GPRMC,100200,A,5000.6000,N,00900.0000,E,,,010624,,"),
                    true);
    ASSERT_EQ(Points().size(), 2u);
    // The start waypoint of the filter, then the end waypoint of the read.
    ASSERT_EQ(s.store.WayPoints.size(), 2u);
    EXPECT_EQ(s.store.WayPoints[1].Name, "Ende tour 1.1 km");
    EXPECT_EQ(s.store.WayPoints[1].Desc, "tour Strecke:1.1 km Dauer:00:02 Std:Min");
    EXPECT_NEAR(s.store.WayPoints[1].Lat, 50.01, 1e-9);
    // The statistics stood on the status line before "Fertig".
    ASSERT_FALSE(shown.empty());
    EXPECT_EQ(shown.back(), "tour Strecke:1.1 km Dauer:00:02 Std:Min");
    EXPECT_EQ(s.store.StatusText.text(), "Fertig");

    // "Tracks anhängen": the next log goes on in the same track.
    s.options.Check[12] = 1;
    s.options.Check[18] = 0;
    ReadNmeaLogText(s, Sentence("GPRMC,100300,A,5000.7000,N,00900.0000,E,,,010624,,"), true);
    EXPECT_EQ(s.store.Tracks.size(), 1u);
    EXPECT_EQ(Points().size(), 3u);
    // Without it, a new track.
    s.options.Check[12] = 0;
    ReadNmeaLogText(s, Sentence("GPRMC,100400,A,5000.8000,N,00900.0000,E,,,010624,,"), true);
    EXPECT_EQ(s.store.Tracks.size(), 2u);
}

TEST_F(NmeaLogReader, CommandsOfTheTable) {
    const std::string path = Put("run.log", Fix("120000", "010624", 1));
    // The menu reader, batch reading by extension, and the command line's name.
    const Command* menu = FindCommand("MenEinNMEA");
    ASSERT_NE(menu, nullptr);
    EXPECT_TRUE(ReadWith(s, *menu, path));
    EXPECT_EQ(s.store.Tracks.at(0).Name, "run");
    for (const char* ext : {"nmea", "pgl", "log"}) {
        ASSERT_NE(BatchReader(ext), nullptr) << ext;
        EXPECT_STREQ(BatchReader(ext)->control, "BatchNMEALog");
    }
    EXPECT_EQ(BatchRead(s, {path, Put("other.log", Fix("130000", "020624", 2))}), 2);
    EXPECT_EQ(s.store.Tracks.size(), 3u);
    EXPECT_EQ(s.store.Tracks[2].Name, "other");
    EXPECT_EQ(FindFormat("nmea", CommandKind::Read), menu);
    EXPECT_EQ(FindFormat("pgl", CommandKind::Read), menu);
    // A log without a single fix brings nothing.
    EXPECT_FALSE(ReadWith(s, *menu, Put("empty.nmea", "$GPGSA,A,3,,,,,,,,,,,,,2.3,1.4,1.9*37\r\n")));
    EXPECT_EQ(s.store.StatusText.text(), "Keine Daten gefunden: empty.nmea");
    // A missing file is the reader's failure message.
    EXPECT_FALSE(ReadWith(s, *menu, (dir / "missing.nmea").string()));
    ASSERT_FALSE(p.messages.empty());
    EXPECT_EQ(p.messages.back().text.rfind("Die Daten können nicht eingelesen werden.\r\n\r\nUrsache: ", 0), 0u);
}

}  // namespace
}  // namespace ortelix
