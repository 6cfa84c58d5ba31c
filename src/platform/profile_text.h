// SPDX-License-Identifier: MIT
// Finding and changing a key in the text of a settings file.
#ifndef ZERDIX_PLATFORM_PROFILE_TEXT_H
#define ZERDIX_PLATFORM_PROFILE_TEXT_H

#include <optional>
#include <string>
#include <string_view>

namespace zerdix::platform {

// The value without the blanks and the pair of quotes around it. A view into `text`.
std::optional<std::string_view> find_value(std::string_view text, std::string_view section,
                                           std::string_view key);

// `text` with the key set. A new key goes behind the last line of its section that isn't blank, a
// new section to the end. A value that the reader would trim is written in quotes.
std::string with_value(std::string_view text, std::string_view section, std::string_view key,
                       std::string_view value);

} // namespace zerdix::platform

#endif
