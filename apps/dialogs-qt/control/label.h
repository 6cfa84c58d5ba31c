// SPDX-License-Identifier: MIT
#ifndef ZERDIX_CONTROL_LABEL_H
#define ZERDIX_CONTROL_LABEL_H

#include "control/control_widget.h"

namespace zerdix::dialogs_qt {

// Its text, or its caption where it has none; one with an accelerator leads to the next control.
class label_control final : public control_widget {
  public:
    label_control(window_port& window, forms::control& control, QWidget* parent);

    void lead_to(QWidget* next);

  private:
    void refresh_content() override;
    void wrap();

    bool leads_ = false;
};

} // namespace zerdix::dialogs_qt

#endif
