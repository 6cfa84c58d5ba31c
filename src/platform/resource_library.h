// SPDX-License-Identifier: MIT
// Resource libraries: files of texts and captions in one language (resource_text.h), of at most
// 1 MiB.
//
// A bare name is looked for in these folders, and the first file of that name is taken:
//   the folder that the environment variable ZERDIX_RESOURCES names
//   the folders of the settings files (profile.h)
//   ../share/zerdix, seen from the folder that this library lies in, and the like where libraries
//   are installed to deeper folders
//   the folder that it was built to be installed to
// A name with a "/" is a path; "~/" at its head is the user's home.
#ifndef ZERDIX_PLATFORM_RESOURCE_LIBRARY_H
#define ZERDIX_PLATFORM_RESOURCE_LIBRARY_H

#include <cstdint>
#include <string>

namespace zerdix::platform {

// A loaded library, or below 32 the reason why there is none.
using library_handle = std::uintptr_t;

constexpr library_handle file_not_found = 2;
constexpr library_handle bad_format = 11;
constexpr library_handle first_good_handle = 32;

// The name is Windows-1252.
library_handle LoadLibraryA(const char* name);
// 1, or 0 for a handle that isn't one.
std::int32_t FreeLibrary(library_handle library);

// Null when the library lacks it, or is none. Windows-1252, good until the library is freed.
const std::string* library_string(library_handle library, std::int32_t number);
// Of a control, or with 0 of the dialog itself.
const std::string* library_caption(library_handle library, std::int32_t dialog,
                                   std::int32_t control);

// For whoever has to mend a file that can't be loaded: its path and the line that is wrong. Line 0:
// it isn't a text file of a sensible size. The path is empty when there is no such file.
struct library_fault {
    std::string path;
    std::int32_t line = 0;
};
library_fault find_library_fault(const char* name);

} // namespace zerdix::platform

#endif
