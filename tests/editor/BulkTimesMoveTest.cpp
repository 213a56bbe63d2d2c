// The time commands, the datum commands, "Verschieben" and the web links.
#include <gtest/gtest.h>

#include <cmath>

#include "coordinates/Datum.h"
#include "coordinates/Entfernung.h"
#include "core/ModulShared.h"
#include "core/Session.h"
#include "editor/BulkMove.h"
#include "editor/BulkProjection.h"
#include "editor/BulkTimes.h"
#include "editor/EditorTestSupport.h"
#include "editor/ModuleEditor.h"
#include "editor/WebLinks.h"
#include "fake/FakePlatform.h"

namespace ortelix {
namespace {

using testing::GeoAt;
using testing::PointAt;

constexpr int64_t kDay = 86400;

template <typename P>
int64_t Seconds(const P& p) {
    return static_cast<int64_t>(*p.Date_) * kDay + *p.Time_;
}

class BulkTimes : public ::testing::Test {
protected:
    void SetUp() override {
        Track t{"Tour", {}};
        for (int i = 0; i < 4; ++i) t.Points.push_back(PointAt(1000.0 * i, 60 * i));
        s.store.Tracks.push_back(t);
        s.store.Routes.push_back({"R", {GeoAt(0, 0, "A"), GeoAt(0, 1000, "B")}});
        s.store.WayPoints = {GeoAt(0, 0, "W1"), GeoAt(100, 0, "W2"), GeoAt(200, 0, "W3")};
        ed.showTrack(0);
    }
    FakePlatform p;
    Session s{p};
    ModuleEditor ed{s};
};

TEST_F(BulkTimes, HoursCrossMidnightAndEmptyTimesStay) {
    ed.showWayPoints();
    s.store.WayPoints[0].Date_ = SerialFromCivil(2006, 2, 16);
    s.store.WayPoints[0].Time_ = 23 * 3600 + 30 * 60;
    s.store.WayPoints[1].Date_ = SerialFromCivil(2006, 2, 16);  // no time
    p.inputs = {"2,7"};  // whole hours only
    ASSERT_TRUE(GpsZeitNachOrtszeit(s, ed));
    EXPECT_EQ(*s.store.WayPoints[0].Date_, SerialFromCivil(2006, 2, 17));
    EXPECT_EQ(*s.store.WayPoints[0].Time_, 3600 + 30 * 60);
    EXPECT_TRUE(s.store.WayPoints[1].Time_.empty());
    EXPECT_EQ(*s.store.WayPoints[1].Date_, SerialFromCivil(2006, 2, 16));
    p.inputs = {"-2"};
    ASSERT_TRUE(GpsZeitNachOrtszeit(s, ed));
    EXPECT_EQ(*s.store.WayPoints[0].Time_, 23 * 3600 + 30 * 60);
    p.inputs = {"0"};
    EXPECT_FALSE(GpsZeitNachOrtszeit(s, ed));
}

TEST_F(BulkTimes, TimesFromASpeedStartTodayAtTheGivenTime) {
    p.inputs = {"12", "08:00:00"};  // 12 km/h: 5 minutes a kilometre
    ASSERT_TRUE(ZeitenNeuBerechnen(s, ed));
    const int64_t today = static_cast<int64_t>(std::floor(p.localNow()));
    const auto& pts = s.store.Tracks[0].Points;
    for (size_t i = 0; i < pts.size(); ++i)
        EXPECT_NEAR(Seconds(pts[i]), today * kDay + 8 * 3600 + 300 * static_cast<int64_t>(i), 1) << i;

    ed.showRoute(0);
    p.inputs = {"60", "kaputt"};  // no time: midnight
    ASSERT_TRUE(ZeitenNeuBerechnen(s, ed));
    EXPECT_EQ(Seconds(s.store.Routes[0].Points[0]), today * kDay);
    EXPECT_NEAR(Seconds(s.store.Routes[0].Points[1]), today * kDay + 60, 1);

    ed.showWayPoints();
    EXPECT_FALSE(ZeitenNeuBerechnen(s, ed));
    EXPECT_EQ(p.messages.back().text, "Diese Funktion steht für Waypoints nicht zur Verfügung.");
}

TEST_F(BulkTimes, WaypointAtAMomentOnEveryTrack) {
    // A second track of the same day, later points; a third one on another day.
    Track t2{"Zwei", {}};
    for (int i = 0; i < 200; ++i) t2.Points.push_back(PointAt(10.0 * i, 30 + 2 * i, 400));
    s.store.Tracks.push_back(t2);
    s.store.Tracks.push_back({"Drei", {PointAt(0, kDay * 3), PointAt(10, kDay * 3 + 10)}});
    for (Track& t : s.store.Tracks) WalkTrack(t);
    ed.showTrack(0);
    EXPECT_EQ(ed.trackSum().Moment, "16.02.2006 00:00:00");
    p.inputs = {"16.02.2006 00:02:00"};
    ASSERT_EQ(WaypointBeiZeitpunkt(s, ed), 2);
    ASSERT_EQ(s.store.WayPoints.size(), 5u);
    const GeoPoint& a = s.store.WayPoints[3];
    EXPECT_EQ(a.Name, "T1P3");
    EXPECT_EQ(a.Desc, "Tour nach 2.00 km und 00:02 Std:Min");
    EXPECT_EQ(*a.Time_, 120);
    const GeoPoint& b = s.store.WayPoints[4];
    EXPECT_EQ(b.Name, "T2P46");  // 30 + 2 * 45 = 120
    EXPECT_EQ(*b.Alt, 400);
    EXPECT_EQ(b.Desc, "Zwei nach 0.45 km und 00:01 Std:Min");
    EXPECT_EQ(s.store.StatusText.text(), "Fertig");

    p.inputs = {"31.02.2006 10:00:00"};
    EXPECT_EQ(WaypointBeiZeitpunkt(s, ed), 0);
    EXPECT_EQ(p.messages.back().text, "Ungültige Eingabe");
    EXPECT_EQ(s.store.WayPoints.size(), 5u);
}

TEST_F(BulkTimes, NewTrackTimesBySpeedAndByInterval) {
    TrackZeitWahl w;
    w.speedKmh = 0;  // counts as 0.1 km/h: a kilometre in ten hours
    w.overwrite = true;
    ASSERT_TRUE(NeueTrackzeiten(s, 0, w));
    const auto& pts = s.store.Tracks[0].Points;
    EXPECT_EQ(Seconds(pts[0]), Seconds(PointAt(0, 0)));
    EXPECT_NEAR(Seconds(pts[1]) - Seconds(pts[0]), 36000, 2);
    EXPECT_NEAR(Seconds(pts[3]) - Seconds(pts[0]), 3 * 36000, 5);
    EXPECT_EQ(*pts[0].Speed, 0);  // whole part of 0.1
    EXPECT_EQ(*pts[0].Course, 0);
    EXPECT_EQ(*pts[3].Course, 0);

    w = {};
    w.bySpeed = false;
    w.seconds = 30;
    w.overwrite = true;
    ASSERT_TRUE(NeueTrackzeiten(s, 0, w));
    for (size_t i = 0; i < pts.size(); ++i) EXPECT_EQ(Seconds(pts[i]) - Seconds(pts[0]), 30 * static_cast<int64_t>(i));
    // About 1 km in 30 s: the whole part of the measured leg's speed.
    const double leg = Entfernung(pts[0].Lon, pts[0].Lat, pts[1].Lon, pts[1].Lat) / 1000 / (30.0 / 3600);
    EXPECT_GT(leg, 119);
    EXPECT_EQ(*pts[0].Speed, std::trunc(leg));
    EXPECT_EQ(*pts[3].Speed, *pts[2].Speed);  // the last point takes the last leg's
    s.store.Tracks.push_back({"kurz", {PointAt(0, 0)}});
    EXPECT_FALSE(NeueTrackzeiten(s, 1, w));
}

TEST_F(BulkTimes, DatumThereAndBack) {
    // The Potsdam datum with its Helmert parameters, chosen as the list does.
    s.coords.DatumListe = ParseHelmert(
        "Potsdam (DHDN)|Deutschland|6377397.155|6356078.963|598.1|73.7|418.2|-0.202|-0.045|2.455|1.0000067\n");
    ASSERT_EQ(s.coords.DatumListe.size(), 1u);
    s.options.List[44] = 0;
    ed.showWayPoints();
    const GeoPoint before = s.store.WayPoints[1];
    ASSERT_TRUE(DatumNachWgs84(s, ed));
    EXPECT_EQ(p.messages.back().title, "Potsdam (DHDN) (Deutschland) nach WGS84");
    const GeoPoint& moved = s.store.WayPoints[1];
    // Potsdam lies about 100 m off WGS 84 in Germany.
    const double shift = Entfernung(before.Lon, before.Lat, moved.Lon, moved.Lat);
    EXPECT_GT(shift, 50);
    EXPECT_LT(shift, 200);
    ASSERT_TRUE(Wgs84NachDatum(s, ed));
    EXPECT_EQ(p.messages.back().title, "WGS84 nach Potsdam (DHDN) (Deutschland)");
    // There and back within a centimetre.
    EXPECT_LT(Entfernung(before.Lon, before.Lat, s.store.WayPoints[1].Lon, s.store.WayPoints[1].Lat), 0.01);
    s.options.List[44] = 5;  // no datum chosen
    EXPECT_FALSE(DatumNachWgs84(s, ed));
}

TEST_F(BulkTimes, ShiftByMetresAndDegrees) {
    ed.showWayPoints();
    EXPECT_FALSE(Verschieben(s, ed, {0, 0}));
    EXPECT_EQ(p.messages.back().title, "Koordinaten verschieben");
    const GeoPoint first = s.store.WayPoints[0];
    const GeoPoint second = s.store.WayPoints[1];
    p.inputs = {"1000", "90"};
    ASSERT_TRUE(Verschieben(s, ed, {3, 2}));
    EXPECT_EQ(s.store.WayPoints[0].Lon, first.Lon);  // not marked
    double course = 0;
    // The destination routine and the distance measure differ by a few
    // metres in a kilometre (0.3 % at 50 degrees north).
    EXPECT_NEAR(Entfernung(second.Lon, second.Lat, s.store.WayPoints[1].Lon, s.store.WayPoints[1].Lat, course), 1000, 5);
    EXPECT_NEAR(s.store.WayPoints[1].Lat, second.Lat, 1e-9);  // due east
    EXPECT_EQ(course, 90);
    ed.showTrack(0);
    const TrackPoint t0 = s.store.Tracks[0].Points[0];
    p.inputs = {"250,5", "180"};  // decimal comma
    ASSERT_TRUE(Verschieben(s, ed, {1, 1}));
    EXPECT_NEAR(Entfernung(t0.Lon, t0.Lat, s.store.Tracks[0].Points[0].Lon, s.store.Tracks[0].Points[0].Lat), 250.5, 1.5);
    EXPECT_LT(s.store.Tracks[0].Points[0].Lat, t0.Lat);
    p.inputs = {"", "90"};
    EXPECT_FALSE(Verschieben(s, ed, {1, 1}));
}

TEST_F(BulkTimes, FiveWebLinksByModifierKeys) {
    s.store.WayPoints[2].Lat = 48.1234567;
    s.store.WayPoints[2].Lon = -11.5;
    ed.showWayPoints();
    p.settings[{"internet", "KartenServer2"}] = "https://zwei.example";
    p.settings[{"internet", "KartenServer3"}] = "https://drei.example";
    p.settings[{"internet", "KartenServer4"}] = "https://vier.example";
    ASSERT_TRUE(InternetKarteZeigen(s, ed, 3, {}));
    ASSERT_TRUE(InternetKarteZeigen(s, ed, 3, {.shift = true}));
    ASSERT_TRUE(InternetKarteZeigen(s, ed, 3, {.ctrl = true}));
    ASSERT_TRUE(InternetKarteZeigen(s, ed, 3, {.alt = true}));
    ASSERT_TRUE(InternetKarteZeigen(s, ed, 3, {.ctrl = true, .alt = true}));
    ASSERT_EQ(p.opened.size(), 5u);
    EXPECT_EQ(p.opened[0],
              "https://maps.google.de/maps?f=q&hl=de&q=48.123457,-11.500000&ie=UTF8&z=14&ll=48.123457,-11.500000"
              "&spn=0.033092,0.077076&om=1");
    EXPECT_EQ(p.opened[1],
              "https://maps.google.de/maps?f=q&hl=de&q=48.123457,-11.500000&ie=UTF8&om=1&z=14&ll=48.123457,-11.500000"
              "&spn=0.033458,0.10849&t=k&iwloc=A");
    EXPECT_EQ(p.opened[2], "https://zwei.example/map?lat=48.123457&lon=-11.500000&z=18&mt=1");
    EXPECT_EQ(p.opened[3], "https://drei.example/map/browse.cgi?lat=48.123457&lon=-11.500000&scale=5000&icon=x");
    EXPECT_EQ(p.opened[4],
              "https://vier.example/maps/map.adp?latlongtype=decimal&latitude=48.123457&longitude=-11.500000"
              "&zoom=6&size=big&style=RARE");
    // A track point; a row outside the grid; a service without a host.
    ed.showTrack(0);
    ASSERT_TRUE(InternetKarteZeigen(s, ed, 2, {.ctrl = true}));
    EXPECT_EQ(p.opened.back().substr(0, 35), "https://zwei.example/map?lat=" + FormatFixed(s.store.Tracks[0].Points[1].Lat, 6).substr(0, 6));
    EXPECT_FALSE(InternetKarteZeigen(s, ed, 9, {}));
    p.settings.erase({"internet", "KartenServer3"});
    EXPECT_FALSE(InternetKarteZeigen(s, ed, 1, {.alt = true}));
    EXPECT_EQ(p.opened.size(), 6u);
}

}  // namespace
}  // namespace ortelix
