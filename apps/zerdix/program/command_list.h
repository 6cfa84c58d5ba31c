// SPDX-License-Identifier: MIT
// All commands of zerdix.
#ifndef ZERDIX_APP_PROGRAM_COMMAND_LIST_H
#define ZERDIX_APP_PROGRAM_COMMAND_LIST_H

#include "arguments/command_line.h"
#include "completion/command_shape.h"

namespace zerdix::app {

// All of them, in the order in which the help names them. `arguments` are those of the program.
cli::command_line zerdix_command_line(char** arguments);

// The same as data.
command_shape whole_command_line();

} // namespace zerdix::app

#endif
