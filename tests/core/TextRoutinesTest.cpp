// The shared number, text, date and path routines, at their limits.
#include <gtest/gtest.h>
#include <cmath>

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
    EXPECT_TRUE(ParseSpeed("1e309").empty());
    EXPECT_TRUE(ParseSpeed("-1e309").empty());
    EXPECT_TRUE(ParseAltitude("1e309").empty());
    EXPECT_TRUE(ParseCourse("-1e309").empty());

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
    // Halves go away from zero, as a person rounds, also where the double
    // lies a little below the half that its digits show.
    EXPECT_EQ(FormatFixed(2.5, 0), "3");
    EXPECT_EQ(FormatFixed(-2.5, 0), "-3");
    EXPECT_EQ(FormatFixed(0.5, 0), "1");
    EXPECT_EQ(FormatFixed(-0.5, 0), "-1");
    EXPECT_EQ(FormatFixed(0.125, 2), "0.13");
    EXPECT_EQ(FormatFixed(1.005, 2), "1.01");      // the double is 1.00499999999999989...
    EXPECT_EQ(FormatFixed(2.675, 2), "2.68");      // 2.67499999999999982...
    EXPECT_EQ(FormatFixed(-1.0049999999999997, 2), "-1.00");  // digits below the half stay below
    EXPECT_EQ(FormatFixed(8.1234565, 6), "8.123457");
    EXPECT_EQ(FormatFixed(-48.1234565, 6), "-48.123457");
    EXPECT_EQ(FormatFixed(9.9995, 3), "10.000");  // the carry runs into a new digit
    EXPECT_EQ(FormatFixed(-0.0049, 2), "0.00");
    EXPECT_EQ(FormatFixed(-0.005, 2), "-0.01");
    EXPECT_EQ(FormatFixed(1e21, 1), "1000000000000000000000.0");
    EXPECT_EQ(FormatFixed(123456789012.5, 0), "123456789013");
    EXPECT_EQ(FormatFixed(5e-324, 3), "0.000");
    EXPECT_EQ(FormatFixed(std::nan(""), 2), "0.00");
    EXPECT_EQ(FormatFixed(-HUGE_VAL, 1), "0.0");
    EXPECT_EQ(FormatFixed(1.5, -3), "2");  // decimals below 0 count as 0
    EXPECT_EQ(FormatFixed(1e300, 0), "1" + std::string(300, '0'));  // the digits of 1e300, not of its double
    EXPECT_EQ(FormatFixed(-1.7976931348623157e308, 2), "-17976931348623157" + std::string(292, '0') + ".00");
    EXPECT_EQ(FormatPoint(3.5, "#0.0####"), "3.5");
    EXPECT_EQ(FormatPoint(3.123456, "#0.0####"), "3.12346");
    EXPECT_EQ(FormatPoint(7, "00000"), "00007");
    EXPECT_EQ(FormatPoint(0.25, "#.##"), ".25");
    EXPECT_EQ(PointText("1,5;2,5"), "1.5;2.5");
    EXPECT_EQ(AltitudeFeet(100.0), "328");
    EXPECT_EQ(AltitudeFeet(OptDouble()), "-777");
    EXPECT_EQ(AltitudeFeet(0.0), "0");
    EXPECT_EQ(AltitudeFeet(-1.0), "-4");
    EXPECT_EQ(AltitudeFeet(1e300), FormatFixed(std::floor(1e300 * 3.2808399), 0));  // no integer overflow
    EXPECT_EQ(Pad5(42), "00042");
    EXPECT_EQ(Pad5(123456), "123456");
    EXPECT_EQ(Pad5(0), "00000");
    EXPECT_EQ(Pad5(-5), "-00005");
    EXPECT_EQ(Pad5(-123456), "-123456");
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
    // A time without a date: the time stands alone, with or without its mark.
    EXPECT_EQ(*ParseTime("16:23:10Z"), 16 * 3600 + 23 * 60 + 10);
    EXPECT_EQ(*ParseTime("T16:23:10Z"), 16 * 3600 + 23 * 60 + 10);
    EXPECT_TRUE(ParseTime("2006-02-16").empty());
    EXPECT_EQ(*ParseMonthDate("16-FEB-06"), feb16);
    EXPECT_EQ(*ParseMonthDate("16-Feb-2006 10:00"), feb16);
    EXPECT_EQ(*ParseMonthDate("kein Datum"), 0);
    const DateAndTime dt = NormaliseDateTime("2006-02-16T01:02:03Z");
    EXPECT_EQ(*dt.date, feb16);
    EXPECT_EQ(*dt.time, 3723);
    EXPECT_EQ(IsoDate(feb16), "2006-02-16");
    EXPECT_EQ(ClockTime(feb16 + 0.5), "12:00:00");
    EXPECT_EQ(ClockTime(HUGE_VAL), "00:00:00");
    EXPECT_EQ(ClockTime(std::nan("")), "00:00:00");
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

// A measure written apart from the routine: the shortest fixed digits of
// to_chars, rounded on the text with halves away from zero.
std::string PersonRounded(double v, int decimals) {
    char buf[400];
    const std::string shortest(buf, std::to_chars(buf, buf + sizeof buf, v, std::chars_format::fixed).ptr);
    const bool negative = shortest[0] == '-';
    std::string digits = shortest.substr(negative ? 1 : 0);
    size_t point = digits.find('.');
    if (point == std::string::npos) point = digits.size(), digits += '.';
    digits.append(static_cast<size_t>(decimals) + 1, '0');
    const bool up = digits[point + 1 + static_cast<size_t>(decimals)] >= '5';
    digits.resize(point + 1 + static_cast<size_t>(decimals));
    if (decimals == 0) digits.pop_back();
    for (size_t i = digits.size(); up && i-- > 0;) {
        if (digits[i] == '.') continue;
        if (digits[i] != '9') {
            ++digits[i];
            break;
        }
        digits[i] = '0';
        if (i == 0) digits.insert(0, "1");
    }
    if (negative && digits.find_first_not_of("0.") != std::string::npos) digits.insert(0, "-");
    return digits;
}

// The quick whole-number form and the digit form must both round every value
// as a person reads it: random values, values on a decimal half (the place
// where the binary value and its digits can round apart) and large values.
TEST(Text, FixedDecimalsRoundTheDigitsAPersonReads) {
    std::mt19937_64 rng(9);
    std::uniform_real_distribution<double> any(-2e9, 2e9);
    int halves = 0, apart = 0;
    for (int i = 0; i < 200000; ++i) {
        const int decimals = static_cast<int>(rng() % 10);
        double v = any(rng) / std::pow(10.0, static_cast<double>(rng() % 12));
        if (i % 3 == 0) {  // on a half: a decimal with one digit more than kept, ending in 5
            const double unit = std::pow(10.0, -decimals);
            v = (std::round(v / unit) + 0.5) * unit;
            char b[64];
            std::from_chars(b, std::to_chars(b, b + 64, v, std::chars_format::fixed, decimals + 1).ptr, v);
            ++halves;
        }
        char ours[400], digitsOnly[400], exact[400];
        const std::string expected = PersonRounded(v, decimals);
        ASSERT_EQ(std::string(ours, PutFixed(ours, v, decimals)), expected) << v << " " << decimals;
        ASSERT_EQ(std::string(digitsOnly, PutFixedByDigits(digitsOnly, v, decimals)), expected) << v;
        std::string e(exact, std::to_chars(exact, exact + 400, v, std::chars_format::fixed, decimals).ptr);
        if (e[0] == '-' && e.find_first_not_of("-0.") == std::string::npos) e.erase(0, 1);
        apart += e != expected;
    }
    EXPECT_GT(halves, 60000);
    EXPECT_GT(apart, 1000);  // the cases where the exact binary value rounds the other way
    for (double v : {1e15 + 0.5, 123456789.5, 4.35, 0.000125, 99.9999995, 2.2250738585072014e-308}) {
        for (int d = 0; d <= 12; ++d) {
            char ours[400];
            ASSERT_EQ(std::string(ours, PutFixed(ours, v, d)), PersonRounded(v, d)) << v << " " << d;
            ASSERT_EQ(std::string(ours, PutFixed(ours, -v, d)), PersonRounded(-v, d)) << -v << " " << d;
        }
    }
}

}  // namespace
}  // namespace ortelix
