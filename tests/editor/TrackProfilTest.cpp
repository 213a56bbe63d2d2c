// The height profile as data: scale, marks and the red line in profile units.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "core/Session.h"
#include "editor/EditorTestSupport.h"
#include "editor/ModuleEditor.h"
#include "editor/TrackProfil.h"
#include "fake/FakePlatform.h"

namespace ortelix {
namespace {

using testing::MinuteTrack;

TrackPoint At(double km, OptInt alt) {
    TrackPoint p;
    p.DistKm = km;
    p.Alt = alt;
    return p;
}

std::vector<ProfilLine> OfColour(const ProfilDrawing& d, int32_t colour) {
    std::vector<ProfilLine> out;
    for (const ProfilLine& l : d.lines)
        if (l.colour == colour) out.push_back(l);
    return out;
}

TEST(TrackProfil, ScaleMarksAndLineOfAHandMadeTrack) {
    Track t;
    t.Points = {At(0, 100), At(1.23, {}), At(2.0, 480), At(4.5, 250)};
    const ProfilDrawing d = ProfilOf(t);
    EXPECT_EQ(d.width, 45);
    EXPECT_EQ(d.height, 500);

    // Six short blue height marks from 500 m down to 0, at the left edge.
    const std::vector<ProfilLine> heights = OfColour(d, kProfilBlue);
    ASSERT_EQ(heights.size(), 6u);
    for (size_t i = 0; i < heights.size(); ++i) {
        const int y = 500 - 100 * static_cast<int>(i);
        EXPECT_EQ(heights[i], (ProfilLine{0, y, 10, y, kProfilBlue}));
    }
    // Kilometre marks standing on the bottom edge: 0, 10, 20, 30, 40; 45 is no kilometre.
    const std::vector<ProfilLine> kms = OfColour(d, kProfilGreen);
    ASSERT_EQ(kms.size(), 5u);
    for (size_t i = 0; i < kms.size(); ++i) {
        const int x = 10 * static_cast<int>(i);
        EXPECT_EQ(kms[i], (ProfilLine{x, 450, x, 500, kProfilGreen}));
    }
    // The track from the bottom left corner; the empty altitude lies on the bottom edge.
    const std::vector<ProfilLine> red = OfColour(d, kProfilRed);
    const std::vector<ProfilLine> expected = {{0, 500, 0, 400, kProfilRed},
                                              {0, 400, 12, 500, kProfilRed},
                                              {12, 500, 20, 20, kProfilRed},
                                              {20, 20, 45, 250, kProfilRed}};
    EXPECT_EQ(red, expected);
    // Marks first, the track drawn over them.
    EXPECT_EQ(d.lines.back(), expected.back());
    EXPECT_EQ(d.lines.front().colour, kProfilBlue);
}

TEST(TrackProfil, WholePartsRoundDownAndHighOrLowAltitudesLeaveTheSurface) {
    Track t;
    // 3.999 km is 39 units, whose last kilometre mark is 30; 0.06 km is unit 0.
    t.Points = {At(0, 0), At(0.06, 0), At(3.999, 650), At(3.9995, -20)};
    const ProfilDrawing d = ProfilOf(t);
    EXPECT_EQ(d.width, 39);
    EXPECT_EQ(OfColour(d, kProfilGreen).size(), 4u);
    const std::vector<ProfilLine> red = OfColour(d, kProfilRed);
    // The first point draws its start even without length; the second stays
    // on the same unit and draws nothing; 650 m lies above the top (y < 0),
    // -20 m below the bottom edge: the data keeps them, the window cuts.
    const std::vector<ProfilLine> expected = {
        {0, 500, 0, 500, kProfilRed}, {0, 500, 39, -150, kProfilRed}, {39, -150, 39, 520, kProfilRed}};
    EXPECT_EQ(red, expected);
}

TEST(TrackProfil, ATrackWithoutPointsOrLengthDrawsOnlyWhatItHas) {
    EXPECT_EQ(ProfilOf(Track{}).width, 0);
    EXPECT_TRUE(ProfilOf(Track{}).lines.empty());

    // A track that never got its lengths (no fill) has width 0 and one
    // kilometre mark at 0; its line goes straight up and down at x = 0.
    Track t;
    t.Points = {At(0, 200), At(0, 300), At(0, 300), At(0, 100)};
    const ProfilDrawing d = ProfilOf(t);
    EXPECT_EQ(d.width, 0);
    EXPECT_EQ(OfColour(d, kProfilGreen), (std::vector<ProfilLine>{{0, 450, 0, 500, kProfilGreen}}));
    EXPECT_EQ(OfColour(d, kProfilRed), (std::vector<ProfilLine>{{0, 500, 0, 300, kProfilRed},
                                                                {0, 300, 0, 200, kProfilRed},
                                                                {0, 200, 0, 400, kProfilRed}}));
}


TEST(TrackProfil, RunsTheTrackFillFirstSoThatAnUnfilledTrackGetsItsScale) {
    FakePlatform platform;
    Session s(platform);
    s.store.Tracks.push_back(MinuteTrack({{0, 120}, {2000, {}}, {4550, 300}}));
    s.store.Tracks.push_back(MinuteTrack({{0, 10}, {1000, 20}}));
    ASSERT_EQ(s.store.Tracks[0].Points.back().DistKm, 0);  // nothing filled yet
    ModuleEditor editor(s);
    editor.showTrack(1);

    const ProfilDrawing d = TrackProfil(s, editor, 0);
    EXPECT_NEAR(s.store.Tracks[0].Points.back().DistKm, 4.55, 0.01);
    EXPECT_EQ(d.width, 45);
    std::vector<int> kmMarks;
    for (const ProfilLine& l : OfColour(d, kProfilGreen)) kmMarks.push_back(l.x1);
    EXPECT_EQ(kmMarks, (std::vector<int>{0, 10, 20, 30, 40}));
    // The point without altitude is drawn on the bottom edge.
    const std::vector<ProfilLine> red = OfColour(d, kProfilRed);
    ASSERT_EQ(red.size(), 3u);
    EXPECT_EQ(red[0], (ProfilLine{0, 500, 0, 380, kProfilRed}));
    EXPECT_EQ(red[1].y2, 500);
    EXPECT_EQ(red[1].x2, static_cast<int>(std::floor(s.store.Tracks[0].Points[1].DistKm * 10)));
    EXPECT_EQ(red[2], (ProfilLine{red[1].x2, 500, 45, 200, kProfilRed}));
    // The grid shows the drawn track afterwards.
    EXPECT_EQ(editor.view(), EditorView::Track);
    EXPECT_EQ(editor.element(), 0);
    EXPECT_EQ(editor.rowCount(), 3);

    // No such track, or a track without points: nothing to draw.
    EXPECT_TRUE(TrackProfil(s, editor, 2).lines.empty());
    EXPECT_TRUE(TrackProfil(s, editor, -1).lines.empty());
    s.store.Tracks.push_back(Track{});
    EXPECT_EQ(TrackProfil(s, editor, 2).width, 0);
    EXPECT_TRUE(TrackProfil(s, editor, 2).lines.empty());
}

TEST(TrackProfil, TotalsCountEveryHourAndLeaveThePausesOut) {
    TrackTotals t;
    t.points = 1000000;
    t.lengthKm = 719.0666;
    t.durationSeconds = 999999;  // 11 days, 13:46:39
    t.pauseSeconds = 3 * 3600 + 5 * 60 + 7;
    t.minAlt = 101;
    t.maxAlt = 499;
    t.averageKmh = 2.58865;
    t.averageMovingKmh = 2.61;
    const std::vector<std::pair<std::string, std::string>> expected = {
        {"Punkte:", "1000000"},         {"Länge:", "719.067 km"},        {"Dauer:", "277:46:39"},
        {"Pausen:", "3:05:07"},         {"Dauer o.P.:", "274:41:32"},    {"Schnitt:", "2.6 km/h"},
        {"Schnitt o.P.:", "2.6 km/h"},  {"Höhe min.:", "101 m"},         {"Höhe max.:", "499 m"},
        {"Höhenspanne:", "398 m"}};
    EXPECT_EQ(TotalsLines(t), expected);

    // A track of one point: nothing walked, nothing paused.
    const auto one = TotalsLines(TrackTotals{1, 0, 0, 0, 0, 0, 0, 0});
    EXPECT_EQ(one[2].second, "0:00:00");
    EXPECT_EQ(one[4].second, "0:00:00");
    EXPECT_EQ(one[9].second, "0 m");
}

}  // namespace
}  // namespace ortelix
