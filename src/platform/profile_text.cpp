// SPDX-License-Identifier: MIT
#include "platform/profile_text.h"

#include <algorithm>
#include <cstddef>

namespace zerdix::platform {
namespace {

constexpr std::string_view blanks = " \t\r\n\v\f";
constexpr std::string_view byte_order_mark = "\xef\xbb\xbf";

std::string_view trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string_view unquote(std::string_view text) {
    const bool quoted = text.size() >= 2 && (text.front() == '"' || text.front() == '\'') &&
                        text.back() == text.front();
    return quoted ? text.substr(1, text.size() - 2) : text;
}

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool same_name(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return lower(x) == lower(y); });
}

bool is_comment(std::string_view line) {
    return line.starts_with(';') || line.starts_with('#');
}

std::optional<std::string_view> section_name(std::string_view line) {
    const std::size_t close = line.find(']');
    if (!line.starts_with('[') || close == std::string_view::npos)
        return std::nullopt;
    return trim(line.substr(1, close - 1));
}

// Where a key stands in the text, or where it would have to go.
struct location {
    bool section_found = false;
    bool key_found = false;
    std::size_t value_begin = 0; // behind the "="
    std::size_t value_end = 0;   // the end of the line, its line break left out
    std::size_t section_end = 0; // behind the last line of the section that isn't blank
};

std::size_t line_length(std::string_view rest) {
    const std::size_t feed = rest.find('\n');
    return feed == std::string_view::npos ? rest.size() : feed + 1;
}

// Looks at one line inside the section.
void look_for_key(location& found, std::string_view raw, std::size_t offset, std::string_view key) {
    const std::string_view line = trim(raw);
    const std::size_t equals = raw.find('=');
    if (!line.empty())
        found.section_end = offset + raw.size();
    if (is_comment(line) || equals == std::string_view::npos)
        return;
    if (!same_name(trim(raw.substr(0, equals)), key))
        return;
    found.key_found = true;
    found.value_begin = offset + equals + 1;
    found.value_end = offset + std::min(raw.find_last_not_of("\r\n") + 1, raw.size());
}

location locate(std::string_view text, std::string_view section, std::string_view key) {
    location found;
    bool inside = false;
    std::size_t offset = text.starts_with(byte_order_mark) ? byte_order_mark.size() : 0;
    while (offset < text.size() && !found.key_found) {
        const std::string_view raw = text.substr(offset, line_length(text.substr(offset)));
        if (const auto name = section_name(trim(raw))) {
            inside = same_name(*name, section) && !found.section_found;
            if (inside)
                found.section_end = offset + raw.size();
            found.section_found = found.section_found || inside;
        } else if (inside) {
            look_for_key(found, raw, offset, key);
        }
        offset += raw.size();
    }
    return found;
}

std::string quoted_if_needed(std::string_view value) {
    if (unquote(trim(value)) == value)
        return std::string(value);
    return '"' + std::string(value) + '"';
}

std::string joined(std::initializer_list<std::string_view> parts) {
    std::string whole;
    for (const std::string_view part : parts)
        whole += part;
    return whole;
}

} // namespace

std::optional<std::string_view> find_value(std::string_view text, std::string_view section,
                                           std::string_view key) {
    const location found = locate(text, section, key);
    if (!found.key_found)
        return std::nullopt;
    return unquote(trim(text.substr(found.value_begin, found.value_end - found.value_begin)));
}

std::string with_value(std::string_view text, std::string_view section, std::string_view key,
                       std::string_view value) {
    const std::string_view feed = text.find("\r\n") != std::string_view::npos ? "\r\n" : "\n";
    const std::string written = quoted_if_needed(value);
    const location found = locate(text, section, key);
    if (found.key_found)
        return joined({text.substr(0, found.value_begin), written, text.substr(found.value_end)});

    const std::size_t place = found.section_found ? found.section_end : text.size();
    const std::string_view before = text.substr(0, place);
    const bool open_line = !before.empty() && !before.ends_with('\n');
    const std::string header = found.section_found ? "" : joined({"[", section, "]", feed});
    return joined(
        {before, open_line ? feed : "", header, key, "=", written, feed, text.substr(place)});
}

} // namespace zerdix::platform
