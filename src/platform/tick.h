// SPDX-License-Identifier: MIT
#ifndef ZERDIX_PLATFORM_TICK_H
#define ZERDIX_PLATFORM_TICK_H

#include <cstdint>

namespace zerdix::platform {

// Milliseconds since the start of the system. Begins again at 0 after about 49.7 days.
std::uint32_t tick();

} // namespace zerdix::platform

#endif
