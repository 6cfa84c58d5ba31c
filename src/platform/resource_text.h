// SPDX-License-Identifier: MIT
// The texts of a resource file, as a translator writes them, in UTF-8:
//
//     ; a comment, a line of its own
//     [strings]
//     525 = Benachrichtigung
//     [dialog 2300]
//     caption = Dokument senden
//     2307 = &Normaltarif
//
// In a value "\n" is a line break and "\\" a backslash. Blanks around it are dropped, and then one
// pair of double quotes around it. An empty value is the same as none.
#ifndef ZERDIX_PLATFORM_RESOURCE_TEXT_H
#define ZERDIX_PLATFORM_RESOURCE_TEXT_H

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace zerdix::platform {

// Windows-1252.
struct resource_texts {
    std::map<std::int32_t, std::string> strings;
    // Of a control in a dialog; control 0 is the dialog itself.
    std::map<std::pair<std::int32_t, std::int32_t>, std::string> captions;
};

struct parsed_resources {
    std::optional<resource_texts> texts;
    std::int32_t bad_line = 0; // the first that isn't as told above, or gives a number twice
};

parsed_resources parse_resources(std::string_view utf8);

} // namespace zerdix::platform

#endif
