// SPDX-License-Identifier: MIT
// The commands on cover pages and letterheads.
#ifndef ZERDIX_APP_COVER_COMMANDS_H
#define ZERDIX_APP_COVER_COMMANDS_H

namespace CLI {
class App;
}

namespace zerdix::app {

void add_cover_commands(CLI::App& app);
void add_letterhead_commands(CLI::App& app);

} // namespace zerdix::app

#endif
