// The settings file on the workstation: text of sections and "key=value" lines.
//
// The file is looked for anew at each call and is the first of these that exists:
//   the file that the environment variable ZERDIX_INI names
//   $XDG_CONFIG_HOME/zerdix/zerdix.ini, with ~/.config as the default of XDG_CONFIG_HOME
//   /etc/zerdix/zerdix.ini
//
// Values are bytes here: nothing is converted.
#ifndef ZERDIX_PLATFORM_PROFILE_H
#define ZERDIX_PLATFORM_PROFILE_H

#include <cstddef>
#include <string>
#include <string_view>

namespace zerdix::platform {

// The file that is read just now; empty when there is none.
std::string profile_path();

// The value of a key, or `fallback` when file, section or key are missing. Section and key are
// compared without regard to case, the first of several equal ones counts. Blanks around a value
// and then one pair of quotes around it are dropped. The result is cut to buffer_size - 1 bytes.
std::string profile_string(std::string_view section, std::string_view key,
                           std::string_view fallback, std::size_t buffer_size);

// Sets a key and leaves every other byte of the file as it is. The file is replaced in one step,
// so that a reader finds the old text or the new one, and keeps its permissions. Without a file one
// is made, with its folder, at the first place of the list above that applies to this user. False
// when nothing was written, also when a part holds a line break or the file is no regular one.
bool write_profile_string(std::string_view section, std::string_view key, std::string_view value);

} // namespace zerdix::platform

#endif
