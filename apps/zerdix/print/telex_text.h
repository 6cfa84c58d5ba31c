// SPDX-License-Identifier: MIT
// The text of a telex, made of the bytes of a file.
#ifndef ZERDIX_APP_PRINT_TELEX_TEXT_H
#define ZERDIX_APP_PRINT_TELEX_TEXT_H

#include <string>
#include <string_view>
#include <vector>

namespace zerdix::app {

constexpr std::size_t telex_line = 69; // characters

struct telex_text {
    std::string text; // Windows-1252
    int lines;
    std::vector<std::string> remarks; // what its sender should know, a sentence each
};

// The telex of a file in UTF-8, or in Windows-1252 where its bytes aren't UTF-8. Throws failure for
// a text without anything to send, without naming it.
telex_text make_telex(std::string_view file);

} // namespace zerdix::app

#endif
