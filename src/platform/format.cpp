// SPDX-License-Identifier: MIT
#include "platform/format.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace zerdix::platform {
namespace {

// One conversion as it stands in the format. `star` says that the number is an argument.
struct conversion {
    std::string_view flags;
    int width = -1;
    bool star_width = false;
    int precision = -1;
    bool star_precision = false;
    char size = '\0';       // 'l', 'h' or none
    char type = '\0';       // none: not a conversion
    std::size_t length = 0; // in the format, the "%" included
};

// The arguments by reference, so that a helper's va_arg moves them on for its caller too.
struct argument_list {
    std::va_list list;
};

int read_number(std::string_view& rest) {
    int number = 0;
    while (!rest.empty() && rest.front() >= '0' && rest.front() <= '9') {
        number = std::min(number * 10 + (rest.front() - '0'), static_cast<int>(most_formatted));
        rest.remove_prefix(1);
    }
    return number;
}

bool take(std::string_view& rest, char wanted) {
    if (!rest.starts_with(wanted))
        return false;
    rest.remove_prefix(1);
    return true;
}

conversion parse(std::string_view at) {
    conversion c;
    std::string_view rest = at.substr(1);
    c.flags = rest.substr(0, std::min(rest.find_first_not_of("-0# +"), rest.size()));
    rest.remove_prefix(c.flags.size());
    c.star_width = take(rest, '*');
    if (!c.star_width)
        c.width = read_number(rest);
    if (take(rest, '.')) {
        c.star_precision = take(rest, '*');
        if (!c.star_precision)
            c.precision = read_number(rest);
    }
    if (take(rest, 'l'))
        c.size = 'l';
    else if (take(rest, 'h'))
        c.size = 'h';
    const std::string_view types = c.size == '\0' ? "diuxXscp%" : "diuxX";
    if (!rest.empty() && types.find(rest.front()) != std::string_view::npos) {
        c.type = rest.front();
        c.length = at.size() - rest.size() + 1;
    }
    return c;
}

// The flags once each, since a platform formatter need not take more.
std::string_view platform_spec(const conversion& c, std::array<char, 16>& buffer) {
    const bool text = c.type == 's' || c.type == 'c' || c.type == 'p';
    char* end = buffer.data();
    *end++ = '%';
    for (const char flag : std::string_view("-0# +")) {
        if (c.flags.find(flag) != std::string_view::npos && (flag == '-' || !text))
            *end++ = flag;
    }
    for (const char part : std::string_view(c.type == 'c' || c.type == 'p' ? "*" : "*.*"))
        *end++ = part;
    *end++ = c.type;
    *end = '\0';
    return {buffer.data(), static_cast<std::size_t>(end - buffer.data())};
}

int limited(int number) {
    constexpr int most = static_cast<int>(most_formatted);
    return std::clamp(number, -most, most);
}

// An integer as wide as the conversion says.
unsigned integer_argument(const conversion& c, argument_list& arguments) {
    const int value = va_arg(arguments.list, int);
    if (c.size != 'h')
        return static_cast<unsigned>(value);
    const bool has_sign = c.type == 'd' || c.type == 'i';
    return has_sign ? static_cast<unsigned>(static_cast<std::int16_t>(value))
                    : static_cast<std::uint16_t>(value);
}

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
int print(std::span<char> out, const conversion& c, argument_list& arguments) {
    std::array<char, 16> buffer;
    const char* spec = platform_spec(c, buffer).data();
    const int width = c.star_width ? limited(va_arg(arguments.list, int)) : c.width;
    const int precision = c.star_precision ? limited(va_arg(arguments.list, int)) : c.precision;
    switch (c.type) {
    case '%':
        return std::snprintf(out.data(), out.size(), "%%");
    case 's': {
        const char* text = va_arg(arguments.list, const char*);
        return std::snprintf(out.data(), out.size(), spec, width, precision,
                             text == nullptr ? "(null)" : text);
    }
    case 'c': // NOLINT(bugprone-branch-clone): the types differ
        return std::snprintf(out.data(), out.size(), spec, width, va_arg(arguments.list, int));
    case 'p':
        return std::snprintf(out.data(), out.size(), spec, width, va_arg(arguments.list, void*));
    default:
        return std::snprintf(out.data(), out.size(), spec, width, precision,
                             integer_argument(c, arguments));
    }
}
#pragma GCC diagnostic pop

// How much of the format stands for itself: up to the next "%", which counts with it when it
// begins no conversion.
std::size_t plain_length(std::string_view format) {
    const std::size_t percent = format.find('%', format.starts_with('%') ? 1 : 0);
    return std::min(percent, format.size());
}

} // namespace

std::size_t format_text(std::span<char> out, std::string_view format, std::va_list arguments) {
    if (out.empty())
        return 0;
    out = out.first(std::min(out.size(), most_formatted + 1));
    argument_list remaining;
    va_copy(remaining.list, arguments);
    std::size_t used = 0;
    while (!format.empty() && used < out.size() - 1) {
        const std::span<char> room = out.subspan(used);
        const conversion c = format.starts_with('%') ? parse(format) : conversion{};
        const std::size_t step = c.type == '\0' ? plain_length(format) : c.length;
        std::size_t length = step;
        if (c.type != '\0')
            length = static_cast<std::size_t>(std::max(print(room, c, remaining), 0));
        else
            std::memcpy(room.data(), format.data(), std::min(step, room.size() - 1));
        used += std::min(length, room.size() - 1);
        format.remove_prefix(step);
    }
    va_end(remaining.list);
    out[used] = '\0';
    return used;
}

} // namespace zerdix::platform
