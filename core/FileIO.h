#pragma once
// Reading whole files and writing them safely: a failed write never destroys
// the file that was there before.
#include <cstddef>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace ortelix {

class Session;

// An error with a cause text for the user, in German.
class FileError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The cause text for an errno value, as the user reads it after "Ursache: ".
std::string ErrorText(int err);

// The most that one file may bring into memory. Pipes, devices such as
// /dev/zero and files that grow while read have no size to trust; they stop
// here with a read failure instead of exhausting memory.
inline constexpr size_t kReadLimit = size_t(1) << 30;
// The cause text when a file passes the limit: "Die Datei ist größer als 1 GiB".
std::string TooLargeText(size_t limit);

// Reads the whole file; "Lese Datei" while it runs, "Fertig" after.
std::string ReadWholeFile(Session& s, const std::string& path);
// The same without a session, for tools and tests. Regular files, pipes and
// devices alike; more than `limit` bytes is a FileError.
std::string ReadFileBytes(const std::string& path, size_t limit = kReadLimit);

// The regular files of a folder whose extension is `extension` (lower case,
// without the point; compared without case), sorted by path. Throws FileError
// when the folder cannot be listed.
std::vector<std::string> FilesWithExtension(const std::string& folder, std::string_view extension);

// A file's bytes in memory. A regular file is mapped read-only: large readers
// walk it several times, and release() hands the pages behind the walk back
// to the page cache, so the program's own memory stays at the size of what it
// has read into the store. Anything else (a pipe, /dev/stdin, a device) is
// read into a buffer of its own, up to `limit` bytes.
class MappedFile {
public:
    explicit MappedFile(const std::string& path, size_t limit = kReadLimit);  // throws FileError
    ~MappedFile();
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;

    std::string_view view() const { return {data_, size_}; }
    void release(size_t upTo) const;
    // The same for the pages of [from, upTo) only: a walk that began at `from`.
    void release(size_t from, size_t upTo) const;
    bool mapped() const { return mapped_; }
    // Throws FileError when another program shortened the file while it was
    // mapped: the pages past its new end were read as zeros.
    void checkIntact() const;

private:
    const char* data_ = nullptr;
    size_t size_ = 0;
    bool mapped_ = false;
    int guardSlot_ = -1;
    std::string owned_;
};

inline constexpr const char* kChangedWhileReading = "Die Datei wurde während des Lesens verändert";

// A name for a temporary file: a random suffix of letters and digits.
std::string RandomSuffix();
// Creates a new file beside `dest` ("." + its name + "." + suffix + ".tmp"),
// exclusively and only for the owner (O_CREAT|O_EXCL|O_NOFOLLOW, 0600): a
// planted link is never followed and a planted FIFO never opened. A taken
// name is retried with the next suffix. Returns the descriptor; throws FileError.
int CreateTempBeside(const std::string& dest, std::string& tempPath,
                     const std::function<std::string()>& suffix = RandomSuffix);

// Writes a file so that a failure leaves the old one as it was. A regular
// target (or a new one) is written into a temporary beside it, which commit()
// renames over it with the old file's permission bits and owner; a symbolic
// link is followed, so the link stays and its file gets the new bytes.
// Anything else (/dev/null, /dev/stdout, a FIFO, a terminal) is written
// directly, and a device node is never replaced. An uncommitted writer
// removes its temporary.
class SafeWriter {
public:
    explicit SafeWriter(std::string target);  // throws FileError
    ~SafeWriter();
    SafeWriter(const SafeWriter&) = delete;
    SafeWriter& operator=(const SafeWriter&) = delete;

    void write(std::string_view bytes);
    // Writes `slice` and leaves it empty. A large slice for a regular file
    // goes to a thread of its own without a copy (the caller gets a spent
    // buffer back to fill), so that the next slice is formed while this one
    // is written; a failure there is thrown by the next call.
    void writeSlice(std::string& slice);
    void commit();

    // From this size on a slice is written in the background.
    static constexpr size_t kBackgroundSlice = size_t{1} << 18;

private:
    struct Background;
    void flush();
    void handOver(std::string& bytes);
    std::string target_;  // as the caller named it
    std::string dest_;    // where the temporary goes when committed
    std::string temp_;    // empty when written directly
    int fd_ = -1;
    bool existed_ = false;  // an old file whose mode and owner the new one takes
    unsigned mode_ = 0;
    unsigned uid_ = 0, gid_ = 0;
    std::string buffer_;
    std::unique_ptr<Background> background_;
};

}  // namespace ortelix
