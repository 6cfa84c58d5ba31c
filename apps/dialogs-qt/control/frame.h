// SPDX-License-Identifier: MIT
#ifndef ZERDIX_CONTROL_FRAME_H
#define ZERDIX_CONTROL_FRAME_H

#include "control/control_widget.h"

namespace zerdix::dialogs_qt {

// Holds other controls. It has a border only with a caption, which can't come later.
class frame_control final : public control_widget {
  public:
    frame_control(window_port& window, forms::control& control, QWidget* parent);

  private:
    void refresh_content() override;
};

} // namespace zerdix::dialogs_qt

#endif
