// SPDX-License-Identifier: MIT
// The commands that send something new. Each adds itself to the command line, with a callback that
// does the work and throws failure when it can't.
#ifndef ZERDIX_APP_PRINT_COMMANDS_H
#define ZERDIX_APP_PRINT_COMMANDS_H

#include "arguments/command.h"

namespace zerdix::app {

void add_print_command(cli::command app, char** arguments);
void add_telex_command(cli::command app, char** arguments);

} // namespace zerdix::app

#endif
