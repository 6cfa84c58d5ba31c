// SPDX-License-Identifier: MIT
// All commands of zerdix.
#ifndef ZERDIX_APP_PROGRAM_COMMAND_LIST_H
#define ZERDIX_APP_PROGRAM_COMMAND_LIST_H

#include "completion/command_shape.h"

namespace zerdix::app {

// The program's name, version, help and footer.
void describe(CLI::App& app);

// All of them, in the order in which the help names them.
void add_commands(CLI::App& app, char** arguments);

// The whole command line as data.
command_shape whole_command_line();

} // namespace zerdix::app

#endif
