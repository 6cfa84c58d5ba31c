// SPDX-License-Identifier: MIT
#ifndef ZERDIX_CONTROL_LIST_H
#define ZERDIX_CONTROL_LIST_H

#include "control/control_widget.h"
#include "control/list_table.h"
#include "forms/tree_list.h"

namespace zerdix::dialogs_qt {

class list_control final : public control_widget, private forms::tree_list_view {
  public:
    list_control(window_port& window, forms::control& control, QWidget* parent);
    ~list_control() override;

    void detach() override;
    bool grows_high() const override { return true; }
    bool grows_wide() const override { return true; }
    // The room for columns, once the window knows how wide it will be.
    void note_width();

  private:
    void refresh_content() override {}

    void row_added(std::int32_t row) override;
    void cell_written(std::int32_t row, std::int32_t column) override;
    void rows_removed() override;
    void columns_changed() override;
    void selection_changed() override;
    void bring_into_view(std::int32_t row) override;
    bool in_view(std::int32_t row, forms::row_rectangle& place) override;
    std::int32_t client_width() override;
    std::int32_t column_width(std::int32_t column) override;

    forms::tree_list& list() { return *control_.list; }
    list_table& table() { return *static_cast<list_table*>(widget()); }
    void listen();
    void offer_menu();
    void open_menu(const QPoint& place);
    void selected_by_user();

    list_model* model_;
    int width_ = 0;
    // The list changes what the table shows; that is nothing that the user did.
    bool quiet_ = false;
};

} // namespace zerdix::dialogs_qt

#endif
