// SPDX-License-Identifier: MIT
#include <zerdix/timetext.h>

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string_view>

namespace {

constexpr std::size_t most_in_field = 255;

enum class kind { number32, number16, text, character, other };

struct conversion {
    kind type;
    std::optional<std::size_t> width;
};

// Takes a conversion off the front of the format; nothing when something else stands there.
std::optional<conversion> take_conversion(std::string_view& format) {
    if (!format.starts_with('%'))
        return std::nullopt;
    format.remove_prefix(1);
    conversion found = {kind::other, std::nullopt};
    while (!format.empty() && format.front() >= '0' && format.front() <= '9') {
        const auto digit = static_cast<std::size_t>(format.front() - '0');
        found.width = std::min(found.width.value_or(0) * 10 + digit, most_in_field + 1);
        format.remove_prefix(1);
    }
    if (format.empty())
        return std::nullopt;
    const bool sized = format.starts_with('l') || format.starts_with('h');
    if (format.starts_with("ld"))
        found.type = kind::number32;
    else if (format.starts_with("hd"))
        found.type = kind::number16;
    else if (format.starts_with('s'))
        found.type = kind::text;
    else if (format.starts_with('c'))
        found.type = kind::character;
    format.remove_prefix(sized && format.size() > 1 ? 2 : 1);
    return found;
}

// The fields of a text, one after the other.
class field_reader {
  public:
    field_reader(std::string_view text, char delimiter) : rest_(text), delimiter_(delimiter) {}

    // A text without a further delimiter stays what it is and is read again and again; behind a
    // closing delimiter the field before stays, and isn't counted.
    void next() {
        if (rest_.empty())
            return;
        ++count_;
        const std::size_t end = rest_.find(delimiter_);
        field_[rest_.copy(field_.data(), std::min(end, most_in_field))] = '\0';
        if (end != std::string_view::npos)
            rest_.remove_prefix(end + 1);
    }

    const char* field() const { return field_.data(); }
    std::int16_t count() const { return count_; }

  private:
    std::string_view rest_;
    char delimiter_;
    std::array<char, most_in_field + 1> field_ = {};
    std::int16_t count_ = 0;
};

// The number at the front of the field, as far as 32 bits reach.
std::int32_t number(const char* field) {
    const long long value = std::strtoll(field, nullptr, 10);
    return static_cast<std::int32_t>(std::clamp<long long>(value, INT32_MIN, INT32_MAX));
}

void store_text(char* to, const char* field, std::optional<std::size_t> width) {
    if (width)
        std::strncpy(to, field, *width);
    else
        std::memcpy(to, field, std::strlen(field) + 1);
}

// The arguments in a struct, so that a helper's va_arg moves them on for its caller too.
struct destination_list {
    std::va_list list;
};

void store(const conversion& as, const char* field, destination_list& destinations) {
    switch (as.type) {
    case kind::number32:
        *va_arg(destinations.list, std::int32_t*) = number(field);
        return;
    case kind::number16:
        *va_arg(destinations.list, std::int16_t*) = static_cast<std::int16_t>(number(field));
        return;
    case kind::text:
        store_text(va_arg(destinations.list, char*), field, as.width);
        return;
    case kind::character:
        *va_arg(destinations.list, char*) = *field;
        return;
    case kind::other:
        return;
    }
}

} // namespace

extern "C" std::int16_t getTokens(char delimiter, const char* format, const char* text, ...) {
    destination_list destinations;
    va_start(destinations.list, text);
    std::string_view rest = format;
    field_reader reader(text, delimiter);
    while (const auto found = take_conversion(rest)) {
        reader.next();
        store(*found, reader.field(), destinations);
    }
    va_end(destinations.list);
    return reader.count();
}
