// SPDX-License-Identifier: MIT
// The command line as data: what commands, options and arguments there are. Completion scripts are
// written from it, and the man pages are held against it.
#ifndef ZERDIX_APP_COMPLETION_COMMAND_SHAPE_H
#define ZERDIX_APP_COMPLETION_COMMAND_SHAPE_H

#include <string>
#include <vector>

#include "arguments/command.h"

namespace zerdix::app {

// What stands for a value.
struct value_shape {
    bool is_file = false;
    std::vector<std::string> words; // when only these will do
};

struct option_shape {
    std::vector<std::string> names; // with their dashes
    std::string description;
    bool takes_value;
    value_shape value;
};

struct argument_shape {
    std::string name;
    bool repeats;
    value_shape value;
};

struct command_shape {
    std::vector<std::string> names; // aliases behind the first
    std::string description;
    std::vector<option_shape> options;
    std::vector<argument_shape> arguments;
    std::vector<command_shape> commands;
};

command_shape shape_of(cli::command command);

// A command with its full name, such as "zerdix doc list".
struct named_command {
    std::string name;
    const command_shape* shape;
};

// All of them below and with the first, which must outlive the list.
std::vector<named_command> all_commands(const command_shape& first);

// The full names under which it can be typed below `parent`, by its own name and its aliases.
std::vector<std::string> spellings(const std::string& parent, const command_shape& command);

} // namespace zerdix::app

#endif
