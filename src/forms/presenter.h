// SPDX-License-Identifier: MIT
// The port to the code that shows dialogs. A porter derives from `presenter` and draws
// `dialog_view`s.
//
// Everything happens on the one thread that called the library. Texts are Windows-1252.
#ifndef ZERDIX_FORMS_PRESENTER_H
#define ZERDIX_FORMS_PRESENTER_H

#include <cstdint>
#include <string>
#include <string_view>

namespace zerdix::forms {

class dialog_view;

// A window: one that a presenter made, or a window of the caller's own program as that program's
// toolkit names it (on X11 the window's id). Null for none.
using window_handle = void*;

struct font_description {
    std::int32_t height = 0; // pixels: negative that of the characters, positive that of the cell
    std::int32_t weight = 0; // 400 normal, 700 bold
    std::string face;
};

// How a modal loop came to its end.
enum class loop_end { dialog_ended, program_quits };

class presenter {
  public:
    // A window for the dialog, hidden, with the state that its controls have just now. Null when
    // there can't be one. `owner` stays below it; it may be null or a foreign window.
    virtual window_handle create(dialog_view& dialog, window_handle owner) = 0;
    // The window goes; commands posted to it are forgotten.
    virtual void destroy(window_handle window) = 0;
    // Takes and dispatches the user's input until dialog.has_ended(), and shows the dialog when
    // there is no input left for the first time. A request to end the program is left for the
    // program's own loop.
    virtual loop_end run_modal(dialog_view& dialog) = 0;

    virtual void show(window_handle window, bool visible) = 0;
    virtual void center(window_handle window) = 0;
    virtual void make_topmost(window_handle window) = 0;

    // Of any window, foreign ones included; a window that isn't known counts as disabled.
    virtual bool is_enabled(window_handle window) = 0;
    virtual void enable(window_handle window, bool enabled) = 0;
    virtual bool is_active(window_handle window) = 0;
    virtual void activate(window_handle window) = 0;

    // Something about the control isn't what it was: text, state, items, limit. Lists tell their
    // own changes through tree_list_view.
    virtual void control_changed(dialog_view& dialog, std::int32_t id) = 0;
    virtual void set_focus(dialog_view& dialog, std::int32_t id) = 0;
    // The command reaches dialog.on_command() once the present handler is done.
    virtual void post_command(window_handle window, std::int32_t command) = 0;

    virtual void wait_cursor(bool on) = 0;
    // A remote call has begun, goes on (several times a second), has ended. No input may be
    // dispatched meanwhile.
    virtual void remote_call_begins() = 0;
    virtual void remote_call_goes_on() = 0;
    virtual void remote_call_ended() = 0;

    // Returns when the user has taken note of it. `owner` may be null.
    virtual void show_message(window_handle owner, std::string_view text,
                              std::string_view caption) = 0;
    // False when the user cancelled; `font` then is as it was.
    virtual bool choose_font(window_handle owner, font_description& font, bool scalable_only) = 0;

    // For a pump of one's own: is there input; take one piece of it, false when the program ends.
    virtual bool input_waits() = 0;
    virtual bool take_input() = 0;
    // The program that shows the windows is to end with this code.
    virtual void quit(int code) = 0;

  protected:
    ~presenter() = default;
};

// The one in use. Without a replacement none of its dialogs can be made and nobody is told anything
// (a message goes to message_box.h's default instead).
presenter& current_presenter();
// Whether it is a real one.
bool has_presenter();

// As platform/port_slot.h says. Messages and the request to quit go the presenter's way from then
// on, or no longer.
presenter* replace_presenter(presenter* one);

// Before the first dialog: loads the windows (presenter_plugin.h) unless a presenter is set
// already. False when no dialog can be shown.
bool ensure_presenter();

} // namespace zerdix::forms

#endif
