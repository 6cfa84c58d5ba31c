#ifndef ZERDIX_CONTROL_TYPED_EDIT_H
#define ZERDIX_CONTROL_TYPED_EDIT_H

#include <QLineEdit>

#include "control/control_widget.h"

namespace zerdix::dialogs_qt {

// Swallows typed characters that the dialog doesn't take. What is pasted goes in as it stands.
class typed_edit final : public QLineEdit {
  public:
    typed_edit(window_port& window, std::int32_t id, QWidget* parent);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

  private:
    bool may_type(const QString& text) const;
    // The button that Enter presses while the edit holds text; 0 for the dialog's own.
    std::int32_t entry_button() const;

    window_port& window_;
    std::int32_t id_;
};

} // namespace zerdix::dialogs_qt

#endif
