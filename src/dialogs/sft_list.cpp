// SPDX-License-Identifier: MIT
#include "dialogs/sft_list.h"

#include <array>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "common/string_table.h"
#include "dialogs/application.h"
#include "dialogs/kept_setting.h"

namespace zerdix::dialogs {

using namespace forms; // the messages

namespace {

constexpr std::int32_t cell_room = 79;
constexpr std::size_t number_width = 16;

std::array<char, cell_room + 1> cell_text;
std::array<char, 512> row_text;

template <typename T>
std::intptr_t address(T* pointer) {
    return reinterpret_cast<std::intptr_t>(pointer);
}

} // namespace

std::intptr_t CSftTree::send(tree_message message, std::intptr_t wParam, std::intptr_t lParam) {
    return SftTree_WndProc(control_, message, static_cast<std::uintptr_t>(wParam), lParam);
}

std::intptr_t CSftTree::sendText(tree_message message, std::intptr_t wParam,
                                 std::string_view text) {
    const std::string ended(text);
    return send(message, wParam, address(ended.c_str()));
}

std::int32_t CSftTree::rowCount() {
    return static_cast<std::int32_t>(send(count_rows));
}

std::int32_t CSftTree::selectedRow() {
    return control_ != nullptr ? static_cast<std::int32_t>(send(selected_row)) : -1;
}

void CSftTree::selectRow(std::int32_t row) {
    send(select_row, row);
}

void CSftTree::showRow(std::int32_t row) {
    send(show_row, row);
}

bool CSftTree::isInView(std::int32_t row) {
    row_rectangle place = {};
    return control_ != nullptr && send(row_place, row, address(&place)) == 0;
}

std::int32_t CSftTree::addRow(std::initializer_list<std::string_view> cells) {
    const std::intptr_t row = sendText(add_row, 0, cells.size() != 0 ? *cells.begin() : "");
    std::intptr_t column = 0;
    for (const std::string_view text : cells) {
        if (column > 0) {
            send(choose_column, column);
            sendText(write_cell, row, text);
        }
        ++column;
    }
    return static_cast<std::int32_t>(row);
}

void CSftTree::removeRows() {
    send(remove_rows);
}

std::int32_t CSftTree::clientWidth() const {
    return control_ != nullptr && control_->view != nullptr ? control_->view->client_width() : 0;
}

bool CSftTree::takesSeveral() const {
    return control_ != nullptr && control_->several;
}

std::span<column_record> CSftList::columns() {
    column_record* first = nullptr;
    const std::intptr_t count = send(read_columns, 0, address(&first));
    return {first, static_cast<std::size_t>(count)};
}

void CSftList::saveColumns() {
    if (columnKey.empty())
        return;
    int i = 0;
    for (const column_record& column : columns())
        keep_text(columnKey + std::to_string(i++), std::to_string(column.width));
}

void CSftList::loadColumns() {
    const auto kept = columns();
    std::vector<column_record> records(kept.begin(), kept.end());
    int i = 0;
    for (column_record& column : records) {
        const std::string text = kept_text(columnKey + std::to_string(i++), "", number_width);
        const auto width = static_cast<std::int32_t>(std::strtol(text.c_str(), nullptr, 10));
        if (width != 0)
            column.width = width;
    }
    send(write_columns, static_cast<std::intptr_t>(records.size()), address(records.data()));
}

void CSftList::setupColumns(const column_setup& setup) {
    if (setup.own_font)
        useListFont();
    columnCount = static_cast<std::int32_t>(setup.titles.size());
    const column_record record = {clientWidth() / columnCount, 0, setup.second, 0};
    const std::vector<column_record> records(setup.titles.size(), record);
    send(write_columns, columnCount, address(records.data()));
    if (*setup.columnKey != '\0') {
        setColumnKey(setup.columnKey);
        loadColumns();
    }
    for (std::int32_t i = 0; i < columnCount; ++i) {
        send(choose_column, i);
        send(write_title, 0,
             address(common::string_text(setup.titles[static_cast<std::size_t>(i)])));
    }
    send(begin_columns, 1);
    if (setup.own_font)
        send(finish_columns);
}

// Without an application, or where its font can't be made, the list keeps the desktop's own.
void CSftList::useListFont() {
    CZerdixApp* application = CZerdixApp::current();
    const font_description* font = application != nullptr ? application->listFont() : nullptr;
    send(set_font, address(font));
    send(write_title_font, address(font), 1);
}

std::int32_t CSftList::getCell(std::int32_t row, std::int32_t column, char* buffer,
                               std::int32_t size) {
    send(choose_column, column);
    const auto length = static_cast<std::int32_t>(send(cell_length, row));
    if (length > size)
        return 0;
    send(read_cell, row, address(buffer));
    return length;
}

std::string CSftList::cell(std::int32_t row, std::int32_t column) {
    const std::int32_t length = getCell(row, column, cell_text.data(), cell_room);
    return {cell_text.data(), static_cast<std::size_t>(length)};
}

void CSftList::setCell(std::int32_t row, std::int32_t column, std::string_view text) {
    send(choose_column, column);
    sendText(write_cell, row, text);
}

const char* CSftList::rowText(std::int32_t row) {
    std::size_t end = 0;
    for (std::int32_t column = 0; column < columnCount; ++column) {
        const std::int32_t length = getCell(row, column, cell_text.data(), cell_room);
        const auto copied = static_cast<std::size_t>(length);
        if (end + copied + 2 > row_text.size())
            break;
        std::memcpy(row_text.data() + end, cell_text.data(), copied);
        end += copied;
        row_text[end++] = ' ';
    }
    row_text[end] = '\0';
    return row_text.data();
}

void CSftList::unselectAll() {
    if (!takesSeveral()) {
        selectRow(-1);
        return;
    }
    std::vector<std::int32_t> rows(static_cast<std::size_t>(send(count_selected)));
    send(selected_rows, static_cast<std::intptr_t>(rows.size()), address(rows.data()));
    for (const std::int32_t row : rows)
        send(unselect_row, 0, row);
}

} // namespace zerdix::dialogs
