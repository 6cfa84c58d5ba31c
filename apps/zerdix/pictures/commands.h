// SPDX-License-Identifier: MIT
// The command that fetches a page as a picture.
#ifndef ZERDIX_APP_PICTURES_COMMANDS_H
#define ZERDIX_APP_PICTURES_COMMANDS_H

#include "arguments/command.h"

namespace zerdix::app {

void add_page_command(cli::command app, char** arguments);

} // namespace zerdix::app

#endif
