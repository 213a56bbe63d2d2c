#include "OziTestSupport.h"

#include "appformats/ModOziCERoute.h"
#include "appformats/ModOziRoute.h"
#include "core/ModulArray.h"

namespace ortelix {
namespace {

class OziRoute : public OziTest {
protected:
    void AddRoute(std::string name, std::vector<GeoPoint> points) {
        Route& r = store().Routes.emplace_back();
        r.Name = std::move(name);
        r.Points = std::move(points);
    }
};

TEST_F(OziRoute, SingleRouteStillHasThePlaceholderAndNumberOne) {
    GeoPoint a = MakePoint(8.2, 50.1, "Start, hier", "los");
    a.Date_ = 38000;
    a.Time_ = 21600;
    AddRoute("R", {a, MakePoint(8.3, 50.2, "Ziel")});
    const std::vector<std::string> l = lines(OziRouteText(store(), "14.01.2004"));
    ASSERT_EQ(l.size(), 8u);
    EXPECT_EQ(l[0], "OziExplorer Route File Version 1.0");
    EXPECT_EQ(l[1], "WGS 84");
    EXPECT_EQ(l[2], "Reserved 1");
    EXPECT_EQ(l[3], "Reserved 2");
    EXPECT_EQ(l[4], "R,  0,R0              ,,255");
    EXPECT_EQ(l[5], "R,1,R1,14.01.2004,255");
    EXPECT_EQ(l[6], "W,1,1,1,Start\xD1 hier,50.100000,8.200000,38000.25,0,1,2,0,65535,los,0,0");
    EXPECT_EQ(l[7], "W,1,1,2,Ziel,50.200000,8.300000,,0,1,2,0,65535,,0,0");
}

TEST_F(OziRoute, PointNumbersRunOverTheWholeFileAndCompanionHasFixedColours) {
    GeoPoint a = MakePoint(8.2, 50.1, "A", "", 10);
    a.ForeColor = 255;
    a.BackColor = 255;
    AddRoute("R1", {a, MakePoint(8.3, 50.2, "B")});
    AddRoute("R2", {MakePoint(9.1, 51.1, "C")});
    OziRouteSchreiben(*session, path("tour.rte"));
    const std::vector<std::string> l = lines(read("tour.rte"));
    ASSERT_EQ(l.size(), 10u);
    EXPECT_EQ(l[5].substr(0, 7), "R,1,R1,");
    EXPECT_EQ(l[5].substr(l[5].size() - 4), ",255");
    EXPECT_EQ(l[6].substr(0, 10), "W,1,1,1,A,");
    EXPECT_EQ(l[7].substr(0, 10), "W,1,1,2,B,");
    EXPECT_EQ(l[8].substr(0, 7), "R,2,R2,");
    EXPECT_EQ(l[9].substr(0, 10), "W,2,2,3,C,");  // not restarted at the route

    const std::vector<std::string> w = lines(read("tour.rte.wpt"));
    ASSERT_EQ(w.size(), 7u);
    EXPECT_EQ(w[0], "OziExplorer Waypoint File Version 1.1");
    EXPECT_EQ(w[4], "1,A,50.100000,8.200000,,0,1,2,0,65535,,0,0,0,32,");
    EXPECT_EQ(w[6], "3,C,51.100000,9.100000,,0,1,2,0,65535,,0,0,0,-777,");
}

TEST_F(OziRoute, NoRouteGivesAMessageAndNoFile) {
    OziRouteSchreiben(*session, path("none.rte"));
    EXPECT_FALSE(exists("none.rte"));
    EXPECT_FALSE(exists("none.rte.wpt"));
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].text, "Kein Datensatz vorhanden!");
    EXPECT_EQ(platform.messages[0].title, "Datensatz wählen");
}

TEST_F(OziRoute, ReaderSkipsPlaceholderAndOpensRoutesAtRLines) {
    write("tour.rte",
          "OziExplorer Route File Version 1.0\r\n"
          "WGS 84\r\n"
          "Reserved 1\r\n"
          "Reserved 2\r\n"
          "R,  0,R0              ,,255\r\n"
          "W,0,0,0,Null,0,0,,0,1,2,0,65535,,0,0\r\n"
          "garbage line\r\n"
          "R,1,R1,14.01.2004,255\r\n"
          "w,1,1,1, \"A\xD1 1\" ,50.1,8.2,38000.5,0,1,2,0,65535, Beschr ,0,0\r\n"
          "\r\n"
          "; comment\r\n"
          "W,1,1,2,B,50.2,8.3\r\n"
          "R,2,R2,14.01.2004,255\r\n"
          "W,2,2,3,C,51.1,9.1,,0,1,2,0,65535,,0,0\r\n");
    OziRouteLesen(*session, path("tour.rte"));
    ASSERT_EQ(store().Routes.size(), 2u);
    EXPECT_EQ(store().Routes[0].Name, "tour");
    EXPECT_EQ(store().Routes[1].Name, "tour");
    const auto& r = store().Routes[0].Points;
    ASSERT_EQ(r.size(), 2u);
    EXPECT_EQ(r[0].Name, "A\xC3\x91 1");
    EXPECT_EQ(r[0].Desc, "Beschr");
    EXPECT_DOUBLE_EQ(r[0].Lat, 50.1);
    EXPECT_DOUBLE_EQ(r[0].Lon, 8.2);
    EXPECT_EQ(r[0].Date_, Date(38000));
    EXPECT_EQ(r[0].Time_, Time(43200));
    EXPECT_TRUE(r[1].Date_.empty());
    ASSERT_EQ(store().Routes[1].Points.size(), 1u);
    EXPECT_EQ(store().Routes[1].Points[0].Name, "C");
    EXPECT_EQ(store().RoutePointsRead, 3);
}

TEST_F(OziRoute, WrittenRoutesReadBack) {
    AddRoute("x", {MakePoint(8.2, 50.1, "A", "a"), MakePoint(8.3, 50.2, "B")});
    AddRoute("y", {MakePoint(9.1, 51.1, "C")});
    OziRouteSchreiben(*session, path("back.rte"));
    Session again(platform);
    OziRouteLesen(again, path("back.rte"));
    ASSERT_EQ(again.store.Routes.size(), 2u);
    EXPECT_EQ(again.store.Routes[0].Points.size(), 2u);
    EXPECT_EQ(again.store.Routes[0].Points[0].Desc, "a");
    EXPECT_EQ(again.store.Routes[1].Points[0].Name, "C");
}

TEST_F(OziRoute, CERouteFlagMeansSilentBothWays) {
    GeoPoint silent = MakePoint(8.2, 50.1, " \"Ecke\" ");
    silent.Cmt = "irgendwas";
    AddRoute("R", {silent, MakePoint(-8.3, -50.2, "Ziel")});
    OziCERouteSchreiben(*session, path("ce.rt2"), 1);
    const std::vector<std::string> l = lines(read("ce.rt2"));
    ASSERT_EQ(l.size(), 5u);
    EXPECT_EQ(l[0], "H1,OziExplorer CE Route2 File Version 1.0");
    EXPECT_EQ(l[1], "H2,WGS 84");
    EXPECT_EQ(l[2], "H3,ce,,0");
    EXPECT_EQ(l[3], "W,Ecke,50.100000  ,8.200000  ,1");
    EXPECT_EQ(l[4], "W,Ziel,-50.200000  ,-8.300000  ,0");

    OziCERouteLesen(*session, path("ce.rt2"));
    ASSERT_EQ(store().Routes.size(), 2u);
    const Route& back = store().Routes[1];
    EXPECT_EQ(back.Name, "ce");
    ASSERT_EQ(back.Points.size(), 2u);
    EXPECT_EQ(back.Points[0].Cmt, "Silent");
    EXPECT_EQ(back.Points[0].Name, "Ecke");
    EXPECT_TRUE(back.Points[1].Cmt.empty());
    EXPECT_DOUBLE_EQ(back.Points[1].Lat, -50.2);
    EXPECT_DOUBLE_EQ(back.Points[1].Lon, -8.3);
}

TEST_F(OziRoute, CEReaderTakesOnlyWLines) {
    write("x.rt2", "H1,whatever\n\nw,A,50,8,0\nX,B,51,9,1\nW,C,52,10,2.5\nW,D,53,11\n");
    OziCERouteLesen(*session, path("x.rt2"));
    ASSERT_EQ(store().Routes.size(), 1u);
    const auto& p = store().Routes[0].Points;
    ASSERT_EQ(p.size(), 3u);
    EXPECT_EQ(p[0].Name, "A");
    EXPECT_TRUE(p[0].Cmt.empty());
    EXPECT_EQ(p[1].Cmt, "Silent");  // anything but 0 is silent
    EXPECT_TRUE(p[2].Cmt.empty());  // a missing flag reads as 0
}

TEST_F(OziRoute, SeveralCERoutesGiveNumberedFiles) {
    AddRoute("a", {MakePoint(8, 50, "A")});
    AddRoute("b", {MakePoint(9, 51, "B")});
    OziCERouteDateienSchreiben(*session, path("ce.rt2"));
    EXPECT_FALSE(exists("ce.rt2"));
    EXPECT_EQ(lines(read("ce2.rt2"))[2], "H3,ce2,,0");
    EXPECT_EQ(lines(read("ce1.rt2"))[3], "W,A,50.000000  ,8.000000  ,0");
}

// W lines without a position are no route points (not at 0/0); a file of
// nothing else opens no route. Positions off the earth are counted.
TEST_F(OziRoute, PointsWithoutAPositionAreSkippedInBothFormats) {
    std::string rte = "OziExplorer Route File Version 1.0\r\nWGS 84\r\nReserved 1\r\nReserved 2\r\n"
                      "R,  0,R0              ,,255\r\n"
                      "W,1,1,1,A,50.1,8.1\r\n";
    for (int i = 0; i < 20000; ++i) rte += "W\r\n";
    rte += "W,1,1,2,B,,8.2\r\n"
           "W,1,1,3,C,50.3,8.3\r\n"
           "W,1,1,4,D,95,8.4\r\n";
    OziRouteLesenText(*session, rte, "tour");
    ASSERT_EQ(store().Routes.size(), 1u);
    ASSERT_EQ(store().Routes[0].Points.size(), 2u);
    EXPECT_EQ(store().Routes[0].Points[1].Name, "C");
    EXPECT_EQ(store().RoutePointsRead, 2);
    EXPECT_EQ(store().SkippedRoutePoints, 1);

    Session ce(platform);
    std::string rt2 = "H1,OziExplorer CE Route2 File Version 1.0\r\n";
    for (int i = 0; i < 20000; ++i) rt2 += "W\r\n";
    OziCERouteLesenText(ce, rt2, "leer");
    EXPECT_TRUE(ce.store.Routes.empty());
    OziCERouteLesenText(ce, rt2 + "W,A,50.1  ,8.1  ,0\r\nW,B,x,8.2,0\r\nW,C,50.3  ,1e400  ,1\r\n", "eine");
    ASSERT_EQ(ce.store.Routes.size(), 1u);
    ASSERT_EQ(ce.store.Routes[0].Points.size(), 1u);
    EXPECT_EQ(ce.store.Routes[0].Points[0].Name, "A");
    EXPECT_EQ(ce.store.SkippedRoutePoints, 1);
}

}  // namespace
}  // namespace ortelix
