#include "platform/SerialSettings.h"

#include <QSerialPort>
#include <QSerialPortInfo>
#include <algorithm>
#include <cctype>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <set>

namespace ortelix {

namespace {

int ReadInt(std::string_view t) {
    int v = -1;
    const auto r = std::from_chars(t.data(), t.data() + t.size(), v);
    return r.ec == std::errc() && r.ptr == t.data() + t.size() ? v : -1;
}

QSerialPort::Parity ParityOf(char p) {
    switch (p) {
        case 'e': return QSerialPort::EvenParity;
        case 'o': return QSerialPort::OddParity;
        case 'm': return QSerialPort::MarkParity;
        case 's': return QSerialPort::SpaceParity;
        default: return QSerialPort::NoParity;
    }
}

// "ttyS10" sorts after "ttyS2": the name without its digits, then the number.
bool NaturalLess(const std::string& a, const std::string& b) {
    auto split = [](const std::string& s) {
        size_t d = s.size();
        while (d > 0 && std::isdigit(static_cast<unsigned char>(s[d - 1]))) --d;
        const long n = d < s.size() ? std::stol(s.substr(d, 9)) : -1;
        return std::make_pair(s.substr(0, d), n);
    };
    const auto sa = split(a), sb = split(b);
    return sa != sb ? sa < sb : a < b;
}

bool StartsWith(const std::string& s, std::string_view p) { return s.compare(0, p.size(), p) == 0; }

// A ttyS node exists for every possible port; the kernel gives a type other
// than 0 (PORT_UNKNOWN) to those with a UART.
bool SysfsHasUart(const std::string& name) {
    std::ifstream in("/sys/class/tty/" + name + "/type");
    int type = 0;
    return in >> type && type != 0;
}

constexpr size_t kMostQueued = 16 * 1024;  // a line that takes nothing is not fed further
constexpr int kWriteWaitMs = 1000;

}  // namespace

bool ParseSerialSettings(std::string_view text, SerialSettings& out) {
    std::string_view parts[4];
    size_t n = 0, start = 0;
    for (size_t i = 0; i <= text.size(); ++i) {
        if (i == text.size() || text[i] == ',') {
            if (n == 4) return false;
            parts[n++] = text.substr(start, i - start);
            start = i + 1;
        }
    }
    if (n != 4 || parts[1].size() != 1) return false;
    SerialSettings s;
    s.baud = ReadInt(parts[0]);
    s.parity = static_cast<char>(std::tolower(static_cast<unsigned char>(parts[1][0])));
    s.dataBits = ReadInt(parts[2]);
    s.stopBits = ReadInt(parts[3]);
    if (s.baud <= 0 || std::string_view("neoms").find(s.parity) == std::string_view::npos ||
        s.dataBits < 5 || s.dataBits > 8 || (s.stopBits != 1 && s.stopBits != 2))
        return false;
    out = s;
    return true;
}

SerialDevice::SerialDevice(bool waitForWrites) : wait_(waitForWrites) {}
SerialDevice::~SerialDevice() { close(); }

bool SerialDevice::open(const std::string& device, const std::string& settings) {
    close();
    SerialSettings s;
    if (!ParseSerialSettings(settings, s)) return false;
    auto port = std::make_unique<QSerialPort>();
    port->setPortName(QString::fromStdString(device));
    if (!port->open(QIODevice::ReadWrite)) return false;
    const bool set = port->setBaudRate(s.baud) && port->setParity(ParityOf(s.parity)) &&
                     port->setDataBits(static_cast<QSerialPort::DataBits>(s.dataBits)) &&
                     port->setStopBits(s.stopBits == 2 ? QSerialPort::TwoStop : QSerialPort::OneStop) &&
                     port->setFlowControl(QSerialPort::NoFlowControl);
    if (!set) return false;
    port_ = std::move(port);
    return true;
}

bool SerialDevice::write(const std::string& bytes) {
    if (!isOpen()) return false;
    if (static_cast<size_t>(port_->bytesToWrite()) > kMostQueued) {
        port_->clear(QSerialPort::Output);
        return false;
    }
    if (port_->write(bytes.data(), static_cast<qint64>(bytes.size())) != static_cast<qint64>(bytes.size()))
        return false;
    if (!wait_) {
        port_->flush();
        return true;
    }
    while (port_->bytesToWrite() > 0)
        if (!port_->waitForBytesWritten(kWriteWaitMs)) return false;
    return true;
}

bool SerialDevice::close() {
    if (!port_) return true;
    port_->close();
    const bool ok = port_->error() == QSerialPort::NoError;
    port_.reset();
    return ok;
}

bool SerialDevice::isOpen() const { return port_ && port_->isOpen(); }

std::vector<std::string> SerialDeviceList(const std::vector<std::string>& devEntries,
                                          const std::vector<std::string>& found,
                                          bool (*hasUart)(const std::string& name)) {
    std::set<std::string> paths(found.begin(), found.end());
    for (const std::string& e : devEntries) {
        const bool usb = StartsWith(e, "ttyUSB") || StartsWith(e, "ttyACM");
        const bool uart = StartsWith(e, "ttyS") && e.size() > 4 && hasUart(e);
        if (usb || uart) paths.insert("/dev/" + e);
    }
    std::vector<std::string> out(paths.begin(), paths.end());
    std::sort(out.begin(), out.end(), NaturalLess);
    return out;
}

std::vector<std::string> ListSerialDevices() {
    std::vector<std::string> found, dev;
    for (const QSerialPortInfo& p : QSerialPortInfo::availablePorts()) found.push_back(p.systemLocation().toStdString());
    std::error_code ec;
    for (std::filesystem::directory_iterator it("/dev", ec), end; !ec && it != end; it.increment(ec))
        dev.push_back(it->path().filename().string());
    return SerialDeviceList(dev, found, SysfsHasUart);
}

}  // namespace ortelix
