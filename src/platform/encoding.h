// SPDX-License-Identifier: MIT
// Text inside is Windows-1252, text at the edges towards a person is UTF-8.
#ifndef ZERDIX_PLATFORM_ENCODING_H
#define ZERDIX_PLATFORM_ENCODING_H

#include <string>
#include <string_view>

namespace zerdix::platform {

// Both never fail: a character that has no counterpart, or is damaged,
// becomes one "?".
std::string utf8_to_cp1252(std::string_view text);
std::string cp1252_to_utf8(std::string_view text);

} // namespace zerdix::platform

#endif
