// SPDX-License-Identifier: MIT
#ifndef ZERDIX_CONTROL_COMBO_H
#define ZERDIX_CONTROL_COMBO_H

#include "control/control_widget.h"

namespace zerdix::dialogs_qt {

class combo_control final : public control_widget {
  public:
    combo_control(window_port& window, forms::control& control, QWidget* parent);

    bool grows_wide() const override { return true; }

  private:
    void refresh_content() override;
    void add_new_items();
};

} // namespace zerdix::dialogs_qt

#endif
