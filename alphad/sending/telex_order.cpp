// SPDX-License-Identifier: MIT
#include "alphad/sending/telex_order.h"

#include <charconv>
#include <cstdio>
#include <ctime>
#include <string>
#include <utility>

namespace zerdix::alphad {

namespace {

constexpr std::string_view mark = "#TELEX##";

// A title may hold a "#" of its own, so an item ends where the next one of the record begins.
std::string_view item(std::string_view record, std::string_view name, std::string_view next) {
    const std::string begin = "#" + std::string{name} + " ";
    const std::size_t from = record.find(begin);
    if (from == record.npos)
        return {};
    const std::string_view rest = record.substr(from + begin.size());
    return rest.substr(0, rest.rfind(next));
}

// Date and clock in the form of the session's language, which the record doesn't tell: the day
// stands first, unless that can't be.
std::int32_t read_time(const std::string& text) {
    int first = 0, second = 0, year = 0;
    std::tm time{};
    if (std::sscanf(text.c_str(), "%2d%*1[./]%2d%*1[./]%2d %2d%*1[.:]%2d%*1[.:]%2d", &first,
                    &second, &year, &time.tm_hour, &time.tm_min, &time.tm_sec) != 6)
        return 0;
    if (second > 12)
        std::swap(first, second);
    time.tm_mday = first;
    time.tm_mon = second - 1;
    time.tm_year = year < 70 ? year + 100 : year;
    time.tm_isdst = -1;
    const std::time_t seconds = std::mktime(&time);
    return seconds > 0 ? static_cast<std::int32_t>(seconds) : 0;
}

std::int16_t read_count(std::string_view text) {
    std::int16_t count = 0;
    std::from_chars(text.data(), text.data() + text.size(), count);
    return count;
}

} // namespace

std::optional<telex_order> read_telex_order(std::string_view text) {
    const std::size_t end = text.find('\n');
    if (!text.starts_with(mark) || end == text.npos)
        return std::nullopt;
    const std::string_view record = text.substr(0, end);
    telex_order order{};
    order.userid.assign(item(record, "USER", "##ALPHAHOST "));
    order.title.assign(item(record, "TITLE", "##PHONE "));
    order.phone.assign(item(record, "PHONE", "##SENDTIME "));
    order.sendtime = read_time(std::string{item(record, "SENDTIME", "##RETRIES ")});
    order.retries = read_count(item(record, "RETRIES", "#"));
    return order;
}

} // namespace zerdix::alphad
