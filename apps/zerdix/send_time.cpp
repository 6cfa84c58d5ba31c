#include "send_time.h"

#include <cstdint>
#include <limits>
#include <regex>

#include <zerdix/timetext.h>

#include "failure.h"

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

} // namespace

std::optional<send_time> parse_send_time(const std::string& typed) {
    if (typed == "now")
        return send_time{send_time::kind::now, {}};
    if (typed == "night")
        return send_time{send_time::kind::night, {}};
    static const std::regex form(R"((?:(\d{4})-(\d\d)-(\d\d)[ T])?(\d\d?):(\d\d))");
    std::smatch part;
    if (!std::regex_match(typed, part, form))
        return std::nullopt;
    send_time time{part[1].matched ? send_time::kind::date : send_time::kind::clock, {}};
    time.local.tm_hour = std::stoi(part[4]);
    time.local.tm_min = std::stoi(part[5]);
    if (time.local.tm_hour > 23 || time.local.tm_min > 59)
        return std::nullopt;
    if (time.when == send_time::kind::clock)
        return time;
    const int year = std::stoi(part[1]), month = std::stoi(part[2]), day = std::stoi(part[3]);
    if (!is_day(year, month, day))
        return std::nullopt;
    time.local.tm_year = year - 1900;
    time.local.tm_mon = month - 1;
    time.local.tm_mday = day;
    return time;
}

std::string send_time_value(const send_time& time, char language, std::time_t now) {
    if (time.when == send_time::kind::now)
        return "NOW";
    if (time.when == send_time::kind::night)
        return "DELAYED";
    const bool dated = time.when == send_time::kind::date;
    const std::tm local = completed(time, now);
    const std::string typed = typed_form(local, dated);
    const std::int32_t seconds = seconds_of(local, typed, now);
    const char* date = "";
    const char* clock = "";
    printTime(seconds, language, nullptr, &date, &clock);
    const std::string value = dated ? std::string(date) + ' ' + clock : clock;
    if (str2time_t(value.c_str()) == 0)
        throw failure(exit_usage, "--at: the session's language has no form for " + typed);
    return value;
}

} // namespace zerdix::app
