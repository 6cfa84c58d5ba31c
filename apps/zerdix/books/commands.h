// SPDX-License-Identifier: MIT
// The commands on phone books, their entries and recipient groups.
#ifndef ZERDIX_APP_BOOKS_COMMANDS_H
#define ZERDIX_APP_BOOKS_COMMANDS_H

#include "arguments/command.h"

namespace zerdix::app {

void add_book_commands(cli::command app);
void add_entry_commands(cli::command app);
void add_group_commands(cli::command app);

} // namespace zerdix::app

#endif
