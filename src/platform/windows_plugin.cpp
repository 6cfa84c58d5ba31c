// SPDX-License-Identifier: MIT
#include "platform/windows_plugin.h"

#include <dlfcn.h>

#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "platform/own_folder.h"

namespace zerdix::platform {

namespace {

constexpr const char* file_name = "libzerdix-dialogs-qt.so";

bool is_set(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr && *value != '\0';
}

std::vector<std::string> candidates() {
    // A program that runs with rights of its own takes no code from its user.
    if (const char* named = secure_getenv("ZERDIX_DIALOGS"); named != nullptr && *named != '\0')
        return {named};
    const auto beside = own_folder();
    return {beside / "zerdix" / file_name, beside / file_name};
}

} // namespace

// Spares a program without a screen the toolkit.
bool windows_are_wanted() {
    const char* windows = std::getenv("ZERDIX_DIALOGS");
    if (windows != nullptr && std::string_view(windows) == "none")
        return false;
    return is_set("DISPLAY") || is_set("WAYLAND_DISPLAY") || is_set("QT_QPA_PLATFORM");
}

// Never unloaded: the toolkit keeps state until the process ends.
void* find_in_windows_plugin(const char* symbol) {
    for (const auto& path : candidates()) {
        if (path.front() != '/')
            continue;
        void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
        void* found = library != nullptr ? dlsym(library, symbol) : nullptr;
        if (found != nullptr)
            return found;
    }
    return nullptr;
}

} // namespace zerdix::platform
