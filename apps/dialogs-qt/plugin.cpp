// SPDX-License-Identifier: MIT
// The only function that the library exports.
#include "forms/presenter_plugin.h"
#include "presenter/application.h"
#include "presenter/qt_presenter.h"

extern "C" [[gnu::visibility("default")]] zerdix::forms::presenter*
zerdix_presenter(std::int32_t interface) {
    using namespace zerdix::dialogs_qt;
    if (interface != zerdix::forms::presenter_interface)
        return nullptr;
    const application whose = find_application();
    if (whose == application::none)
        return nullptr;
    // Never destroyed: windows may outlive whoever asked first.
    static qt_presenter* const shown = new qt_presenter(whose);
    return shown;
}
