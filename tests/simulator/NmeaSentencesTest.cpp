#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/DateTime.h"
#include "simulator/NmeaSentences.h"

namespace ortelix {
namespace {

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    size_t pos = 0;
    while (pos < text.size()) {
        const size_t end = text.find("\r\n", pos);
        if (end == std::string::npos) {
            lines.push_back(text.substr(pos) + "<no CR LF>");
            break;
        }
        lines.push_back(text.substr(pos, end - pos));
        pos = end + 2;
    }
    return lines;
}

SimFix WestOfIreland() {
    SimFix f;
    f.SimLon = -12.5;
    f.SimLat = 52.25;
    f.SimAlt = 35.46;
    f.SimSpeed = 100;
    f.SimCourse = -90;
    f.SimDate = SerialFromCivil(2024, 6, 1);
    f.SimTime = 8 * 3600 + 30 * 60 + 15;
    return f;
}

TEST(NmeaSentences, OneCycleIsSevenSentencesInOrderWithoutGll) {
    SimFix f = WestOfIreland();
    const std::vector<std::string> lines = Lines(NmeaSatz(f, 0));
    ASSERT_EQ(lines.size(), 7u);
    // Position fields, knots by 1.8532, course -90 as 270, an empty geoid box
    // leaving the field between the two "M" empty, checksums worked out by hand.
    EXPECT_EQ(lines[0], "$GPGGA,083015.00,5215.0000,N,01230.0000,W,1,10,8.4,35.5,M,,M,1.7,0000*7A");
    EXPECT_EQ(lines[1], "$GPRMC,083015.00,A,5215.0000,N,01230.0000,W,054.0,270.0,010624,,*28");
    EXPECT_EQ(lines[2], "$GPVTG,270.0,T,,,054.0,N,100.0,K*28");
    EXPECT_EQ(lines[3], "$GPGSA,A,3,08,24,10,27,28,17,26,29,,,,,2.3,1.4,1.9*37");
    EXPECT_EQ(lines[4], "$GPGSV,3,1,10,08,80,088,42,10,67,252,42,27,47,062,41,29,43,290,39*75");
    EXPECT_EQ(lines[5], "$GPGSV,3,2,10,28,31,153,43,17,27,276,38,26,22,286,31,21,10,328,*7B");
    EXPECT_EQ(lines[6], "$GPGSV,3,3,10,13,09,100,,24,08,219,33*76");
    for (const std::string& l : lines) EXPECT_EQ(l.find("GLL"), std::string::npos);
    EXPECT_EQ(NmeaGllSatz(f), "$GPGLL,5215.0000,N,01230.0000,W,083015.00,A*1A\r\n");
}

TEST(NmeaSentences, NumberTexts) {
    SimFix f;
    f.SimDate = SerialFromCivil(2031, 12, 24);
    f.SimTime = 23 * 3600 + 59 * 60 + 59;
    // South and east, a geoid value, slow speed and a course just below north.
    f.SimLat = -33.8568;
    f.SimLon = 151.2153;
    f.SimGeoid = 22.04;
    f.SimAlt = -3.25;
    f.SimSpeed = 5;
    f.SimCourse = 359.96;
    const std::vector<std::string> lines = Lines(NmeaSatz(f, 0));
    ASSERT_GE(lines.size(), 3u);
    // 0.8568 degrees are 51.408 minutes; 0.2153 are 12.918.
    EXPECT_EQ(lines[0].substr(0, 57), "$GPGGA,235959.00,3351.4080,S,15112.9180,E,1,10,8.4,-3.3,M");
    EXPECT_NE(lines[0].find(",M,22.0,M,1.7,0000*"), std::string::npos);
    // 5 / 1.8532 = 2.698 knots; a course that rounds up to 360 stays 360.0.
    EXPECT_NE(lines[1].find(",002.7,360.0,241231,,*"), std::string::npos) << lines[1];
    EXPECT_NE(lines[2].find("$GPVTG,360.0,T,,,002.7,N,005.0,K*"), std::string::npos) << lines[2];
    // Near the poles and the date line the fields keep their widths.
    f.SimLat = 89.5;
    f.SimLon = -179.75;
    const std::string gga = Lines(NmeaSatz(f, 0))[0];
    EXPECT_NE(gga.find(",8930.0000,N,17945.0000,W,"), std::string::npos) << gga;
    f.SimLat = 0.01;
    f.SimLon = 0.01;
    EXPECT_NE(Lines(NmeaSatz(f, 0))[0].find(",0000.6000,N,00000.6000,E,"), std::string::npos);
}

TEST(NmeaSentences, ChecksumIsTwoCapitalDigits) {
    EXPECT_EQ(NmeaPruefsumme("$AB*"), "03");  // below 16: a leading zero
    EXPECT_EQ(NmeaPruefsumme("$A*"), "41");
    EXPECT_EQ(NmeaPruefsumme("$GPGSA,A,3,08,24,10,27,28,17,26,29,,,,,2.3,1.4,1.9*"), "37");
    EXPECT_EQ(NmeaPruefsumme("$GPGSV,3,2,10,28,31,153,43,17,27,276,38,26,22,286,31,21,10,328,*"), "7B");
    EXPECT_EQ(NmeaPruefsumme("$*"), "00");
}

TEST(NmeaSentences, MissingDateAndTimeComeFromTheClockAndStay) {
    SimFix f;
    f.SimLat = 48;
    f.SimLon = 11;
    // 2024-06-01 at 12:00:00 and 7.4 seconds.
    const double moment = SerialFromCivil(2024, 6, 1) + (12 * 3600 + 7.4) / 86400.0;
    const std::string first = NmeaSatz(f, moment);
    EXPECT_EQ(*f.SimDate, SerialFromCivil(2024, 6, 1));
    EXPECT_EQ(*f.SimTime, 12 * 3600 + 7);
    EXPECT_EQ(first.substr(0, 17), "$GPGGA,120007.00,");
    EXPECT_NE(first.find(",010624,,*"), std::string::npos);
    // The stored values are kept: a later clock does not change them.
    EXPECT_EQ(NmeaSatz(f, moment + 3), first);
    // A time off the day is no time.
    f.SimTime = 90000;
    NmeaSatz(f, moment);
    EXPECT_EQ(*f.SimTime, 12 * 3600 + 7);
}

}  // namespace
}  // namespace ortelix
