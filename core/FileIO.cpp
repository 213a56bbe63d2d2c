#include "core/FileIO.h"

#include <algorithm>
#include <filesystem>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

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
        case EISDIR: return "Der Pfad ist ein Ordner";
        case ENOTDIR: return "Pfad nicht gefunden";
        case EROFS: return "Der Datenträger ist schreibgeschützt";
        case EIO: return "Ein-/Ausgabefehler";
        case ENAMETOOLONG: return "Der Dateiname ist zu lang";
        default: return std::strerror(err);
    }
}

std::string ReadFileBytes(const std::string& path) {
    std::FILE* f = std::fopen(path.c_str(), "rb");
    if (!f) throw FileError(ErrorText(errno));
    struct stat st {};
    if (::fstat(fileno(f), &st) == 0 && S_ISDIR(st.st_mode)) {
        std::fclose(f);
        throw FileError(ErrorText(EISDIR));
    }
    std::string data;
    if (st.st_size > 0) data.reserve(static_cast<size_t>(st.st_size));
    char buf[1 << 16];
    size_t n;
    while ((n = std::fread(buf, 1, sizeof buf, f)) > 0) data.append(buf, n);
    const bool failed = std::ferror(f);
    const int err = errno;
    std::fclose(f);
    if (failed) throw FileError(ErrorText(err));
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

MappedFile::MappedFile(const std::string& path) {
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) throw FileError(ErrorText(errno));
    struct stat st {};
    if (::fstat(fd, &st) != 0 || S_ISDIR(st.st_mode)) {
        const int err = S_ISDIR(st.st_mode) ? EISDIR : errno;
        ::close(fd);
        throw FileError(ErrorText(err));
    }
    size_ = static_cast<size_t>(st.st_size);
    if (size_ > 0) {
        void* p = ::mmap(nullptr, size_, PROT_READ, MAP_PRIVATE, fd, 0);
        if (p == MAP_FAILED) {
            const int err = errno;
            ::close(fd);
            throw FileError(ErrorText(err));
        }
        data_ = static_cast<const char*>(p);
        ::madvise(p, size_, MADV_SEQUENTIAL);
    }
    ::close(fd);
}

MappedFile::~MappedFile() {
    if (data_) ::munmap(const_cast<char*>(data_), size_);
}

void MappedFile::release(size_t upTo) const {
    if (!data_) return;
    const size_t page = 4096;
    const size_t len = std::min(upTo, size_) / page * page;
    if (len > 0) ::madvise(const_cast<char*>(data_), len, MADV_DONTNEED);
}

SafeWriter::SafeWriter(std::string target) : target_(std::move(target)) {
    temp_ = target_ + ".ortelix-tmp";
    file_ = std::fopen(temp_.c_str(), "wb");
    if (!file_) throw FileError(ErrorText(errno));
    buffer_.reserve(1 << 16);
}

SafeWriter::~SafeWriter() {
    if (file_) {
        std::fclose(file_);
        std::remove(temp_.c_str());
    }
}

void SafeWriter::flush() {
    if (buffer_.empty()) return;
    if (std::fwrite(buffer_.data(), 1, buffer_.size(), file_) != buffer_.size()) throw FileError(ErrorText(errno));
    buffer_.clear();
}

void SafeWriter::write(std::string_view bytes) {
    buffer_.append(bytes);
    if (buffer_.size() >= (1 << 16)) flush();
}

void SafeWriter::commit() {
    flush();
    std::FILE* f = file_;
    file_ = nullptr;
    if (std::fflush(f) != 0 || std::fclose(f) != 0) {
        const int err = errno;
        std::remove(temp_.c_str());
        throw FileError(ErrorText(err));
    }
    if (std::rename(temp_.c_str(), target_.c_str()) != 0) {
        const int err = errno;
        std::remove(temp_.c_str());
        throw FileError(ErrorText(err));
    }
}

}  // namespace ortelix
