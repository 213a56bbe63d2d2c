#include "platform/SerialSettings.h"

#include <QDir>
#include <QSerialPortInfo>
#include <cstdio>
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace ortelix {

namespace {
speed_t Baud(int rate) {
    switch (rate) {
        case 1200: return B1200;
        case 2400: return B2400;
        case 9600: return B9600;
        case 19200: return B19200;
        case 38400: return B38400;
        case 57600: return B57600;
        case 115200: return B115200;
        default: return B4800;
    }
}
}  // namespace

int OpenSerialDevice(const std::string& device, const std::string& settings) {
    const int fd = ::open(device.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (fd < 0) return -1;
    termios tio{};
    if (::tcgetattr(fd, &tio) == 0) {
        ::cfmakeraw(&tio);
        int rate = 4800, bits = 8, stop = 1;
        char parity = 'n';
        std::sscanf(settings.c_str(), "%d,%c,%d,%d", &rate, &parity, &bits, &stop);
        ::cfsetispeed(&tio, Baud(rate));
        ::cfsetospeed(&tio, Baud(rate));
        tio.c_cflag &= ~static_cast<tcflag_t>(CSIZE | PARENB | PARODD | CSTOPB);
        tio.c_cflag |= (bits == 7 ? CS7 : CS8) | CLOCAL | CREAD;
        if (parity == 'e' || parity == 'E') tio.c_cflag |= PARENB;
        if (parity == 'o' || parity == 'O') tio.c_cflag |= PARENB | PARODD;
        if (stop == 2) tio.c_cflag |= CSTOPB;
        ::tcsetattr(fd, TCSANOW, &tio);
    }
    return fd;
}

bool SerialDevice::open(const std::string& device, const std::string& settings) {
    close();
    fd_ = OpenSerialDevice(device, settings);
    return fd_ >= 0;
}

bool SerialDevice::write(const std::string& bytes) {
    if (fd_ < 0) return false;
    size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t n = ::write(fd_, bytes.data() + done, bytes.size() - done);
        if (n <= 0) return false;
        done += static_cast<size_t>(n);
    }
    return true;
}

void SerialDevice::close() {
    if (fd_ >= 0) ::close(fd_);
    fd_ = -1;
}

std::vector<std::string> ListSerialDevices() {
    std::vector<std::string> out;
    for (const QSerialPortInfo& p : QSerialPortInfo::availablePorts()) out.push_back(p.systemLocation().toStdString());
    return out;
}

}  // namespace ortelix
