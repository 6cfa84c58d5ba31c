// SPDX-License-Identifier: MIT
// The time at which a fax is to go out, as it is typed on the command line.
#ifndef ZERDIX_APP_ARGUMENTS_SEND_TIME_H
#define ZERDIX_APP_ARGUMENTS_SEND_TIME_H

#include <cstdint>
#include <ctime>
#include <optional>
#include <string>

namespace zerdix::app {

struct send_time {
    enum class kind { now, night, clock, date };

    kind when;
    std::tm local; // clock: hour and minute; date: the day as well
};

// "now", "night", "20:15" or "2026-12-31 20:15"; nothing for any other text.
std::optional<send_time> parse_send_time(const std::string& typed);

// The same of the option --at; throws failure for any other text.
send_time required_send_time(const std::string& typed);

// A clock time or a date as seconds since 1970 UTC. To be called once the process has
// the server's time zone. Throws failure for a time that is over by `now` or doesn't exist.
std::int32_t send_time_seconds(const send_time& time, std::time_t now);

// The value of the merge data pair SENDTIME, Windows-1252: a time of day in the form of
// `language`. To be called once the process has the server's time zone. Throws failure for a time
// that is over by `now`, that doesn't exist, or that the print job couldn't read back.
std::string send_time_value(const send_time& time, char language, std::time_t now);

} // namespace zerdix::app

#endif
