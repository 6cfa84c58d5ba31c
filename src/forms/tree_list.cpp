// SPDX-License-Identifier: MIT
#include "forms/tree_list.h"

#include <algorithm>
#include <cstring>

namespace zerdix::forms {

namespace {

bool registered = false;

template <typename T>
T* pointer(std::intptr_t value) {
    return reinterpret_cast<T*>(value);
}

std::string text_of(std::intptr_t lParam) {
    return lParam != 0 ? pointer<const char>(lParam) : "";
}

std::string* cell(tree_list& list, std::uintptr_t row) {
    if (row >= list.rows.size() || list.present_column < 0)
        return nullptr;
    auto& cells = list.rows[row];
    const auto column = static_cast<std::size_t>(list.present_column);
    return column < cells.size() ? &cells[column] : nullptr;
}

std::intptr_t append(tree_list& list, std::intptr_t text) {
    auto& cells = list.rows.emplace_back(std::max<std::size_t>(list.columns.size(), 1));
    cells.front() = text_of(text);
    const std::int32_t row = list.row_count() - 1;
    if (list.view != nullptr)
        list.view->row_added(row);
    return row;
}

std::intptr_t copy_cell(tree_list& list, std::uintptr_t row, std::intptr_t buffer) {
    const std::string* text = cell(list, row);
    if (text == nullptr || buffer == 0)
        return 0;
    std::memcpy(pointer<char>(buffer), text->c_str(), text->size() + 1);
    return static_cast<std::intptr_t>(text->size());
}

void write(tree_list& list, std::uintptr_t row, std::intptr_t text) {
    std::string* place = cell(list, row);
    if (place == nullptr)
        return;
    *place = text_of(text);
    if (list.view != nullptr)
        list.view->cell_written(static_cast<std::int32_t>(row), list.present_column);
}

void tell_columns(tree_list& list) {
    if (list.view != nullptr)
        list.view->columns_changed();
}

void title(tree_list& list, std::intptr_t text) {
    const auto column = static_cast<std::size_t>(list.present_column);
    if (list.present_column < 0 || column >= list.titles.size())
        return;
    list.titles[column] = text_of(text);
    tell_columns(list);
}

void tell_selection(tree_list& list) {
    if (list.view != nullptr)
        list.view->selection_changed();
}

void select(tree_list& list, std::intptr_t row) {
    if (row >= list.row_count() || row < -1)
        return;
    list.selected.clear();
    if (row >= 0)
        list.selected.push_back(static_cast<std::int32_t>(row));
    tell_selection(list);
}

void unselect(tree_list& list, std::intptr_t row) {
    std::erase(list.selected, static_cast<std::int32_t>(row));
    tell_selection(list);
}

std::intptr_t copy_selected(const tree_list& list, std::uintptr_t room, std::intptr_t rows) {
    if (rows == 0)
        return 0;
    const auto count = std::min<std::size_t>(room, list.selected.size());
    std::copy_n(list.selected.begin(), count, pointer<std::int32_t>(rows));
    return static_cast<std::intptr_t>(count);
}

// 0 says that the row is in view.
std::intptr_t place_of(tree_list& list, std::uintptr_t row, std::intptr_t rectangle) {
    row_rectangle place = {};
    const bool seen = row < list.rows.size() && list.view != nullptr &&
                      list.view->in_view(static_cast<std::int32_t>(row), place);
    if (rectangle != 0)
        *pointer<row_rectangle>(rectangle) = place;
    return seen ? 0 : -1;
}

// The user may have drawn a column wider since it was set.
void note_widths(tree_list& list) {
    if (list.view != nullptr)
        for (std::size_t i = 0; i < list.columns.size(); ++i)
            list.columns[i].width = list.view->column_width(static_cast<std::int32_t>(i));
}

std::intptr_t hand_out_columns(tree_list& list, std::intptr_t records) {
    note_widths(list);
    if (records != 0)
        *pointer<column_record*>(records) = list.columns.data();
    return static_cast<std::intptr_t>(list.columns.size());
}

void set_columns(tree_list& list, std::uintptr_t count, std::intptr_t records) {
    if (records == 0 && count != 0)
        return;
    const auto* first = pointer<const column_record>(records);
    list.columns = {first, first + count};
    list.titles.resize(count);
    for (auto& cells : list.rows)
        cells.resize(std::max<std::size_t>(count, 1));
    tell_columns(list);
}

void remove_all(tree_list& list) {
    list.rows.clear();
    list.selected.clear();
    if (list.view != nullptr)
        list.view->rows_removed();
}

void bring_into_view(tree_list& list, std::uintptr_t row) {
    if (list.view != nullptr && row < list.rows.size())
        list.view->bring_into_view(static_cast<std::int32_t>(row));
}

std::intptr_t length(tree_list& list, std::uintptr_t row) {
    const std::string* text = cell(list, row);
    return text != nullptr ? static_cast<std::intptr_t>(text->size()) : 0;
}

void use_font(tree_list& list, const font_description*& place, std::uintptr_t font) {
    place = reinterpret_cast<const font_description*>(font);
    note_widths(list);
    tell_columns(list);
}

std::intptr_t ask(tree_list& list, std::uint32_t message, std::uintptr_t wParam,
                  std::intptr_t lParam) {
    switch (message) {
    case read_cell:
        return copy_cell(list, wParam, lParam);
    case count_rows:
        return list.row_count();
    case selected_row:
        return list.selected_row();
    case row_place:
        return place_of(list, wParam, lParam);
    case count_selected:
        return static_cast<std::intptr_t>(list.selected.size());
    case selected_rows:
        return copy_selected(list, wParam, lParam);
    case cell_length:
        return length(list, wParam);
    case read_columns:
        return hand_out_columns(list, lParam);
    default:
        return 0;
    }
}

bool change(tree_list& list, std::uint32_t message, std::uintptr_t wParam, std::intptr_t lParam) {
    switch (message) {
    case write_cell:
        write(list, wParam, lParam);
        return true;
    case write_title:
        title(list, lParam);
        return true;
    case select_row:
        select(list, static_cast<std::intptr_t>(static_cast<std::int32_t>(wParam)));
        return true;
    case unselect_row:
        unselect(list, lParam);
        return true;
    case show_row:
        bring_into_view(list, wParam);
        return true;
    case remove_rows:
        remove_all(list);
        return true;
    case write_columns:
        set_columns(list, wParam, lParam);
        return true;
    case choose_column:
        list.present_column = static_cast<std::int32_t>(wParam);
        return true;
    case write_title_font:
        use_font(list, list.title_font, wParam);
        return true;
    case set_font:
        use_font(list, list.font, wParam);
        return true;
    case begin_columns:
    case finish_columns:
        tell_columns(list);
        return true;
    default:
        return false;
    }
}

} // namespace

std::int32_t SftTree_RegisterApp2(const void* instance) {
    registered = instance != nullptr;
    return registered ? 1 : 0;
}

bool tree_lists_registered() {
    return registered;
}

std::intptr_t SftTree_WndProc(void* window, std::uint32_t message, std::uintptr_t wParam,
                              std::intptr_t lParam) {
    if (window == nullptr)
        return 0;
    auto& list = *static_cast<tree_list*>(window);
    if (message == add_row)
        return append(list, lParam);
    return change(list, message, wParam, lParam) ? 0 : ask(list, message, wParam, lParam);
}

} // namespace zerdix::forms
