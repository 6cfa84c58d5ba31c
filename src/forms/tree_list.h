// SPDX-License-Identifier: MIT
// The list control with columns: its rows, and the messages by which a program talks to it.
//
// Texts are Windows-1252. A row has one cell a column; a cell that was never written is empty.
#ifndef ZERDIX_FORMS_TREE_LIST_H
#define ZERDIX_FORMS_TREE_LIST_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace zerdix::forms {

// 16 bytes, as the control's messages hand them over.
struct column_record {
    std::int32_t width; // pixels
    std::int32_t first;
    std::int32_t second;
    std::int32_t third;
};

struct row_rectangle {
    std::int32_t left, top, right, bottom;
};

struct font_description;

// Whoever shows the list. Told after the list has changed; asked for what only a window knows.
class tree_list_view {
  public:
    virtual void row_added(std::int32_t row) = 0;
    virtual void cell_written(std::int32_t row, std::int32_t column) = 0;
    virtual void rows_removed() = 0;
    // Titles, widths or number of columns, or a font.
    virtual void columns_changed() = 0;
    virtual void selection_changed() = 0;
    virtual void bring_into_view(std::int32_t row) = 0;
    // True when the row, or a part of it, shows just now; then `place` is where.
    virtual bool in_view(std::int32_t row, row_rectangle& place) = 0;
    // Width in pixels of the room for columns, and the columns' present widths.
    virtual std::int32_t client_width() = 0;
    virtual std::int32_t column_width(std::int32_t column) = 0;

  protected:
    ~tree_list_view() = default;
};

struct tree_list {
    using row = std::vector<std::string>;

    std::vector<column_record> columns;
    std::vector<std::string> titles;
    std::vector<row> rows;
    // In ascending order; at most one row unless `several`.
    std::vector<std::int32_t> selected;
    bool several = false;
    std::int32_t present_column = 0;
    // Owned by who set them, null for the desktop's own; good while the list is.
    const font_description* font = nullptr;
    const font_description* title_font = nullptr;
    // Null while no window shows the list.
    tree_list_view* view = nullptr;

    std::int32_t row_count() const { return static_cast<std::int32_t>(rows.size()); }
    std::int32_t selected_row() const { return selected.empty() ? -1 : selected.front(); }
};

// The messages. Every row and column that doesn't exist leaves things as they are; the result is
// then 0, or -1 where it is a row.
enum tree_message : std::uint32_t {
    add_row = 1029,          // lParam: text of column 0; result: the row
    read_cell = 1033,        // wParam: row, lParam: buffer for the text and a NUL
    write_cell = 1035,       // wParam: row, lParam: text
    write_title = 1037,      // lParam: text
    count_rows = 1059,       // result: the number
    selected_row = 1060,     // result: the row, -1 for none
    select_row = 1061,       // wParam: row, -1 for none
    row_place = 1065,        // wParam: row, lParam: row_rectangle*; result: 0 when in view
    unselect_row = 1067,     // lParam: row
    count_selected = 1068,   // result: the number
    selected_rows = 1069,    // wParam: room, lParam: std::int32_t*
    cell_length = 1070,      // wParam: row; result: bytes without NUL
    show_row = 1073,         // wParam: row
    remove_rows = 1074,      //
    read_columns = 1093,     // lParam: column_record**, good until the next setting; result: count
    write_columns = 1094,    // wParam: count, lParam: column_record const*
    finish_columns = 1106,   //
    choose_column = 1112,    // wParam: column
    write_title_font = 1113, // wParam: font_description const*
    begin_columns = 1115,    // wParam: 1
    set_font = 48,           // wParam: font_description const*; the message of every control
};

// The control codes by which a list tells its dialog what the user does.
enum tree_notice : std::int32_t {
    selection_moved_by_mouse = 5,
    selection_moved_by_key = 35,
    double_clicked = 45,
    list_scrolled = 277,
    list_key = 1129, // plus the key
};

// Makes the list control known to the process; until then no dialog with a list can be made.
// 0 when that fails.
std::int32_t SftTree_RegisterApp2(const void* instance);
bool tree_lists_registered();

// `window` is a tree_list*; null is answered with 0.
std::intptr_t SftTree_WndProc(void* window, std::uint32_t message, std::uintptr_t wParam,
                              std::intptr_t lParam);

} // namespace zerdix::forms

#endif
