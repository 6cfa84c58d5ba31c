// SPDX-License-Identifier: MIT
// The folder that this code lies in, by which files are found that were installed or built with it.
#ifndef ZERDIX_PLATFORM_OWN_FOLDER_H
#define ZERDIX_PLATFORM_OWN_FOLDER_H

#include <filesystem>

namespace zerdix::platform {

// The folder of the shared library or program that holds this code, symbolic links resolved. Empty
// when it can't be known.
std::filesystem::path own_folder();

} // namespace zerdix::platform

#endif
