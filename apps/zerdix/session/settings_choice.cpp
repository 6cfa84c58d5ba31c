// SPDX-License-Identifier: MIT
#include "session/settings_choice.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <unistd.h>

#include "output/failure.h"

namespace zerdix::app {

void use_settings(const std::string& file, char** arguments) {
    const char* current = std::getenv("ZERDIX_INI");
    if (file.empty() || (current != nullptr && file == current))
        return;
    if (std::filesystem::is_directory(file))
        throw failure(exit_no_input, "--settings: " + file + " is a folder");
    if (::access(file.c_str(), R_OK) != 0)
        throw failure(exit_no_input,
                      "--settings: " + file + " can't be read: " + std::strerror(errno));
    ::setenv("ZERDIX_INI", file.c_str(), 1);
    ::execv("/proc/self/exe", arguments);
    throw failure(exit_internal, std::string("--settings: ") + std::strerror(errno));
}

} // namespace zerdix::app
