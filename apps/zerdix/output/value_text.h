// SPDX-License-Identifier: MIT
// Converts texts from the command line to the fields of the server, and back for a reader.
#ifndef ZERDIX_APP_OUTPUT_VALUE_TEXT_H
#define ZERDIX_APP_OUTPUT_VALUE_TEXT_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include <zerdix/text.h>

namespace zerdix::app {

// One sentence on standard error that the user should know and that stops nothing.
void note(const std::string& sentence);

// What goes into a field of `width` characters: Windows-1252. What is too long is cut, and what
// Windows-1252 doesn't have becomes "?"; a note says so, with `what` as its subject: "the comment".
std::string field_text(const std::string& what, const std::string& utf8, std::size_t width);

// A field or a line of the server's in UTF-8. Control characters become "?", so that nothing in it
// can steer a terminal.
std::string shown(std::string_view cp1252);

template <std::size_t N>
std::string shown(const text<N>& field) {
    return shown(field.view());
}

// Seconds since 1970 UTC as ISO 8601 in this process's time zone; empty for 0.
std::string iso_time(std::int32_t seconds);

} // namespace zerdix::app

#endif
