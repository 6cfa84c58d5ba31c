// SPDX-License-Identifier: MIT
// The rows of a list control, for the toolkit's views. It has no copy of them.
//
// Rows come singly and cell by cell, a block of them in one handler: views are told of the whole
// block at once, when the message loop runs again or somebody asks for what only a view knows.
#ifndef ZERDIX_CONTROL_LIST_MODEL_H
#define ZERDIX_CONTROL_LIST_MODEL_H

#include <QAbstractTableModel>

#include "forms/tree_list.h"

namespace zerdix::dialogs_qt {

class list_model final : public QAbstractTableModel {
  public:
    list_model(const forms::tree_list* list, QObject* parent);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    // The list has new rows, or a row has a new text.
    void row_added() { flush_later(); }
    void row_written(int row);
    // Rows or columns aren't what they were at all.
    void start_anew();
    // Views know now what the list has.
    void flush();
    // The list goes; nothing is shown from now on.
    void detach();

  private:
    void flush_later();
    void tell_written();

    const forms::tree_list* list_;
    int told_rows_ = 0;
    int told_columns_ = 0;
    int first_written_ = -1;
    int last_written_ = -1;
    bool flush_waits_ = false;
};

} // namespace zerdix::dialogs_qt

#endif
