// SPDX-License-Identifier: MIT
// The user's home folder, and paths that begin there.
#ifndef ZERDIX_PLATFORM_HOME_H
#define ZERDIX_PLATFORM_HOME_H

#include <string>
#include <string_view>

namespace zerdix::platform {

// The environment variable HOME, else what the system knows of the user. Empty when neither is an
// absolute path.
std::string home_folder();

constexpr bool begins_at_home(std::string_view path) {
    return path.starts_with("~/");
}

// The path with the home folder in place of a "~" at its head. Every other path stays as it is, and
// so does each where there is no home.
std::string from_home(std::string_view path);

} // namespace zerdix::platform

#endif
