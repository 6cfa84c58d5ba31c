// SPDX-License-Identifier: MIT
// The library with the dialogs' windows, which is loaded when it is needed first.
//
// Looked for under the name libzerdix-dialogs-qt.so: at the path that ZERDIX_DIALOGS names ("none"
// for no windows at all), in the folder "zerdix" beside the shared library, and beside it.
#ifndef ZERDIX_PLATFORM_WINDOWS_PLUGIN_H
#define ZERDIX_PLATFORM_WINDOWS_PLUGIN_H

namespace zerdix::platform {

// Whether there is any use in looking for windows: a screen is named, and nobody has said that
// there are to be none. The screen may still turn out not to be there.
bool windows_are_wanted();

// What that library exports under this name; null when there is no such library, or no such name
// in it. It stays loaded until the process ends.
void* find_in_windows_plugin(const char* symbol);

} // namespace zerdix::platform

#endif
