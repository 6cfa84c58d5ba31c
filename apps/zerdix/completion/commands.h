// SPDX-License-Identifier: MIT
// The command that prints a completion script.
#ifndef ZERDIX_APP_COMPLETION_COMMANDS_H
#define ZERDIX_APP_COMPLETION_COMMANDS_H

#include "arguments/command.h"

namespace zerdix::app {

void add_completion_command(cli::command app);

} // namespace zerdix::app

#endif
