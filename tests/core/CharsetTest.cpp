// Charsets of files: UTF-16 in both orders, and UTF-8 that is not quite UTF-8.
#include <gtest/gtest.h>

#include <string>

#include "core/Charset.h"
#include "fake/TestFiles.h"

namespace ortelix {
namespace {

std::string Units(std::u16string_view text, bool big) { return testfiles::Utf16Bytes(text, big); }

TEST(Charset, Utf16InBothOrders) {
    // "Zürich €" and G clef (U+1D11E, a surrogate pair), with the mark.
    const std::u16string text = u"\uFEFFZ\u00FCrich \u20AC \U0001D11E";
    const std::string utf8 = "Z\xC3\xBCrich \xE2\x82\xAC \xF0\x9D\x84\x9E";
    for (bool big : {false, true}) {
        const std::string bytes = Units(text, big);
        const Utf16Order order = big ? Utf16Order::Big : Utf16Order::Little;
        EXPECT_EQ(DetectUtf16(bytes), order);
        EXPECT_EQ(DecodeUtf16(bytes, order), utf8) << "big endian: " << big;
    }
    // XML without a mark is told by its first "<?".
    EXPECT_EQ(DetectUtf16(Units(u"<?xml", false)), Utf16Order::Little);
    EXPECT_EQ(DetectUtf16(Units(u"<?xml", true)), Utf16Order::Big);
    EXPECT_EQ(DecodeUtf16(Units(u"<?xml", true), Utf16Order::Big), "<?xml");
    // Not UTF-16: plain XML, the UTF-8 mark, a lone byte, nothing.
    EXPECT_EQ(DetectUtf16("<?xml version"), Utf16Order::None);
    EXPECT_EQ(DetectUtf16("\xEF\xBB\xBF<?xml"), Utf16Order::None);
    EXPECT_EQ(DetectUtf16("\xFF"), Utf16Order::None);
    EXPECT_EQ(DetectUtf16(""), Utf16Order::None);
}

TEST(Charset, BrokenUtf16BecomesReplacementCharacters) {
    const std::string fffd = "\xEF\xBF\xBD";
    // A high surrogate followed by a letter, a low surrogate alone, a high
    // surrogate at the very end, and an odd last byte.
    const std::u16string broken = {0xD834, u'a', 0xDD1E, u'b', 0xD834};
    EXPECT_EQ(DecodeUtf16(Units(broken, false), Utf16Order::Little), fffd + "a" + fffd + "b" + fffd);
    EXPECT_EQ(DecodeUtf16(Units(u"ab", true) + std::string(1, '\0'), Utf16Order::Big), "ab" + fffd);
    EXPECT_EQ(DecodeUtf16("\xFF\xFE", Utf16Order::Little), "");  // only the mark
    // Two high surrogates and then a low one: the second pair is good.
    const std::u16string twoHigh = {0xD834, 0xD834, 0xDD1E};
    EXPECT_EQ(DecodeUtf16(Units(twoHigh, true), Utf16Order::Big), fffd + "\xF0\x9D\x84\x9E");
}

TEST(Charset, InvalidUtf8BytesAreReadAsWindows1252) {
    // A single-byte umlaut, the euro sign of Windows-1252 and a good UTF-8
    // umlaut in one text: the good sequence stays, the others become characters.
    EXPECT_EQ(DecodeToUtf8("M\xFCnchen \x80 \xC3\xA4", Charset::Utf8), "M\xC3\xBCnchen \xE2\x82\xAC \xC3\xA4");
    // A lead byte without its follower, at the end and before ASCII; an
    // overlong form; a surrogate written as UTF-8.
    EXPECT_EQ(DecodeToUtf8("a\xC3", Charset::Utf8), "a\xC3\x83");
    EXPECT_EQ(DecodeToUtf8("\xC4x", Charset::Utf8), "\xC3\x84x");
    EXPECT_EQ(DecodeToUtf8("\xC0\xAF", Charset::Utf8), "\xC3\x80\xC2\xAF");
    EXPECT_EQ(DecodeToUtf8("\xED\xA0\x80", Charset::Utf8), "\xC3\xAD\xC2\xA0\xE2\x82\xAC");
    // Valid text comes through byte for byte, four-byte forms too.
    const std::string good = "Stra\xC3\x9F" "e \xF0\x9F\x97\xBA";
    EXPECT_EQ(DecodeToUtf8(good, Charset::Utf8), good);
    // 0x81 has no Windows-1252 character: it keeps its code.
    EXPECT_EQ(DecodeToUtf8("\x81", Charset::Utf8), "\xC2\x81");
}

}  // namespace
}  // namespace ortelix
