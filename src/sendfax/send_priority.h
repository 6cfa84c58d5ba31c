// The priority of a send job.
#ifndef ZERDIX_SENDFAX_SEND_PRIORITY_H
#define ZERDIX_SENDFAX_SEND_PRIORITY_H

#include <cstdint>

namespace zerdix::sendfax {

// A user's 0 to 100 becomes 0 to 32767, rounded to the nearest.
constexpr std::int16_t send_priority(int percent) {
    constexpr int highest = 32767;
    return static_cast<std::int16_t>((percent * highest + 50) / 100);
}

} // namespace zerdix::sendfax

#endif
