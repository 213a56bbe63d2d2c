// The shared number, text, date and path routines, at their limits.
#include <gtest/gtest.h>

#include "core/Charset.h"
#include "core/DateTime.h"
#include "core/ModulShared.h"

namespace ortelix {
namespace {

TEST(Text, LeadingNumberRule) {
    EXPECT_EQ(LeadingNumber("12.5 km"), 12.5);
    EXPECT_EQ(LeadingNumber("abc"), 0);
    EXPECT_EQ(LeadingNumber("  -3.25x"), -3.25);
    EXPECT_EQ(LeadingNumber("+7"), 7);
    EXPECT_EQ(LeadingNumber(".5"), 0.5);
    EXPECT_EQ(LeadingNumber("4."), 4);
    EXPECT_EQ(LeadingNumber("1e3m"), 1000);
    EXPECT_EQ(LeadingNumber("2e"), 2);
    EXPECT_EQ(LeadingNumber("12,5"), 12);  // no decimal comma here
    EXPECT_EQ(ParseCoordinate("12,5"), 12.5);
    EXPECT_EQ(ParseCoordinate("1,5,7"), 1.5);
    EXPECT_EQ(ParseCoordinate(""), 0);
}

TEST(Text, AltitudeSpeedCourseLimits) {
    EXPECT_TRUE(ParseAltitude("-101").empty());
    EXPECT_EQ(*ParseAltitude("-100"), -100);
    EXPECT_TRUE(ParseAltitude("-100.5").empty());  // rounded down first
    EXPECT_EQ(*ParseAltitude("0"), 0);
    EXPECT_FALSE(ParseAltitude("0").empty());
    EXPECT_TRUE(ParseAltitude("").empty());
    EXPECT_EQ(*ParseAltitude("512.9"), 512);

    EXPECT_EQ(*ParseSpeed("2500"), 2000);
    EXPECT_EQ(*ParseSpeed("-3"), 0);
    EXPECT_EQ(*ParseSpeed("1.9"), 1);
    EXPECT_TRUE(ParseSpeed("").empty());

    EXPECT_EQ(*ParseCourse("725"), 5);
    EXPECT_EQ(*ParseCourse("-90"), 270);
    EXPECT_EQ(*ParseCourse("359.9"), 359);
    EXPECT_EQ(*ParseCourse("360"), 0);
}

TEST(Text, NumberForms) {
    EXPECT_EQ(FormatFixed(1.005, 0), "1");
    EXPECT_EQ(FormatFixed(48.1234565, 6), "48.123457");
    EXPECT_EQ(FormatFixed(-0.0000001, 3), "0.000");
    EXPECT_EQ(FormatFixed(-2.5, 2), "-2.50");
    EXPECT_EQ(FormatPoint(3.5, "#0.0####"), "3.5");
    EXPECT_EQ(FormatPoint(3.123456, "#0.0####"), "3.12346");
    EXPECT_EQ(FormatPoint(7, "00000"), "00007");
    EXPECT_EQ(FormatPoint(0.25, "#.##"), ".25");
    EXPECT_EQ(PointText("1,5;2,5"), "1.5;2.5");
    EXPECT_EQ(AltitudeFeet(100.0), "328");
    EXPECT_EQ(AltitudeFeet(OptDouble()), "-777");
    EXPECT_EQ(AltitudeFeet(0.0), "0");
    EXPECT_EQ(Pad5(42), "00042");
    EXPECT_EQ(Pad5(123456), "123456");
}

TEST(Text, HemisphereLetters) {
    EXPECT_EQ(LatLetter(48.5), "N48.5000000");
    EXPECT_EQ(LatLetter(-5.25), "S05.2500000");
    EXPECT_EQ(LatLetter(0), "N00.0000000");
    EXPECT_EQ(LonLetter(11.5), "E011.5000000");
    EXPECT_EQ(LonLetter(-0.5), "W000.5000000");
    EXPECT_EQ(LonLetter2(-7.125), "W07.1250000");
    EXPECT_EQ(LatSign(-1), "-01.0000000");
    EXPECT_EQ(LonSign(120), "+120.0000000");
    EXPECT_EQ(GradMinuten(48.5), "48 Grad 30.0 Minuten");
    EXPECT_EQ(GradMinSek(10.5125), "10 Grad 30 Minuten 45.0 Sekunden");
}

TEST(Text, OziTextCutsAndReplacesCommas) {
    EXPECT_EQ(OziText(" a,b "), "a\xC3\x91" "b");
    const std::string forty(40, 'x');
    EXPECT_EQ(OziText(forty + "y"), forty);
    EXPECT_EQ(OziTextLong(forty + "y"), forty + "y");
    // the cut counts characters, not bytes
    EXPECT_EQ(OziText(std::string(39, 'x') + "\xC3\xBC\xC3\xBC"), std::string(39, 'x') + "\xC3\xBC");
}

TEST(Text, Fields) {
    size_t pos = 0;
    const std::string_view line = "a,b,,d";
    EXPECT_EQ(NextField(line, pos, ','), "a");
    EXPECT_EQ(NextField(line, pos, ','), "b");
    EXPECT_EQ(NextField(line, pos, ','), "");
    EXPECT_EQ(NextField(line, pos, ','), "d");
    EXPECT_GT(pos, line.size());
    pos = 0;
    EXPECT_EQ(NextQuoted("\"x,y\",z", pos, ','), "x,y");
    EXPECT_EQ(NextQuoted("\"x,y\",z", pos, ','), "z");
    pos = 0;
    EXPECT_EQ(NextWord("  eins   zwei", pos), "eins");
    EXPECT_EQ(NextWord("  eins   zwei", pos), "zwei");
    EXPECT_EQ(StripQuotes("  \"Haus\" "), "Haus");
    const CsvRow r = CsvFields("11.5,48.25,Name,7");
    EXPECT_EQ(r.lon, 11.5);
    EXPECT_EQ(r.lat, 48.25);
    ASSERT_EQ(r.rest.size(), 2u);
    EXPECT_EQ(r.rest[1], "7");
    EXPECT_EQ(SemicolonFields("1,5;2,5").lat, 2.5);
}

TEST(Text, Cleaning) {
    EXPECT_EQ(ReplaceUmlauts("Größe Übel ärgern"), "Groesse Uebel aergern");
    EXPECT_EQ(SafeName("a b c"), "a_b_c");
    EXPECT_EQ(ToUtf8("\xC3\xA9"), "\xC3\x83\xC2\xA9");  // é becomes the two characters of its UTF-8 form
    EXPECT_EQ(FromUtf8(ToUtf8("caf\xC3\xA9")), "caf\xC3\xA9");
    EXPECT_EQ(StripCdata("<![CDATA[Tour & mehr]]>"), "Tour & mehr");
    EXPECT_EQ(StripCdata("<![CDATA[offen"), "<![CDATA[offen");
}

TEST(Text, Dates) {
    const int32_t feb16 = SerialFromCivil(2006, 2, 16);
    EXPECT_EQ(feb16, 38764);
    EXPECT_EQ(SerialFromCivil(1899, 12, 30), 0);
    EXPECT_EQ(*ParseDate("2006-02-16T16:23:10Z"), feb16);
    EXPECT_EQ(*ParseDate("2006-02-16"), feb16);
    EXPECT_EQ(*ParseDate("16.02.2006"), feb16);
    EXPECT_EQ(*ParseDate("16.2.06"), feb16);
    EXPECT_TRUE(ParseDate("2006-02-30T00:00:00Z").empty());
    EXPECT_TRUE(ParseDate("Montag").empty());
    EXPECT_EQ(*ParseTime("2006-02-16T16:23:10Z"), 16 * 3600 + 23 * 60 + 10);
    EXPECT_EQ(*ParseTime("08:05:09"), 8 * 3600 + 5 * 60 + 9);
    EXPECT_TRUE(ParseTime("25:00:00").empty());
    EXPECT_EQ(*ParseMonthDate("16-FEB-06"), feb16);
    EXPECT_EQ(*ParseMonthDate("16-Feb-2006 10:00"), feb16);
    EXPECT_EQ(*ParseMonthDate("kein Datum"), 0);
    const DateAndTime dt = NormaliseDateTime("2006-02-16T01:02:03Z");
    EXPECT_EQ(*dt.date, feb16);
    EXPECT_EQ(*dt.time, 3723);
    EXPECT_EQ(IsoDate(feb16), "2006-02-16");
    EXPECT_EQ(ClockTime(feb16 + 0.5), "12:00:00");
    const CivilDate c = CivilFromSerial(SerialFromCivil(2000, 2, 29));
    EXPECT_EQ(c.year * 10000 + c.month * 100 + c.day, 20000229);
}

TEST(Text, SplitPath) {
    EXPECT_EQ(SplitPath("/home/u/tour.v2.gpx", 1), "tour.v2");
    EXPECT_EQ(SplitPath("/home/u/tour.v2.gpx", 2), "tour.v2.gpx");
    EXPECT_EQ(SplitPath("/home/u/tour.v2.gpx", 3), "/home/u");
    EXPECT_EQ(SplitPath("/home/u/tour.v2.gpx", 4), "/home/u/tour.v2");
    EXPECT_EQ(SplitPath("/home/u/tour.v2.gpx", 5), "gpx");
    EXPECT_EQ(SplitPath("/home/u.d/tour", 5), "");  // a point before the last "/" is no extension
    EXPECT_EQ(SplitPath("/home/u.d/tour", 4), "/home/u.d/tour");
}

TEST(Text, Charsets) {
    EXPECT_EQ(DecodeToUtf8("M\xFCnchen", Charset::Latin1), "M\xC3\xBCnchen");
    EXPECT_EQ(DecodeToUtf8("\x80", Charset::Windows1252), "\xE2\x82\xAC");
    EXPECT_EQ(EncodeFromUtf8("M\xC3\xBCnchen \xE2\x82\xAC", Charset::Latin1), "M\xFCnchen ?");
    EXPECT_EQ(EncodeFromUtf8("\xE2\x82\xAC", Charset::Windows1252), "\x80");
    EXPECT_EQ(DecodeToUtf8("caf\xE9", Charset::Utf8), "caf\xC3\xA9");  // not UTF-8 after all: kept as characters
}

}  // namespace
}  // namespace ortelix

#include <charconv>
#include <random>

namespace ortelix {
namespace {

// The quick path for short decimals must give the very double that from_chars gives.
TEST(Text, LeadingNumberMatchesFromChars) {
    std::mt19937_64 rng(42);
    for (int i = 0; i < 20000; ++i) {
        const double v = std::uniform_real_distribution<double>(-1000, 1000)(rng);
        const int decimals = static_cast<int>(rng() % 16);
        char buf[64];
        auto r = std::to_chars(buf, buf + sizeof buf, v, std::chars_format::fixed, decimals);
        const std::string_view text(buf, static_cast<size_t>(r.ptr - buf));
        double expected = 0;
        std::from_chars(text.data(), text.data() + text.size(), expected);
        ASSERT_EQ(LeadingNumber(text), expected) << text;
    }
}

}  // namespace
}  // namespace ortelix

#include "core/FixedDecimals.h"

namespace ortelix {
namespace {

// The quick fixed-decimal form must equal to_chars, ties and large values included.
TEST(Text, FixedDecimalsMatchToChars) {
    std::mt19937_64 rng(9);
    std::uniform_real_distribution<double> any(-2e9, 2e9);
    for (int i = 0; i < 100000; ++i) {
        const int decimals = static_cast<int>(rng() % 10);
        double v = any(rng) / std::pow(10.0, static_cast<double>(rng() % 12));
        if (i % 7 == 0) v = std::round(v * 1000) / 1000 + 0.0005;  // near ties
        char ours[400], theirs[400];
        const std::string_view a(ours, static_cast<size_t>(PutFixed(ours, v, decimals) - ours));
        auto r = std::to_chars(theirs, theirs + 400, v, std::chars_format::fixed, decimals);
        std::string b(theirs, r.ptr);
        if (b[0] == '-' && b.find_first_not_of("-0.") == std::string::npos) b.erase(0, 1);
        ASSERT_EQ(a, b) << v << " " << decimals;
    }
}

}  // namespace
}  // namespace ortelix
