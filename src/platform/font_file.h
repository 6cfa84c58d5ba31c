// SPDX-License-Identifier: MIT
// Finds the file of a face by way of fontconfig.
#ifndef ZERDIX_PLATFORM_FONT_FILE_H
#define ZERDIX_PLATFORM_FONT_FILE_H

#include <cstdint>
#include <optional>
#include <string>

namespace zerdix::platform {

struct font_file {
    std::string path;
    int index = 0; // of the face in the file

    bool operator==(const font_file&) const = default;
};

// `face` is Windows-1252; `weight` as in font_request. None when the system has no outline font.
std::optional<font_file> find_font_file(const std::string& face, std::int32_t weight);

} // namespace zerdix::platform

#endif
