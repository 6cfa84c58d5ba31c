// SPDX-License-Identifier: MIT
#ifndef ZERDIX_CONTROL_LIST_TABLE_H
#define ZERDIX_CONTROL_LIST_TABLE_H

#include <functional>

#include <QTableView>

#include "control/list_model.h"
#include "forms/presenter.h"

namespace zerdix::dialogs_qt {

// Rows of equal height, of which one is selected; it is moved in by rows, not by cells.
class list_table final : public QTableView {
  public:
    list_table(list_model* model, QWidget* parent);

    // Enter on a row.
    std::function<void(int row)> row_entered;
    // The user moves down where the table can't.
    std::function<void()> pushed_beyond_end;
    std::function<void(int key)> key_pressed;

    // Null for the desktop's own.
    void use_fonts(const forms::font_description* rows, const forms::font_description* titles);
    // Of the table in a window: `characters` of the present font wide, whatever the rows' own, and
    // high enough for `rows` if there is room.
    void set_room(int characters, int rows);
    int selected_row() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    int height_of(int rows) const;

    int text_width_ = 0;
    int rows_ = 10;
};

} // namespace zerdix::dialogs_qt

#endif
