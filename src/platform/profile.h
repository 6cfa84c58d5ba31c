// SPDX-License-Identifier: MIT
// The settings files on the workstation: text of sections and "key=value" lines.
//
// A key is looked for in these files. The first one that has it counts, with an empty value too:
//   $XDG_CONFIG_HOME/zerdix/zerdix.ini, or in ~/.config without that variable: the user's
//   /etc/zerdix/zerdix.ini: the machine's
//   etc/zerdix/zerdix.ini of the installation or build folder that this library lies in
// Where the environment variable ZERDIX_INI names a file, that file stands in place of all of them.
//
// Files are read anew at each call. One that isn't there is the same as an empty one. Values are
// bytes here: nothing is converted.
#ifndef ZERDIX_PLATFORM_PROFILE_H
#define ZERDIX_PLATFORM_PROFILE_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zerdix::platform {

// The files in the order above. They needn't exist.
std::vector<std::string> profile_files();

// A key as it was found, and the file that has it: its path, and its place in profile_files().
struct profile_entry {
    std::string value;
    std::string file;
    std::size_t place;
};

// Section and key are compared without regard to case, the first of several equal ones in a file
// counts. Blanks around a value and then one pair of quotes around it are dropped.
std::optional<profile_entry> find_profile_entry(std::string_view section, std::string_view key);

// The value of a key, or `fallback` when no file has it, cut to buffer_size - 1 bytes.
std::string profile_string(std::string_view section, std::string_view key,
                           std::string_view fallback, std::size_t buffer_size);

// Sets a key of the user's file, or of the one that ZERDIX_INI names, and leaves every other byte
// of it as it is. The file is replaced in one step, so that a reader finds the old text or the new
// one, and keeps its permissions. Where it isn't there it is made, with its folder. False when
// nothing was written: also when a part holds a line break, the file is no regular one, or the user
// has no home.
bool write_profile_string(std::string_view section, std::string_view key, std::string_view value);

} // namespace zerdix::platform

#endif
