#pragma once
// Reading whole files and writing them safely: a failed write never destroys
// the file that was there before.
#include <cstdio>
#include <stdexcept>
#include <string>
#include <string_view>

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
