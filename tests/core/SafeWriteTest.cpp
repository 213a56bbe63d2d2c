// Writing a file in a shared folder: the temporary beside the target cannot
// be hijacked by a planted link or FIFO, a rewrite keeps mode, owner and
// links, and targets that are no regular files are written as they are.
#include <gtest/gtest.h>

#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <future>
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

#include "core/FileIO.h"
#include "fake/TestFiles.h"

namespace ortelix {
namespace {

namespace fs = std::filesystem;

fs::path Folder(const std::string& name) { return testfiles::FreshFolder("test-safewrite", name); }

using testfiles::Put;

std::string Get(const fs::path& p) { return ReadFileBytes(p.string()); }

void Write(const std::string& target, const std::string& text) {
    SafeWriter w(target);
    w.write(text);
    w.commit();
}

// Names in the folder that are left-over temporaries.
int Temporaries(const fs::path& dir) {
    int n = 0;
    for (const auto& e : fs::directory_iterator(dir)) {
        const std::string name = e.path().filename().string();
        if (name.size() > 4 && name[0] == '.' && name.substr(name.size() - 4) == ".tmp") ++n;
    }
    return n;
}

mode_t Mode(const fs::path& p) {
    struct stat st {};
    EXPECT_EQ(::lstat(p.c_str(), &st), 0) << p;
    return st.st_mode;
}

TEST(SafeWrite, PlantedLinksAndFifosAreNeitherFollowedNorOpened) {
    const fs::path dir = Folder("planted");
    const fs::path target = dir / "out.gpx", victim = dir / "victim.txt";
    Put(target, "alt");
    Put(victim, "geheim");

    // The temporary name of earlier versions was predictable: a link and a
    // FIFO planted there change nothing.
    fs::create_symlink(victim, dir / "out.gpx.ortelix-tmp");
    ASSERT_EQ(::mkfifo((dir / ".out.gpx.ortelix-tmp").c_str(), 0666), 0);
    Write(target.string(), "neu");
    EXPECT_EQ(Get(target), "neu");
    EXPECT_EQ(Get(victim), "geheim");
    EXPECT_TRUE(fs::is_symlink(dir / "out.gpx.ortelix-tmp"));

    // Every name tried is taken: first by a link to the victim, then by a
    // FIFO; the third is free. The creation must neither write through the
    // link nor wait for a FIFO reader.
    ASSERT_EQ(::symlink(victim.c_str(), (dir / ".out.gpx.eins.tmp").c_str()), 0);
    ASSERT_EQ(::mkfifo((dir / ".out.gpx.zwei.tmp").c_str(), 0666), 0);
    const char* names[] = {"eins", "zwei", "drei"};
    int next = 0;
    std::string temp;
    auto made = std::async(std::launch::async, [&] {
        return CreateTempBeside(target.string(), temp, [&] { return std::string(names[next++]); });
    });
    if (made.wait_for(std::chrono::seconds(10)) != std::future_status::ready) {
        // Free the blocked open so the test can end, then fail.
        ::close(::open((dir / ".out.gpx.zwei.tmp").c_str(), O_RDONLY | O_NONBLOCK));
        made.wait();
        FAIL() << "the temporary's creation opened a planted FIFO";
    }
    const int fd = made.get();
    ASSERT_GE(fd, 0);
    ::close(fd);
    EXPECT_EQ(next, 3);
    EXPECT_EQ(temp, (dir / ".out.gpx.drei.tmp").string());
    EXPECT_EQ(Mode(temp) & 07777, 0600u);
    EXPECT_TRUE(S_ISREG(Mode(temp)));
    EXPECT_EQ(Get(victim), "geheim");
    EXPECT_TRUE(S_ISFIFO(Mode(dir / ".out.gpx.zwei.tmp")));

    // A folder where every name is taken ends with an error, not a loop.
    EXPECT_THROW(CreateTempBeside(target.string(), temp, [] { return std::string("eins"); }), FileError);

    // Two random names do not repeat.
    EXPECT_NE(RandomSuffix(), RandomSuffix());
    EXPECT_EQ(RandomSuffix().size(), 12u);
}

TEST(SafeWrite, RewriteKeepsModeOwnerAndLinks) {
    const fs::path dir = Folder("rewrite");
    const fs::path real = dir / "echt.plt";
    Put(real, "alt");
    ASSERT_EQ(::chmod(real.c_str(), 0600), 0);
    const bool root = ::geteuid() == 0;
    if (root) {
        ASSERT_EQ(::chown(real.c_str(), 12345, 23456), 0);
    }
    fs::create_symlink("echt.plt", dir / "link.plt");  // relative, as users make them

    Write((dir / "link.plt").string(), "neu über den Link");
    EXPECT_TRUE(fs::is_symlink(dir / "link.plt"));
    EXPECT_EQ(fs::read_symlink(dir / "link.plt"), "echt.plt");
    EXPECT_EQ(Get(real), "neu über den Link");
    EXPECT_EQ(Mode(real) & 07777, 0600u);
    if (root) {
        struct stat st {};
        ASSERT_EQ(::stat(real.c_str(), &st), 0);
        EXPECT_EQ(st.st_uid, 12345u);
        EXPECT_EQ(st.st_gid, 23456u);
    }

    // Group-readable stays group-readable when written by its own name.
    ASSERT_EQ(::chmod(real.c_str(), 0640), 0);
    Write(real.string(), "zweimal");
    EXPECT_EQ(Mode(real) & 07777, 0640u);

    // A link to a file not there yet makes that file and keeps the link.
    fs::create_symlink(dir / "sub" / "neu.plt", dir / "offen.plt");
    fs::create_directory(dir / "sub");
    Write((dir / "offen.plt").string(), "angelegt");
    EXPECT_TRUE(fs::is_symlink(dir / "offen.plt"));
    EXPECT_EQ(Get(dir / "sub" / "neu.plt"), "angelegt");

    // A new file gets the usual mode: 0666 less the process's mask.
    const mode_t old = ::umask(027);
    Write((dir / "frisch.plt").string(), "x");
    ::umask(old);
    EXPECT_EQ(Mode(dir / "frisch.plt") & 07777, 0640u);

    // A chain of links that never ends is an error, not a hang.
    fs::create_symlink("kreis2", dir / "kreis1");
    fs::create_symlink("kreis1", dir / "kreis2");
    EXPECT_THROW(SafeWriter((dir / "kreis1").string()), FileError);
    EXPECT_EQ(Temporaries(dir), 0);
    EXPECT_EQ(Temporaries(dir / "sub"), 0);
}

TEST(SafeWrite, AFailureLeavesTheOldFileAndNoTemporary) {
    const fs::path dir = Folder("failure");
    const fs::path target = dir / "bleibt.gpx";
    Put(target, "bisher");
    {
        SafeWriter w(target.string());
        w.write(std::string(200000, 'x'));  // past the buffer: the temporary holds bytes
        EXPECT_EQ(Temporaries(dir), 1);
    }  // never committed
    EXPECT_EQ(Get(target), "bisher");
    EXPECT_EQ(Temporaries(dir), 0);

    try {
        SafeWriter w(dir.string());
        FAIL() << "a folder was accepted as target";
    } catch (const FileError& e) {
        EXPECT_STREQ(e.what(), "Der Pfad ist ein Ordner");
    }
    try {
        SafeWriter w((dir / "fehlt" / "x.gpx").string());
        FAIL() << "a missing folder was accepted";
    } catch (const FileError& e) {
        EXPECT_STREQ(e.what(), "Datei oder Pfad nicht gefunden");
    }
    EXPECT_THROW(SafeWriter(""), FileError);
    if (::geteuid() != 0) {
        ASSERT_EQ(::chmod(target.c_str(), 0444), 0);
        EXPECT_THROW(SafeWriter(target.string()), FileError);
        EXPECT_EQ(Get(target), "bisher");
    }
}

TEST(SafeWrite, DevicesAndFifosAreWrittenDirectly) {
    // /dev/full: the real cause, at the flush of the small write and at once
    // for a large one; the device stays a device.
    {
        SafeWriter w("/dev/full");
        w.write("<gpx/>");
        try {
            w.commit();
            FAIL() << "writing to /dev/full succeeded";
        } catch (const FileError& e) {
            EXPECT_STREQ(e.what(), "Nicht genügend Speicherplatz auf dem Datenträger");
        }
    }
    {
        SafeWriter w("/dev/full");
        EXPECT_THROW(w.write(std::string(1 << 17, 'x')), FileError);
    }
    EXPECT_TRUE(S_ISCHR(Mode("/dev/full")));
    Write("/dev/null", "weg");
    EXPECT_TRUE(S_ISCHR(Mode("/dev/null")));

    // A FIFO gets the bytes through itself, read by the other end.
    const fs::path dir = Folder("fifo");
    const fs::path fifo = dir / "rohr";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    std::string got;
    std::thread reader([&] {
        const int fd = ::open(fifo.c_str(), O_RDONLY);
        char buf[4096];
        ssize_t n;
        while ((n = ::read(fd, buf, sizeof buf)) > 0) got.append(buf, static_cast<size_t>(n));
        ::close(fd);
    });
    std::string text;
    for (int i = 0; i < 30000; ++i) text += "Zeile " + std::to_string(i) + "\n";
    Write(fifo.string(), text);
    reader.join();
    EXPECT_EQ(got, text);
    EXPECT_TRUE(S_ISFIFO(Mode(fifo)));
    EXPECT_EQ(Temporaries(dir), 0);
}

// Text that tells where each of its bytes came from.
std::string Pattern(char tag, size_t size) {
    std::string t(size, tag);
    for (size_t i = 0; i < size; i += 1000) t[i] = static_cast<char>('0' + i / 1000 % 10);
    return t;
}

TEST(SafeWrite, LargeSlicesGoInOrderWithTheSmallWritesAroundThem) {
    const fs::path dir = Folder("slices");
    const fs::path target = dir / "gross.gpx";
    Put(target, "bisher");
    const size_t big = SafeWriter::kBackgroundSlice;
    std::string expected;
    {
        SafeWriter w(target.string());
        auto small = [&](const std::string& t) {
            w.write(t);
            expected += t;
        };
        auto slice = [&](std::string t) {
            expected += t;
            w.writeSlice(t);
            EXPECT_TRUE(t.empty());
        };
        small("<kopf>");
        slice(Pattern('a', 1000));         // small: written as before
        slice(Pattern('b', big + 17));     // from here on in the background
        small("<mitte>");                  // buffered behind it
        small(Pattern('c', 100000));       // past the buffer: handed over as well
        slice("kurz");
        for (char c = 'd'; c < 'k'; ++c) slice(Pattern(c, big * 2 + static_cast<size_t>(c)));
        small("</ende>");
        EXPECT_EQ(Get(target), "bisher");  // nothing replaced before the commit
        w.commit();
    }
    EXPECT_EQ(Get(target), expected);
    EXPECT_EQ(Temporaries(dir), 0);

    // Never committed: the old file stays and the temporary goes, background or not.
    {
        SafeWriter w(target.string());
        std::string t = Pattern('x', big * 3);
        w.writeSlice(t);
        t = Pattern('y', big);
        w.writeSlice(t);
    }
    EXPECT_EQ(Get(target), expected);
    EXPECT_EQ(Temporaries(dir), 0);
}

TEST(SafeWrite, AFailedBackgroundWriteIsThrownByTheNextCall) {
    const fs::path dir = Folder("background-failure");
    const fs::path target = dir / "bleibt.gpx";
    Put(target, "bisher");
    // A file size limit makes the third slice fail (EFBIG; the signal ignored).
    const size_t big = SafeWriter::kBackgroundSlice;
    rlimit old {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &old), 0);
    const auto oldSignal = std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit = old;
    limit.rlim_cur = static_cast<rlim_t>(big * 2 + big / 2);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    std::string cause;
    int accepted = 0;
    try {
        SafeWriter w(target.string());
        for (int i = 0; i < 20; ++i) {
            std::string t = Pattern('s', big);
            w.writeSlice(t);
            ++accepted;
        }
        w.commit();
    } catch (const FileError& e) {
        cause = e.what();
    }
    ::setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, oldSignal);
    EXPECT_EQ(cause, "Die Datei ist zu groß");
    // Two slices fit, the third fails in the background; at most the two
    // behind it (one waiting, one being written) are taken before the failure shows.
    EXPECT_GE(accepted, 2);
    EXPECT_LE(accepted, 5);
    EXPECT_EQ(Get(target), "bisher");
    EXPECT_EQ(Temporaries(dir), 0);

    // A target that is no regular file fails at once, as before.
    SafeWriter full("/dev/full");
    std::string t = Pattern('f', big * 2);
    EXPECT_THROW(full.writeSlice(t), FileError);
}

}  // namespace
}  // namespace ortelix
