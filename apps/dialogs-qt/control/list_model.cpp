// SPDX-License-Identifier: MIT
#include "control/list_model.h"

#include <algorithm>

#include "control/unicode.h"

namespace zerdix::dialogs_qt {

list_model::list_model(const forms::tree_list* list, QObject* parent)
    : QAbstractTableModel(parent), list_(list) {}

int list_model::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : told_rows_;
}

int list_model::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : told_columns_;
}

QVariant list_model::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole || list_ == nullptr || !index.isValid())
        return {};
    const auto row = static_cast<std::size_t>(index.row());
    const auto column = static_cast<std::size_t>(index.column());
    if (row >= list_->rows.size() || column >= list_->rows[row].size())
        return {};
    return to_unicode(list_->rows[row][column]);
}

QVariant list_model::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || list_ == nullptr || section < 0)
        return {};
    const auto column = static_cast<std::size_t>(section);
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
    if (role != Qt::DisplayRole || column >= list_->titles.size())
        return {};
    return to_unicode(list_->titles[column]);
}

void list_model::row_written(int row) {
    if (row >= told_rows_)
        return;
    first_written_ = first_written_ < 0 ? row : std::min(first_written_, row);
    last_written_ = std::max(last_written_, row);
    flush_later();
}

void list_model::start_anew() {
    beginResetModel();
    told_rows_ = list_ != nullptr ? list_->row_count() : 0;
    told_columns_ = list_ != nullptr ? static_cast<int>(list_->columns.size()) : 0;
    first_written_ = last_written_ = -1;
    endResetModel();
}

void list_model::flush_later() {
    if (flush_waits_)
        return;
    flush_waits_ = true;
    QMetaObject::invokeMethod(
        this, [this] { flush(); }, Qt::QueuedConnection);
}

void list_model::tell_written() {
    if (first_written_ < 0)
        return;
    Q_EMIT dataChanged(index(first_written_, 0), index(last_written_, told_columns_ - 1));
    first_written_ = last_written_ = -1;
}

void list_model::flush() {
    flush_waits_ = false;
    if (list_ == nullptr)
        return;
    tell_written();
    const int rows = list_->row_count();
    if (rows <= told_rows_)
        return;
    beginInsertRows({}, told_rows_, rows - 1);
    told_rows_ = rows;
    endInsertRows();
}

void list_model::detach() {
    list_ = nullptr;
    start_anew();
}

} // namespace zerdix::dialogs_qt
