// SPDX-License-Identifier: MIT
#ifndef ZERDIX_CONTROL_TYPED_EDIT_H
#define ZERDIX_CONTROL_TYPED_EDIT_H

#include <QLineEdit>

#include "control/control_widget.h"

namespace zerdix::dialogs_qt {

// Swallows typed characters that the dialog doesn't take. What is pasted goes in as it stands. One
// that needs the user's attention has a coloured edge.
class typed_edit final : public QLineEdit {
  public:
    typed_edit(window_port& window, std::int32_t id, QWidget* parent);

    void set_marked(bool marked);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

  private:
    bool may_type(const QString& text) const;
    // The button that Enter presses while the edit holds text; 0 for the dialog's own.
    std::int32_t entry_button() const;

    window_port& window_;
    std::int32_t id_;
    bool marked_ = false;
};

} // namespace zerdix::dialogs_qt

#endif
