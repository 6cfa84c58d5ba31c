// SPDX-License-Identifier: MIT
#include "control/list_table.h"

#include <algorithm>

#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include "control/fonts.h"

namespace zerdix::dialogs_qt {

namespace {

constexpr int row_spacing = 4;
constexpr int narrowest_column = 16;
// A small screen leaves at least these, and two thirds of the width.
constexpr int fewest_rows = 3;

// The focus alone selects nothing; the first step then is the row that has it.
bool is_first_step(const QKeyEvent& event) {
    const int key = event.key();
    return key == Qt::Key_Down || key == Qt::Key_Up || key == Qt::Key_Home ||
           key == Qt::Key_PageDown || key == Qt::Key_PageUp;
}

} // namespace

list_table::list_table(list_model* model, QWidget* parent) : QTableView(parent) {
    setModel(model);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setShowGrid(false);
    setWordWrap(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(1);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setMinimumSectionSize(narrowest_column);
    use_fonts(nullptr, nullptr);
}

void list_table::use_fonts(const forms::font_description* rows,
                           const forms::font_description* titles) {
    if (rows != nullptr)
        setFont(font_of(*rows));
    if (titles != nullptr)
        horizontalHeader()->setFont(font_of(*titles));
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + row_spacing);
    updateGeometry();
}

void list_table::set_room(int characters, int rows) {
    text_width_ = characters * fontMetrics().averageCharWidth();
    rows_ = rows;
}

int list_table::selected_row() const {
    const auto rows = selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.front().row();
}

int list_table::height_of(int rows) const {
    return rows * verticalHeader()->defaultSectionSize() + horizontalHeader()->sizeHint().height() +
           2 * frameWidth();
}

QSize list_table::sizeHint() const {
    return {text_width_ + verticalScrollBar()->sizeHint().width() + 2 * frameWidth(),
            height_of(rows_)};
}

QSize list_table::minimumSizeHint() const {
    return {sizeHint().width() * 2 / 3, height_of(std::min(rows_, fewest_rows))};
}

QModelIndex list_table::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    const int last = model()->rowCount() - 1;
    const int column = horizontalHeader()->logicalIndexAt(0);
    if (action == MoveHome)
        return model()->index(0, column);
    if (action == MoveEnd)
        return model()->index(last, column);
    if (action == MoveLeft || action == MoveRight) {
        auto* bar = horizontalScrollBar();
        bar->triggerAction(action == MoveLeft ? QAbstractSlider::SliderSingleStepSub
                                              : QAbstractSlider::SliderSingleStepAdd);
        return currentIndex();
    }
    return QTableView::moveCursor(action, modifiers);
}

void list_table::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (key_pressed)
        key_pressed(event->key());
    if (enter && selected_row() >= 0) {
        row_entered(selected_row());
        return;
    }
    if (is_first_step(*event) && selected_row() < 0 && model()->rowCount() > 0) {
        selectRow(event->key() == Qt::Key_Home ? 0 : std::max(currentIndex().row(), 0));
        return;
    }
    const bool down = event->key() == Qt::Key_PageDown || event->key() == Qt::Key_Down;
    const auto before = currentIndex();
    QTableView::keyPressEvent(event);
    if (down && currentIndex().row() == before.row())
        pushed_beyond_end();
}

void list_table::wheelEvent(QWheelEvent* event) {
    const int before = verticalScrollBar()->value();
    QTableView::wheelEvent(event);
    if (event->angleDelta().y() < 0 && verticalScrollBar()->value() == before)
        pushed_beyond_end();
}

} // namespace zerdix::dialogs_qt
