#include "core/Session.h"

#include "platform/Platform.h"

namespace ortelix {

void Session::pollEvents() {
    const double t = platform.now();
    if (lastYield_ >= 0 && t - lastYield_ < 0.02) return;
    lastYield_ = t;
    platform.yield();
}

}  // namespace ortelix
