// SPDX-License-Identifier: MIT
// A presenter without windows: a test says beforehand what the user does in each dialog.
//
//     scripted_presenter user;
//     user.script(1400, {[](auto& find) { find.user_edits(1403, "meier"); },
//                        [](auto& find) { find.user_clicks(1401); },
//                        [](auto& find) { find.user_closes(); }});
//
// It is in use while it lives. Posted commands are delivered between the steps, whichever dialog's
// loop runs.
#ifndef ZERDIX_TESTS_SCRIPTED_PRESENTER_H
#define ZERDIX_TESTS_SCRIPTED_PRESENTER_H

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "forms/dialog_view.h"
#include "forms/presenter.h"

namespace zerdix::test {

// The window of a list: which rows show, and how wide its columns are.
class scripted_list final : public forms::tree_list_view {
  public:
    explicit scripted_list(forms::tree_list& list) : list_(list) {}

    std::int32_t first = 0; // the row at the top
    std::int32_t rows = 10; // how many show
    std::int32_t width = 600;

    // The user draws a column wider or narrower.
    void drag(std::int32_t column, std::int32_t to) { dragged_[column] = to; }

    void row_added(std::int32_t) override {}
    void cell_written(std::int32_t, std::int32_t) override {}
    void rows_removed() override { first = 0; }
    void columns_changed() override { dragged_.clear(); }
    void selection_changed() override {}
    void bring_into_view(std::int32_t row) override;
    bool in_view(std::int32_t row, forms::row_rectangle& place) override;
    std::int32_t client_width() override { return width; }
    std::int32_t column_width(std::int32_t column) override;

  private:
    forms::tree_list& list_;
    std::map<std::int32_t, std::int32_t> dragged_;
};

class scripted_presenter final : public forms::presenter {
  public:
    using step = std::function<void(forms::dialog_view&)>;

    scripted_presenter() : before_(forms::replace_presenter(this)) {}
    ~scripted_presenter() { forms::replace_presenter(before_); }
    scripted_presenter(const scripted_presenter&) = delete;
    scripted_presenter& operator=(const scripted_presenter&) = delete;

    // What the user does in the next dialog of that template that has no script yet; modal dialogs
    // only. A dialog whose steps are done and that hasn't ended is closed, and the test fails.
    void script(std::int32_t template_id, std::vector<step> steps) {
        scripts_[template_id].push_back(std::move(steps));
    }
    // Scripts that no dialog has taken.
    std::size_t left_over() const;

    // What the dialogs did with their windows, a line each. A window is named by its template's
    // number or by the name that the test gave it, none is "-".
    //     "1400 created over 2300", "1400 shown", "1400 hidden", "1400 destroyed", "1400 centered",
    //     "1400 topmost", "1400 enabled", "1400 disabled", "1400 activated", "1400 focus 1403",
    //     "30021 posted to 2300", "wait cursor", "arrow cursor", "quit 3",
    //     "message over 2300: CAPTION: TEXT"
    std::vector<std::string> log;
    // The texts of all messages since the start or the last clear, those of notification dialogs
    // (template 9650) too; these are closed by themselves unless they have a script.
    std::vector<std::string> messages;

    // A window of another program.
    forms::window_handle foreign_window(std::string name, bool enabled = true);
    // What the user looks at; a dialog that shows becomes it.
    forms::window_handle active = nullptr;

    // The open dialog of that template, the newest of several; null for none.
    forms::dialog_view* open(std::int32_t template_id);
    scripted_list& list(forms::dialog_view& dialog, std::int32_t id) {
        return *find(dialog.window())->lists.at(id);
    }
    // The user scrolls so that this row is at the top.
    void scroll(forms::dialog_view& dialog, std::int32_t id, std::int32_t first);

    // Dialogs of these templates can't be created.
    std::set<std::int32_t> cannot_create;
    // Answers of the font dialog, in turn; without one the user cancels.
    std::deque<forms::font_description> fonts;
    // What waits for a pump; false: the program ends.
    std::deque<std::function<bool()>> input;
    bool quitting = false;
    // Runs at the start of each remote call.
    std::function<void()> at_remote_call;

    forms::window_handle create(forms::dialog_view&, forms::window_handle) override;
    void destroy(forms::window_handle window) override;
    forms::loop_end run_modal(forms::dialog_view& dialog) override;
    void show(forms::window_handle window, bool visible) override;
    void center(forms::window_handle window) override { note(window, "centered"); }
    void make_topmost(forms::window_handle window) override { note(window, "topmost"); }
    bool is_enabled(forms::window_handle window) override;
    void enable(forms::window_handle window, bool enabled) override;
    bool is_active(forms::window_handle window) override {
        return window != nullptr && window == active;
    }
    void activate(forms::window_handle window) override;
    void control_changed(forms::dialog_view&, std::int32_t) override {}
    void set_focus(forms::dialog_view& dialog, std::int32_t id) override {
        note(dialog.window(), "focus " + std::to_string(id));
    }
    void post_command(forms::window_handle window, std::int32_t command) override;
    void wait_cursor(bool on) override { log.push_back(on ? "wait cursor" : "arrow cursor"); }
    void remote_call_begins() override;
    void remote_call_goes_on() override {}
    void remote_call_ended() override {}
    void show_message(forms::window_handle owner, std::string_view text,
                      std::string_view caption) override;
    bool choose_font(forms::window_handle, forms::font_description& font, bool) override;
    bool input_waits() override { return !input.empty(); }
    bool take_input() override;
    void quit(int code) override;

  private:
    struct own_window {
        std::string name;
        forms::dialog_view* dialog = nullptr; // null for a foreign one
        bool enabled = true;
        bool visible = false;
        std::map<std::int32_t, std::unique_ptr<scripted_list>> lists;
    };
    struct posted {
        forms::window_handle window;
        std::int32_t command;
    };

    own_window* find(forms::window_handle handle);
    std::string name(forms::window_handle handle);
    void note(forms::window_handle handle, const std::string& what) {
        log.push_back(name(handle) + " " + what);
    }
    std::deque<step> take_script(const forms::dialog_view& dialog);
    void deliver_posted();
    void run_step(forms::dialog_view& dialog, std::deque<step>& steps);

    forms::presenter* before_;
    std::vector<std::unique_ptr<own_window>> windows_;
    std::map<std::int32_t, std::deque<std::vector<step>>> scripts_;
    std::deque<posted> posted_;
};

} // namespace zerdix::test

#endif
