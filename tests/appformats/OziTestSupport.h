#pragma once
// What the OziExplorer tests share: a fresh folder per test and whole-file helpers.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "core/Session.h"
#include "fake/FakePlatform.h"

namespace ortelix {

class OziTest : public ::testing::Test {
protected:
    void SetUp() override {
        const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
        dir = std::filesystem::temp_directory_path() /
              ("ortelix-ozi-" + std::to_string(::getpid()) + "-" + info->test_suite_name() + "-" + info->name());
        std::filesystem::remove_all(dir);
        std::filesystem::create_directories(dir);
        session = std::make_unique<Session>(platform);
    }
    void TearDown() override { std::filesystem::remove_all(dir); }

    std::string path(const std::string& name) const { return (dir / name).string(); }
    void write(const std::string& name, const std::string& bytes) const {
        std::ofstream(path(name), std::ios::binary) << bytes;
    }
    std::string read(const std::string& name) const {
        std::ifstream f(path(name), std::ios::binary);
        std::stringstream ss;
        ss << f.rdbuf();
        return ss.str();
    }
    bool exists(const std::string& name) const { return std::filesystem::exists(path(name)); }
    std::vector<std::string> lines(const std::string& bytes) const {
        std::vector<std::string> out;
        size_t pos = 0;
        while (pos < bytes.size()) {
            size_t end = bytes.find("\r\n", pos);
            if (end == std::string::npos) end = bytes.size();
            out.push_back(bytes.substr(pos, end - pos));
            pos = end + 2;
        }
        return out;
    }

    std::filesystem::path dir;
    FakePlatform platform;
    std::unique_ptr<Session> session;
    DataStore& store() { return session->store; }
};

// A waypoint or route point as a reader would hand it in.
inline GeoPoint MakePoint(double lon, double lat, std::string name, std::string desc = {}, OptInt alt = {}) {
    GeoPoint p;
    p.Lon = lon;
    p.Lat = lat;
    p.Name = std::move(name);
    p.Desc = std::move(desc);
    p.Alt = alt;
    return p;
}

}  // namespace ortelix
