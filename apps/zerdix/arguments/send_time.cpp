// SPDX-License-Identifier: MIT
#include "arguments/send_time.h"

#include <cstdint>
#include <limits>
#include <string_view>

#include <zerdix/timetext.h>

#include "output/failure.h"

namespace zerdix::app {

namespace {

bool is_day(int year, int month, int day) {
    const bool leap = year % 4 == 0; // right for every year of this protocol, 1970 to 2038
    const int lengths[] = {31, leap ? 29 : 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month >= 1 && month <= 12 && day >= 1 && day <= lengths[month - 1];
}

std::string typed_form(const std::tm& time, bool dated) {
    char text[32];
    std::strftime(text, sizeof text, dated ? "%Y-%m-%d %H:%M" : "%H:%M", &time);
    return text;
}

// The day of a clock time is today, in the server's time zone.
std::tm completed(const send_time& time, std::time_t now) {
    std::tm local = time.local;
    if (time.when == send_time::kind::clock) {
        std::tm today{};
        localtime_r(&now, &today);
        local.tm_year = today.tm_year;
        local.tm_mon = today.tm_mon;
        local.tm_mday = today.tm_mday;
    }
    local.tm_isdst = -1;
    return local;
}

std::int32_t seconds_of(const std::tm& local, const std::string& typed, std::time_t now) {
    std::tm settled = local;
    const std::time_t seconds = std::mktime(&settled);
    if (settled.tm_hour != local.tm_hour || settled.tm_min != local.tm_min)
        throw failure(exit_usage, "--at: there is no " + typed + " in the server's time zone");
    if (seconds > std::numeric_limits<std::int32_t>::max())
        throw failure(exit_usage, "--at: " + typed + " is too far in the future");
    if (seconds <= now)
        throw failure(exit_usage, "--at: " + typed + " is over already");
    return static_cast<std::int32_t>(seconds);
}

// Takes the digits at the front; nothing unless there are as many as wanted.
std::optional<int> take_number(std::string_view& rest, std::size_t fewest, std::size_t most) {
    std::size_t count = 0;
    int value = 0;
    for (; count < most && count < rest.size() && rest[count] >= '0' && rest[count] <= '9'; ++count)
        value = value * 10 + (rest[count] - '0');
    rest.remove_prefix(count);
    return count < fewest ? std::nullopt : std::optional(value);
}

bool take_mark(std::string_view& rest, std::string_view marks) {
    if (rest.empty() || marks.find(rest.front()) == std::string_view::npos)
        return false;
    rest.remove_prefix(1);
    return true;
}

// "20:15", and nothing behind it.
bool take_clock(std::string_view rest, std::tm& local) {
    const auto hour = take_number(rest, 1, 2);
    if (!hour || *hour > 23 || !take_mark(rest, ":"))
        return false;
    const auto minute = take_number(rest, 2, 2);
    if (!minute || *minute > 59 || !rest.empty())
        return false;
    local.tm_hour = *hour;
    local.tm_min = *minute;
    return true;
}

// "2026-12-31 ", or with a "T" at its end.
bool take_date(std::string_view& rest, std::tm& local) {
    const auto year = take_number(rest, 4, 4);
    if (!year || !take_mark(rest, "-"))
        return false;
    const auto month = take_number(rest, 2, 2);
    if (!month || !take_mark(rest, "-"))
        return false;
    const auto day = take_number(rest, 2, 2);
    if (!day || !take_mark(rest, " T") || !is_day(*year, *month, *day))
        return false;
    local.tm_year = *year - 1900;
    local.tm_mon = *month - 1;
    local.tm_mday = *day;
    return true;
}

} // namespace

std::optional<send_time> parse_send_time(const std::string& typed) {
    if (typed == "now")
        return send_time{send_time::kind::now, {}};
    if (typed == "night")
        return send_time{send_time::kind::night, {}};
    const bool dated = typed.find('-') != std::string::npos;
    send_time time{dated ? send_time::kind::date : send_time::kind::clock, {}};
    std::string_view rest = typed;
    if ((dated && !take_date(rest, time.local)) || !take_clock(rest, time.local))
        return std::nullopt;
    return time;
}

send_time required_send_time(const std::string& typed) {
    const auto time = parse_send_time(typed);
    if (!time)
        throw failure(exit_usage, "--at \"" + typed +
                                      "\": now, night, HH:MM or \"YYYY-MM-DD HH:MM\" is expected");
    return *time;
}

std::int32_t send_time_seconds(const send_time& time, std::time_t now) {
    const std::tm local = completed(time, now);
    return seconds_of(local, typed_form(local, time.when == send_time::kind::date), now);
}

std::string send_time_value(const send_time& time, char language, std::time_t now) {
    if (time.when == send_time::kind::now)
        return "NOW";
    if (time.when == send_time::kind::night)
        return "DELAYED";
    const bool dated = time.when == send_time::kind::date;
    const std::int32_t seconds = send_time_seconds(time, now);
    const char* date = "";
    const char* clock = "";
    printTime(seconds, language, nullptr, &date, &clock);
    const std::string value = dated ? std::string(date) + ' ' + clock : clock;
    if (str2time_t(value.c_str()) == 0)
        throw failure(exit_usage, "--at: the session's language has no form for " +
                                      typed_form(completed(time, now), dated));
    return value;
}

} // namespace zerdix::app
