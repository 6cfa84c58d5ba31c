// SPDX-License-Identifier: MIT
#include "dialogs/wait_dialog.h"

#include "dialogs/templates.h"

namespace zerdix::dialogs {

namespace {

constexpr std::int32_t cancel_button = 9607;

} // namespace

CDialogWait::CDialogWait(forms::window_handle parent, std::int32_t showCancel)
    : dialog(wait_form, parent), fShowCancel(showCancel) {
    on(cancel_button, forms::control_event::clicked, [this] { fCancelled = 1; });
}

bool CDialogWait::OnInitDialog() {
    if (fShowCancel == 0)
        show(cancel_button, false);
    return dialog::OnInitDialog();
}

} // namespace zerdix::dialogs
