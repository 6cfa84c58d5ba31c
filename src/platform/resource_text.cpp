// SPDX-License-Identifier: MIT
#include "platform/resource_text.h"

#include <charconv>

#include "platform/encoding.h"

namespace zerdix::platform {
namespace {

constexpr std::int32_t highest_number = 999'999;

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

// From 1 on; digits and nothing else.
std::optional<std::int32_t> number(std::string_view text) {
    std::int32_t value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc{} || stop != end || value < 1 || value > highest_number)
        return std::nullopt;
    return value;
}

std::string_view without_quotes(std::string_view text) {
    if (text.size() < 2 || text.front() != '"' || text.back() != '"')
        return text;
    return text.substr(1, text.size() - 2);
}

// Nothing for an escape that doesn't exist. A NUL would end the text for its readers.
std::optional<std::string> value_of(std::string_view text) {
    std::string value;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '\0')
            return std::nullopt;
        if (text[at] != '\\') {
            value += text[at];
            continue;
        }
        const char escaped = ++at < text.size() ? text[at] : '\0';
        if (escaped != 'n' && escaped != '\\')
            return std::nullopt;
        value += escaped == 'n' ? '\n' : '\\';
    }
    return value;
}

class reader {
  public:
    // False for a line that can't stand where it stands.
    bool take(std::string_view line) {
        line = trimmed(line);
        if (line.empty() || line.front() == ';' || line.front() == '#')
            return true;
        return line.front() == '[' ? open_section(line) : take_pair(line);
    }

    resource_texts texts;

  private:
    enum class section { none, strings, dialog };

    bool open_section(std::string_view line) {
        constexpr std::string_view dialog_start = "[dialog ";
        if (line == "[strings]") {
            section_ = section::strings;
            return true;
        }
        if (!line.starts_with(dialog_start) || line.back() != ']')
            return false;
        line.remove_prefix(dialog_start.size());
        line.remove_suffix(1);
        const auto id = number(trimmed(line));
        section_ = section::dialog;
        dialog_ = id.value_or(0);
        return id.has_value();
    }

    bool take_pair(std::string_view line) {
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos || section_ == section::none)
            return false;
        const std::string_view name = trimmed(line.substr(0, equals));
        const auto value = value_of(without_quotes(trimmed(line.substr(equals + 1))));
        return value && store(name, *value);
    }

    bool store(std::string_view name, const std::string& value) {
        if (section_ == section::dialog && name == "caption")
            return texts.captions.try_emplace({dialog_, 0}, value).second;
        const auto key = number(name);
        if (!key)
            return false;
        if (section_ == section::dialog)
            return texts.captions.try_emplace({dialog_, *key}, value).second;
        return texts.strings.try_emplace(*key, value).second;
    }

    section section_ = section::none;
    std::int32_t dialog_ = 0;
};

} // namespace

parsed_resources parse_resources(std::string_view utf8) {
    constexpr std::string_view byte_order_mark = "\xef\xbb\xbf";
    if (utf8.starts_with(byte_order_mark))
        utf8.remove_prefix(byte_order_mark.size());
    const std::string all = utf8_to_cp1252(utf8);
    reader read;
    std::string_view rest = all;
    for (std::int32_t line = 1; !rest.empty(); ++line) {
        const std::size_t end = rest.find('\n');
        if (!read.take(rest.substr(0, end)))
            return {std::nullopt, line};
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    }
    return {std::move(read.texts), 0};
}

} // namespace zerdix::platform
