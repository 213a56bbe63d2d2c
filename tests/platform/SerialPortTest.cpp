// The serial settings text, the port list, a pseudo-terminal opened as a
// port at 4800 baud 8N1, and the joystick's events.
#include <gtest/gtest.h>

#include <fcntl.h>
#include <linux/joystick.h>
#include <poll.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

#include <QCoreApplication>
#include <fstream>

#include "fake/TestFiles.h"
#include "platform/JoystickDevice.h"
#include "platform/SerialSettings.h"

namespace ortelix {
namespace {

TEST(SerialPort, SettingsTextIsReadOrRefused) {
    SerialSettings s;
    ASSERT_TRUE(ParseSerialSettings("4800,n,8,1", s));
    EXPECT_EQ(s.baud, 4800);
    EXPECT_EQ(s.parity, 'n');
    EXPECT_EQ(s.dataBits, 8);
    EXPECT_EQ(s.stopBits, 1);
    ASSERT_TRUE(ParseSerialSettings("9600,E,7,2", s));
    EXPECT_EQ(s.baud, 9600);
    EXPECT_EQ(s.parity, 'e');
    EXPECT_EQ(s.dataBits, 7);
    EXPECT_EQ(s.stopBits, 2);
    for (const char* bad : {"", "4800", "4800,n,8", "4800,n,8,1,1", "4800,x,8,1", "4800,n,9,1", "4800,n,8,3",
                            "-1,n,8,1", "4800,nn,8,1", "48o0,n,8,1"})
        EXPECT_FALSE(ParseSerialSettings(bad, s)) << bad;
    EXPECT_EQ(s.baud, 9600);  // a refused text changes nothing
}

TEST(SerialPort, PortListTakesUsbAndUartDevicesInNumberOrder) {
    const std::vector<std::string> dev = {"ttyS10", "ttyS2", "ttyS3", "ttyUSB1", "ttyUSB0", "ttyACM0",
                                          "tty1",   "ttyS",  "null",  "pts"};
    auto uart = [](const std::string& name) { return name == "ttyS2" || name == "ttyS10"; };
    const std::vector<std::string> list = SerialDeviceList(dev, {"/dev/ttyUSB0", "/dev/rfcomm0"}, +uart);
    EXPECT_EQ(list, (std::vector<std::string>{"/dev/rfcomm0", "/dev/ttyACM0", "/dev/ttyS2", "/dev/ttyS10",
                                              "/dev/ttyUSB0", "/dev/ttyUSB1"}));
}

TEST(SerialPort, PseudoTerminalOpensAt4800Baud8N1AndTakesTheBytes) {
    int argc = 1;
    char arg0[] = "ortelix";
    char* argv[] = {arg0};
    QCoreApplication app(argc, argv);  // the port's notifiers want one
    int master = -1, slave = -1;
    char name[256] = {};
    ASSERT_EQ(::openpty(&master, &slave, name, nullptr, nullptr), 0);
    SerialDevice port;
    EXPECT_FALSE(port.open(name, "4800,n,8"));  // settings it cannot use
    ASSERT_TRUE(port.open(name, "4800,n,8,1"));
    EXPECT_TRUE(port.isOpen());
    termios tio{};
    ASSERT_EQ(::tcgetattr(slave, &tio), 0);
    EXPECT_EQ(::cfgetospeed(&tio), static_cast<speed_t>(B4800));
    EXPECT_EQ(tio.c_cflag & CSIZE, static_cast<tcflag_t>(CS8));
    EXPECT_EQ(tio.c_cflag & PARENB, 0u);
    EXPECT_EQ(tio.c_cflag & CSTOPB, 0u);
    EXPECT_EQ(tio.c_oflag & OPOST, 0u);  // raw: CR LF go out as they are
    const std::string text = "$GPVTG,045.0,T,,,054.0,N,100.0,K*4A\r\n";
    ASSERT_TRUE(port.write(text));
    std::string got;
    char buf[256];
    while (got.size() < text.size()) {
        const ssize_t n = ::read(master, buf, sizeof buf);
        ASSERT_GT(n, 0);
        got.append(buf, static_cast<size_t>(n));
    }
    EXPECT_EQ(got, text);
    EXPECT_TRUE(port.close());
    EXPECT_FALSE(port.isOpen());
    EXPECT_FALSE(port.write(text));
    ::close(slave);
    ::close(master);
}

TEST(SerialPort, WithoutWaitingAFullLineIsFedNoFurther) {
    int argc = 1;
    char arg0[] = "ortelix";
    char* argv[] = {arg0};
    QCoreApplication app(argc, argv);
    int master = -1, slave = -1;
    char name[256] = {};
    ASSERT_EQ(::openpty(&master, &slave, name, nullptr, nullptr), 0);
    SerialDevice port(false);
    ASSERT_TRUE(port.open(name, "4800,n,8,1"));
    // No one reads: the terminal's buffer fills, then the port's queue, and
    // then the port says no instead of growing without end.
    const std::string cycle(450, 'x');
    int taken = 0;
    while (taken < 2000 && port.write(cycle)) ++taken;
    EXPECT_LT(taken, 2000);
    EXPECT_GT(taken, 16 * 1024 / 450);
    // The refusal dropped the queue; once the line moves again, the next
    // cycle goes out whole.
    char buf[4096];
    for (pollfd p{master, POLLIN, 0}; ::poll(&p, 1, 50) == 1;)
        if (::read(master, buf, sizeof buf) <= 0) break;
    const std::string last = "$GPGSV,3,3,10,13,09,100,,24,08,219,33*76\r\n";
    ASSERT_TRUE(port.write(last));
    std::string got;
    for (int i = 0; i < 100 && got.find(last) == std::string::npos; ++i) {
        QCoreApplication::processEvents();
        pollfd p{master, POLLIN, 0};
        if (::poll(&p, 1, 20) == 1) {
            const ssize_t n = ::read(master, buf, sizeof buf);
            if (n > 0) got.append(buf, static_cast<size_t>(n));
        }
    }
    EXPECT_NE(got.find(last), std::string::npos);
    EXPECT_LE(got.size(), 16 * 1024 + last.size());  // at most what the port had queued before
    port.close();
    ::close(slave);
    ::close(master);
}

TEST(SerialPort, JoystickEventsGivePositionsAroundTheMiddle) {
    EXPECT_EQ(JoystickPosition(0), 32768);
    EXPECT_EQ(JoystickPosition(-32767), 1);
    EXPECT_EQ(JoystickPosition(32767), 65535);

    JoystickDevice none("/dev/ortelix-no-joystick");
    int x = 7, y = 7, b = 7;
    EXPECT_FALSE(none.read(x, y, b));
    EXPECT_EQ(x, 7);

    // A recording of the kernel's events: the state at opening, then moves.
    const auto dir = testfiles::FreshFolder("platform", "joystick");
    const std::string path = (dir / "js0").string();
    {
        std::ofstream out(path, std::ios::binary);
        auto put = [&](uint8_t type, uint8_t number, int16_t value) {
            js_event e{};
            e.type = type;
            e.number = number;
            e.value = value;
            out.write(reinterpret_cast<const char*>(&e), sizeof e);
        };
        put(JS_EVENT_AXIS | JS_EVENT_INIT, 0, 0);
        put(JS_EVENT_AXIS | JS_EVENT_INIT, 1, 0);
        put(JS_EVENT_AXIS, 1, -32767);  // pushed forward
        put(JS_EVENT_AXIS, 0, 16384);   // half right
        put(JS_EVENT_AXIS, 2, 32767);   // a third axis: not ours
        put(JS_EVENT_BUTTON, 1, 1);
        put(JS_EVENT_BUTTON, 0, 1);
        put(JS_EVENT_BUTTON, 0, 0);
    }
    JoystickDevice stick(path);
    ASSERT_TRUE(stick.read(x, y, b));
    EXPECT_EQ(x, 49152);
    EXPECT_EQ(y, 1);
    EXPECT_EQ(b, 2);
    ASSERT_TRUE(stick.read(x, y, b));  // nothing new: the same state
    EXPECT_EQ(x, 49152);
}

}  // namespace
}  // namespace ortelix
