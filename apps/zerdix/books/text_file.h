// SPDX-License-Identifier: MIT
// A text file of unknown origin as lines of Windows-1252.
#ifndef ZERDIX_APP_BOOKS_TEXT_FILE_H
#define ZERDIX_APP_BOOKS_TEXT_FILE_H

#include <string>
#include <string_view>
#include <vector>

namespace zerdix::app {

enum class encoding { automatic, windows_1252, utf_8 };

struct text_line {
    std::string text;                    // without its line end, a carriage return included
    bool has_unknown_characters = false; // characters that aren't in Windows-1252 became "?"
};

struct text_lines {
    std::vector<text_line> lines;
    encoding found = encoding::windows_1252;
};

// The bytes of a file, "-" is standard input. Throws failure when they can't be read to the end.
std::string read_whole_file(const std::string& path);

// Reads a file in that way. Where the encoding isn't told, a file whose bytes beyond ASCII are all
// UTF-8 is taken for that. Throws failure also when it is UTF-16, and when it isn't the UTF-8 that
// it should be; that with the number of the line.
text_lines read_text_file(const std::string& path, encoding told);

bool is_utf8(std::string_view bytes);

} // namespace zerdix::app

#endif
