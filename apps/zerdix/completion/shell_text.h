// SPDX-License-Identifier: MIT
// Pieces that the scripts of several shells share.
#ifndef ZERDIX_APP_COMPLETION_SHELL_TEXT_H
#define ZERDIX_APP_COMPLETION_SHELL_TEXT_H

#include <string>
#include <vector>

#include "completion/command_shape.h"

namespace zerdix::app {

std::string joined(const std::vector<std::string>& words, const std::string& between);

// In single quotes, for bash and zsh, or for fish.
std::string quoted(const std::string& text);
std::string fish_quoted(const std::string& text);

// A branch of a case statement of bash and zsh: these words lead to this command.
std::string case_branch(const std::vector<std::string>& words, const std::string& command);

// The whole statement that leads from "command word" in `$1 $2` to the command below it, in the
// variable `at`; anything else leads to a failure.
std::string step_function(const command_shape& program);

// What a value can be, in one word: "<file>", "fine|normal", or "<text>".
std::string value_word(const value_shape& value);

// The function that puts the value_word() of the option "$2" of the command "$1" into `value`, and
// fails for an option without a value.
std::string value_function(const command_shape& program);

} // namespace zerdix::app

#endif
