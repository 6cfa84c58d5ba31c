// SPDX-License-Identifier: MIT
#include "dialogs/notify_dialog.h"

#include "common/string_table.h"
#include "dialogs/templates.h"

namespace zerdix::dialogs {

namespace {

constexpr std::int32_t text_field = 9651;
constexpr std::int32_t ok_button = 1;

} // namespace

CDialogNotify::CDialogNotify(forms::window_handle& parent, const std::string* text)
    : CDialogDriver(notify_form, parent), message(text != nullptr ? *text : std::string()) {
    on(ok_button, forms::control_event::clicked, [this] { EndDialog(ok_button); });
}

bool CDialogNotify::OnInitDialog() {
    set_caption(text_field, message);
    return true;
}

CDialogNotifyId::CDialogNotifyId(forms::window_handle parent, std::int32_t stringId)
    : dialog(notify_form, parent), lStringId(stringId) {
    on(ok_button, forms::control_event::clicked, [this] { EndDialog(ok_button); });
}

bool CDialogNotifyId::OnInitDialog() {
    set_caption(text_field, common::string_text(lStringId));
    return true;
}

} // namespace zerdix::dialogs
