// SPDX-License-Identifier: MIT
// Tells whether a text holds another one, whatever the case of letters.
#ifndef ZERDIX_APP_BOOKS_TEXT_MATCH_H
#define ZERDIX_APP_BOOKS_TEXT_MATCH_H

#include <string>
#include <string_view>

namespace zerdix::app {

// Windows-1252, letters in lower case.
std::string folded(std::string_view text);

// `part` is folded already.
bool holds(std::string_view text, const std::string& part);

} // namespace zerdix::app

#endif
