#pragma once
// Serial devices on Linux: "COM" ports are device paths (/dev/ttyUSB0,
// /dev/pts/N); settings come as "4800,n,8,1".
#include <string>
#include <vector>

namespace ortelix {

// Opens and configures the device; -1 when it cannot.
int OpenSerialDevice(const std::string& device, const std::string& settings);
std::vector<std::string> ListSerialDevices();

// One open serial device; closed when replaced or destroyed.
class SerialDevice {
public:
    SerialDevice() = default;
    SerialDevice(const SerialDevice&) = delete;
    SerialDevice& operator=(const SerialDevice&) = delete;
    ~SerialDevice() { close(); }

    bool open(const std::string& device, const std::string& settings);
    bool write(const std::string& bytes);  // all of them, or false
    void close();

private:
    int fd_ = -1;
};

}  // namespace ortelix
