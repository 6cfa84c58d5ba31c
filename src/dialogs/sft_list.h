// SPDX-License-Identifier: MIT
// The list control with columns, as the dialogs use it. It is used through its messages alone.
#ifndef ZERDIX_DIALOGS_SFT_LIST_H
#define ZERDIX_DIALOGS_SFT_LIST_H

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "forms/tree_list.h"

namespace zerdix::dialogs {

// A control that isn't attached has no rows and takes none.
class CSftTree {
  public:
    // `control` is good while its dialog is on a window.
    void attach(forms::tree_list* control) { control_ = control; }

    std::int32_t rowCount();
    // -1 for none.
    std::int32_t selectedRow();
    // -1 selects none.
    void selectRow(std::int32_t row);
    // Brings the row into view.
    void showRow(std::int32_t row);
    bool isInView(std::int32_t row);
    // Appends a row; cells that aren't given are empty.
    std::int32_t addRow(std::initializer_list<std::string_view> cells);
    void removeRows();

  protected:
    std::intptr_t send(forms::tree_message message, std::intptr_t wParam = 0,
                       std::intptr_t lParam = 0);
    std::intptr_t sendText(forms::tree_message message, std::intptr_t wParam,
                           std::string_view text);
    // Of the control's window: the room for columns in pixels, and whether several rows can be
    // selected.
    std::int32_t clientWidth() const;
    bool takesSeveral() const;

  private:
    forms::tree_list* control_ = nullptr;
};

struct column_setup {
    std::span<const std::int32_t> titles; // string numbers, one a column
    const char* columnKey = "";           // keeps widths under it unless empty
    std::int32_t second = 0;              // of each column record
    bool own_font = true;                 // the application's list font, and the last setup step
};

class CSftList : public CSftTree {
  public:
    void setColumnKey(const char* name) { columnKey = name; }
    // The widths, under the keys columnKey0, columnKey1, ... Without a columnKey nothing happens.
    void saveColumns();
    void loadColumns();
    // Columns of equal width, then those that were kept, with their titles.
    void setupColumns(const column_setup& setup);
    // The application's font, as it is just now, for rows and titles.
    void useListFont();

    // The length of the cell, whose text is then in `buffer`, which holds `size` characters and a
    // NUL. A longer cell leaves the buffer alone: 0.
    std::int32_t getCell(std::int32_t row, std::int32_t column, char* buffer, std::int32_t size);
    // At most 79 characters; a longer cell counts as empty.
    std::string cell(std::int32_t row, std::int32_t column);
    void setCell(std::int32_t row, std::int32_t column, std::string_view text);
    // All cells of the row, each followed by a blank. Good until the next call, on whichever list.
    const char* rowText(std::int32_t row);

    void unselectAll();

  private:
    std::span<forms::column_record> columns();

    std::string columnKey;
    std::int32_t columnCount = 0;
};

// A list whose rows keep the records that they show, as these were when the rows were added.
template <class Record>
class CRecordList : public CSftList {
  public:
    void addRecord(const Record& record, std::initializer_list<std::string_view> cells) {
        const std::int32_t row = addRow(cells);
        records.resize(static_cast<std::size_t>(row));
        records.push_back(record);
    }
    void removeRows() {
        CSftList::removeRows();
        records.clear();
    }
    // Null when no row is selected. Good until a row is added or removed.
    const Record* selectedRecord() {
        const auto row = static_cast<std::size_t>(selectedRow());
        return row < records.size() ? &records[row] : nullptr;
    }

  private:
    std::vector<Record> records; // one for each row
};

} // namespace zerdix::dialogs

#endif
