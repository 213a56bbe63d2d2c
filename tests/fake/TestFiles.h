#pragma once
// Files for tests: an empty folder of the build tree per test, made anew for
// each run, and bytes put into a file.
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace ortelix::testfiles {

// BUILD_DIR/<suite>/<name>, empty.
inline std::filesystem::path FreshFolder(const std::string& suite, const std::string& name) {
    std::filesystem::path dir = std::filesystem::path(ORTELIX_BUILD_DIR) / suite / name;
    std::filesystem::remove_all(dir);
    std::filesystem::create_directories(dir);
    return dir;
}

// Writes the bytes as they are; returns the path as text.
inline std::string Put(const std::filesystem::path& p, const std::string& bytes) {
    std::ofstream(p, std::ios::binary) << bytes;
    return p.string();
}

// The UTF-16 units of a text as bytes, big- or little-endian, as a file holds them.
inline std::string Utf16Bytes(std::u16string_view text, bool big) {
    std::string out;
    for (char16_t u : text) {
        const char hi = static_cast<char>(u >> 8), lo = static_cast<char>(u & 0xFF);
        out += big ? hi : lo;
        out += big ? lo : hi;
    }
    return out;
}

}  // namespace ortelix::testfiles
