// The line decoder of NMEA logs: the three sentence kinds, the options, the
// date carried from RMC, and the checksum test.
#include <gtest/gtest.h>

#include "coordinates/Geoid.h"
#include "core/ModulShared.h"
#include "core/Session.h"
#include "fake/FakePlatform.h"
#include "gpsformats/NmeaDecode.h"
#include "simulator/NmeaSentences.h"

namespace ortelix {
namespace {

// A sentence with its right checksum: body without "$" and "*".
std::string Sentence(const std::string& body) {
    const std::string s = "$" + body + "*";
    return s + NmeaPruefsumme(s);
}

int32_t Day(int y, int m, int d) { return SerialFromCivil(y, m, d); }

TEST(NmeaDecode, GgaRmcAndPmgntrkFields) {
    NmeaDecodeOptions o;
    NmeaDecodeState st;
    NmeaFix f;

    // The textbook GGA: 4807.038 N is 48 degrees 7.038 minutes.
    ASSERT_TRUE(DecodeNmeaLine("$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,*47", o, st, f));
    EXPECT_NEAR(f.lat, 48.1173, 1e-9);
    EXPECT_NEAR(f.lon, 11.516666666666667, 1e-9);
    EXPECT_EQ(*f.time, 12 * 3600 + 35 * 60 + 19);
    EXPECT_DOUBLE_EQ(*f.alt, 545.4);
    EXPECT_EQ(f.sat, "08");
    EXPECT_EQ(f.fix, "1");
    // Before any RMC there is no date, and GGA has no speed nor course.
    EXPECT_TRUE(f.date.empty());
    EXPECT_TRUE(f.speed.empty());
    EXPECT_TRUE(f.course.empty());

    // RMC: speed 22.4 knots times 1.8532 is 41.51..., cut to 41; the
    // southern and western hemispheres negate.
    ASSERT_TRUE(DecodeNmeaLine("$GPRMC,225446,A,4916.45,S,12311.12,W,022.4,084.4,230394,003.1,W*6A", o, st, f));
    EXPECT_NEAR(f.lat, -(49 + 16.45 / 60), 1e-9);
    EXPECT_NEAR(f.lon, -(123 + 11.12 / 60), 1e-9);
    EXPECT_EQ(*f.speed, 41);
    EXPECT_EQ(*f.course, 84);
    EXPECT_EQ(*f.date, Day(1994, 3, 23));
    EXPECT_EQ(*f.time, 22 * 3600 + 54 * 60 + 46);
    EXPECT_TRUE(f.alt.empty());
    EXPECT_EQ(*st.lastDate, Day(1994, 3, 23));

    // The GGA after it takes the RMC's date.
    ASSERT_TRUE(DecodeNmeaLine(Sentence("GPGGA,225447.00,4916.46,S,12311.13,W,1,05,1.2,12.0,M,,M,,"), o, st, f));
    EXPECT_EQ(*f.date, Day(1994, 3, 23));
    EXPECT_EQ(*f.time, 22 * 3600 + 54 * 60 + 47);

    // PMGNTRK: an altitude in feet becomes metres; its own date when it has one ...
    ASSERT_TRUE(DecodeNmeaLine(Sentence("PMGNTRK,4914.967,N,12312.653,W,00328,F,201518.51,A,,020201"), o, st, f));
    EXPECT_NEAR(*f.alt, 328 * 0.3048, 1e-9);
    EXPECT_EQ(*f.time, 20 * 3600 + 15 * 60 + 18);
    EXPECT_EQ(*f.date, Day(2001, 2, 2));
    EXPECT_NEAR(f.lat, 49 + 14.967 / 60, 1e-9);
    // ... else the last RMC's, which its own date does not change.
    ASSERT_TRUE(DecodeNmeaLine(Sentence("PMGNTRK,4914.967,N,12312.653,W,100,M,201519,A,,"), o, st, f));
    EXPECT_EQ(*f.date, Day(1994, 3, 23));
    EXPECT_DOUBLE_EQ(*f.alt, 100);

    // A GNSS receiver's names, a lost "$", and a CR at the end are all read.
    EXPECT_TRUE(DecodeNmeaLine("$GNGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,*59\r", o, st, f));
    EXPECT_TRUE(DecodeNmeaLine("GPRMC,123519,A,4807.038,N,01131.000,E,0.0,0.0,010124,,", o, st, f));
    EXPECT_EQ(*f.date, Day(2024, 1, 1));

    // Other sentences and lines without a position give nothing.
    EXPECT_FALSE(DecodeNmeaLine("$GPGSA,A,3,08,24,10,27,28,17,26,29,,,,,2.3,1.4,1.9*37", o, st, f));
    EXPECT_FALSE(DecodeNmeaLine("$GPVTG,084.4,T,,,022.4,N,041.5,K*47", o, st, f));
    EXPECT_FALSE(DecodeNmeaLine("$GPGGA,123519,,,,,0,00,,,M,,M,,*66", o, st, f));
    EXPECT_FALSE(DecodeNmeaLine("$GPGGA,123519,4807.038,N,0,E,1,08,0.9,545.4,M,,M,,", o, st, f));
    EXPECT_FALSE(DecodeNmeaLine("", o, st, f));
    EXPECT_FALSE(DecodeNmeaLine("GGA", o, st, f));
    // "GGA" must stand within the first six characters.
    EXPECT_FALSE(DecodeNmeaLine("$PXXXXGGA,123519,4807.038,N,01131.000,E", o, st, f));
}

TEST(NmeaDecode, BrokenTimesAndDatesAreEmpty) {
    NmeaDecodeOptions o;
    NmeaDecodeState st;
    NmeaFix f;
    // An RMC with no valid date clears the carried date.
    ASSERT_TRUE(DecodeNmeaLine("$GPRMC,250000,A,4807.038,N,01131.000,E,,,310224,,", o, st, f));
    EXPECT_TRUE(f.time.empty());  // hour 25
    EXPECT_TRUE(f.date.empty());  // 31 February
    EXPECT_TRUE(f.speed.empty());
    EXPECT_TRUE(f.course.empty());
    EXPECT_TRUE(st.lastDate.empty());

    // A course too large to fold into the circle is none; a negative one folds.
    ASSERT_TRUE(DecodeNmeaLine("$GPRMC,120000,A,4807.038,N,01131.000,E,1.0,9.1e18,010124,,", o, st, f));
    EXPECT_TRUE(f.course.empty());
    ASSERT_TRUE(DecodeNmeaLine("$GPRMC,120000,A,4807.038,N,01131.000,E,1.0,-90.5,010124,,", o, st, f));
    EXPECT_EQ(*f.course, 269);

    EXPECT_EQ(NmeaTime("235959.99"), Time(86399));
    EXPECT_TRUE(NmeaTime("236000").empty());
    EXPECT_TRUE(NmeaTime("12").empty());
    EXPECT_TRUE(NmeaTime("1a3519").empty());
    EXPECT_EQ(NmeaDate("290224"), Date(Day(2024, 2, 29)));
    EXPECT_EQ(NmeaDate("010199"), Date(Day(1999, 1, 1)));
    EXPECT_TRUE(NmeaDate("290223").empty());
    EXPECT_TRUE(NmeaDate("0101").empty());
    EXPECT_NEAR(NmeaDegrees("00030.0000"), 0.5, 1e-12);
    EXPECT_NEAR(NmeaDegrees("-4807.038"), -48.1173, 1e-9);
}

TEST(NmeaDecode, HoursOffsetMovesTimeAndDateAcrossMidnight) {
    NmeaDecodeOptions o;
    o.hours = 2;
    NmeaDecodeState st;
    NmeaFix f;
    // 23:30 on the 31st of December plus two hours is 01:30 on New Year's day.
    ASSERT_TRUE(DecodeNmeaLine("$GPRMC,233000,A,4807.038,N,01131.000,E,1.0,10.0,311223,,", o, st, f));
    EXPECT_EQ(*f.time, 1 * 3600 + 30 * 60);
    EXPECT_EQ(*f.date, Day(2024, 1, 1));
    // The carried date stays the sentence's own: the next GGA moves it again.
    EXPECT_EQ(*st.lastDate, Day(2023, 12, 31));
    ASSERT_TRUE(DecodeNmeaLine("$GPGGA,120000,4807.038,N,01131.000,E,1,08,0.9,545.4,M,,M,,", o, st, f));
    EXPECT_EQ(*f.time, 14 * 3600);
    EXPECT_EQ(*f.date, Day(2023, 12, 31));

    // Back across midnight with a negative offset.
    o.hours = -3;
    ASSERT_TRUE(DecodeNmeaLine("$GPRMC,010000,A,4807.038,N,01131.000,E,,,010124,,", o, st, f));
    EXPECT_EQ(*f.time, 22 * 3600);
    EXPECT_EQ(*f.date, Day(2023, 12, 31));

    // Without a date the time wraps within its day.
    NmeaDecodeState fresh;
    ASSERT_TRUE(DecodeNmeaLine("$GPGGA,010000,4807.038,N,01131.000,E,1,08,0.9,545.4,M,,M,,", o, fresh, f));
    EXPECT_EQ(*f.time, 22 * 3600);
    EXPECT_TRUE(f.date.empty());
}

TEST(NmeaDecode, ChecksumOption) {
    const std::string good = "$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,*47";
    EXPECT_TRUE(NmeaChecksumOk(good));
    EXPECT_TRUE(NmeaChecksumOk("$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,*47\r"));
    // Lower-case hex digits are read too.
    EXPECT_TRUE(NmeaChecksumOk("$GPRMC,225446,A,4916.45,N,12311.12,W,000.5,054.7,191194,020.3,E*68"));
    EXPECT_FALSE(NmeaChecksumOk("$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,*48"));
    // No "*" at all, and "*" before "$".
    EXPECT_FALSE(NmeaChecksumOk("$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,"));
    EXPECT_FALSE(NmeaChecksumOk("*47$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,"));
    // A line that lost its "$" is summed from its start.
    EXPECT_TRUE(NmeaChecksumOk("GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,*47"));
    // A sum below 16 with its leading zero, and the same read from one digit.
    const std::string low = Sentence("GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,K");
    ASSERT_EQ(low.substr(low.size() - 3), "*0C");
    ASSERT_EQ(low.substr(low.size() - 2, 1), "0");
    EXPECT_TRUE(NmeaChecksumOk(low));
    EXPECT_TRUE(NmeaChecksumOk(low.substr(0, low.size() - 2) + low.substr(low.size() - 1)));

    NmeaDecodeOptions o;
    NmeaDecodeState st;
    NmeaFix f;
    const std::string noStar = "$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,";
    EXPECT_TRUE(DecodeNmeaLine(noStar, o, st, f));
    o.checksum = true;
    EXPECT_FALSE(DecodeNmeaLine(noStar, o, st, f));
    EXPECT_TRUE(DecodeNmeaLine(good, o, st, f));
    // A bad RMC gives neither a position nor the date for what follows.
    EXPECT_FALSE(DecodeNmeaLine("$GPRMC,225446,A,4916.45,N,12311.12,W,000.5,054.7,191194,020.3,E*69", o, st, f));
    EXPECT_TRUE(st.lastDate.empty());
}

TEST(NmeaDecode, GeoidCorrectionAndAltitudeTest) {
    FakePlatform p;
    Session s(p);
    const std::string line = "$GPGGA,123519,5030.000,N,00935.000,E,1,08,0.9,545.4,M,46.9,M,,*47";
    const double geoid = GeoidHoehe(s, 9 + 35.0 / 60, 50.5);
    ASSERT_GT(geoid, 30) << "the geoid grid of the data folder is missing";

    s.options.Check[21] = 0;
    NmeaDecodeState st;
    NmeaFix f;
    ASSERT_TRUE(DecodeNmeaLine(line, NmeaOptionsOf(s), st, f));
    EXPECT_DOUBLE_EQ(*f.alt, 545.4);  // as it stands; the store rounds it

    // The geoid height goes off, then 0.499 on and the whole number below.
    s.options.Check[21] = 1;
    ASSERT_TRUE(DecodeNmeaLine(line, NmeaOptionsOf(s), st, f));
    EXPECT_DOUBLE_EQ(*f.alt, std::floor(545.4 - geoid + 0.499));

    // The altitude test drops an altitude of 0, but not an empty one nor 0.4.
    s.options.Check[21] = 0;
    s.options.Check[29] = 1;
    const NmeaDecodeOptions o = NmeaOptionsOf(s);
    EXPECT_FALSE(DecodeNmeaLine("$GPGGA,123519,5030.000,N,00935.000,E,1,08,0.9,0.0,M,,M,,", o, st, f));
    EXPECT_TRUE(DecodeNmeaLine("$GPGGA,123519,5030.000,N,00935.000,E,1,08,0.9,0.4,M,,M,,", o, st, f));
    EXPECT_TRUE(DecodeNmeaLine("$GPGGA,123519,5030.000,N,00935.000,E,1,08,0.9,,M,,M,,", o, st, f));
    EXPECT_TRUE(DecodeNmeaLine("$GPRMC,123519,A,5030.000,N,00935.000,E,1.0,10.0,010124,,", o, st, f));

    // With the correction on, it is the corrected altitude that is tested.
    s.options.Check[21] = 1;
    const std::string atGeoid = "$GPGGA,123519,5030.000,N,00935.000,E,1,08,0.9," + FormatFixed(geoid, 2) + ",M,,M,,";
    EXPECT_FALSE(DecodeNmeaLine(atGeoid, NmeaOptionsOf(s), st, f));

    // The hours offset is the whole number of its field.
    s.options.KarteKoordInput[25] = "2.9";
    EXPECT_EQ(NmeaOptionsOf(s).hours, 2);
    s.options.KarteKoordInput[25] = "-1";
    EXPECT_EQ(NmeaOptionsOf(s).hours, -1);
}

}  // namespace
}  // namespace ortelix
