#include "OziTestSupport.h"

#include "appformats/ModOziTrack.h"
#include "coordinates/Datum.h"
#include "core/ModulArray.h"

namespace ortelix {
namespace {

class OziTrack : public OziTest {
protected:
    void AddPoint(double lon, double lat, OptInt alt, Date d, Time t) {
        TrackPoint& p = store().Tracks.back().Points.emplace_back();
        p.Lon = lon;
        p.Lat = lat;
        p.Alt = alt;
        p.Date_ = d;
        p.Time_ = t;
    }
};

TEST_F(OziTrack, WritesHeaderAndPointLines) {
    NewTrack(store(), "Irgendwas");
    AddPoint(8.123456, 50.123456, 149, 38000, 41265);
    AddPoint(-0.5, 0, OptInt(), Date(), Time());
    AddPoint(8.2, 50.2, 0, 38000, Time());
    OziTrackSchreiben(*session, path("Tour, 1.plt"), 1);
    const std::vector<std::string> l = lines(read("Tour, 1.plt"));
    ASSERT_EQ(l.size(), 9u);
    EXPECT_EQ(l[0], "OziExplorer Track Point File Version 2.1");
    EXPECT_EQ(l[1], "WGS 84");
    EXPECT_EQ(l[2], "Altitude is in Feet");
    EXPECT_EQ(l[3], "Reserved 3");
    EXPECT_EQ(l[4], "0,2,16711935,Tour, 1,1,1,0,8421376");  // the file's base name, not the track's
    EXPECT_EQ(l[5], "3");
    EXPECT_EQ(l[6], " 50.123456, 8.123456, 0, 488, 38000.47760416667, 14.01.2004, 11:27:45");
    EXPECT_EQ(l[7], " 0.000000, -0.500000, 0, -777, , , ");
    EXPECT_EQ(l[8], " 50.200000, 8.200000, 0, 0, , 14.01.2004, ");
    EXPECT_EQ(store().StatusText.text(), "Fertig");
}

TEST_F(OziTrack, NothingForEmptyNameOrBadIndex) {
    NewTrack(store(), "T");
    AddPoint(8, 50, 1, 1, 1);
    OziTrackSchreiben(*session, "", 1);
    OziTrackSchreiben(*session, path("a.plt"), 0);
    OziTrackSchreiben(*session, path("b.plt"), 2);
    EXPECT_FALSE(exists("a.plt"));
    EXPECT_FALSE(exists("b.plt"));
}

TEST_F(OziTrack, SeveralTracksGiveNumberedFiles) {
    NewTrack(store(), "A");
    AddPoint(8, 50, 1, 1, 1);
    NewTrack(store(), "B");
    AddPoint(9, 51, 2, 1, 1);
    OziTrackDateienSchreiben(*session, path("out.plt"));
    EXPECT_FALSE(exists("out.plt"));
    ASSERT_TRUE(exists("out1.plt"));
    ASSERT_TRUE(exists("out2.plt"));
    EXPECT_EQ(lines(read("out2.plt"))[4], "0,2,16711935,out2,1,1,0,8421376");
    EXPECT_EQ(lines(read("out2.plt"))[6].substr(0, 20), " 51.000000, 9.000000");

    store().Tracks.pop_back();
    OziTrackDateienSchreiben(*session, path("single.plt"));
    EXPECT_TRUE(exists("single.plt"));
    EXPECT_FALSE(exists("single1.plt"));
}

TEST_F(OziTrack, ReadsPointsWithBlankLinesAndShortLines) {
    write("walk.plt",
          "OziExplorer Track Point File Version 2.1\r\n"
          "WGS 84\r\n"
          "Altitude is in Feet\r\n"
          "Reserved 3\r\n"
          "0,2,255,Anderer Name,0,0,2,8421376\r\n"
          "4\r\n"
          " 50.123456, 8.123456, 0, 490.2, 38000.4776042, 14.01.2004, 11:27:45\r\n"
          "\r\n"
          "50.2,8.2,1,-777,38000.5\r\n"
          "   \r\n"
          "50.3,8.3,0,0\r\n"
          "50.4,8.4\r\n"
          "50.5,8.5,0,,38000.5\r\n");
    OziTrackLesen(*session, path("walk.plt"));
    ASSERT_EQ(store().Tracks.size(), 1u);
    const Track& t = store().Tracks[0];
    EXPECT_EQ(t.Name, "walk");
    ASSERT_EQ(t.Points.size(), 5u);
    EXPECT_DOUBLE_EQ(t.Points[0].Lat, 50.123456);
    EXPECT_DOUBLE_EQ(t.Points[0].Lon, 8.123456);
    EXPECT_EQ(t.Points[0].Alt, OptInt(149));  // 490.2 ft = 149.4 m, stored rounded
    EXPECT_EQ(t.Points[0].Date_, Date(38000));
    EXPECT_EQ(t.Points[0].Time_, Time(41265));
    EXPECT_TRUE(t.Points[1].Alt.empty());     // -777
    EXPECT_EQ(t.Points[1].Time_, Time(43200));
    EXPECT_EQ(t.Points[2].Alt, OptInt(0));    // 0 stays 0
    EXPECT_TRUE(t.Points[2].Date_.empty());
    EXPECT_TRUE(t.Points[3].Alt.empty());     // missing fields
    EXPECT_TRUE(t.Points[3].Date_.empty());
    // An empty altitude field leaves every optional field empty, the date too.
    EXPECT_TRUE(t.Points[4].Alt.empty());
    EXPECT_TRUE(t.Points[4].Date_.empty());
    EXPECT_TRUE(t.Points[4].Time_.empty());
    EXPECT_EQ(store().StatusText.text(), "Fertig");
}

TEST_F(OziTrack, ShortFileAndMissingHeaderGiveNoPoints) {
    write("short.plt", "OziExplorer Track Point File Version 2.1\r\nWGS 84\r\n");
    OziTrackLesen(*session, path("short.plt"));
    EXPECT_EQ(store().TrackPointTotal(), 0);
    // A count that promises far more points than the file holds does no harm.
    write("liar.plt", "1\n2\n3\n4\n5\n2000000000\n50,8,0,0\n");
    OziTrackLesen(*session, path("liar.plt"));
    EXPECT_EQ(store().TrackPointTotal(), 1);
}

TEST_F(OziTrack, RoundTripKeepsPositionsAltitudesAndMoments) {
    NewTrack(store(), "T");
    AddPoint(11.575001, 48.137002, 520, 38716, 51790);
    AddPoint(-70.5, -33.25, OptInt(), 40000, 1);
    AddPoint(0.000001, 0.000001, -3, Date(), Time());
    OziTrackSchreiben(*session, path("rt.plt"), 1);
    Session again(platform);
    OziTrackLesen(again, path("rt.plt"));
    ASSERT_EQ(again.store.Tracks.size(), 1u);
    const auto& a = store().Tracks[0].Points;
    const auto& b = again.store.Tracks[0].Points;
    ASSERT_EQ(b.size(), a.size());
    for (size_t i = 0; i < a.size(); ++i) {
        EXPECT_NEAR(b[i].Lon, a[i].Lon, 5e-7) << i;
        EXPECT_NEAR(b[i].Lat, a[i].Lat, 5e-7) << i;
        EXPECT_EQ(b[i].Date_, a[i].Date_) << i;
        EXPECT_EQ(b[i].Time_, a[i].Time_) << i;
        // Feet are cut to whole numbers, so a metre may be lost on the way.
        if (a[i].Alt.empty()) EXPECT_TRUE(b[i].Alt.empty());
        else EXPECT_NEAR(*b[i].Alt, *a[i].Alt, 1) << i;
    }
    // A point without a date keeps an empty date, and -3 m comes back as -3 m.
    EXPECT_TRUE(b[2].Date_.empty());
    EXPECT_EQ(b[2].Alt, OptInt(-3));
}

TEST_F(OziTrack, AppendOptionKeepsFillingTheLastTrack) {
    write("a.plt", "1\n2\n3\n4\n5\n1\n50,8,0,0\n");
    write("b.plt", "1\n2\n3\n4\n5\n1\n51,9,0,0\n");
    OziTrackLesen(*session, path("a.plt"));
    OziTrackLesen(*session, path("b.plt"));
    EXPECT_EQ(store().Tracks.size(), 2u);
    EXPECT_EQ(store().Tracks[1].Name, "b");

    Session joined(platform);
    joined.options.Check[12] = 1;
    OziTrackLesen(joined, path("a.plt"));
    OziTrackLesen(joined, path("b.plt"));
    ASSERT_EQ(joined.store.Tracks.size(), 1u);
    EXPECT_EQ(joined.store.Tracks[0].Points.size(), 2u);
}

TEST_F(OziTrack, DatumTransformationOnlyWhenTheUserAskedForIt) {
    Datum potsdam;
    potsdam.Name = "Potsdam";
    potsdam.HalbachseX = 6377397.155;
    potsdam.HalbachseY = 6356078.962;
    potsdam.dx = 582;
    potsdam.dy = 105;
    potsdam.dz = 414;
    potsdam.rx = 1.04;
    potsdam.ry = 0.35;
    potsdam.rz = -3.08;
    potsdam.Massstab = 1.0000083;
    session->coords.DatumListe.push_back(potsdam);
    session->options.List[44] = 0;
    write("d.plt", "1\n2\n3\n4\n5\n1\n50,8,0,0\n");

    OziTrackLesen(*session, path("d.plt"));  // check box clear: the numbers as they stand
    EXPECT_DOUBLE_EQ(store().Tracks.back().Points[0].Lat, 50.0);

    session->options.Check[1] = 1;
    OziTrackLesen(*session, path("d.plt"));
    double lonW = 0, latW = 0;
    DatumToWGS84(potsdam, 8, 50, lonW, latW);
    const TrackPoint& p = store().Tracks.back().Points[0];
    EXPECT_DOUBLE_EQ(p.Lon, lonW);
    EXPECT_DOUBLE_EQ(p.Lat, latW);
    EXPECT_GT(std::abs(p.Lat - 50.0) + std::abs(p.Lon - 8.0), 1e-4);
}

TEST_F(OziTrack, AbortStopsTheRead) {
    std::string text = "1\n2\n3\n4\n5\n10\n";
    for (int i = 0; i < 10; ++i) text += "50,8." + std::to_string(i) + ",0,0\n";
    write("long.plt", text);
    session->UserAbort = true;
    OziTrackLesen(*session, path("long.plt"));
    EXPECT_EQ(store().TrackPointTotal(), 0);
}

// A line without a position is no point: not one at 0/0 and not one on the
// equator with its latitude as longitude. A position off the earth is a
// point that the store refuses and counts.
TEST_F(OziTrack, LinesWithoutAPositionAreNoPointsAndBadOnesAreCounted) {
    std::string text = "OziExplorer Track Point File Version 2.1\r\nWGS 84\r\nAltitude is in Feet\r\n"
                       "Reserved 3\r\n0,2,255,x,0,0,2,8421376\r\n99999\r\n";
    for (int i = 0; i < 50000; ++i) text += "1\r\n";
    text += "50.1,abc,0,0\r\n"
            ",8.1\r\n"
            "50.2,8.2,0,100\r\n"
            "1e309,8.3,0,100\r\n"
            "50.4,-361,0,100\r\n"
            "50.5,8.5,0,1e300\r\n"
            "50.6,8.6,0,-777\r\n";
    session->options.List[7] = 1;
    OziTrackLesenText(*session, text, "leer");
    ASSERT_EQ(store().Tracks.size(), 1u);
    const auto& p = store().Tracks[0].Points;
    ASSERT_EQ(p.size(), 2u);
    EXPECT_DOUBLE_EQ(p[0].Lat, 50.2);
    EXPECT_EQ(p[0].Alt, OptInt(30));
    EXPECT_DOUBLE_EQ(p[1].Lat, 50.6);
    EXPECT_EQ(store().SkippedTrackPoints, 3);
}

}  // namespace
}  // namespace ortelix
