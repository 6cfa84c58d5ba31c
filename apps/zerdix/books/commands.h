// SPDX-License-Identifier: MIT
// The commands on phone books, their entries and recipient groups.
#ifndef ZERDIX_APP_BOOKS_COMMANDS_H
#define ZERDIX_APP_BOOKS_COMMANDS_H

namespace CLI {
class App;
}

namespace zerdix::app {

void add_book_commands(CLI::App& app);
void add_entry_commands(CLI::App& app);
void add_group_commands(CLI::App& app);

} // namespace zerdix::app

#endif
