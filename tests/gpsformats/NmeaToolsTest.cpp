// The file tools of the logs: the sentence filter and the line-end changers.
#include <gtest/gtest.h>

#include <unistd.h>

#include "commands/CommandTable.h"
#include "core/FileIO.h"
#include "core/Session.h"
#include "fake/FakePlatform.h"
#include "fake/TestFiles.h"
#include "gpsformats/Nmea.h"

namespace ortelix {
namespace {

class NmeaTools : public ::testing::Test {
protected:
    void SetUp() override {
        dir = testfiles::FreshFolder("gpsformats", std::string("nmea-tools-") +
                                     ::testing::UnitTest::GetInstance()->current_test_info()->name());
    }
    std::string Put(const std::string& name, const std::string& bytes) { return testfiles::Put(dir / name, bytes); }
    std::string Path(const std::string& name) const { return (dir / name).string(); }

    FakePlatform p;
    Session s{p};
    std::filesystem::path dir;
};

TEST_F(NmeaTools, FilterRepairsTheDollarAndKeepsSixKinds) {
    const std::string in =
        "$GPGGA,1*00\r\n"
        "GPRMC,2*00\r\n"         // lost its "$"
        "$GPGLL,3\n"             // LF alone
        "$GPGSA,4\r\n"
        "$GPGSV,5\r\n"
        "$GPVTG,6\r\n"
        "$GPZDA,7\r\n"           // not one of the six
        "$GNGGA,8\r\n"           // another talker
        "$PTOM101,9\r\n"
        "PTOM101,10\r\n"
        "GPXTE,11\r\n"           // repaired, but still not one of the six
        "\r\n"
        "$GPGG\r\n"              // too short
        "GPGSV";                 // the last line, without an end
    std::string out;
    EXPECT_EQ(NmeaFilterText(in, out), 7);
    EXPECT_EQ(out,
              "$GPGGA,1*00\r\n$GPRMC,2*00\r\n$GPGLL,3\r\n$GPGSA,4\r\n$GPGSV,5\r\n$GPVTG,6\r\n$GPGSV\r\n");

    // From file to file with the count on the status line.
    const std::string src = Put("in.nmea", in);
    EXPECT_EQ(NmeaFilter(s, src, Path("out.nmea")), 7);
    EXPECT_EQ(ReadFileBytes(Path("out.nmea")), out);
    EXPECT_EQ(s.store.StatusText.text(), "Filtere: 7");
}

TEST_F(NmeaTools, LineEndsBothWays) {
    EXPECT_EQ(LfToCrLfText("a\nb\n\nc"), "a\r\nb\r\n\r\nc");
    // A CR LF file through LfToCrLf doubles its CRs.
    EXPECT_EQ(LfToCrLfText("a\r\nb\r\n"), "a\r\r\nb\r\r\n");
    EXPECT_EQ(CrLfToLfText("a\r\nb\r\n\r\nc"), "a\nb\n\nc");
    // A CR without LF, and an LF without CR, stay.
    EXPECT_EQ(CrLfToLfText("a\rb\nc\r"), "a\rb\nc\r");
    EXPECT_EQ(CrLfToLfText("a\r\r\n"), "a\r\n");
    EXPECT_EQ(LfToCrLfText(""), "");
    // Back and forth gives the LF text again.
    const std::string lf = "$GPGGA,1\n$GPRMC,2\n";
    EXPECT_EQ(CrLfToLfText(LfToCrLfText(lf)), lf);

    // Large files go in slices; a CR LF across a slice boundary is one.
    std::string big;
    while (big.size() < 3 * SafeWriter::kBackgroundSlice) big += "$GPGGA,123519,4807.038,N,01131.000,E\r\n";
    const std::string src = Put("big.nmea", big);
    CrLfToLfFile(s, src, Path("big-lf.nmea"));
    EXPECT_EQ(s.store.StatusText.text(), "Fertig");
    const std::string lfBig = ReadFileBytes(Path("big-lf.nmea"));
    EXPECT_EQ(lfBig, CrLfToLfText(big));
    EXPECT_EQ(lfBig.find('\r'), std::string::npos);
    LfToCrLfFile(s, Path("big-lf.nmea"), Path("big-crlf.nmea"));
    EXPECT_EQ(ReadFileBytes(Path("big-crlf.nmea")), big);
}

TEST_F(NmeaTools, MenuCommandsAskForSourceAndTarget) {
    const std::string src = Put("src.txt", "x\ny\n");
    const Command* lf = FindCommand("MenToolsLF2CRLF");
    const Command* crlf = FindCommand("MenToolsCRLF2LF");
    const Command* filter = FindCommand("MenToolsNMEAFilter");
    ASSERT_TRUE(lf && crlf && filter);
    ASSERT_TRUE(lf->run && crlf->run && filter->run);

    p.fileChoices = {{src, 1}, {Path("crlf.txt"), 1}};
    lf->run(s, {});
    EXPECT_EQ(p.fileDialogTitles, (std::vector<std::string>{"QuellDatei auswählen", "Ziel Datei auswählen"}));
    EXPECT_EQ(ReadFileBytes(Path("crlf.txt")), "x\r\ny\r\n");
    EXPECT_EQ(s.store.StatusText.text(), "Fertig");

    p.fileDialogTitles.clear();
    p.fileChoices = {{Path("crlf.txt"), 1}, {Path("lf.txt"), 1}};
    crlf->run(s, {});
    EXPECT_EQ(p.fileDialogTitles, (std::vector<std::string>{"Quell Datei auswählen", "Ziel Datei auswählen"}));
    EXPECT_EQ(ReadFileBytes(Path("lf.txt")), "x\ny\n");

    p.fileDialogTitles.clear();
    p.fileChoices = {{Put("log.nmea", "GPGGA,1\r\n$GPXXX\r\n"), 1}, {Path("filtered.nmea"), 1}};
    filter->run(s, {});
    EXPECT_EQ(p.fileDialogTitles, (std::vector<std::string>{"NMEA Log-Datei auswählen", "Ziel NMEA Datei auswählen"}));
    EXPECT_EQ(ReadFileBytes(Path("filtered.nmea")), "$GPGGA,1\r\n");
    EXPECT_EQ(s.store.StatusText.text(), "Filtere: 1");

    // Cancelling the target writes nothing.
    auto files = [&] { return std::distance(std::filesystem::directory_iterator(dir), {}); };
    const auto before = files();
    p.fileDialogTitles.clear();
    p.fileChoices = {{src, 1}};
    lf->run(s, {});
    EXPECT_EQ(p.fileDialogTitles.size(), 2u);
    EXPECT_EQ(files(), before);
    EXPECT_TRUE(p.messages.empty());
}

TEST_F(NmeaTools, FailuresKeepTheTarget) {
    const std::string target = Put("keep.txt", "kept");
    const std::string missing = Path("missing.txt");
    EXPECT_THROW(LfToCrLfFile(s, missing, target), FileError);
    EXPECT_THROW(NmeaFilter(s, missing, target), FileError);
    EXPECT_EQ(ReadFileBytes(target), "kept");

    // The filter's command says nothing of it (but for the save dialog's
    // question before overwriting, answered yes); the line-end tools say why.
    p.fileChoices = {{missing, 1}, {target, 1}};
    FindCommand("MenToolsNMEAFilter")->run(s, {});
    ASSERT_EQ(p.messages.size(), 1u);
    EXPECT_EQ(p.messages[0].text, "Die Datei existiert schon. Überschreiben?");
    EXPECT_FALSE(p.busy);
    p.fileChoices = {{missing, 1}, {target, 1}};
    FindCommand("MenToolsCRLF2LF")->run(s, {});
    ASSERT_FALSE(p.messages.empty());
    EXPECT_EQ(p.messages.back().text.rfind("Die Daten können nicht eingelesen werden.\r\n\r\nUrsache: ", 0), 0u);
    EXPECT_EQ(p.messages.back().title, "CRLF zu LF");
    EXPECT_EQ(ReadFileBytes(target), "kept");
    // A target in a folder that does not exist: the writers' message.
    const std::string src = Put("here.txt", "a\n");
    p.fileChoices = {{src, 1}, {Path("no/such/folder.txt"), 1}};
    FindCommand("MenToolsLF2CRLF")->run(s, {});
    EXPECT_EQ(p.messages.back().text.rfind("Die Daten können nicht gespeichert werden.\r\n\r\nUrsache: ", 0), 0u);

    // A target that cannot be written leaves the old one as it was.
    if (::geteuid() != 0) {
        const std::string src2 = Put("src.txt", "a\nb\n");
        std::filesystem::create_directories(dir / "locked");
        const std::string lockedTarget = testfiles::Put(dir / "locked" / "t.txt", "old");
        std::filesystem::permissions(dir / "locked",
                                     std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
        EXPECT_THROW(LfToCrLfFile(s, src2, lockedTarget), FileError);
        std::filesystem::permissions(dir / "locked", std::filesystem::perms::owner_all);
        EXPECT_EQ(ReadFileBytes(lockedTarget), "old");
    }
}

}  // namespace
}  // namespace ortelix
