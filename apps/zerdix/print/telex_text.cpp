// SPDX-License-Identifier: MIT
#include "print/telex_text.h"

#include <limits>

#include "books/text_file.h"
#include "output/failure.h"
#include "output/progress.h"
#include "platform/encoding.h"

namespace zerdix::app {

namespace {

constexpr std::size_t control_record_room = 300; // what goes ahead of the text
constexpr std::size_t longest_text =
    static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max()) - control_record_room;

// Lines that have something in common: how many, and which was the first.
struct line_count {
    int lines = 0;
    int first = 0;

    void add(int line) {
        first = lines == 0 ? line : first;
        ++lines;
    }
    std::string words() const {
        return lines == 1 ? "line " + std::to_string(first)
                          : counted(lines, "line") + " from line " + std::to_string(first) + " on";
    }
};

std::string_view take_line(std::string_view& rest) {
    const std::size_t end = rest.find('\n');
    std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

std::string_view without_mark(std::string_view utf8) {
    constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
    return utf8.starts_with(byte_order_mark) ? utf8.substr(byte_order_mark.size()) : utf8;
}

} // namespace

telex_text make_telex(std::string_view file) {
    const bool converts = !is_utf8(file);
    const std::string utf8 = converts ? platform::cp1252_to_utf8(file) : std::string(file);
    std::string_view rest = without_mark(utf8);
    if (rest.find_first_not_of(" \t\r\n") == std::string_view::npos)
        throw failure(exit_bad_data, "is empty");
    if (rest.starts_with("%PDF-") || rest.find('\0') != std::string_view::npos)
        throw failure(exit_bad_data, "isn't a text");
    telex_text telex{platform::utf8_to_cp1252(rest), 0, {}};
    if (telex.text.size() > longest_text)
        throw failure(exit_bad_data, "is longer than a telex can be");
    if (converts)
        telex.remarks.push_back("the text isn't UTF-8 and is taken for Windows-1252");
    line_count wide, strange;
    while (!rest.empty()) {
        const std::string_view line = take_line(rest);
        const std::string sent = platform::utf8_to_cp1252(line);
        ++telex.lines;
        if (sent.size() > telex_line)
            wide.add(telex.lines);
        if (platform::cp1252_to_utf8(sent) != line)
            strange.add(telex.lines);
    }
    if (strange.lines > 0)
        telex.remarks.push_back("characters that aren't in Windows-1252 become \"?\": " +
                                strange.words());
    if (wide.lines > 0)
        telex.remarks.push_back("longer than the 69 characters of a telex line, and sent as it "
                                "stands: " +
                                wide.words());
    return telex;
}

} // namespace zerdix::app
