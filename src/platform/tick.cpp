// SPDX-License-Identifier: MIT
#include "platform/tick.h"

#include <ctime>

namespace zerdix::platform {

std::uint32_t tick() {
    timespec now = {};
    ::clock_gettime(CLOCK_BOOTTIME, &now);
    return static_cast<std::uint32_t>(now.tv_sec * 1000 + now.tv_nsec / 1000000);
}

} // namespace zerdix::platform
