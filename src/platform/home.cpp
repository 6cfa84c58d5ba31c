// SPDX-License-Identifier: MIT
#include "platform/home.h"

#include <array>
#include <cstdlib>

#include <pwd.h>
#include <unistd.h>

namespace zerdix::platform {
namespace {

std::string known_to_the_system() {
    passwd entry = {};
    passwd* found = nullptr;
    std::array<char, 4096> texts;
    if (::getpwuid_r(::getuid(), &entry, texts.data(), texts.size(), &found) != 0 ||
        found == nullptr || found->pw_dir == nullptr)
        return "";
    return found->pw_dir;
}

} // namespace

std::string home_folder() {
    const char* named = std::getenv("HOME");
    const std::string home = named != nullptr && *named != '\0' ? named : known_to_the_system();
    return home.starts_with('/') ? home : "";
}

std::string from_home(std::string_view path) {
    const std::string home = begins_at_home(path) ? home_folder() : "";
    return home.empty() ? std::string(path) : home + std::string(path.substr(1));
}

} // namespace zerdix::platform
