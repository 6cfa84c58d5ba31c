// SPDX-License-Identifier: MIT
#include "print/merge_text.h"

#include <algorithm>
#include <cctype>
#include <string_view>

#include "output/failure.h"
#include "platform/encoding.h"

namespace zerdix::app {

namespace {

constexpr std::size_t longest_value = 30;
constexpr std::size_t longest_id = 10;

std::string pair(const char* key, const std::string& value) {
    return std::string("#") + key + ' ' + value + '#';
}

std::string trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string::npos)
        return "";
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool has_control_character(std::string_view text) {
    return std::any_of(text.begin(), text.end(), [](char c) {
        const auto code = static_cast<unsigned char>(c);
        return code < 0x20 || code == 0x7f;
    });
}

// A "?" that wasn't typed stands for a character that Windows-1252 lacks.
bool has_unknown_characters(std::string_view utf8, std::string_view converted) {
    return std::count(converted.begin(), converted.end(), '?') !=
           std::count(utf8.begin(), utf8.end(), '?');
}

// The text of an option in Windows-1252, if it arrives unchanged.
std::string receiver_value(const char* option, const std::string& typed, std::size_t longest) {
    const std::string utf8 = trimmed(typed);
    const std::string about = std::string(option) + " \"" + typed + "\": ";
    if (utf8.empty())
        throw failure(exit_usage, about + "nothing stands there");
    if (utf8.find('#') != std::string::npos)
        throw failure(exit_usage, about + "a receiver can't hold a \"#\"");
    if (has_control_character(utf8))
        throw failure(exit_usage, about + "a receiver can't hold a control character");
    const std::string value = platform::utf8_to_cp1252(utf8);
    if (has_unknown_characters(utf8, value))
        throw failure(exit_usage, about + "a character isn't in Windows-1252");
    if (value.size() > longest)
        throw failure(exit_usage, about + "longer than " + std::to_string(longest) + " characters");
    return value;
}

std::string upper_case(std::string text) {
    for (char& c : text)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return text;
}

void add_number(std::string& text, const char* key, const std::optional<int>& value) {
    if (value)
        text += pair(key, std::to_string(*value));
}

} // namespace

title_text title_of(const std::string& utf8) {
    std::string clean = utf8;
    for (char& c : clean) {
        if (has_control_character({&c, 1}))
            c = ' ';
    }
    clean = trimmed(clean);
    const std::string all = platform::utf8_to_cp1252(clean);
    return {all.substr(0, longest_value), all.size() > longest_value,
            has_unknown_characters(clean, all)};
}

std::string merge_text(const print_options& options, const std::string& title) {
    std::string text;
    if (title.find('#') == std::string::npos)
        text += pair("TITLE", title);
    add_number(text, "PAPER", options.paper);
    add_number(text, "PRIORITY", options.priority);
    add_number(text, "RETRIES", options.retries);
    if (options.resolution)
        text += pair("RESOLUTION", upper_case(*options.resolution));
    for (const std::string& receiver : options.to)
        text += pair("PHONE", phone_value(receiver));
    return text;
}

std::string phone_value(const std::string& typed) {
    const std::string value = receiver_value("--to", typed, longest_value);
    const auto named = parse_book_entry(value);
    const std::string about = "--to \"" + typed + "\": ";
    if (!named && value.find_first_of("0123456789") == std::string::npos)
        throw failure(exit_usage, about + "neither a number nor an entry as BOOK:ENTRY");
    if (!named)
        return value;
    if (named->book.empty() || named->entry.empty())
        throw failure(exit_usage, about + "a phone book entry is BOOK:ENTRY");
    if (named->book.size() > longest_id || named->entry.size() > longest_id)
        throw failure(exit_usage, about + "BOOK and ENTRY have at most 10 characters");
    return value;
}

std::string group_pair(const std::string& group) {
    return pair("RECEIVERGROUP", receiver_value("--group", group, longest_id));
}

std::string send_time_pair(const std::string& value) {
    return pair("SENDTIME", value);
}

std::vector<book_entry> book_entries(const print_options& options) {
    std::vector<book_entry> entries;
    for (const std::string& receiver : options.to) {
        if (const auto named = parse_book_entry(phone_value(receiver)))
            entries.push_back(*named);
    }
    return entries;
}

} // namespace zerdix::app
