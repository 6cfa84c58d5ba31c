// SPDX-License-Identifier: MIT
// The commands on users, on what a user has set on the server, and on devices and the board.
#ifndef ZERDIX_APP_SETTINGS_COMMANDS_H
#define ZERDIX_APP_SETTINGS_COMMANDS_H

#include "arguments/command.h"

namespace zerdix::app {

void add_user_commands(cli::command app);
void add_printer_commands(cli::command app);
void add_scanner_commands(cli::command app);
void add_preference_commands(cli::command app);
void add_replacement_commands(cli::command app);
void add_password_command(cli::command app);
void add_signature_commands(cli::command app);
void add_board_commands(cli::command app);

} // namespace zerdix::app

#endif
