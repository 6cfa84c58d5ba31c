// SPDX-License-Identifier: MIT
#include "forms/presenter.h"

#include "forms/presenter_plugin.h"
#include "platform/message_box.h"
#include "platform/port_slot.h"
#include "platform/quit.h"

namespace zerdix::forms {

namespace {

class no_windows final : public presenter {
  public:
    window_handle create(dialog_view&, window_handle) override { return nullptr; }
    void destroy(window_handle) override {}
    loop_end run_modal(dialog_view&) override { return loop_end::program_quits; }
    void show(window_handle, bool) override {}
    void center(window_handle) override {}
    void make_topmost(window_handle) override {}
    bool is_enabled(window_handle) override { return false; }
    void enable(window_handle, bool) override {}
    bool is_active(window_handle) override { return false; }
    void activate(window_handle) override {}
    void control_changed(dialog_view&, std::int32_t) override {}
    void set_focus(dialog_view&, std::int32_t) override {}
    void post_command(window_handle, std::int32_t) override {}
    void wait_cursor(bool) override {}
    void remote_call_begins() override {}
    void remote_call_goes_on() override {}
    void remote_call_ended() override {}
    void show_message(window_handle, std::string_view text, std::string_view caption) override {
        platform::message_box().show(text, caption);
    }
    bool choose_font(window_handle, font_description&, bool) override { return false; }
    bool input_waits() override { return false; }
    bool take_input() override { return false; }
    void quit(int) override {}
};

constinit no_windows none;
constinit platform::port_slot<presenter> slot{&none};

class box_in_window final : public platform::message_box_port {
  public:
    void show(std::string_view text, std::string_view caption) override {
        slot.current()->show_message(nullptr, text, caption);
    }
};

class quit_of_windows final : public platform::quit_port {
  public:
    void post(int code) override { slot.current()->quit(code); }
};

constinit box_in_window box;
constinit quit_of_windows quit_loop;

} // namespace

presenter& current_presenter() {
    return *slot.current();
}

bool has_presenter() {
    return slot.is_replaced();
}

presenter* replace_presenter(presenter* one) {
    platform::replace_message_box(one != nullptr ? &box : nullptr);
    platform::replace_quit_request(one != nullptr ? &quit_loop : nullptr);
    return slot.replace(one);
}

bool ensure_presenter() {
    if (has_presenter())
        return true;
    presenter* windows = load_presenter();
    if (windows == nullptr)
        return false;
    replace_presenter(windows);
    return true;
}

} // namespace zerdix::forms
