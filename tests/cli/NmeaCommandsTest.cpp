// The NMEA logs and their tools through the built program: convert from and
// to nmea and pgl, nmea-filter, crlf, lf.
#include "CliTestSupport.h"

#include <fstream>
#include <sstream>

#include "simulator/NmeaSentences.h"

namespace ortelix::testing {
namespace {

std::string Read(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::stringstream ss;
    ss << in.rdbuf();
    return ss.str();
}

std::string Sentence(const std::string& body) {
    const std::string s = "$" + body + "*";
    return s + NmeaPruefsumme(s) + "\r\n";
}

size_t Count(const std::string& text, const std::string& what) {
    size_t n = 0;
    for (size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++n;
    return n;
}

class NmeaCommands : public CliTest {};

TEST_F(NmeaCommands, ConvertReadsAndWritesLogs) {
    // Two days; --dates picks the second.
    const std::string log = File("tour.nmea",
        Sentence("GPRMC,235959.00,A,5000.0000,N,00900.0000,E,010.0,090.0,310524,,") +
        Sentence("GPGGA,235959.00,5000.0000,N,00900.0000,E,1,07,1.2,200.0,M,,M,,") +
        Sentence("GPRMC,000001.00,A,5000.0100,N,00900.0100,E,010.0,090.0,010624,,") +
        Sentence("GPGGA,000001.00,5000.0100,N,00900.0100,E,1,07,1.2,210.0,M,,M,,"));
    CliResult r = Ortelix("convert --set Check21=0 " + log + " " + Path("all.gpx"));
    ASSERT_EQ(r.code, 0) << r.out;
    EXPECT_EQ(Count(Read(Path("all.gpx")), "<trkpt "), 4u);
    r = Ortelix("convert --set Check21=0 --dates 2024-06-01 " + log + " " + Path("day.gpx"));
    ASSERT_EQ(r.code, 0) << r.out;
    const std::string day = Read(Path("day.gpx"));
    EXPECT_EQ(Count(day, "<trkpt "), 2u);
    EXPECT_NE(day.find("<ele>210</ele>"), std::string::npos);
    EXPECT_EQ(day.find("<ele>200</ele>"), std::string::npos);

    // To a log by extension and by name: the plain one with CR LF, TomTom's
    // with its header and LF alone.
    r = Ortelix("convert --set Check21=0 " + Path("all.gpx") + " " + Path("back.nmea"));
    ASSERT_EQ(r.code, 0) << r.out;
    const std::string plain = Read(Path("back.nmea"));
    EXPECT_EQ(Count(plain, "$GPRMC,"), 4u);
    EXPECT_EQ(Count(plain, "\r\n"), 4u * 7);
    EXPECT_NE(plain.find("$GPRMC,000001.00,A,5000.0100,N,00900.0100,E,"), std::string::npos);
    r = Ortelix("convert -o pgl " + Path("all.gpx") + " " + Path("tomtom.log"));
    ASSERT_EQ(r.code, 0) << r.out;
    const std::string pgl = Read(Path("tomtom.log"));
    EXPECT_EQ(pgl.rfind("PTOM101,PocketPC,Pocket LOOX,2577,3.0*3B\n$PTOM102,", 0), 0u);
    EXPECT_NE(pgl.find("$PTOM104," + Path("tomtom.log") + "-busy.pgl*5A\n"), std::string::npos);
    EXPECT_EQ(pgl.find('\r'), std::string::npos);

    // Read back, the .pgl by its extension and the .log by -i.
    r = Ortelix("convert --set Check21=0 -i pgl " + Path("tomtom.log") + " " + Path("again.gpx"));
    ASSERT_EQ(r.code, 0) << r.out;
    EXPECT_EQ(Count(Read(Path("again.gpx")), "<trkpt "), 8u);

    // A store without tracks writes no log.
    const std::string wpt = File("w.gpx",
        "<?xml version=\"1.0\"?><gpx version=\"1.0\"><wpt lat=\"50\" lon=\"9\"><name>a</name></wpt></gpx>");
    r = Ortelix("convert " + wpt + " " + Path("none.nmea"));
    EXPECT_EQ(r.code, 1) << r.out;
    EXPECT_NE(r.out.find("Kein Datensatz vorhanden!"), std::string::npos) << r.out;
    EXPECT_FALSE(std::filesystem::exists(Path("none.nmea")));

    // "formats" names both.
    r = Ortelix("formats");
    EXPECT_NE(r.out.find("nmea         LS     nmea pgl log"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("pgl          -S     pgl"), std::string::npos) << r.out;
}

TEST_F(NmeaCommands, FilterAndLineEndTools) {
    const std::string in = File("in.nmea", "GPGGA,1\r\n$GPZDA,2\r\n$GPRMC,3\n");
    CliResult r = Ortelix("nmea-filter " + in + " " + Path("out.nmea"));
    ASSERT_EQ(r.code, 0) << r.out;
    EXPECT_EQ(r.out, "Filtere: 2\n");
    EXPECT_EQ(Read(Path("out.nmea")), "$GPGGA,1\r\n$GPRMC,3\r\n");

    r = Ortelix("lf " + Path("out.nmea") + " " + Path("lf.nmea"));
    ASSERT_EQ(r.code, 0) << r.out;
    EXPECT_EQ(Read(Path("lf.nmea")), "$GPGGA,1\n$GPRMC,3\n");
    r = Ortelix("crlf " + Path("lf.nmea") + " " + Path("crlf.nmea"));
    ASSERT_EQ(r.code, 0) << r.out;
    EXPECT_EQ(Read(Path("crlf.nmea")), "$GPGGA,1\r\n$GPRMC,3\r\n");
    // CR LF through crlf doubles the CRs.
    r = Ortelix("crlf " + Path("crlf.nmea") + " " + Path("double.nmea"));
    EXPECT_EQ(Read(Path("double.nmea")), "$GPGGA,1\r\r\n$GPRMC,3\r\r\n");

    // Wrong calls: 2, and nothing written.
    for (const std::string& args : {"nmea-filter " + in, "crlf " + in + " " + in, "lf --x " + in + " " + Path("x"),
                                    "lf " + in + " " + Path("y") + " " + Path("z")}) {
        r = Ortelix(args);
        EXPECT_EQ(r.code, 2) << args << "\n" << r.out;
    }
    EXPECT_NE(Ortelix("crlf " + in + " " + in).out.find("Eingabe und Ausgabe sind dieselbe Datei: "),
              std::string::npos);
    // The same file by another name (a link) is refused too.
    std::filesystem::create_symlink(in, Path("link.nmea"));
    EXPECT_EQ(Ortelix("lf " + in + " " + Path("link.nmea")).code, 2);
    EXPECT_EQ(Read(in), "GPGGA,1\r\n$GPZDA,2\r\n$GPRMC,3\n");
    EXPECT_FALSE(std::filesystem::exists(Path("x")));

    // A source that cannot be read: 1, the message, the old target kept.
    const std::string target = File("kept.nmea", "kept");
    r = Ortelix("nmea-filter " + Path("missing.nmea") + " " + target);
    EXPECT_EQ(r.code, 1);
    EXPECT_NE(r.out.find("Die Daten können nicht eingelesen werden.\n\nUrsache: "), std::string::npos) << r.out;
    EXPECT_EQ(Read(target), "kept");
    // A target that cannot be made: 1, the writers' message.
    r = Ortelix("lf " + in + " " + Path("no/such/folder.nmea"));
    EXPECT_EQ(r.code, 1);
    EXPECT_NE(r.out.find("Die Daten können nicht gespeichert werden.\n\nUrsache: "), std::string::npos) << r.out;

    // help lists the three.
    r = Ortelix("help");
    for (const char* name : {"nmea-filter", "crlf", "lf"})
        EXPECT_NE(r.out.find(std::string("  ") + name + " "), std::string::npos) << name;
}

}  // namespace
}  // namespace ortelix::testing
