// SPDX-License-Identifier: MIT
// The command that prints a completion script.
#ifndef ZERDIX_APP_COMPLETION_COMMANDS_H
#define ZERDIX_APP_COMPLETION_COMMANDS_H

namespace CLI {
class App;
}

namespace zerdix::app {

void add_completion_command(CLI::App& app);

} // namespace zerdix::app

#endif
