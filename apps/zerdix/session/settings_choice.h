// SPDX-License-Identifier: MIT
// The option --settings: a settings file for this one run.
#ifndef ZERDIX_APP_SESSION_SETTINGS_CHOICE_H
#define ZERDIX_APP_SESSION_SETTINGS_CHOICE_H

#include <string>

namespace zerdix::app {

// Settings are read as early as when the library is loaded. So this starts the program anew, with
// `arguments` and with ZERDIX_INI naming the file, unless it does already. Throws failure when the
// file can't be read.
void use_settings(const std::string& file, char** arguments);

} // namespace zerdix::app

#endif
