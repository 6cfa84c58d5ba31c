// SPDX-License-Identifier: MIT
// Where the library writes what went wrong.
#ifndef ZERDIX_APP_SESSION_ERROR_LOG_H
#define ZERDIX_APP_SESSION_ERROR_LOG_H

#include <string>

namespace zerdix::app {

// Path of the error log by the settings; its default is a file in the working folder.
std::string error_log_path();

} // namespace zerdix::app

#endif
