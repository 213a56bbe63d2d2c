// The track point lines, formed in one buffer with their own number and date
// forms, against the text routines that every other writer uses.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "core/ModulShared.h"
#include "core/Session.h"
#include "fake/FakePlatform.h"
#include "gpsformats/GPX.h"

namespace ortelix {
namespace {

// The lines of one point as the format describes them, from the routines.
std::string Expected(const TrackPoint& p) {
    std::string t = "<trkpt lat=\"" + FormatFixed(p.Lat, 6) + "\" lon=\"" + FormatFixed(p.Lon, 6) + "\">\r\n";
    if (p.Alt.has()) t += "  <ele>" + std::to_string(*p.Alt) + "</ele>\r\n";
    if (p.Date_.has()) t += "  <time>" + IsoDate(*p.Date_) + "T" + IsoTime(p.Time_.valueOr(0)) + "Z</time>\r\n";
    if (p.Course.has()) t += "  <course>" + std::to_string(*p.Course) + "</course>\r\n";
    if (p.Speed.has()) t += "  <speed>" + FormatFixed(*p.Speed * 1000.0 / 3600.0, 2) + "</speed>\r\n";
    if (p.Sat.has()) t += "  <sat>" + std::to_string(*p.Sat) + "</sat>\r\n";
    return t + "</trkpt>\r\n";
}

TEST(GPXWriter, TrackPointLinesAgreeWithTheTextRoutines) {
    FakePlatform platform;
    Session s(platform);
    NewTrack(s.store, "T");
    std::mt19937 rng(16022006);
    // Whole numbers at every length the quick form handles and beyond it;
    // days that change back and forth, so a remembered date text must follow.
    const int32_t ints[] = {0, 1, 9, 10, 99, 100, 101, 999, 1000, 1001, 9999, 10000, 12345, 99999, 1000000, -1, -5, -100};
    const int32_t days[] = {38764, 38765, 38764, 2, 2958465, 38764, -300000, 38766};  // to 9999-12-31, from 1078
    std::uniform_real_distribution<double> coordinate(-180, 180);
    std::uniform_int_distribution<int> second(0, 86399), coin(0, 3);
    // Values on and beside a half of the last decimal, in both signs, and
    // values too large for the quick form, among random ones.
    const double edges[] = {48.1234565, 48.1234575, -11.0000005, 0.0000005, -0.0000005, 0.00000049999, 179.9999995,
                            -179.9999995, 1e-9, -1e-9, 0, -0.0, 0.125, 2.5e-7, 499.9999995, 500.0000005, 1e7 + 0.5,
                            -3e12, 48.123456499999, 48.1234565000001, 1.0000005, 2.0000015};
    std::string expected;
    for (int i = 0; i < 3000; ++i) {
        TrackPoint p;
        p.Lon = coordinate(rng);
        p.Lat = coordinate(rng) / 2;
        if (i % 3 == 0) p.Lon = edges[static_cast<size_t>(i / 3) % std::size(edges)];
        if (i % 5 == 0) p.Lat = -edges[static_cast<size_t>(i / 5) % std::size(edges)];
        if (coin(rng)) p.Alt = ints[static_cast<size_t>(i) % std::size(ints)];
        if (coin(rng)) {
            p.Date_ = days[static_cast<size_t>(i / 7) % std::size(days)];
            if (coin(rng)) p.Time_ = second(rng);
        }
        if (coin(rng)) p.Course = static_cast<int16_t>(ints[static_cast<size_t>(i * 7) % 9]);
        if (coin(rng)) p.Speed = i % 11 == 0 ? edges[static_cast<size_t>(i) % std::size(edges)] * 3.6 : (i % 97) * 1.37;
        if (coin(rng)) p.Sat = static_cast<int16_t>(i % 40);
        s.store.Tracks.back().Points.push_back(p);
        expected += Expected(p);
    }
    const std::string text = GPXFileText(s);
    const size_t from = text.find("<trkpt");
    const size_t to = text.rfind("</trkpt>\r\n");
    ASSERT_NE(from, std::string::npos);
    const std::string got = text.substr(from, to + 10 - from);
    // The first difference, with its surroundings, tells more than the whole.
    size_t at = 0;
    while (at < got.size() && at < expected.size() && got[at] == expected[at]) ++at;
    EXPECT_EQ(got.size(), expected.size());
    EXPECT_EQ(at, expected.size()) << "expected: " << expected.substr(at < 80 ? 0 : at - 80, 160) << "\ngot: "
                                   << got.substr(at < 80 ? 0 : at - 80, 160);
}

}  // namespace
}  // namespace ortelix
