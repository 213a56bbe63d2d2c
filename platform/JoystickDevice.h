#pragma once
// The first joystick of a Linux machine (/dev/input/js0), read without
// waiting through the kernel's joystick events. Positions are given as the
// joystick API of Windows gives them: 0 to 65535, at rest 32768.
#include <cstdint>
#include <string>

namespace ortelix {

// An axis value of the kernel (-32767..32767) as a position 0..65535.
int JoystickPosition(int16_t axisValue);

class JoystickDevice {
public:
    explicit JoystickDevice(std::string path = "/dev/input/js0") : path_(std::move(path)) {}
    JoystickDevice(const JoystickDevice&) = delete;
    JoystickDevice& operator=(const JoystickDevice&) = delete;
    ~JoystickDevice();

    // Takes every event that is waiting and gives the position of axes 0 and
    // 1 and the pressed buttons as bits. False when there is no joystick
    // (none plugged in, or unplugged since): then nothing is changed.
    bool read(int& x, int& y, int& buttons);

private:
    std::string path_;
    int fd_ = -1;
    int x_ = 32768, y_ = 32768, buttons_ = 0;
};

}  // namespace ortelix
