// SPDX-License-Identifier: MIT
// Options whose absence means something else than an empty value.
#ifndef ZERDIX_APP_ARGUMENTS_OPTIONS_H
#define ZERDIX_APP_ARGUMENTS_OPTIONS_H

#include <optional>
#include <string>

#include <CLI/CLI.hpp>

namespace zerdix::app {

// A text that may be given as empty, which clears the field that it stands for.
inline CLI::Option* add_text(CLI::App& command, const char* name, std::optional<std::string>& place,
                             const char* description, const char* shape = "TEXT") {
    return command
        .add_option_function<std::string>(
            name, [&place](const std::string& value) { place = value; }, description)
        ->option_text(shape);
}

// The same for a number from `least` to `most`.
inline CLI::Option* add_number(CLI::App& command, const char* name, std::optional<int>& place,
                               const char* description, int least, int most) {
    return command
        .add_option_function<int>(
            name, [&place](const int& value) { place = value; }, description)
        ->check(CLI::Range(least, most).description(""))
        ->option_text("N");
}

} // namespace zerdix::app

#endif
