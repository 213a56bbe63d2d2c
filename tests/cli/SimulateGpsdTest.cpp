// A real receiver on the other end: gpsd reads what ortelix simulate sends
// through a pair of linked pseudo-terminals and reports the fixes it decodes.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "cli/CliTestSupport.h"
#include "cli/SimulateSupport.h"

namespace ortelix {
namespace {

using simcli::Child;
using simcli::GpsdClient;
using simcli::JsonValue;

struct Tpv {
    int mode = 0;
    double lat = 0, lon = 0, speed = 0;
};

// One socat and one gpsd for the suite: gpsd takes some three seconds before
// it answers its first client. Each test has its own connection.
class SimulateGpsd : public testing::CliTest {
protected:
    struct Receiver {
        std::string folder, a, b;
        int port = 0;
        std::unique_ptr<Child> socat, gpsd;
        ~Receiver() {
            gpsd.reset();  // gpsd first, then the terminals under it
            socat.reset();
            std::error_code ec;
            std::filesystem::remove_all(folder, ec);
        }
    };
    static inline std::unique_ptr<Receiver> receiver;

    static void SetUpTestSuite() {
        if (!std::filesystem::exists("/usr/bin/socat") || !std::filesystem::exists("/usr/sbin/gpsd")) return;
        auto r = std::make_unique<Receiver>();
        r->folder = (std::filesystem::temp_directory_path() / ("ortelix-gpsd-" + std::to_string(::getpid()))).string();
        std::filesystem::remove_all(r->folder);
        std::filesystem::create_directories(r->folder);
        r->a = r->folder + "/A";
        r->b = r->folder + "/B";
        r->socat = std::make_unique<Child>(
            std::vector<std::string>{"socat", "pty,raw,echo=0,link=" + r->a, "pty,raw,echo=0,link=" + r->b},
            r->folder + "/socat.log");
        for (int i = 0; i < 100 && !(std::filesystem::exists(r->a) && std::filesystem::exists(r->b)); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        r->port = simcli::FreePort();
        r->gpsd = std::make_unique<Child>(
            std::vector<std::string>{"/usr/sbin/gpsd", "-N", "-n", "-S", std::to_string(r->port), r->a},
            r->folder + "/gpsd.log");
        receiver = std::move(r);
    }
    static void TearDownTestSuite() { receiver.reset(); }

    void SetUp() override {
        CliTest::SetUp();
        if (!receiver) GTEST_SKIP() << "socat or gpsd is not installed (scripts/install-deps.sh)";
        ASSERT_TRUE(std::filesystem::exists(receiver->a)) << "socat made no terminals";
        a = receiver->a;
        b = receiver->b;
        ASSERT_TRUE(client.connect(receiver->port, 10)) << "gpsd does not listen";
        // gpsd drops what was written before it opened the device: wait for
        // the device to be listed as activated before sending anything.
        client.send("?WATCH={\"enable\":true,\"json\":true}\n");
        bool active = false;
        for (std::string l = client.line(10); !l.empty() && !active; l = active ? l : client.line(10))
            active = JsonValue(l, "class") == "DEVICES" && l.find(a) != std::string::npos &&
                     l.find("\"activated\"") != std::string::npos;
        ASSERT_TRUE(active) << "gpsd did not open " << a;
    }
    void TearDown() override {
        sim.reset();
        CliTest::TearDown();
    }

    // Runs the simulator on the other end and gathers gpsd's fixes until it
    // has ended and a moment more.
    std::vector<Tpv> Simulate(const std::string& args, int& code) {
        std::vector<std::string> argv = {ORTELIX_BINARY, "simulate", "--port", b};
        for (size_t pos = 0, end; pos < args.size(); pos = end + 1) {
            end = args.find(' ', pos);
            if (end == std::string::npos) end = args.size();
            argv.push_back(args.substr(pos, end - pos));
        }
        sim = std::make_unique<Child>(argv, Path("simulate.log"),
                                      std::vector<std::string>{"XDG_CONFIG_HOME=" + Path("cfg"),
                                                               "XDG_CACHE_HOME=" + Path("cache")});
        std::vector<Tpv> fixes;
        auto gather = [&](double seconds) {
            const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
            while (std::chrono::steady_clock::now() < end) {
                const std::string l = client.line(0.2);
                if (l.empty() || JsonValue(l, "class") != "TPV") continue;
                Tpv t;
                t.mode = std::atoi(JsonValue(l, "mode").c_str());
                if (!JsonValue(l, "lat").empty()) t.lat = std::stod(JsonValue(l, "lat"));
                if (!JsonValue(l, "lon").empty()) t.lon = std::stod(JsonValue(l, "lon"));
                if (!JsonValue(l, "speed").empty()) t.speed = std::stod(JsonValue(l, "speed"));
                fixes.push_back(t);
            }
        };
        for (int i = 0; i < 300 && sim->running(); ++i) gather(0.1);
        code = sim->wait(0);
        gather(1.0);
        return fixes;
    }

    // What the simulator said, for a failure's message.
    std::string SimLog() {
        std::ifstream in(Path("simulate.log"));
        return std::string(std::istreambuf_iterator<char>(in), {});
    }

    std::string a, b;
    std::unique_ptr<Child> sim;
    GpsdClient client;
};

TEST_F(SimulateGpsd, ReportsThe3dFixesOfThePositionSent) {
    int code = -1;
    const auto fixes = Simulate("--lon 10.5 --lat 50.25 --speed 0 --alt 320 --cycles 4", code);
    EXPECT_EQ(code, 0) << SimLog();
    ASSERT_GE(fixes.size(), 2u);
    for (const Tpv& t : fixes) {
        EXPECT_EQ(t.mode, 3);
        EXPECT_NEAR(t.lat, 50.25, 1e-6);
        EXPECT_NEAR(t.lon, 10.5, 1e-6);
        EXPECT_NEAR(t.speed, 0, 1e-6);
    }
}

TEST_F(SimulateGpsd, FixesMoveAlongTheTrackWhileTheRunIsOn) {
    // Four points 150 m apart going north-east, 30 m/s, eight times real time.
    std::string gpx = "<?xml version=\"1.0\"?>\n<gpx version=\"1.0\" creator=\"test\"><trk><trkseg>\n";
    for (int i = 0; i < 4; ++i)
        gpx += "<trkpt lat=\"" + std::to_string(48 + i * 0.001) + "\" lon=\"" + std::to_string(11 + i * 0.0015) +
               "\"><speed>30</speed></trkpt>\n";
    gpx += "</trkseg></trk></gpx>\n";
    int code = -1;
    const auto fixes = Simulate("--input " + File("ost.gpx", gpx) + " --speedup 8 --until-end", code);
    EXPECT_EQ(code, 0) << SimLog();
    ASSERT_GE(fixes.size(), 4u);
    size_t moved = 0;
    for (size_t i = 0; i < fixes.size(); ++i) {
        const Tpv& t = fixes[i];
        EXPECT_EQ(t.mode, 3);
        // On the line between the first and the last point, and never back.
        EXPECT_GE(t.lat, 48 - 1e-6);
        EXPECT_LE(t.lat, 48.003 + 1e-6);
        EXPECT_NEAR((t.lon - 11) / 0.0015, (t.lat - 48) / 0.001, 0.02) << t.lat << " " << t.lon;
        if (i > 0) {
            EXPECT_GE(t.lat, fixes[i - 1].lat - 1e-9);
            moved += t.lat > fixes[i - 1].lat + 1e-6;
        }
    }
    EXPECT_GE(moved, 3u);
    EXPECT_NEAR(fixes.back().lat, 48.003, 1e-6);  // the run ended on the last point
    EXPECT_NEAR(fixes.back().lon, 11.0045, 1e-6);
    // 108 km/h through knots of 1.8532 km/h (a fix from GGA alone has none).
    double fastest = 0;
    for (const Tpv& t : fixes) fastest = std::max(fastest, t.speed);
    EXPECT_NEAR(fastest, 30, 0.05);
}

}  // namespace
}  // namespace ortelix
