// Reading what is no plain file, reading without end, and a file cut short
// by another program while it is mapped.
#include <gtest/gtest.h>

#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sys/mman.h>
#include <thread>
#include <unistd.h>

#include "commands/CommandRun.h"
#include "commands/CommandTable.h"
#include "core/FileIO.h"
#include "core/Session.h"
#include "fake/FakePlatform.h"
#include "fake/TestFiles.h"

namespace ortelix {
namespace {

namespace fs = std::filesystem;

fs::path Folder(const std::string& name) { return testfiles::FreshFolder("test-readlimits", name); }

using testfiles::Put;

std::string Text(size_t n) {
    std::string t;
    for (size_t i = 0; t.size() < n; ++i) t += "Zeile " + std::to_string(i) + "\n";
    t.resize(n);
    return t;
}

// A pipe whose other end a thread fills; its path is the /proc link of the read end.
class Pipe {
public:
    explicit Pipe(std::string bytes) {
        EXPECT_EQ(::pipe(fds_), 0);
        writer_ = std::thread([this, b = std::move(bytes)] {
            size_t at = 0;
            while (at < b.size()) {
                const ssize_t n = ::write(fds_[1], b.data() + at, b.size() - at);
                if (n <= 0) break;
                at += static_cast<size_t>(n);
            }
            ::close(fds_[1]);
        });
    }
    ~Pipe() {
        writer_.join();
        ::close(fds_[0]);
    }
    std::string path() const { return "/proc/self/fd/" + std::to_string(fds_[0]); }

private:
    int fds_[2] = {-1, -1};
    std::thread writer_;
};

std::string Cause(const std::function<void()>& f) {
    try {
        f();
    } catch (const FileError& e) {
        return e.what();
    }
    return "(kein Fehler)";
}

TEST(ReadLimits, PipesDevicesAndFilesAreReadWhole) {
    const std::string big = Text(300000);  // more than a pipe's buffer
    {
        Pipe p(big);
        EXPECT_EQ(ReadFileBytes(p.path()), big);
    }
    {
        Pipe p(big);
        MappedFile m(p.path());
        EXPECT_FALSE(m.mapped());
        EXPECT_EQ(m.view(), big);
        m.release(200000);  // nothing to hand back, and nothing lost
        EXPECT_EQ(m.view(), big);
    }
    const fs::path dir = Folder("whole");
    Put(dir / "a.txt", big);
    Put(dir / "leer.txt", "");
    {
        MappedFile m((dir / "a.txt").string());
        EXPECT_TRUE(m.mapped());
        EXPECT_EQ(m.view(), big);
        m.release(200000);  // pages handed back are read again from the file
        EXPECT_EQ(m.view(), big);
        EXPECT_NO_THROW(m.checkIntact());
    }
    EXPECT_EQ(MappedFile((dir / "leer.txt").string()).view(), "");
    EXPECT_EQ(ReadFileBytes((dir / "a.txt").string()), big);
    // A file whose size says 0 but which has bytes, as under /proc.
    EXPECT_NE(MappedFile("/proc/self/status").view().find("Umask:"), std::string_view::npos);
    EXPECT_EQ(Cause([&] { MappedFile m(dir.string()); }), "Der Pfad ist ein Ordner");
    EXPECT_EQ(Cause([&] { ReadFileBytes((dir / "fehlt").string()); }), "Datei oder Pfad nicht gefunden");
}

TEST(ReadLimits, EndlessInputStopsAtTheLimit) {
    EXPECT_EQ(TooLargeText(kReadLimit), "Die Datei ist größer als 1 GiB");
    EXPECT_EQ(Cause([] { ReadFileBytes("/dev/zero", size_t(1) << 20); }), "Die Datei ist größer als 1 MiB");
    EXPECT_EQ(Cause([] { MappedFile m("/dev/zero", size_t(3) << 10); }), "Die Datei ist größer als 3 KiB");

    // Exactly the limit passes, one byte more does not: pipes and files alike.
    const std::string bytes = Text(70000);
    {
        Pipe p(bytes);
        EXPECT_EQ(ReadFileBytes(p.path(), 70000).size(), 70000u);
    }
    {
        Pipe p(bytes);
        EXPECT_EQ(Cause([&] { ReadFileBytes(p.path(), 69999); }), "Die Datei ist größer als 69999 Bytes");
    }
    const fs::path dir = Folder("limit");
    Put(dir / "a.txt", bytes);
    EXPECT_EQ(ReadFileBytes((dir / "a.txt").string(), 70000), bytes);
    EXPECT_EQ(Cause([&] { ReadFileBytes((dir / "a.txt").string(), 1000); }), "Die Datei ist größer als 1000 Bytes");
}

TEST(ReadLimits, AFileCutWhileMappedReadsAsZerosAndSaysSo) {
    const fs::path dir = Folder("cut");
    const size_t page = static_cast<size_t>(::sysconf(_SC_PAGESIZE));
    const std::string bytes(5 * page, 'a');
    Put(dir / "a.txt", bytes);
    Put(dir / "b.txt", bytes);
    MappedFile m((dir / "a.txt").string());
    MappedFile other((dir / "b.txt").string());
    ASSERT_TRUE(m.mapped());
    EXPECT_EQ(m.view()[0], 'a');
    ASSERT_EQ(::truncate((dir / "a.txt").c_str(), static_cast<off_t>(page + 10)), 0);

    size_t letters = 0, zeros = 0;
    for (char c : m.view()) {
        letters += c == 'a';
        zeros += c == 0;
    }
    EXPECT_EQ(letters, page + 10);
    EXPECT_EQ(zeros, 4 * page - 10);
    EXPECT_EQ(Cause([&] { m.checkIntact(); }), kChangedWhileReading);
    // The other mapping is not affected.
    EXPECT_EQ(other.view(), bytes);
    EXPECT_NO_THROW(other.checkIntact());
}

TEST(ReadLimits, ABusErrorOutsideOurMappingsStillEndsTheProgram) {
    const fs::path dir = Folder("foreign");
    const size_t page = static_cast<size_t>(::sysconf(_SC_PAGESIZE));
    Put(dir / "a.txt", std::string(3 * page, 'a'));
    { MappedFile installsTheHandler((dir / "a.txt").string()); }
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    // Handled, the fault would repeat for ever; the default action ends the program.
    EXPECT_EXIT(
        {
            const int fd = ::open((dir / "a.txt").c_str(), O_RDONLY);
            auto* p = static_cast<volatile const char*>(::mmap(nullptr, 3 * page, PROT_READ, MAP_PRIVATE, fd, 0));
            if (::ftruncate(::open((dir / "a.txt").c_str(), O_WRONLY), 0) != 0) std::_Exit(0);
            std::_Exit(p[2 * page] == 'a' ? 0 : 0);
        },
        [](int status) {
            return (WIFSIGNALED(status) && WTERMSIG(status) == SIGBUS) || (WIFEXITED(status) && WEXITSTATUS(status) != 0);
        },
        "");
}

std::string Gpx(int points) {
    std::string t = "<?xml version=\"1.0\"?>\n<gpx version=\"1.1\" creator=\"test\"><trk><name>T</name><trkseg>";
    for (int i = 0; i < points; ++i)
        t += "<trkpt lat=\"50." + std::to_string(100000 + i) + "\" lon=\"8." + std::to_string(100000 + i) +
             "\"><ele>" + std::to_string(i % 500) + "</ele></trkpt>\n";
    return t + "</trkseg></trk></gpx>\n";
}

TEST(ReadLimits, AGpxCutWhileReadGivesTheReadFailure) {
    const fs::path dir = Folder("gpx");
    const fs::path file = dir / "lang.gpx";
    Put(file, Gpx(20000));
    FakePlatform p;
    Session s(p);
    bool cut = false;
    p.onYield = [&] {
        if (cut) return;
        cut = true;
        ASSERT_EQ(::truncate(file.c_str(), 3000), 0);
    };
    EXPECT_FALSE(ReadWith(s, *FindCommand("MenEinGPX"), file.string()));
    EXPECT_TRUE(cut);
    ASSERT_EQ(p.messages.size(), 1u);
    EXPECT_EQ(p.messages[0].text,
              "Die Daten können nicht eingelesen werden.\r\n\r\nUrsache: Die Datei wurde während des Lesens verändert");
    EXPECT_EQ(s.store.StatusText.text(), "Fertig");

    // Read again whole, the same file gives its points and no message.
    Put(file, Gpx(20000));
    Session fresh(p);
    p.onYield = nullptr;
    p.messages.clear();
    EXPECT_TRUE(ReadWith(fresh, *FindCommand("MenEinGPX"), file.string()));
    EXPECT_TRUE(p.messages.empty());
    EXPECT_EQ(fresh.store.TrackPointTotal(), 20000);
}

}  // namespace
}  // namespace ortelix
