// SPDX-License-Identifier: MIT
// Decides what reaches the dialogs: nothing while a remote call runs, no input into a window that
// is disabled, and posted commands once the handler that posted them is done.
//
// A disabled window looks as before, as windows do that wait for a dialog in front of them.
#ifndef ZERDIX_WINDOW_INPUT_GATE_H
#define ZERDIX_WINDOW_INPUT_GATE_H

#include <deque>
#include <functional>
#include <vector>

#include <QObject>
#include <QPointer>
#include <QWindow>

namespace zerdix::dialogs_qt {

class input_gate final : public QObject {
  public:
    input_gate();
    ~input_gate() override;

    // While one of them lives nothing passes.
    class shut {
      public:
        explicit shut(input_gate& gate) : gate_(gate) { ++gate_.shut_; }
        ~shut() { gate_.open(); }
        shut(const shut&) = delete;
        shut& operator=(const shut&) = delete;

      private:
        input_gate& gate_;
    };

    bool is_shut() const { return shut_ != 0; }
    // Runs once the loop comes round with the gate open; forgotten when `owner` goes before.
    void later(QObject* owner, std::function<void()> action);

    void disable(QWindow* window);
    void enable(QWindow* window);
    bool is_disabled(const QWindow* window) const;

    // Somebody pressed the mouse on a disabled window.
    std::function<void()> disabled_window_pressed;

    bool eventFilter(QObject* watched, QEvent* event) override;
    bool event(QEvent* event) override;

  private:
    struct delayed {
        QPointer<QObject> owner;
        std::function<void()> action;
    };

    void open();
    void ring();

    int shut_ = 0;
    bool rung_ = false;
    std::deque<delayed> delayed_;
    std::vector<QPointer<QWindow>> disabled_;
};

} // namespace zerdix::dialogs_qt

#endif
