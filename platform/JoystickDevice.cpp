#include "platform/JoystickDevice.h"

#include <cerrno>
#include <fcntl.h>
#include <linux/joystick.h>
#include <unistd.h>

namespace ortelix {

int JoystickPosition(int16_t axisValue) { return static_cast<int>(axisValue) + 32768; }

JoystickDevice::~JoystickDevice() {
    if (fd_ >= 0) ::close(fd_);
}

bool JoystickDevice::read(int& x, int& y, int& buttons) {
    if (fd_ < 0) {
        // Looked for at each reading, so that a stick plugged in later is found.
        fd_ = ::open(path_.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
        if (fd_ < 0) return false;
    }
    js_event e{};
    for (;;) {
        const ssize_t n = ::read(fd_, &e, sizeof e);
        if (n == static_cast<ssize_t>(sizeof e)) {
            // The events at opening (JS_EVENT_INIT) give the state as it is.
            const unsigned type = e.type & ~JS_EVENT_INIT;
            if (type == JS_EVENT_AXIS && e.number == 0) x_ = JoystickPosition(e.value);
            if (type == JS_EVENT_AXIS && e.number == 1) y_ = JoystickPosition(e.value);
            if (type == JS_EVENT_BUTTON && e.number < 31) {
                if (e.value) buttons_ |= 1 << e.number;
                else buttons_ &= ~(1 << e.number);
            }
            continue;
        }
        if (n < 0 && (errno == EAGAIN || errno == EINTR)) break;
        if (n == 0) break;  // a file of recorded events: all taken
        ::close(fd_);       // unplugged
        fd_ = -1;
        return false;
    }
    x = x_;
    y = y_;
    buttons = buttons_;
    return true;
}

}  // namespace ortelix
