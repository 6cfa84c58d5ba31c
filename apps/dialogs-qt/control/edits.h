// SPDX-License-Identifier: MIT
// Edits of one line and of several.
#ifndef ZERDIX_CONTROL_EDITS_H
#define ZERDIX_CONTROL_EDITS_H

#include "control/control_widget.h"

namespace zerdix::dialogs_qt {

class edit_control final : public control_widget {
  public:
    edit_control(window_port& window, forms::control& control, QWidget* parent);

    bool grows_wide() const override;

  private:
    void refresh_content() override;
    void edited(const QString& text);
};

// A text that the user reads. What is typed into one that isn't read-only goes the edit's way.
class text_control final : public control_widget {
  public:
    text_control(window_port& window, forms::control& control, QWidget* parent);

    bool grows_wide() const override { return true; }

  private:
    void refresh_content() override;
};

} // namespace zerdix::dialogs_qt

#endif
