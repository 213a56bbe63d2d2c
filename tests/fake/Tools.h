#pragma once
// The outside programs that tests check our files against: whether one is
// installed, and what a shell command prints.
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace ortelix::testtools {

inline bool HaveTool(const std::string& name) {
    return std::system(("command -v " + name + " >/dev/null 2>&1").c_str()) == 0;
}

// What the command writes to its standard output; empty when it cannot start.
inline std::string CommandOutput(const std::string& command) {
    std::string out;
    FILE* p = ::popen(command.c_str(), "r");
    if (!p) return out;
    std::array<char, 4096> buf{};
    size_t n;
    while ((n = std::fread(buf.data(), 1, buf.size(), p)) > 0) out.append(buf.data(), n);
    ::pclose(p);
    return out;
}

}  // namespace ortelix::testtools
