// The one-walk point scan against its definition: the element found by
// GetElement, then each child found by GetElement inside it. Random texts
// from fragments of markup, good and broken, must give the same answers.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "gpsformats/ElementScan.h"

namespace ortelix {
namespace {

constexpr std::string_view kNames[] = {"ele", "time", "sat", "speed"};

// What the point scan must give for the first "trkpt" in text.
struct Expected {
    Element point;
    std::string_view values[4];
};

Expected ByDefinition(std::string_view text) {
    Expected x;
    x.point = GetElement(text, "trkpt", 0, text.size());
    if (!x.point.found) return x;
    for (size_t i = 0; i < 4; ++i) {
        const Element c = GetElement(text, kNames[i], x.point.begin, x.point.end);
        if (!c.found) continue;
        const std::string_view inner = InnerText(text, c);
        x.values[i] = inner.data() ? inner : text.substr(c.end, 0);
    }
    return x;
}

std::string RandomPoint(std::mt19937& rng) {
    static const char* const kPieces[] = {
        "<trkpt lat=\"1\" lon=\"2\">", "<TRKPT lat=\"3\" lon=\"4\">", "</trkpt>", "</TrkPt>", "<trkpt/>", "<trkptx>",
        "<ele>", "</ele>", "<ele/>", "<ELE >", "<ele", "<elev>", "</ele >", "<time>", "</time>", "<time a=\"b\">",
        "<sat>", "</sat>", "<speed>", "</speed>", "<speed/>", "<![CDATA[", "]]>", "<b>", "</b>", "<", ">", "/",
        " ", "\n", "5", "2006-02-16T10:00:00Z", "x<y", "<ele<", "</", "<ele x=\">\">", "<!-- c -->",
        "<ele>512</ele>", "<time>2006-02-16T10:00:00Z</time>", "<sat>7</sat>", "<speed> 3 </speed>",
        "<ele a=\"<sat/>\">1</ele>", "<speed><![CDATA[4]]></speed>",
        "<trkpt a=\"</trkpt>\">", "<trkpt b=\"<ele>6</ele>\" c='>'>"};
    std::uniform_int_distribution<size_t> piece(0, std::size(kPieces) - 1);
    std::uniform_int_distribution<int> length(0, 10);
    std::string t;
    // Mostly a point with something inside, sometimes only fragments.
    const bool framed = rng() % 4 != 0;
    if (framed) t += rng() % 2 ? "<trkpt lat=\"1\" lon=\"2\">" : "<junk>";
    for (int i = length(rng); i > 0; --i) t += kPieces[piece(rng)];
    if (framed) t += "</trkpt>";
    for (int i = length(rng) / 4; i > 0; --i) t += kPieces[piece(rng)];
    return t;
}

TEST(ElementScan, PointScanAgreesWithTheDefinition) {
    static const ChildNames names(kNames);
    std::mt19937 rng(20061602);
    int found = 0, valued = 0;
    for (int round = 0; round < 200000; ++round) {
        const std::string text = RandomPoint(rng);
        const Expected want = ByDefinition(text);
        std::string_view got[4];
        uint32_t withMarkup = 0;
        const Element e = GetElementWithChildren(text, "trkpt", 0, text.size(), names, got, withMarkup);
        ASSERT_EQ(e.found, want.point.found) << text;
        if (!e.found) continue;
        ++found;
        ASSERT_EQ(e.begin, want.point.begin) << text;
        ASSERT_EQ(e.end, want.point.end) << text;
        ASSERT_EQ(e.next, want.point.next) << text;
        for (size_t i = 0; i < 4; ++i) {
            ASSERT_EQ(got[i].data() != nullptr, want.values[i].data() != nullptr) << kNames[i] << " in " << text;
            ASSERT_EQ(got[i], want.values[i]) << kNames[i] << " in " << text;
            ASSERT_EQ((withMarkup >> i & 1) != 0, got[i].find('<') != std::string_view::npos) << text;
            valued += got[i].data() != nullptr;
        }
    }
    // The fragments make points and children often enough to mean something.
    EXPECT_GT(found, 20000);
    EXPECT_GT(valued, 20000);
}


// Several attributes in one walk, each settled by the first "=" behind its
// name, as a walk for each name alone would settle it.
TEST(ElementScan, AttributesInOneWalk) {
    const std::string_view names[2] = {"lat", "lon"};
    const char* const tags[] = {" lat=\"48.5\" lon=\"11\"", " LON = '1' x=\"lat=9\" lat=\"3\"", " lat=4 lon=\"5\"",
                                " lon=\"5\" lat=\"open", " xlat=\"1\" lat=\"2\" lon=\"7\" lon=\"8\"", " lat=\"\"",
                                "", " lon\t=\"6\"", "\nlat=\"-1\"\tlon='2'"};
    for (const char* tag : tags) {
        std::string_view values[2];
        bool found[2];
        AttributeValues(tag, names, values, found, 2);
        for (size_t k = 0; k < 2; ++k) {
            bool alone = false;
            EXPECT_EQ(values[k], AttributeValue(tag, names[k], alone)) << tag;
            EXPECT_EQ(found[k], alone) << tag;
        }
    }
    std::string_view v[2];
    bool f[2];
    AttributeValues(" LON = '1' x=\"lat=9\" lat=\"3\"", names, v, f, 2);
    EXPECT_EQ(v[0], "3");  // "lat=" inside a value follows a quote: no attribute
    EXPECT_EQ(v[1], "1");
    AttributeValues(" lat=4 lon=\"5\"", names, v, f, 2);
    EXPECT_FALSE(f[0]);
    EXPECT_EQ(v[1], "5");
}

}  // namespace
}  // namespace ortelix
