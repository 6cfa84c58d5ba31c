// SPDX-License-Identifier: MIT
#include "books/text_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>

#include "output/failure.h"
#include "platform/encoding.h"

namespace zerdix::app {

namespace {

constexpr std::string_view utf8_mark = "\xef\xbb\xbf";

struct close_file {
    void operator()(std::FILE* file) const {
        if (file != stdin)
            std::fclose(file);
    }
};
using input_file = std::unique_ptr<std::FILE, close_file>;

input_file open_input(const std::string& path) {
    if (path == "-")
        return input_file{stdin};
    if (std::error_code ignored; std::filesystem::is_directory(path, ignored))
        throw failure(exit_no_input, path + " is a folder");
    input_file file{std::fopen(path.c_str(), "rb")};
    if (!file)
        throw failure(exit_no_input, path + " can't be opened: " + std::strerror(errno));
    return file;
}

void refuse_utf16(const std::string& path, std::string_view bytes) {
    if (bytes.starts_with("\xff\xfe") || bytes.starts_with("\xfe\xff"))
        throw failure(exit_bad_data, path + " is in UTF-16; save it as UTF-8 or Windows-1252");
}

std::vector<std::string_view> split(std::string_view bytes) {
    std::vector<std::string_view> lines;
    while (!bytes.empty()) {
        const auto end = std::min(bytes.find('\n'), bytes.size());
        std::string_view line = bytes.substr(0, end);
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        lines.push_back(line);
    }
    return lines;
}

bool beyond_ascii(std::string_view bytes) {
    return std::any_of(bytes.begin(), bytes.end(),
                       [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

text_line from_utf8(std::string_view line) {
    text_line result{platform::utf8_to_cp1252(line), false};
    result.has_unknown_characters = platform::cp1252_to_utf8(result.text) != line;
    return result;
}

void require_utf8(const std::string& path, const std::vector<std::string_view>& lines) {
    const auto bad = std::find_if_not(lines.begin(), lines.end(), is_utf8);
    if (bad != lines.end())
        throw failure(exit_bad_data, path + ':' + std::to_string(bad - lines.begin() + 1) +
                                         ": the line isn't UTF-8");
}

// How many bytes follow the first one of a character, or -1 when none begins with it.
int followers(unsigned char first) {
    if (first < 0x80)
        return 0;
    if (first >= 0xC2 && first <= 0xDF)
        return 1;
    if (first >= 0xE0 && first <= 0xEF)
        return 2;
    return first >= 0xF0 && first <= 0xF4 ? 3 : -1;
}

// Forms that are too long, halves of a pair, and what lies beyond the last character.
bool is_forbidden(unsigned char first, unsigned char second) {
    return (first == 0xE0 && second < 0xA0) || (first == 0xED && second > 0x9F) ||
           (first == 0xF0 && second < 0x90) || (first == 0xF4 && second > 0x8F);
}

} // namespace

bool is_utf8(std::string_view bytes) {
    for (std::size_t i = 0; i < bytes.size();) {
        const auto first = static_cast<unsigned char>(bytes[i]);
        const int more = followers(first);
        if (more < 0 || bytes.size() - i <= static_cast<std::size_t>(more))
            return false;
        for (int n = 1; n <= more; ++n) {
            if ((bytes[i + static_cast<std::size_t>(n)] & 0xC0) != 0x80)
                return false;
        }
        if (more > 0 && is_forbidden(first, static_cast<unsigned char>(bytes[i + 1])))
            return false;
        i += static_cast<std::size_t>(more) + 1;
    }
    return true;
}

// What was read before an error isn't the file: its last line may be half a line.
std::string read_whole_file(const std::string& path) {
    const input_file file = open_input(path);
    std::string bytes;
    std::array<char, 16384> piece;
    while (const std::size_t got = std::fread(piece.data(), 1, piece.size(), file.get()))
        bytes.append(piece.data(), got);
    if (std::ferror(file.get()) != 0)
        throw failure(exit_no_input, (path == "-" ? std::string("standard input") : path) +
                                         " can't be read: " + std::strerror(errno));
    return bytes;
}

text_lines read_text_file(const std::string& path, encoding told) {
    const std::string bytes = read_whole_file(path);
    refuse_utf16(path, bytes);
    std::string_view text = bytes;
    const bool marked = text.starts_with(utf8_mark) && told != encoding::windows_1252;
    if (marked)
        text.remove_prefix(utf8_mark.size());
    const auto lines = split(text);
    text_lines result;
    if (told == encoding::utf_8 || marked)
        require_utf8(path, lines);
    if (told == encoding::utf_8 || marked ||
        (told == encoding::automatic && beyond_ascii(text) && is_utf8(text)))
        result.found = encoding::utf_8;
    for (const std::string_view line : lines)
        result.lines.push_back(result.found == encoding::utf_8
                                   ? from_utf8(line)
                                   : text_line{std::string(line), false});
    return result;
}

} // namespace zerdix::app
