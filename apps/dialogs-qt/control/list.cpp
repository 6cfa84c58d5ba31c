// SPDX-License-Identifier: MIT
#include "control/list.h"

#include <QHeaderView>
#include <QMenu>
#include <QScopedValueRollback>
#include <QScrollBar>

#include "control/unicode.h"

namespace zerdix::dialogs_qt {

list_control::list_control(window_port& window, forms::control& control, QWidget* parent)
    : control_widget(window, control,
                     new list_table(new list_model(control.list.get(), parent), parent)),
      model_(static_cast<list_model*>(table().model())) {
    const auto& form = *window.dialog().form();
    table().set_room(form.list_characters, form.list_rows);
    list().view = this;
    listen();
    if (!form.list_menu.empty())
        offer_menu();
}

list_control::~list_control() = default;

void list_control::detach() {
    list().view = nullptr;
    quiet_ = true;
    model_->detach();
}

void list_control::listen() {
    table().row_entered = [this](int row) {
        window_.tell([id = id(), row](auto& dialog) { dialog.user_double_clicks(id, row); });
    };
    QObject::connect(&table(), &QTableView::doubleClicked, &table(),
                     [this](const QModelIndex& at) { table().row_entered(at.row()); });
    table().key_pressed = [this](int key) {
        window_.tell_later([id = id(), key](auto& dialog) { dialog.user_presses_key(id, key); });
    };
    const auto scrolled = [this] {
        if (!quiet_)
            window_.tell_later([id = id()](auto& dialog) { dialog.user_scrolls(id); });
    };
    table().pushed_beyond_end = scrolled;
    QObject::connect(table().verticalScrollBar(), &QScrollBar::valueChanged, &table(), scrolled);
    QObject::connect(table().selectionModel(), &QItemSelectionModel::selectionChanged, &table(),
                     [this] { selected_by_user(); });
}

// On its header and its rows, and by the menu key.
void list_control::offer_menu() {
    for (QAbstractScrollArea* part :
         {static_cast<QAbstractScrollArea*>(&table()),
          static_cast<QAbstractScrollArea*>(table().horizontalHeader())}) {
        part->setContextMenuPolicy(Qt::CustomContextMenu);
        QObject::connect(
            part, &QWidget::customContextMenuRequested, &table(),
            [this, part](const QPoint& at) { open_menu(part->viewport()->mapToGlobal(at)); });
    }
}

void list_control::open_menu(const QPoint& place) {
    auto* menu = new QMenu(&table());
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const auto& [command, text] : window_.dialog().form()->list_menu) {
        const auto* line = menu->addAction(to_unicode(window_.dialog().string_text(text)));
        QObject::connect(line, &QAction::triggered, &table(), [this, command = command] {
            window_.tell_later([command](auto& dialog) { dialog.on_command(command); });
        });
    }
    menu->popup(place);
}

void list_control::selected_by_user() {
    if (quiet_)
        return;
    const int row = table().selected_row();
    window_.tell([id = id(), row](auto& dialog) { dialog.user_selects_row(id, row); });
}

void list_control::row_added(std::int32_t) {
    model_->row_added();
}

void list_control::cell_written(std::int32_t row, std::int32_t) {
    model_->row_written(row);
}

void list_control::rows_removed() {
    const QScopedValueRollback quiet(quiet_, true);
    model_->start_anew();
}

void list_control::columns_changed() {
    const QScopedValueRollback quiet(quiet_, true);
    model_->start_anew();
    table().use_fonts(list().font, list().title_font);
    for (int i = 0; i < model_->columnCount(); ++i)
        table().setColumnWidth(i, list().columns[static_cast<std::size_t>(i)].width);
    selection_changed();
}

void list_control::selection_changed() {
    const QScopedValueRollback quiet(quiet_, true);
    model_->flush();
    table().clearSelection();
    if (list().selected_row() >= 0)
        table().selectRow(list().selected_row());
}

void list_control::bring_into_view(std::int32_t row) {
    const QScopedValueRollback quiet(quiet_, true);
    model_->flush();
    table().scrollTo(model_->index(row, 0));
}

bool list_control::in_view(std::int32_t row, forms::row_rectangle& place) {
    const QScopedValueRollback quiet(quiet_, true);
    model_->flush();
    const QRect room = table().viewport()->rect();
    QRect row_room = table().visualRect(model_->index(row, 0));
    row_room.setLeft(room.left());
    row_room.setRight(room.right());
    place = {row_room.left(), row_room.top(), row_room.right() + 1, row_room.bottom() + 1};
    return table().isVisible() && row_room.intersects(room);
}

void list_control::note_width() {
    width_ = table().viewport()->width();
}

std::int32_t list_control::client_width() {
    return table().isVisible() ? table().viewport()->width() : width_;
}

std::int32_t list_control::column_width(std::int32_t column) {
    return table().columnWidth(column);
}

} // namespace zerdix::dialogs_qt
