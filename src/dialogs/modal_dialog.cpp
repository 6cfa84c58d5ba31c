// SPDX-License-Identifier: MIT
#include "dialogs/modal_dialog.h"

namespace zerdix::dialogs {

using forms::current_presenter;

namespace {

// A window of any program that takes no input for a while, unless it took none before.
class disabled_window {
  public:
    explicit disabled_window(forms::window_handle window)
        : window_(window != nullptr && current_presenter().is_enabled(window) ? window : nullptr) {
        if (window_ != nullptr)
            current_presenter().enable(window_, false);
    }
    ~disabled_window() {
        if (window_ != nullptr)
            current_presenter().enable(window_, true);
    }
    disabled_window(const disabled_window&) = delete;
    disabled_window& operator=(const disabled_window&) = delete;

  private:
    forms::window_handle window_;
};

} // namespace

CDialogDriver::CDialogDriver(std::int32_t template_id, forms::window_handle& parent)
    : dialog(template_id, parent), pParentHandle(&parent), hParent(parent) {}

std::int32_t CDialogDriver::DoModal() {
    if (!forms::ensure_presenter() || !has_template())
        return -1;
    bool was_active = false;
    const forms::loop_end end = run_over_parent(was_active);
    if (was_active && hParent != nullptr)
        current_presenter().activate(hParent);
    DestroyWindow();
    return end == forms::loop_end::dialog_ended ? result() : -1;
}

// The parent takes input again before the dialog's window goes, so that it can become the active
// one in the dialog's place.
forms::loop_end CDialogDriver::run_over_parent(bool& was_active) {
    const disabled_window parent(hParent);
    if (!make_window())
        return forms::loop_end::program_quits;
    const forms::loop_end end =
        has_ended() ? forms::loop_end::dialog_ended : current_presenter().run_modal(*this);
    was_active = current_presenter().is_active(window_);
    current_presenter().show(window_, false);
    return end;
}

bool CDialogDriver::OnInitDialog() {
    const bool focus_is_free = dialog::OnInitDialog();
    current_presenter().center(window_);
    current_presenter().make_topmost(window_);
    return focus_is_free;
}

} // namespace zerdix::dialogs
