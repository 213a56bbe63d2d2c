// SafeWriter: the temporary beside the target, or the target itself when it
// is no regular file.
#include <cerrno>
#include <climits>
#include <condition_variable>
#include <cstdlib>
#include <fcntl.h>
#include <mutex>
#include <sys/random.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

#include "core/FileIO.h"
#include "core/ModulShared.h"

namespace ortelix {

namespace {

constexpr int kMaxLinks = 40;  // as the kernel allows in one path
constexpr size_t kBuffer = 1 << 16;

std::string Folder(const std::string& path) {
    const std::string f = SplitPath(path, 3);
    return f.empty() && !path.empty() && path[0] == '/' ? "/" : f;
}

// Where a dangling link points: the file to be made. Relative links count
// from the folder of the link.
std::string FollowDanglingLink(std::string path) {
    for (int hop = 0; hop < kMaxLinks; ++hop) {
        struct stat st {};
        if (::lstat(path.c_str(), &st) != 0 || !S_ISLNK(st.st_mode)) return path;
        char buf[PATH_MAX];
        const ssize_t n = ::readlink(path.c_str(), buf, sizeof buf - 1);
        if (n < 0) throw FileError(ErrorText(errno));
        const std::string link(buf, static_cast<size_t>(n));
        if (link.empty()) throw FileError(ErrorText(ENOENT));
        const std::string folder = Folder(path);
        path = link[0] == '/' || folder.empty() ? link : folder + "/" + link;
    }
    throw FileError(ErrorText(ELOOP));
}

// The permission mask of the process, read without changing it (umask()
// would, for a moment, for every thread).
mode_t CurrentUmask() {
    const int fd = ::open("/proc/self/status", O_RDONLY | O_CLOEXEC);
    if (fd < 0) return 022;
    char buf[4096];
    const ssize_t n = ::read(fd, buf, sizeof buf - 1);
    ::close(fd);
    if (n <= 0) return 022;
    const std::string_view text(buf, static_cast<size_t>(n));
    const size_t at = text.find("\nUmask:");
    if (at == std::string_view::npos) return 022;
    return static_cast<mode_t>(std::strtoul(buf + at + 7, nullptr, 8)) & 0777;
}

// 0, or the errno of the write that failed.
int WriteAllOrError(int fd, const char* data, size_t size) {
    while (size > 0) {
        const ssize_t n = ::write(fd, data, size);
        if (n < 0) {
            if (errno == EINTR) continue;
            return errno;
        }
        data += n;
        size -= static_cast<size_t>(n);
    }
    return 0;
}

void WriteAll(int fd, const char* data, size_t size) {
    if (const int err = WriteAllOrError(fd, data, size)) throw FileError(ErrorText(err));
}

}  // namespace

// The thread that writes the slices of a large file: one slice waits while
// the one before is written. The first failure ends the writing; it is
// thrown to the caller at its next hand-over or at the commit.
struct SafeWriter::Background {
    explicit Background(int fd) : fd_(fd) {}
    ~Background() {
        {
            std::lock_guard lock(m_);
            quit_ = true;
        }
        cv_.notify_all();
        thread_.join();
    }

    // Takes `bytes` and gives back a spent buffer in its place.
    void hand(std::string& bytes) {
        std::unique_lock lock(m_);
        cv_.wait(lock, [&] { return !pending_ || err_ != 0; });
        if (err_) throw FileError(ErrorText(err_));
        waiting_.swap(bytes);
        bytes.clear();
        pending_ = true;
        lock.unlock();
        cv_.notify_all();
    }

    // Returns when every slice handed over is written.
    void drain() {
        std::unique_lock lock(m_);
        cv_.wait(lock, [&] { return (!pending_ && !busy_) || err_ != 0; });
        if (err_) throw FileError(ErrorText(err_));
    }

private:
    void run() {
        std::string writing;
        for (;;) {
            {
                std::unique_lock lock(m_);
                cv_.wait(lock, [&] { return pending_ || quit_; });
                if (quit_) return;
                writing.swap(waiting_);
                pending_ = false;
                busy_ = true;
            }
            cv_.notify_all();
            const int err = WriteAllOrError(fd_, writing.data(), writing.size());
            writing.clear();
            {
                std::lock_guard lock(m_);
                busy_ = false;
                err_ = err;
            }
            cv_.notify_all();
            if (err) return;
        }
    }

    const int fd_;
    std::mutex m_;
    std::condition_variable cv_;
    std::string waiting_;
    bool pending_ = false, busy_ = false, quit_ = false;
    int err_ = 0;
    std::thread thread_{[this] { run(); }};  // last: everything it uses exists before it starts
};

std::string RandomSuffix() {
    static constexpr char kChars[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    unsigned char bytes[12];
    size_t got = 0;
    while (got < sizeof bytes) {
        const ssize_t n = ::getrandom(bytes + got, sizeof bytes - got, 0);
        if (n < 0) {
            if (errno == EINTR) continue;
            throw FileError(ErrorText(errno));
        }
        got += static_cast<size_t>(n);
    }
    std::string s(sizeof bytes, ' ');
    for (size_t i = 0; i < sizeof bytes; ++i) s[i] = kChars[bytes[i] % (sizeof kChars - 1)];
    return s;
}

int CreateTempBeside(const std::string& dest, std::string& tempPath, const std::function<std::string()>& suffix) {
    const std::string folder = Folder(dest);
    // Room for the suffix within the longest name a folder allows.
    const std::string name = SplitPath(dest, 2).substr(0, 200);
    for (int attempt = 0; attempt < 100; ++attempt) {
        const std::string path = (folder.empty() ? "" : folder + "/") + "." + name + "." + suffix() + ".tmp";
        const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
        if (fd >= 0) {
            tempPath = path;
            return fd;
        }
        if (errno != EEXIST) throw FileError(ErrorText(errno));
    }
    throw FileError(ErrorText(EEXIST));
}

SafeWriter::SafeWriter(std::string target) : target_(std::move(target)) {
    if (target_.empty()) throw FileError(ErrorText(ENOENT));
    struct stat st {};
    if (::stat(target_.c_str(), &st) != 0) {
        if (errno != ENOENT) throw FileError(ErrorText(errno));
        dest_ = FollowDanglingLink(target_);  // a new file, or the missing file of a link
    } else if (S_ISDIR(st.st_mode)) {
        throw FileError(ErrorText(EISDIR));
    } else if (S_ISBLK(st.st_mode)) {
        // A whole disk or partition is no place for a GPS file.
        throw FileError("Das Ziel ist ein Laufwerk, keine Datei");
    } else if (S_ISREG(st.st_mode)) {
        // Through every link to the real file, so that the rename replaces it
        // and not the link. /dev/stdout on a file resolves too; a name that
        // no longer leads to the same file (it was deleted) is written directly.
        char* real = ::realpath(target_.c_str(), nullptr);
        if (!real) throw FileError(ErrorText(errno));
        dest_ = real;
        std::free(real);
        struct stat again {};
        if (::stat(dest_.c_str(), &again) != 0 || again.st_dev != st.st_dev || again.st_ino != st.st_ino)
            dest_.clear();
        else if (::faccessat(AT_FDCWD, dest_.c_str(), W_OK, AT_EACCESS) != 0)
            throw FileError(ErrorText(errno));  // a write-protected file stays protected
        existed_ = true;
        mode_ = st.st_mode & 07777;
        uid_ = st.st_uid;
        gid_ = st.st_gid;
    }
    if (dest_.empty()) {
        // A pipe, terminal, /dev/null, /dev/full, a FIFO: opened as it is,
        // never created or truncated; O_APPEND keeps a shell's ">>" intact.
        fd_ = ::open(target_.c_str(), O_WRONLY | O_APPEND | O_NOCTTY | O_CLOEXEC);
        if (fd_ < 0) throw FileError(ErrorText(errno));
    } else {
        fd_ = CreateTempBeside(dest_, temp_);
    }
    buffer_.reserve(kBuffer);
}

SafeWriter::~SafeWriter() {
    background_.reset();  // before its descriptor is closed
    if (fd_ >= 0) ::close(fd_);
    if (!temp_.empty()) ::unlink(temp_.c_str());
}

void SafeWriter::flush() {
    if (buffer_.empty()) return;
    handOver(buffer_);
}

// Bytes in the order written: through the background once it runs.
void SafeWriter::handOver(std::string& bytes) {
    if (background_) {
        background_->hand(bytes);
    } else {
        WriteAll(fd_, bytes.data(), bytes.size());
        bytes.clear();
    }
}

void SafeWriter::write(std::string_view bytes) {
    if (fd_ < 0) throw FileError(ErrorText(EBADF));
    if (buffer_.size() + bytes.size() > kBuffer) flush();
    if (bytes.size() < kBuffer) {
        buffer_.append(bytes);
    } else if (background_) {
        std::string copy(bytes);
        background_->hand(copy);
    } else {
        WriteAll(fd_, bytes.data(), bytes.size());
    }
}

void SafeWriter::writeSlice(std::string& slice) {
    if (fd_ < 0) throw FileError(ErrorText(EBADF));
    // Small files, and targets that are no regular files, as before.
    if (!background_ && (temp_.empty() || slice.size() < kBackgroundSlice)) {
        write(slice);
        slice.clear();
        return;
    }
    flush();
    if (!background_) background_ = std::make_unique<Background>(fd_);
    background_->hand(slice);
}

void SafeWriter::commit() {
    if (fd_ < 0) throw FileError(ErrorText(EBADF));
    flush();
    if (background_) {
        background_->drain();
        background_.reset();
    }
    if (!temp_.empty()) {
        if (existed_) {
            // The owner first: changing it may clear the set-id bits that the mode then restores.
            if (::fchown(fd_, uid_, gid_) != 0 && errno != EPERM) throw FileError(ErrorText(errno));
            if (::fchmod(fd_, static_cast<mode_t>(mode_)) != 0) throw FileError(ErrorText(errno));
        } else if (::fchmod(fd_, 0666 & ~CurrentUmask()) != 0) {
            throw FileError(ErrorText(errno));
        }
    }
    const int fd = fd_;
    fd_ = -1;
    if (::close(fd) != 0) throw FileError(ErrorText(errno));
    if (temp_.empty()) return;
    if (::rename(temp_.c_str(), dest_.c_str()) != 0) throw FileError(ErrorText(errno));
    temp_.clear();
}

}  // namespace ortelix
