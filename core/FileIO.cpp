#include "core/FileIO.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include "core/MappingGuard.h"
#include "core/ModulShared.h"
#include "core/Session.h"
#include "platform/Platform.h"

namespace ortelix {

std::string ErrorText(int err) {
    switch (err) {
        case ENOENT: return "Datei oder Pfad nicht gefunden";
        case EACCES:
        case EPERM: return "Zugriff verweigert";
        case ENOSPC: return "Nicht genügend Speicherplatz auf dem Datenträger";
        case EDQUOT: return "Das Speicherkontingent ist erschöpft";
        case EFBIG: return "Die Datei ist zu groß";
        case EISDIR: return "Der Pfad ist ein Ordner";
        case ENOTDIR: return "Pfad nicht gefunden";
        case EROFS: return "Der Datenträger ist schreibgeschützt";
        case EIO: return "Ein-/Ausgabefehler";
        case ENAMETOOLONG: return "Der Dateiname ist zu lang";
        case ELOOP: return "Zu viele symbolische Verknüpfungen";
        case ENXIO: return "Das Gerät ist nicht bereit";
        case EPIPE: return "Der Empfänger hat die Verbindung geschlossen";
        case EBUSY:
        case ETXTBSY: return "Die Datei wird verwendet";
        default: return std::strerror(err);
    }
}

std::string TooLargeText(size_t limit) {
    const auto number = [](size_t v) {
        char buf[24];
        return std::string(buf, std::to_chars(buf, buf + sizeof buf, v).ptr);
    };
    std::string t = "Die Datei ist größer als ";
    if (limit >= (size_t(1) << 30) && limit % (size_t(1) << 30) == 0) return t + number(limit >> 30) + " GiB";
    if (limit >= (size_t(1) << 20) && limit % (size_t(1) << 20) == 0) return t + number(limit >> 20) + " MiB";
    if (limit >= (size_t(1) << 10) && limit % (size_t(1) << 10) == 0) return t + number(limit >> 10) + " KiB";
    return t + number(limit) + " Bytes";
}

namespace {

// An open descriptor that closes itself.
class Fd {
public:
    explicit Fd(int fd) : fd_(fd) {}
    ~Fd() {
        if (fd_ >= 0) ::close(fd_);
    }
    Fd(const Fd&) = delete;
    Fd& operator=(const Fd&) = delete;
    int get() const { return fd_; }

private:
    int fd_;
};

int OpenForReading(const std::string& path, struct stat& st) {
    // O_NOCTTY: a terminal named as input must not become our controlling one.
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY);
    if (fd < 0) throw FileError(ErrorText(errno));
    if (::fstat(fd, &st) != 0 || S_ISDIR(st.st_mode)) {
        const int err = S_ISDIR(st.st_mode) ? EISDIR : errno;
        ::close(fd);
        throw FileError(ErrorText(err));
    }
    return fd;
}

// read() until the end, appending to `data`; more than `limit` bytes in all is a failure.
void ReadAll(int fd, std::string& data, size_t limit) {
    char buf[1 << 16];
    for (;;) {
        const ssize_t n = ::read(fd, buf, sizeof buf);
        if (n < 0) {
            if (errno == EINTR) continue;
            throw FileError(ErrorText(errno));
        }
        if (n == 0) return;
        if (static_cast<size_t>(n) > limit - std::min(limit, data.size())) throw FileError(TooLargeText(limit));
        data.append(buf, static_cast<size_t>(n));
    }
}

}  // namespace

std::string ReadFileBytes(const std::string& path, size_t limit) {
    struct stat st {};
    const Fd fd(OpenForReading(path, st));
    std::string data;
    if (S_ISREG(st.st_mode) && st.st_size > 0) {
        if (static_cast<uint64_t>(st.st_size) > limit) throw FileError(TooLargeText(limit));
        data.reserve(static_cast<size_t>(st.st_size));
    }
    ReadAll(fd.get(), data, limit);
    return data;
}

std::string ReadWholeFile(Session& s, const std::string& path) {
    s.store.StatusText.set("Lese Datei");
    s.platform.setBusy(true);
    std::string data = ReadFileBytes(path);  // on failure the failure handler ends the hourglass
    s.platform.setBusy(false);
    s.store.StatusText.set("Fertig");
    return data;
}

std::vector<std::string> FilesWithExtension(const std::string& folder, std::string_view extension) {
    namespace fs = std::filesystem;
    std::error_code ec;
    std::vector<std::string> files;
    for (const auto& e : fs::directory_iterator(folder, ec)) {
        const std::string path = e.path().string();
        if (LowerExtension(path) == extension && e.is_regular_file(ec)) files.push_back(path);
    }
    if (ec) throw FileError(ErrorText(ec.value()));
    std::sort(files.begin(), files.end());  // the listing's order is the system's; keep it stable
    return files;
}

MappedFile::MappedFile(const std::string& path, size_t limit) {
    struct stat st {};
    const Fd fd(OpenForReading(path, st));
    // Only a regular file has a size to map by; one that says 0 (as the files
    // under /proc do) is read as well, since its bytes come only from read().
    if (S_ISREG(st.st_mode) && st.st_size > 0) {
        const size_t size = static_cast<size_t>(st.st_size);
        void* p = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, fd.get(), 0);
        if (p == MAP_FAILED) throw FileError(ErrorText(errno));
        guardSlot_ = mapping_guard::Register(p, size);
        if (guardSlot_ >= 0) {
            data_ = static_cast<const char*>(p);
            size_ = size;
            mapped_ = true;
            ::madvise(p, size, MADV_SEQUENTIAL);
            return;
        }
        ::munmap(p, size);  // no slot free to guard it: read it like a pipe
    }
    ReadAll(fd.get(), owned_, limit);
    data_ = owned_.data();
    size_ = owned_.size();
}

MappedFile::~MappedFile() {
    if (!mapped_) return;
    mapping_guard::Unregister(guardSlot_);
    ::munmap(const_cast<char*>(data_), size_);
}

void MappedFile::release(size_t upTo) const { release(0, upTo); }

void MappedFile::release(size_t from, size_t upTo) const {
    if (!mapped_) return;
    const size_t page = 4096;
    const size_t first = (from + page - 1) / page * page;
    const size_t last = std::min(upTo, size_) / page * page;
    if (last > first) ::madvise(const_cast<char*>(data_) + first, last - first, MADV_DONTNEED);
}

void MappedFile::checkIntact() const {
    if (mapped_ && mapping_guard::Cut(guardSlot_)) throw FileError(kChangedWhileReading);
}

}  // namespace ortelix
