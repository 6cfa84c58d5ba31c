// SPDX-License-Identifier: MIT
#include "dialogs/kept_setting.h"

#include "platform/encoding.h"
#include "platform/profile.h"

namespace zerdix::dialogs {

namespace {

constexpr const char* section = "Zerdix";

} // namespace

// The file is UTF-8, where a character may take up to four bytes, and the width counts characters.
std::string kept_text(const std::string& key, std::string_view fallback, std::size_t width) {
    const std::string value =
        platform::profile_string(section, key, platform::cp1252_to_utf8(fallback), 4 * width);
    return platform::utf8_to_cp1252(value).substr(0, width - 1);
}

void keep_text(const std::string& key, std::string_view value) {
    platform::write_profile_string(section, key, platform::cp1252_to_utf8(value));
}

} // namespace zerdix::dialogs
