#pragma once
// Reading whole files and writing them safely: a failed write never destroys
// the file that was there before.
#include <cstdio>
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

// Reads the whole file; "Lese Datei" while it runs, "Fertig" after.
std::string ReadWholeFile(Session& s, const std::string& path);
// The same without a session, for tools and tests.
std::string ReadFileBytes(const std::string& path);

// The regular files of a folder whose extension is `extension` (lower case,
// without the point; compared without case), sorted by path. Throws FileError
// when the folder cannot be listed.
std::vector<std::string> FilesWithExtension(const std::string& folder, std::string_view extension);

// A file mapped read-only into memory. Large readers walk it several times;
// release() hands the pages behind the walk back to the page cache, so the
// program's own memory stays at the size of what it has read into the store.
class MappedFile {
public:
    explicit MappedFile(const std::string& path);  // throws FileError
    ~MappedFile();
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;

    std::string_view view() const { return {data_, size_}; }
    void release(size_t upTo) const;

private:
    const char* data_ = nullptr;
    size_t size_ = 0;
};

// Writes into a sibling temporary file; commit() puts it in place of the
// target, and the destructor of an uncommitted writer removes the temporary.
class SafeWriter {
public:
    explicit SafeWriter(std::string target);
    ~SafeWriter();
    SafeWriter(const SafeWriter&) = delete;
    SafeWriter& operator=(const SafeWriter&) = delete;

    void write(std::string_view bytes);
    void commit();

private:
    void flush();
    std::string target_;
    std::string temp_;
    std::FILE* file_ = nullptr;
    std::string buffer_;
};

}  // namespace ortelix
