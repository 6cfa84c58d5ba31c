// The presenter with real windows, in a library of its own that is loaded when it is needed first.
//
// Looked for under the name libzerdix-dialogs-qt.so: at the path that ZERDIX_DIALOGS names ("none"
// for no windows at all), in the folder "zerdix" beside the shared library, beside it, and where
// the build or the installation put it.
#ifndef ZERDIX_PLATFORM_DIALOG_PRESENTER_PLUGIN_H
#define ZERDIX_PLATFORM_DIALOG_PRESENTER_PLUGIN_H

#include <cstdint>

#include "platform/dialog/presenter.h"

namespace zerdix::platform {

// Grows with each change to presenter.h, dialog_view.h, dialog_template.h or tree_list.h.
constexpr std::int32_t presenter_interface = 3;

// What the library exports under the name "zerdix_presenter": its presenter, which lives as long as
// the process, or null when there is no display, when the thread isn't the one that may show
// windows, or when the interface isn't the one it was built for.
using presenter_entry = presenter* (*)(std::int32_t interface);

// Whether there is any use in looking for windows: a screen is named, and nobody has said that
// there are to be none. The screen may still turn out not to be there.
bool windows_are_wanted();

// Loads it, or tries again where there was no display before. Null when there are no windows.
presenter* load_presenter();

} // namespace zerdix::platform

#endif
