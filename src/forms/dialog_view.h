// SPDX-License-Identifier: MIT
// A dialog as its presenter sees it: the state of its controls, and what the user may do to them.
//
// Everything a presenter in a library of its own needs is inline or virtual here.
#ifndef ZERDIX_FORMS_DIALOG_VIEW_H
#define ZERDIX_FORMS_DIALOG_VIEW_H

#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "forms/dialog_template.h"
#include "forms/presenter.h"
#include "forms/tree_list.h"

namespace zerdix::forms {

enum class control_event {
    clicked,           // buttons, radio buttons, check boxes
    changed,           // an edit's text
    selection_changed, // combo box, tree list
    double_clicked,    // tree list
    scrolled,          // tree list
    key,               // tree list
};

struct control {
    const control_template* form = nullptr;
    std::string caption; // with "&" in front of the letter that is its accelerator
    std::string text;    // edit
    bool checked = false;
    bool enabled = true;
    bool visible = true;
    bool read_only = false;
    // Why an edit needs the user's attention, which shows at its edge; empty while it doesn't.
    std::string mark;
    std::size_t limit = 0;          // most characters of an edit, 0 for no limit
    std::vector<std::string> items; // combo box
    std::int32_t selected_item = -1;
    std::unique_ptr<tree_list> list;
    // The characters that may be typed; null for all.
    bool (*accepts)(unsigned char) = nullptr;

    std::int32_t id() const { return form->id; }
    control_kind kind() const { return form->kind; }
};

class dialog_view {
  public:
    const dialog_template* form() const { return form_; }
    const std::string& caption() const { return caption_; }
    std::deque<control>& controls() { return controls_; }
    window_handle window() const { return window_; }

    control* find(std::int32_t id) {
        for (auto& one : controls_)
            if (one.id() == id)
                return &one;
        return nullptr;
    }

    virtual bool has_ended() const = 0;

    // What the user did. Each keeps to what the control allows just now (a disabled or hidden one
    // is left alone, a text is cut to its limit) and then runs the dialog's handler.
    virtual void user_clicks(std::int32_t id) = 0;
    // The whole new text of an edit.
    virtual void user_edits(std::int32_t id, std::string_view text) = 0;
    // Whether a typed character goes into the edit.
    virtual bool user_may_type(std::int32_t id, unsigned char character) = 0;
    virtual void user_picks_item(std::int32_t id, std::int32_t item) = 0;
    virtual void user_selects_row(std::int32_t id, std::int32_t row) = 0;
    virtual void user_double_clicks(std::int32_t id, std::int32_t row) = 0;
    virtual void user_scrolls(std::int32_t id) = 0;
    virtual void user_presses_key(std::int32_t id, std::int32_t key) = 0;
    // Escape, or the window's own way to close.
    virtual void user_closes() = 0;
    virtual void on_command(std::int32_t command) = 0;
    // A text of the string table.
    virtual std::string string_text(std::int32_t number) const = 0;

  protected:
    ~dialog_view() = default;

    const dialog_template* form_ = nullptr;
    std::string caption_;
    std::deque<control> controls_;
    window_handle window_ = nullptr;
};

} // namespace zerdix::forms

#endif
