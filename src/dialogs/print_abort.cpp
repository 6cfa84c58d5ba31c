// SPDX-License-Identifier: MIT
#include "dialogs/print_abort.h"

#include "dialogs/templates.h"

namespace zerdix::dialogs {

namespace {

constexpr std::int32_t cancel_button = 9607;

} // namespace

constinit std::int32_t fUserAbort = 0;

CDialogPrintAbort::CDialogPrintAbort(forms::window_handle parent) : dialog(print_form, parent) {
    fUserAbort = 0;
    on(cancel_button, forms::control_event::clicked, [this] {
        fCancelled = 1;
        fUserAbort = 1;
    });
}

std::int32_t abortProc() {
    auto& windows = forms::current_presenter();
    while (fUserAbort == 0 && windows.input_waits()) {
        if (!windows.take_input())
            return 0;
    }
    return fUserAbort == 0 ? 1 : 0;
}

} // namespace zerdix::dialogs
