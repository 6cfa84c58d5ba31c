// SPDX-License-Identifier: MIT
// Reads passwords, but never from the command line, where others could read them.
#ifndef ZERDIX_APP_SESSION_PASSWORD_H
#define ZERDIX_APP_SESSION_PASSWORD_H

#include <string>

namespace zerdix::app {

// The first line of a file, without its line end; "-" is standard input. Throws failure when it
// can't be read.
std::string password_from_file(const std::string& path);

// Asks on the terminal, without an echo. Throws failure when there is no terminal, with what to do
// instead.
std::string ask_password(const std::string& prompt);

// The password for logging on, UTF-8: from `file` when that is named, else of the settings
// (Password or PasswordFile), else asked for. Throws failure when the settings hold a password
// and others may read them.
std::string login_password(const std::string& file, const std::string& user);

// The settings file that gives one, so that nobody is asked; empty when none does.
std::string settings_with_password();

} // namespace zerdix::app

#endif
