#pragma once
// Running the built program as a user does: through /bin/sh, with its own
// settings and cache folders, stdout and stderr together.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace ortelix::testing {

struct CliResult {
    int code = -1;
    std::string out;
};

class CliTest : public ::testing::Test {
protected:
    void SetUp() override {
        dir = std::filesystem::temp_directory_path() /
              ("ortelix-cli-" + std::to_string(::getpid()) + "-" +
               ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::remove_all(dir);
        std::filesystem::create_directories(dir);
    }
    void TearDown() override {
        std::error_code ec;
        std::filesystem::permissions(dir, std::filesystem::perms::owner_all, std::filesystem::perm_options::add, ec);
        std::filesystem::remove_all(dir, ec);
    }
    // `ortelix ARGS`; `before` stands in front of it in the shell line (a pipe),
    // `env` sets more variables (or overrides the folders).
    CliResult Ortelix(const std::string& args, const std::string& before = "", const std::string& env = "") {
        const std::string cmd = before + "XDG_CONFIG_HOME=" + (dir / "cfg").string() + " XDG_CACHE_HOME=" +
                                (dir / "cache").string() + " " + env + " " ORTELIX_BINARY " " + args + " 2>&1";
        CliResult r;
        FILE* p = ::popen(cmd.c_str(), "r");
        std::array<char, 4096> buf{};
        size_t n;
        while ((n = std::fread(buf.data(), 1, buf.size(), p)) > 0) r.out.append(buf.data(), n);
        const int status = ::pclose(p);
        r.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        return r;
    }
    std::string File(const std::string& name, const std::string& text) {
        const std::string p = (dir / name).string();
        std::ofstream(p, std::ios::binary) << text;
        return p;
    }
    std::string Path(const std::string& name) const { return (dir / name).string(); }
    std::filesystem::path dir;
};

}  // namespace ortelix::testing
