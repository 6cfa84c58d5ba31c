// SPDX-License-Identifier: MIT
#include "forms/presenter_plugin.h"

#include <zerdix/dialogs.h>

#include "platform/windows_plugin.h"

namespace zerdix::forms {

presenter* load_presenter() {
    if (!platform::windows_are_wanted())
        return nullptr;
    const auto entry =
        reinterpret_cast<presenter_entry>(platform::find_in_windows_plugin("zerdix_presenter"));
    return entry != nullptr ? entry(presenter_interface) : nullptr;
}

} // namespace zerdix::forms

bool DialogsMayOpen() {
    return zerdix::platform::windows_are_wanted();
}
