// SPDX-License-Identifier: MIT
// Shows the library's dialogs in windows of the toolkit.
#ifndef ZERDIX_PRESENTER_QT_PRESENTER_H
#define ZERDIX_PRESENTER_QT_PRESENTER_H

#include <set>
#include <vector>

#include "forms/presenter.h"
#include "presenter/application.h"
#include "presenter/foreign_window.h"
#include "window/call_notice.h"
#include "window/dialog_window.h"
#include "window/input_gate.h"

namespace zerdix::dialogs_qt {

class qt_presenter final : public forms::presenter {
  public:
    // With the toolkit's application there.
    explicit qt_presenter(application whose);
    ~qt_presenter() = default;

    forms::window_handle create(forms::dialog_view& dialog, forms::window_handle owner) override;
    void destroy(forms::window_handle window) override;
    forms::loop_end run_modal(forms::dialog_view& dialog) override;

    void show(forms::window_handle window, bool visible) override;
    void center(forms::window_handle window) override;
    void make_topmost(forms::window_handle window) override;

    bool is_enabled(forms::window_handle window) override;
    void enable(forms::window_handle window, bool enabled) override;
    bool is_active(forms::window_handle window) override;
    void activate(forms::window_handle window) override;

    void control_changed(forms::dialog_view& dialog, std::int32_t id) override;
    void set_focus(forms::dialog_view& dialog, std::int32_t id) override;
    void post_command(forms::window_handle window, std::int32_t command) override;

    void wait_cursor(bool on) override;
    void remote_call_begins() override { notice_.call_begins(); }
    void remote_call_goes_on() override { notice_.call_goes_on(); }
    void remote_call_ended() override { notice_.call_ended(); }

    void show_message(forms::window_handle owner, std::string_view text,
                      std::string_view caption) override;
    bool choose_font(forms::window_handle owner, forms::font_description& font,
                     bool scalable_only) override;

    bool input_waits() override;
    bool take_input() override;
    void quit(int code) override;

  private:
    bool on_own_thread() const;
    // Null for a window that isn't ours.
    dialog_window* own(forms::window_handle window);
    // Of any window; null for one that isn't known.
    QWindow* any(forms::window_handle window);
    dialog_window* in_front();

    application whose_;
    input_gate gate_;
    call_notice notice_;
    foreign_windows foreign_;
    std::vector<dialog_window*> windows_; // in the order of their making
    bool waiting_ = false;
    bool input_may_wait_ = true;
    bool quitting_ = false;
};

} // namespace zerdix::dialogs_qt

#endif
