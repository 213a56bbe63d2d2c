#pragma once
// Serial devices on Linux: "COM" ports are device paths (/dev/ttyUSB0,
// /dev/pts/N); settings come as "4800,n,8,1".
#include <string>
#include <vector>

namespace ortelix {

// Opens and configures the device; -1 when it cannot.
int OpenSerialDevice(const std::string& device, const std::string& settings);
std::vector<std::string> ListSerialDevices();

}  // namespace ortelix
