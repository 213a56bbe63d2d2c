#pragma once
// Serial devices on Linux: "COM" ports are device paths (/dev/ttyUSB0,
// /dev/pts/N); settings come as "4800,n,8,1". Both platforms open them with
// QSerialPort, which also takes pseudo-terminals.
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class QSerialPort;

namespace ortelix {

// "baud,parity,data bits,stop bits"; parity n, e, o, m or s.
struct SerialSettings {
    int baud = 4800;
    char parity = 'n';
    int dataBits = 8;
    int stopBits = 1;
};
// False when the text is not of that form or names what a port cannot do.
bool ParseSerialSettings(std::string_view text, SerialSettings& out);

// The machine's serial devices: what QSerialPortInfo finds, and a glance at
// /dev for /dev/ttyUSB*, /dev/ttyACM* and the /dev/ttyS* that have a UART
// behind them. Sorted, with numbers in their order (ttyS2 before ttyS10).
std::vector<std::string> ListSerialDevices();
// The same from a given folder listing and the ports found otherwise: the
// part of the work that does not ask the system.
std::vector<std::string> SerialDeviceList(const std::vector<std::string>& devEntries,
                                          const std::vector<std::string>& found,
                                          bool (*hasUart)(const std::string& name));

// One open serial device; closed when replaced or destroyed.
class SerialDevice {
public:
    // Waiting for writes suits a program without an event loop (the command
    // line); the desktop's loop writes what the device did not take at once.
    explicit SerialDevice(bool waitForWrites = true);
    SerialDevice(const SerialDevice&) = delete;
    SerialDevice& operator=(const SerialDevice&) = delete;
    ~SerialDevice();

    bool open(const std::string& device, const std::string& settings);
    // Hands all bytes to the device, waiting up to a second for it to take
    // them (or, without waiting, queueing the rest); false when it does not:
    // nothing open, or a line so full that it has not taken the last 16 KB.
    bool write(const std::string& bytes);
    // False when the device reported an error on closing.
    bool close();
    bool isOpen() const;

private:
    std::unique_ptr<QSerialPort> port_;
    bool wait_;
};

}  // namespace ortelix
