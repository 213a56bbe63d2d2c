#pragma once
// Files for tests: an empty folder of the build tree per test, made anew for
// each run, and bytes put into a file.
#include <filesystem>
#include <fstream>
#include <string>

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

}  // namespace ortelix::testfiles
