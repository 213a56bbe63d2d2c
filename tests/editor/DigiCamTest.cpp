// Photos placed on tracks by their EXIF time: the search, the offset, the
// waypoint's fields, several tracks, midnight, the file choice, and photos
// that are only read.
#include <gtest/gtest.h>

#include <unistd.h>

#include "core/Session.h"
#include "editor/EditorTestSupport.h"
#include "editor/ExifTestSupport.h"
#include "editor/ModDigiCam.h"
#include "fake/FakePlatform.h"

namespace ortelix::testing {
namespace {

const int32_t kDay = SerialFromCivil(2006, 2, 16);

int64_t At(int seconds) { return int64_t(kDay) * kSecondsPerDay + seconds; }

// A track of `n` points, one every `step` seconds from `start` (seconds after
// midnight of 16.02.2006), one metre apart.
Track TrackOf(const std::string& name, int start, int step, int n) {
    Track t;
    t.Name = name;
    for (int i = 0; i < n; ++i) {
        TrackPoint p = PointAt(i, start + i * step, 300 + i);
        p.Course = static_cast<int16_t>(i % 360);
        p.DistKm = i / 1000.0;
        p.Duration = i * step;
        t.Points.push_back(p);
    }
    return t;
}

class DigiCamTest : public ::testing::Test {
protected:
    void SetUp() override {
        dir = std::filesystem::temp_directory_path() /
              ("ortelix-digicam-" + std::to_string(::getpid()) + "-" +
               ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::remove_all(dir);
        std::filesystem::create_directories(dir);
    }
    void TearDown() override { std::filesystem::remove_all(dir); }
    // A photo whose DateTime is `when`, in the byte order asked for.
    std::string Photo(const std::string& name, const std::string& when, bool big = false) {
        ExifBuilder b(big);
        const std::string tiff = b.tiff({{b.ascii(271, "Canon"), b.ascii(306, when), b.pointer(34665, 1)},
                                         {b.ascii(36867, "2001:01:01 00:00:00")}});
        const auto p = dir / name;
        WriteBytes(p, JpegWithExif(tiff));
        return p.string();
    }
    FakePlatform platform;
    Session s{platform};
    std::filesystem::path dir;
};

TEST_F(DigiCamTest, SearchClosesOnTheMomentOrBesideIt) {
    const Track t = TrackOf("T", 3600, 10, 101);  // 01:00:00 .. 01:16:40
    size_t i = 99;
    EXPECT_TRUE(FindPointByTime(t, At(3600), i));
    EXPECT_EQ(i, 0u);
    EXPECT_TRUE(FindPointByTime(t, At(3600 + 1000), i));
    EXPECT_EQ(i, 100u);
    EXPECT_TRUE(FindPointByTime(t, At(3600 + 370), i));
    EXPECT_EQ(i, 37u);
    // Between two points the search closes on one of the two.
    EXPECT_TRUE(FindPointByTime(t, At(3600 + 375), i));
    EXPECT_TRUE(i == 37u || i == 38u) << i;
    EXPECT_FALSE(FindPointByTime(t, At(3599), i));
    EXPECT_FALSE(FindPointByTime(t, At(3600 + 1001), i));
    EXPECT_FALSE(FindPointByTime(Track{}, At(3600), i));
    const Track one = TrackOf("1", 50, 1, 1);
    EXPECT_TRUE(FindPointByTime(one, At(50), i));
    EXPECT_EQ(i, 0u);

    // A track joined out of order: the halves swapped. Searched through its
    // time order it still finds the point of each moment.
    Track swapped = TrackOf("S", 7200, 10, 50);
    const Track early = TrackOf("E", 3600, 10, 50);
    swapped.Points.insert(swapped.Points.end(), early.Points.begin(), early.Points.end());
    const TrackTimeOrder order = TimeOrderOf(swapped);
    EXPECT_FALSE(order.ascending);
    EXPECT_TRUE(TimeOrderOf(t).ascending);
    EXPECT_TRUE(TimeOrderOf(t).order.empty());
    for (int k : {0, 17, 49}) {
        ASSERT_TRUE(FindPointByTime(swapped, order, At(3600 + 10 * k), i));
        EXPECT_EQ(i, size_t(50 + k));
        ASSERT_TRUE(FindPointByTime(swapped, order, At(7200 + 10 * k), i));
        EXPECT_EQ(i, size_t(k));
    }
}

TEST_F(DigiCamTest, PhotoTimesAndTheOffset) {
    int64_t m = 0;
    ASSERT_TRUE(PhotoMoment("2006:02:16 16:23:10", m));
    EXPECT_EQ(m, At(16 * 3600 + 23 * 60 + 10));
    ASSERT_TRUE(PhotoMoment("  2006:02:16 16:23:10 ", m));
    EXPECT_EQ(m, At(16 * 3600 + 23 * 60 + 10));
    for (const char* bad : {"0000:00:00 00:00:00", "", "2006:02:30 10:00:00", "2006:02:16 24:00:00",
                            "2006:02:16", "2006-02-16 16:23:10", "2006:02:16 16:23:10x", "    :  :     :  :  "}) {
        EXPECT_FALSE(PhotoMoment(bad, m)) << bad;
    }
    s.options.TextZeit[2] = "01:00:00";
    EXPECT_EQ(DigiCamOffset(s.options), 3600);
    s.options.TextZeit[2] = "Quatsch";
    EXPECT_EQ(DigiCamOffset(s.options), 0);
    s.options.TextZeit[2] = "00:02:05";
    EXPECT_EQ(DigiCamOffset(s.options), 125);
}

TEST_F(DigiCamTest, AWaypointPerTrackHoldingThePhoto) {
    // Track A covers 15:00..16:40 (a point every 10 s); B 15:20..15:30; C
    // lies earlier. A photo at 16:23:10 with one hour's offset is 15:23:10.
    s.store.Tracks.push_back(TrackOf("Ausflug", 15 * 3600, 10, 601));
    s.store.Tracks.push_back(TrackOf("Zweiter", 15 * 3600 + 1200, 1, 601));
    s.store.Tracks.push_back(TrackOf("Morgen", 6 * 3600, 1, 100));
    s.store.Tracks[0].Points[139].Duration = 26 * 3600 + 40 * 60;  // a long day's clock wraps
    s.store.Tracks[1].Points[190].Duration = {};
    s.store.Tracks[1].Points[190].DistKm = 12.34;
    std::filesystem::create_directories(dir / "Mein Urlaub");
    const std::string photo = Photo("Mein Urlaub/IMG 0001.JPG", "2006:02:16 16:23:10", true);
    const std::string before = ReadBytes(photo);
    const DigiCamRun run = PrepareDigiCam(s, 3600);
    const PhotoResult r = FotoAufTrack(s, run, photo);
    EXPECT_EQ(ReadBytes(photo), before);
    EXPECT_EQ(r.skipped, "");
    ASSERT_EQ(r.waypoints, 2);
    ASSERT_EQ(s.store.WayPoints.size(), 2u);
    const GeoPoint& a = s.store.WayPoints[0];
    const TrackPoint& pa = s.store.Tracks[0].Points[139];  // 15:23:10
    EXPECT_EQ(a.Name, "IMG 0001");
    EXPECT_EQ(a.Lat, pa.Lat);
    EXPECT_EQ(a.Lon, pa.Lon);
    EXPECT_EQ(a.Alt, pa.Alt);
    EXPECT_EQ(a.Course, pa.Course);
    EXPECT_EQ(a.Date_, pa.Date_);
    EXPECT_EQ(a.Time_, OptInt(15 * 3600 + 23 * 60 + 10));
    EXPECT_EQ(a.Desc, "Ausflug nach 0.1 km und 02:40 Std:Min");
    EXPECT_EQ(a.Cmt, "<a href='file://" + (dir / "Mein%20Urlaub/IMG%200001.JPG").string() + "'>Bild</a>");
    EXPECT_EQ(a.Cmt.substr(0, 17), "<a href='file:///");
    EXPECT_EQ(a.ForeColor, OptInt(0));
    EXPECT_EQ(a.BackColor, OptInt(65535));
    const GeoPoint& b = s.store.WayPoints[1];
    EXPECT_EQ(b.Time_, OptInt(15 * 3600 + 23 * 60 + 10));
    EXPECT_EQ(b.Lat, s.store.Tracks[1].Points[190].Lat);
    EXPECT_EQ(b.Desc, "Zweiter nach 12.3 km und 00:00 Std:Min");
    EXPECT_EQ(s.store.StatusText.text(), "Fertig");
    EXPECT_FALSE(platform.busy);

    // Without the offset the photo lies outside B and at 16:23:10 on A.
    const PhotoResult late = FotoAufTrack(s, PrepareDigiCam(s, 0), photo);
    EXPECT_EQ(late.waypoints, 1);
    EXPECT_EQ(late.skipped, "");
    EXPECT_EQ(s.store.WayPoints.back().Time_, OptInt(16 * 3600 + 23 * 60 + 10));
    // An early camera (a negative offset) moves the moment later.
    EXPECT_EQ(FotoAufTrack(s, PrepareDigiCam(s, -(16 * 60 + 40)), photo).waypoints, 1);
    EXPECT_EQ(s.store.WayPoints.back().Time_, OptInt(16 * 3600 + 39 * 60 + 50));
    EXPECT_EQ(FotoAufTrack(s, PrepareDigiCam(s, -(16 * 60 + 51)), photo).waypoints, 0);
}

TEST_F(DigiCamTest, TrackPastMidnightAndSkippedPhotos) {
    s.store.Tracks.push_back(TrackOf("Nacht", 86400 - 30, 1, 61));  // 23:59:30 .. 00:00:30 next day
    const DigiCamRun run = PrepareDigiCam(s, 0);
    PhotoResult r = FotoAufTrack(s, run, Photo("n.jpg", "2006:02:17 00:00:05"));
    ASSERT_EQ(r.waypoints, 1);
    EXPECT_EQ(s.store.WayPoints[0].Date_, OptInt(kDay + 1));
    EXPECT_EQ(s.store.WayPoints[0].Time_, OptInt(5));
    r = FotoAufTrack(s, run, Photo("m.jpg", "2006:02:16 23:59:40"));
    ASSERT_EQ(r.waypoints, 1);
    EXPECT_EQ(s.store.WayPoints[1].Time_, OptInt(86400 - 20));
    // The next day's 23:59:40 lies outside: nothing, and no reason either.
    r = FotoAufTrack(s, run, Photo("o.jpg", "2006:02:17 23:59:40"));
    EXPECT_EQ(r.waypoints, 0);
    EXPECT_EQ(r.skipped, "");

    // Skipped for a reason: no block, no DateTime (DateTimeOriginal does not
    // count), a DateTime of zeros.
    WriteBytes(dir / "plain.jpg", "\xFF\xD8\xFF\xD9");
    EXPECT_EQ(FotoAufTrack(s, run, (dir / "plain.jpg").string()).skipped, "kein EXIF-Block in den ersten 4096 Bytes");
    ExifBuilder b(false);
    WriteBytes(dir / "orig.jpg", JpegWithExif(b.tiff({{b.pointer(34665, 1)}, {b.ascii(36867, "2006:02:17 00:00:05")}})));
    EXPECT_EQ(FotoAufTrack(s, run, (dir / "orig.jpg").string()).skipped, "keine Aufnahmezeit (EXIF-Tag 306 DateTime)");
    EXPECT_EQ(FotoAufTrack(s, run, Photo("zero.jpg", "0000:00:00 00:00:00")).skipped,
              "Aufnahmezeit \"0000:00:00 00:00:00\" ist kein gültiges Datum");
    EXPECT_NE(FotoAufTrack(s, run, (dir / "none.jpg").string()).skipped, "");
    EXPECT_EQ(s.store.WayPoints.size(), 2u);
}

TEST_F(DigiCamTest, TheCommandTakesOneFileOrTheFolder) {
    s.store.Tracks.push_back(TrackOf("T", 12 * 3600, 1, 3600));
    const std::string b = Photo("b.jpg", "2006:02:16 12:00:10");
    Photo("B.JPG", "2006:02:16 12:00:20");
    Photo("a.Jpg", "2006:02:16 12:00:30");
    Photo("c.jpeg", "2006:02:16 12:00:40");
    Photo("d.jpg.txt", "2006:02:16 12:00:40");
    std::filesystem::create_directories(dir / "sub");
    Photo("sub/e.jpg", "2006:02:16 12:00:50");
    const std::vector<std::string> all = DigiCamFiles(b, 2);
    ASSERT_EQ(all.size(), 3u);
    EXPECT_EQ(all[0], (dir / "B.JPG").string());
    EXPECT_EQ(all[1], (dir / "a.Jpg").string());
    EXPECT_EQ(all[2], b);
    EXPECT_EQ(DigiCamFiles(b, 1), std::vector<std::string>{b});

    platform.fileChoices.push_back({b, 2});
    s.options.TextZeit[2] = "00:00:10";
    EXPECT_EQ(DigiCam(s), 3);
    ASSERT_EQ(platform.fileDialogTitles.size(), 1u);
    EXPECT_EQ(platform.fileDialogTitles[0], kDigiCamTitle);
    ASSERT_EQ(s.store.WayPoints.size(), 3u);
    EXPECT_EQ(s.store.WayPoints[0].Name, "B");
    EXPECT_EQ(s.store.WayPoints[0].Time_, OptInt(12 * 3600 + 10));
    EXPECT_EQ(s.store.WayPoints[1].Name, "a");
    EXPECT_EQ(s.store.WayPoints[2].Name, "b");
    EXPECT_EQ(s.store.WayPoints[2].Time_, OptInt(12 * 3600));

    platform.fileChoices.push_back({b, 1});
    EXPECT_EQ(DigiCam(s), 1);
    EXPECT_EQ(s.store.WayPoints.size(), 4u);
    platform.fileChoices.push_back({"", 1});  // cancelled
    EXPECT_EQ(DigiCam(s), 0);
    EXPECT_EQ(s.store.WayPoints.size(), 4u);
}

}  // namespace
}  // namespace ortelix::testing
