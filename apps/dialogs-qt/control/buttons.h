// SPDX-License-Identifier: MIT
// Push buttons, radio buttons and check boxes.
#ifndef ZERDIX_CONTROL_BUTTONS_H
#define ZERDIX_CONTROL_BUTTONS_H

#include "control/control_widget.h"

class QAbstractButton;

namespace zerdix::dialogs_qt {

class push_button final : public control_widget {
  public:
    push_button(window_port& window, forms::control& control, QWidget* parent);

  private:
    void refresh_content() override;
};

// The dialog decides what is checked; a click is only told.
class checkable : public control_widget {
  public:
    checkable(window_port& window, forms::control& control, QAbstractButton* widget);

  private:
    void refresh_content() override;
    void clicked();
};

class radio_button final : public checkable {
  public:
    radio_button(window_port& window, forms::control& control, QWidget* parent);
};

class check_box final : public checkable {
  public:
    check_box(window_port& window, forms::control& control, QWidget* parent);
};

} // namespace zerdix::dialogs_qt

#endif
