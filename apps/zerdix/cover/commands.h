// SPDX-License-Identifier: MIT
// The commands on cover pages and letterheads.
#ifndef ZERDIX_APP_COVER_COMMANDS_H
#define ZERDIX_APP_COVER_COMMANDS_H

#include "arguments/command.h"

namespace zerdix::app {

void add_cover_commands(cli::command app);
void add_letterhead_commands(cli::command app);

} // namespace zerdix::app

#endif
