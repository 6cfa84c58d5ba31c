// SPDX-License-Identifier: MIT
// Completion scripts of three shells, each as one text. They understand aliases of commands, and
// offer a command under its own name alone.
#ifndef ZERDIX_APP_COMPLETION_SCRIPTS_H
#define ZERDIX_APP_COMPLETION_SCRIPTS_H

#include <string>

#include "completion/command_shape.h"

namespace zerdix::app {

std::string bash_script(const command_shape& program);
std::string zsh_script(const command_shape& program);
std::string fish_script(const command_shape& program);

} // namespace zerdix::app

#endif
