// SPDX-License-Identifier: MIT
// The template of a dialog: its controls and their places, without a word in any language.
#ifndef ZERDIX_FORMS_DIALOG_TEMPLATE_H
#define ZERDIX_FORMS_DIALOG_TEMPLATE_H

#include <cstdint>
#include <span>

namespace zerdix::forms {

enum class control_kind {
    label,
    edit,
    push_button,
    radio_button,
    check_box,
    combo_box,
    tree_list,
    frame,
};

// A place in the grid of a frame, or of the dialog itself where `frame` is 0.
struct control_place {
    int frame = 0;
    int row = 0;
    int column = 0;
    int row_span = 1;
    int column_span = 1;
};

// How a control starts. An edit that says `captioned` has its caption as a label in front of it (or
// above it); of any other edit, list or combo box the caption is its name for screen readers only.
struct control_style {
    bool visible = true;
    bool enabled = true;
    bool captioned = true;
    bool multiline = false;
    // A tree list in which several rows can be selected.
    bool several = false;
    // Radio buttons of one dialog with the same number exclude each other.
    int radio_group = 0;
};

// Tab order is the order of the template.
struct control_template {
    std::int32_t id;
    control_kind kind;
    control_place place;
    control_style style = {};
};

// A line of a menu, and the command that it sends to the dialog. Its words have that number in the
// string table.
struct menu_command {
    std::int32_t command;
    std::int32_t text;
};

struct dialog_template {
    std::int32_t id;
    // The template whose captions hold for controls that have none under `id`.
    std::int32_t captions_of;
    std::span<const control_template> controls;
    // Pressed by Enter and by Escape; 0 for none.
    std::int32_t default_button;
    std::int32_t cancel_button;
    // While the edit has the focus and holds text, Enter presses this button instead.
    std::int32_t entry_edit = 0;
    std::int32_t entry_button = 0;
    // Rows that a list shows at least, and the size of the text against the desktop's own.
    int list_rows = 10;
    int text_percent = 100;
    // Least width of a list, in characters of average width.
    int list_characters = 56;
    // The menu that opens on a list, with the mouse or the menu key.
    std::span<const menu_command> list_menu = {};
};

} // namespace zerdix::forms

#endif
