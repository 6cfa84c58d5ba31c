// SPDX-License-Identifier: MIT
// Says in the window in front that the thread waits for the server, and keeps all windows painted
// meanwhile. Nothing else happens in them.
#ifndef ZERDIX_WINDOW_CALL_NOTICE_H
#define ZERDIX_WINDOW_CALL_NOTICE_H

#include <functional>
#include <memory>

#include <QElapsedTimer>
#include <QLabel>
#include <QPointer>

#include "window/dialog_window.h"

namespace zerdix::dialogs_qt {

class call_notice final : public QObject {
  public:
    // With `pumps` the application is ours, and events other than the user's are let through.
    call_notice(input_gate& gate, bool pumps) : gate_(gate), pumps_(pumps) {}

    // Which window says it; null for none.
    std::function<dialog_window*()> speaker;

    void call_begins();
    void call_goes_on();
    void call_ended();

    // A window that has just come shows what is in it.
    void paint(QWidget& window);

  private:
    void show_when_due();
    void show_on(dialog_window& window);
    void let_painted();
    void hide();

    input_gate& gate_;
    bool pumps_;
    std::unique_ptr<input_gate::shut> shut_;
    // Since the thread last looked after its windows.
    QElapsedTimer busy_;
    QElapsedTimer painted_;
    QPointer<QLabel> label_;
};

} // namespace zerdix::dialogs_qt

#endif
