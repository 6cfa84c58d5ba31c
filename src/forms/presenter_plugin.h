// SPDX-License-Identifier: MIT
// The entry by which a library of its own hands over a presenter with real windows
// (platform/windows_plugin.h says where that library is).
#ifndef ZERDIX_FORMS_PRESENTER_PLUGIN_H
#define ZERDIX_FORMS_PRESENTER_PLUGIN_H

#include <cstdint>

#include "forms/presenter.h"

namespace zerdix::forms {

// Grows with each change to presenter.h, dialog_view.h, dialog_template.h or tree_list.h.
constexpr std::int32_t presenter_interface = 3;

// What the library exports under the name "zerdix_presenter": its presenter, which lives as long as
// the process, or null when there is no display, when the thread isn't the one that may show
// windows, or when the interface isn't the one it was built for.
using presenter_entry = presenter* (*)(std::int32_t interface);

// Loads the library if windows are wanted, or tries again where there was no display before. Null
// when there are no windows.
presenter* load_presenter();

} // namespace zerdix::forms

#endif
