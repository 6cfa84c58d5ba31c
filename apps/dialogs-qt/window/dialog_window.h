// SPDX-License-Identifier: MIT
// A dialog in a window.
#ifndef ZERDIX_WINDOW_DIALOG_WINDOW_H
#define ZERDIX_WINDOW_DIALOG_WINDOW_H

#include <map>

#include <QDialog>
#include <QEventLoop>
#include <QPointer>

#include "control/control_widget.h"
#include "window/form_controls.h"
#include "window/input_gate.h"

namespace zerdix::dialogs_qt {

class dialog_window final : public QDialog, private window_port {
  public:
    dialog_window(forms::dialog_view& dialog, input_gate& gate);
    ~dialog_window() override;

    // The dialog goes, and its controls with it. The window deletes itself, now or when its
    // handlers are done.
    void detach();

    forms::dialog_view* view() { return dialog_; }
    // Made when it is first asked for; the window's flags don't change afterwards.
    QWindow* handle();
    // Stays in front of it, and of all others where the owner does.
    void set_owner(QWindow* owner);
    QWindow* owner() const { return owner_; }
    void set_centered() { centered_ = true; }
    // In its place, in front, with the focus where it belongs.
    void present();
    // Runs until the dialog has ended, or the program does.
    void run();

    void refresh_control(std::int32_t id);
    void focus_control(std::int32_t id);
    void post_command(std::int32_t command);
    void reject() override;

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    forms::dialog_view& dialog() override { return *dialog_; }
    void tell(const action& what) override;
    void tell_later(const action& what) override;
    bool press(std::int32_t button) override;
    QButtonGroup* radio_group(int number) override;

    void settle();
    void fit();
    void fit_later();
    QRect room() const;
    QPoint first_place() const;
    void keep_on_screen();
    void focus_something();
    control_widget* find(std::int32_t id);

    forms::dialog_view* dialog_;
    input_gate& gate_;
    form_controls controls_;
    std::map<int, QButtonGroup*> groups_;
    QPointer<QWindow> owner_;
    QEventLoop* loop_ = nullptr;
    int updating_ = 0;
    int handlers_ = 0;
    int planned_width_ = 0;
    bool centered_ = false;
    bool fit_waits_ = false;
};

} // namespace zerdix::dialogs_qt

#endif
