// SPDX-License-Identifier: MIT
// Functions that the writers of files share.
#ifndef ZERDIX_APP_OUTPUT_OUTPUT_FILE_H
#define ZERDIX_APP_OUTPUT_OUTPUT_FILE_H

#include <string>

namespace zerdix::app {

[[noreturn]] void not_written(const std::string& path, const std::string& reason);

// Removes a file that couldn't be written whole; what isn't a regular file stays.
void take_away(const std::string& path);

} // namespace zerdix::app

#endif
