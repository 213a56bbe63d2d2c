// The serial device on a pseudo-terminal: what is written arrives whole.
#include <gtest/gtest.h>

#include <fcntl.h>
#include <pty.h>
#include <unistd.h>

#include "platform/SerialSettings.h"

namespace ortelix {
namespace {

TEST(SerialDevice, WritesReachThePseudoTerminal) {
    int master = -1, slave = -1;
    char name[256] = {};
    ASSERT_EQ(::openpty(&master, &slave, name, nullptr, nullptr), 0);
    ::close(slave);

    SerialDevice port;
    EXPECT_FALSE(port.write("x"));  // nothing open yet
    ASSERT_TRUE(port.open(name, "4800,n,8,1"));
    const std::string sentence = "$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,*47\r\n";
    ASSERT_TRUE(port.write(sentence));
    std::string got;
    char buf[256];
    while (got.size() < sentence.size()) {
        const ssize_t n = ::read(master, buf, sizeof buf);
        ASSERT_GT(n, 0);
        got.append(buf, static_cast<size_t>(n));
    }
    EXPECT_EQ(got, sentence);  // raw mode: no CR LF translation
    port.close();
    EXPECT_FALSE(port.write("x"));
    EXPECT_FALSE(port.open("/dev/ortelix-no-such-port", "4800,n,8,1"));
    ::close(master);
}

}  // namespace
}  // namespace ortelix
