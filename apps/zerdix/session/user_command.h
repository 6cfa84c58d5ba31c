// SPDX-License-Identifier: MIT
// Commands for a user who is logged on: their common options, and the way they run.
#ifndef ZERDIX_APP_SESSION_USER_COMMAND_H
#define ZERDIX_APP_SESSION_USER_COMMAND_H

#include <functional>
#include <memory>
#include <string>

#include "arguments/command.h"
#include "session/user_session.h"

namespace zerdix::app {

// The arguments of the program, for use_settings(). Set once, by main.
void set_program_arguments(char** arguments);

// Adds a command with the options that all of them share (--user, --host, --password-file,
// --settings, --json, --quiet). It runs `work` logged on as that user. What is wrong with the
// arguments is told before that: `check`, when given, runs first and may throw failure. `shared`
// is where the options are put, for a command that wants a second name for one of them.
cli::command add_user_command(cli::command parent, const char* name, const char* description,
                              std::function<void(user_session&)> work,
                              std::function<void()> check = nullptr,
                              std::shared_ptr<session_options> shared = nullptr);

} // namespace zerdix::app

#endif
