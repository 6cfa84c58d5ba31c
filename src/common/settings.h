// SPDX-License-Identifier: MIT
// The keys of section "Zerdix" of the settings file, with their defaults and widths. Each call
// reads the file anew, and a missing file is the same as one of defaults.
#ifndef ZERDIX_COMMON_SETTINGS_H
#define ZERDIX_COMMON_SETTINGS_H

#include <cstdint>
#include <string>

#include <zerdix/text.h>

namespace zerdix::common {

// Windows-1252, at most 29 characters.
std::string setting_user();
std::string setting_host();

// The number at the front of the value's first 7 characters, 0 where there is none. The caller
// checks that it is in range.
std::int32_t setting_max_page_block_len();

// The first two characters of the switch.
std::string setting_trace();

// A file that the tracer writes: the path of its own setting, else its usual name in the folder of
// LogDir, else that name. A folder in the user's settings goes before a path in the machine's. At
// most 259 bytes, those of the file system, not converted.
struct log_file {
    std::string path;
    bool in_home; // set with "~/" at its head, which stands for the user's home
};
log_file setting_trace_file();
log_file setting_error_file();

// The line that names language, help file and resource library with commas between them.
// Windows-1252; each is cut to 20 characters. There is no help that would open the help file.
struct language_setting {
    str20 language;
    str20 library;
};
language_setting setting_language();

// The first two characters of the form's size.
std::string setting_dialog_size();

// Numbers are 0 where none stands; the face is Windows-1252, of at most 79 characters.
struct font_setting {
    std::int32_t height;
    std::string face;
    std::int32_t weight;
};
font_setting setting_list_font();
font_setting setting_text_font();

} // namespace zerdix::common

#endif
