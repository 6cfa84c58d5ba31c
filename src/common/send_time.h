// SPDX-License-Identifier: MIT
// Reading a send time as a user types it.
#ifndef ZERDIX_COMMON_SEND_TIME_H
#define ZERDIX_COMMON_SEND_TIME_H

#include <cstdint>
#include <ctime>

namespace zerdix::common {

// The time in local time of the process, or 0 for anything that isn't accepted. `language` is the
// letter of the form that `text` is in; `now` gives a time without a date its day.
//
// A result that 32 bits can't hold counts as not accepted.
std::int32_t parse_send_time(const char* text, char language, std::time_t now);

} // namespace zerdix::common

#endif
