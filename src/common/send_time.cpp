// SPDX-License-Identifier: MIT
#include "common/send_time.h"

#include <array>
#include <cstddef>
#include <limits>
#include <optional>
#include <string_view>

namespace zerdix::common {
namespace {

constexpr std::size_t most_numbers = 6;

// Numbers and the character behind each but the last, as scanf's "%hu%c%hu%c..." takes them.
struct scanned {
    std::array<std::uint16_t, most_numbers> numbers = {};
    std::array<char, most_numbers> separators = {};
    std::size_t count = 0; // numbers and separators together
};

bool is_space(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

// Blanks in front, a sign and a number beyond 16 bits are taken as scanf takes them: a minus gives
// the two's complement, and only the low 16 bits stay.
std::optional<std::uint16_t> take_number(std::string_view& rest) {
    while (!rest.empty() && is_space(rest.front()))
        rest.remove_prefix(1);
    const bool negative = rest.starts_with('-');
    if (negative || rest.starts_with('+'))
        rest.remove_prefix(1);
    if (rest.empty() || !is_digit(rest.front()))
        return std::nullopt;
    std::uint32_t value = 0;
    while (!rest.empty() && is_digit(rest.front())) {
        value = (value * 10 + static_cast<std::uint32_t>(rest.front() - '0')) & 0xffff;
        rest.remove_prefix(1);
    }
    return static_cast<std::uint16_t>(negative ? 0x10000 - value : value);
}

scanned scan(std::string_view rest) {
    scanned found;
    for (std::size_t i = 0; i < most_numbers; ++i) {
        const auto number = take_number(rest);
        if (!number)
            break;
        found.numbers[i] = *number;
        ++found.count;
        if (rest.empty() || i + 1 == most_numbers)
            break;
        found.separators[i] = rest.front();
        rest.remove_prefix(1);
        ++found.count;
    }
    return found;
}

// How a language writes dates and times.
struct form {
    char date_separator;
    bool month_first;
    char time_separator;
};

std::optional<form> form_of(char language) {
    switch (language) {
    case 'G':
        return form{'.', false, ':'};
    case 'F':
        return form{'.', false, '.'};
    case 'A':
        return form{'/', true, ':'};
    case 'U':
    case 'S':
    case 'I':
        return form{'/', false, ':'};
    default:
        return std::nullopt;
    }
}

int month_length(int month, int year_since_1900) {
    constexpr std::array lengths = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month == 2 && year_since_1900 % 4 == 0)
        return 29;
    return lengths[static_cast<std::size_t>(month - 1)];
}

std::optional<std::tm> typed_date(const scanned& text, const form& as) {
    if (text.separators[0] != as.date_separator || text.separators[1] != as.date_separator ||
        text.separators[2] != ' ')
        return std::nullopt;
    const int day = text.numbers[as.month_first ? 1 : 0];
    const int month = text.numbers[as.month_first ? 0 : 1];
    const int year = text.numbers[2] < 70 ? text.numbers[2] + 100 : text.numbers[2];
    if (text.numbers[2] > 99 || month < 1 || month > 12)
        return std::nullopt;
    if (day < 1 || day > month_length(month, year))
        return std::nullopt;
    std::tm date = {};
    date.tm_mday = day;
    date.tm_mon = month - 1;
    date.tm_year = year;
    date.tm_isdst = -1;
    return date;
}

// With the daylight flag of the moment, whatever the time of day turns out to be.
std::optional<std::tm> date_of(std::time_t now) {
    const std::tm* today = std::localtime(&now);
    return today == nullptr ? std::nullopt : std::optional(*today);
}

// `first` is the index of the hour. Accepts "20", "20:", "20:15" and "20:15:30".
bool set_clock(std::tm& time, const scanned& text, std::size_t first, char separator) {
    const std::size_t fields = text.count - 2 * first;
    if (fields > 1 && text.separators[first] != separator)
        return false;
    if (fields > 3 && text.separators[first + 1] != separator)
        return false;
    if (fields == 4 || fields > 5)
        return false;
    time.tm_hour = text.numbers[first];
    time.tm_min = fields > 2 ? text.numbers[first + 1] : 0;
    time.tm_sec = fields > 4 ? text.numbers[first + 2] : 0;
    return time.tm_hour <= 23 && time.tm_min <= 59 && time.tm_sec <= 59;
}

std::int32_t seconds(std::tm time) {
    const std::time_t result = std::mktime(&time);
    const bool fits = result >= std::numeric_limits<std::int32_t>::min() &&
                      result <= std::numeric_limits<std::int32_t>::max();
    return result == -1 || !fits ? 0 : static_cast<std::int32_t>(result);
}

} // namespace

std::int32_t parse_send_time(const char* text, char language, std::time_t now) {
    const scanned fields = scan(text);
    const bool dated = fields.count >= 7;
    const auto as = form_of(language);
    if (fields.count == 0 || (dated && !as))
        return 0;
    auto time = dated ? typed_date(fields, *as) : date_of(now);
    if (!time)
        return 0;
    const char separator = as ? as->time_separator : ':';
    if (!set_clock(*time, fields, dated ? 3 : 0, separator))
        return 0;
    return seconds(*time);
}

} // namespace zerdix::common
