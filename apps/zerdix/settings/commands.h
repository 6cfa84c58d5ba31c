// SPDX-License-Identifier: MIT
// The commands on users, on what a user has set on the server, and on devices and the board.
#ifndef ZERDIX_APP_SETTINGS_COMMANDS_H
#define ZERDIX_APP_SETTINGS_COMMANDS_H

namespace CLI {
class App;
}

namespace zerdix::app {

void add_user_commands(CLI::App& app);
void add_printer_commands(CLI::App& app);
void add_scanner_commands(CLI::App& app);
void add_preference_commands(CLI::App& app);
void add_replacement_commands(CLI::App& app);
void add_password_command(CLI::App& app);
void add_signature_commands(CLI::App& app);
void add_board_commands(CLI::App& app);

} // namespace zerdix::app

#endif
