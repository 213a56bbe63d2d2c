#include <gtest/gtest.h>

#include "appformats/ModOziNumbers.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <vector>
#include "core/DateTime.h"
#include "core/FixedDecimals.h"

namespace ortelix {
namespace {

std::string Koordinate(double v) {
    std::string s;
    AppendKoordinate(s, v);
    return s;
}
std::string Fuss(OptInt m) {
    std::string s;
    AppendHoeheFuss(s, m);
    return s;
}
std::string Tageswert(Date d, Time t) {
    std::string s;
    AppendTageswert(s, d, t);
    return s;
}
std::string NameOzi(std::string_view utf8) {
    std::string s;
    AppendNameOzi(s, utf8);
    return s;
}

TEST(OziNumbers, KoordinateHasSixDecimalsAndNoNegativeZero) {
    EXPECT_EQ(Koordinate(50.123456), "50.123456");
    EXPECT_EQ(Koordinate(8.0), "8.000000");
    EXPECT_EQ(Koordinate(-0.0000001), "0.000000");
    EXPECT_EQ(Koordinate(-1.25), "-1.250000");
    EXPECT_EQ(Koordinate(179.9999996), "180.000000");
}

TEST(OziNumbers, HoeheFussKeepsZeroApartFromEmpty) {
    EXPECT_EQ(Fuss(OptInt()), "-777");
    EXPECT_EQ(Fuss(0), "0");
    EXPECT_EQ(Fuss(100), "328");
    EXPECT_EQ(Fuss(149), "488");
    EXPECT_EQ(Fuss(-5), "-17");  // the whole part below: -16.4 gives -17

    EXPECT_TRUE(ParseHoeheFuss("-777").empty());
    EXPECT_TRUE(ParseHoeheFuss(" -777.0").empty());  // gpsbabel writes it with a decimal
    EXPECT_TRUE(ParseHoeheFuss("").empty());
    EXPECT_TRUE(ParseHoeheFuss("  ").empty());
    ASSERT_TRUE(ParseHoeheFuss("0").has());
    EXPECT_EQ(*ParseHoeheFuss("0"), 0);
    EXPECT_NEAR(*ParseHoeheFuss(" 328.08399"), 100.0, 1e-9);
    EXPECT_NEAR(*ParseHoeheFuss("-776"), -776 / 3.2808399, 1e-9);
}

TEST(OziNumbers, TageswertShortestDigitsAndBack) {
    const Date d = SerialFromCivil(2004, 1, 14);
    EXPECT_EQ(*d, 38000);
    EXPECT_EQ(Tageswert(d, 43200), "38000.5");
    EXPECT_EQ(Tageswert(d, 0), "38000");
    EXPECT_EQ(Tageswert(d, Time()), "");
    EXPECT_EQ(Tageswert(Date(), 43200), "");
    const std::string odd = Tageswert(d, 41265);  // 11:27:45
    EXPECT_EQ(odd, "38000.47760416667");
    const OziMoment back = ParseTageswert(odd);
    EXPECT_EQ(back.date, d);
    EXPECT_EQ(back.time, Time(41265));

    // gpsbabel's seven decimals still give the whole second.
    EXPECT_EQ(ParseTageswert("38000.4776042").time, Time(41265));
    // A fraction a hair below midnight belongs to the next day.
    const OziMoment late = ParseTageswert("38000.999999999");
    EXPECT_EQ(late.date, Date(38001));
    EXPECT_EQ(late.time, Time(0));
    EXPECT_TRUE(ParseTageswert("").date.empty());
    EXPECT_TRUE(ParseTageswert(" abc").time.empty());
    EXPECT_EQ(ParseTageswert("0").date, Date(0));  // 0 is 1899-12-30, not "no date"
}

TEST(OziNumbers, DateAndTimeTextForms) {
    std::string s;
    AppendDateText(s, SerialFromCivil(2004, 1, 14));
    s += '|';
    AppendTimeText(s, 41265);
    s += '|';
    AppendDateText(s, Date());
    AppendTimeText(s, Time());
    s += '|';
    AppendTimeText(s, 0);
    EXPECT_EQ(s, "14.01.2004|11:27:45||00:00:00");
}

TEST(OziNumbers, NameOziCutsAt40AndMarksCommasWith209) {
    EXPECT_EQ(NameOzi("Haus, Hof"), "Haus\xD1 Hof");  // code 209 in Windows-1252
    const std::string forty(40, 'x');
    EXPECT_EQ(NameOzi(forty), forty);
    EXPECT_EQ(NameOzi(forty + "y"), forty);
    // The cut counts characters, not bytes, and comes before the trim.
    const std::string umlauts = std::string(39, 'a') + "\xC3\xA4\xC3\xB6";  // 39 + "äö"
    EXPECT_EQ(NameOzi(umlauts), std::string(39, 'a') + "\xE4");
    EXPECT_EQ(NameOzi("  Weg  "), "Weg");
    EXPECT_EQ(NameOzi(std::string(39, 'b') + " z"), std::string(39, 'b'));
    EXPECT_EQ(NameOzi("\xE2\x82\xAC"), "\x80");   // the euro sign has a code in Windows-1252
    EXPECT_EQ(NameOzi("\xE2\x86\x92"), "?");      // an arrow has none
    // Reading does not turn 209 back into a comma.
    EXPECT_EQ(OziFieldText(" \"Haus\xD1 Hof\" "), "Haus\xC3\x91 Hof");
}

TEST(OziNumbers, LinesEndInAnyWayAndFieldsCountFromOne) {
    OziLines lines("a\r\nb\nc\rd\r\n\r\ne");
    std::vector<std::string> got;
    std::string_view l;
    while (lines.next(l)) got.emplace_back(l);
    EXPECT_EQ(got, (std::vector<std::string>{"a", "b", "c", "d", "", "e"}));

    const OziFields<4> f("1,,three,4,5,6");
    EXPECT_EQ(f[1], "1");
    EXPECT_EQ(f[2], "");
    EXPECT_EQ(f[3], "three");
    EXPECT_EQ(f[4], "4");  // later fields are not kept
    EXPECT_EQ(f[5], "");
    EXPECT_EQ(f[0], "");
    const OziFields<16> shortLine("W,1");
    EXPECT_EQ(shortLine.count(), 2u);
    EXPECT_EQ(shortLine[6], "");
}

TEST(OziNumbers, NumberedFilesDropTheExtension) {
    EXPECT_EQ(OziNumberedFile("/x/tour.plt", 2, ".plt"), "/x/tour2.plt");
    EXPECT_EQ(OziNumberedFile("/x.d/tour", 10, ".rt2"), "/x.d/tour10.rt2");
}

}  // namespace
}  // namespace ortelix

namespace ortelix {
namespace {

// The Koordinate form has a fast path; it must agree with to_chars (the
// exact value, ties to even) everywhere, ties and signs included.
// Koordinate is Format(value, "0.000000"): the fixed six decimals as a
// person rounds them, halves away from zero, by the quick path wherever it can.
TEST(OziNumbers, KoordinateRoundsAsTheDigitFormEverywhere) {
    EXPECT_EQ(Koordinate(8.1234565), "8.123457");
    EXPECT_EQ(Koordinate(-8.1234565), "-8.123457");
    EXPECT_EQ(Koordinate(0.0000025), "0.000003");
    EXPECT_EQ(Koordinate(-0.0000005), "-0.000001");
    EXPECT_EQ(Koordinate(50.0000005), "50.000001");
    auto reference = [](double v) {
        char buf[400];
        return std::string(buf, PutFixedByDigits(buf, v, 6));
    };
    std::vector<double> values = {0.0, -0.0, 0.0000005, 0.0000015, 0.0000025, -0.0000005, 0.5, 1e-7, -1e-7,
                                  999999999.9999995, 1e9, 123456789.1234565, 8.1234565, 50.0000005, 2.5e-6, 179.999999500};
    uint64_t state = 88172645463325252ull;
    for (int i = 0; i < 200000; ++i) {
        state ^= state << 13, state ^= state >> 7, state ^= state << 17;
        const double unit = static_cast<double>(state >> 11) / 9007199254740992.0;
        const double scale = std::ldexp(1.0, static_cast<int>(state % 44) - 20);  // 1e-6 .. 8e6
        values.push_back((state & 1 ? -1 : 1) * unit * scale);
        // Exact ties: multiples of 2^-k near the sixth decimal.
        values.push_back(std::ldexp(static_cast<double>(state % 100000000), -static_cast<int>(state % 30)));
    }
    for (double v : values) ASSERT_EQ(Koordinate(v), reference(v)) << std::hexfloat << v;
}

}  // namespace
}  // namespace ortelix
