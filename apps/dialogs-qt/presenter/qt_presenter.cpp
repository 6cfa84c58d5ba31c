// SPDX-License-Identifier: MIT
#include "presenter/qt_presenter.h"

#include <algorithm>

#include <QApplication>
#include <QThread>

namespace zerdix::dialogs_qt {

qt_presenter::qt_presenter(application whose)
    : whose_(whose), notice_(gate_, whose == application::ours) {
    notice_.speaker = [this] { return in_front(); };
    gate_.disabled_window_pressed = [this] {
        if (dialog_window* window = in_front())
            window->present();
    };
}

bool qt_presenter::on_own_thread() const {
    return QCoreApplication::instance() != nullptr &&
           QCoreApplication::instance()->thread() == QThread::currentThread();
}

dialog_window* qt_presenter::own(forms::window_handle window) {
    const auto found = std::find(windows_.begin(), windows_.end(), window);
    return found != windows_.end() ? *found : nullptr;
}

QWindow* qt_presenter::any(forms::window_handle window) {
    dialog_window* ours = own(window);
    return ours != nullptr ? ours->handle() : foreign_.find(window);
}

// The newest one that the user can do something with.
dialog_window* qt_presenter::in_front() {
    const auto found = std::find_if(windows_.rbegin(), windows_.rend(), [this](auto* one) {
        return one->isVisible() && !gate_.is_disabled(one->windowHandle());
    });
    return found != windows_.rend() ? *found : nullptr;
}

forms::window_handle qt_presenter::create(forms::dialog_view& dialog, forms::window_handle owner) {
    if (!on_own_thread())
        return nullptr;
    auto* window = new dialog_window(dialog, gate_);
    window->set_owner(any(owner));
    // The window manager of X keeps the user from windows that the toolkit knows nothing about.
    if (foreign_.is_stand_in(any(owner)))
        window->setWindowModality(Qt::WindowModal);
    windows_.push_back(window);
    return window;
}

void qt_presenter::destroy(forms::window_handle window) {
    dialog_window* gone = own(window);
    if (gone == nullptr)
        return;
    // Not every screen has somebody who gives the focus to the window behind.
    const QPointer<QWindow> behind(gone->isActiveWindow() ? gone->owner() : nullptr);
    std::erase(windows_, gone);
    gone->detach();
    if (behind != nullptr && !gate_.is_disabled(behind))
        behind->requestActivate();
}

forms::loop_end qt_presenter::run_modal(forms::dialog_view& dialog) {
    dialog_window* window = own(dialog.window());
    if (window == nullptr || quitting_)
        return forms::loop_end::program_quits;
    window->run();
    return dialog.has_ended() ? forms::loop_end::dialog_ended : forms::loop_end::program_quits;
}

void qt_presenter::show(forms::window_handle window, bool visible) {
    dialog_window* shown = own(window);
    if (shown == nullptr)
        return;
    if (!visible)
        return shown->hide();
    shown->present();
    notice_.paint(*shown);
}

void qt_presenter::center(forms::window_handle window) {
    if (dialog_window* shown = own(window))
        shown->set_centered();
}

void qt_presenter::make_topmost(forms::window_handle window) {
    if (dialog_window* shown = own(window))
        shown->setWindowFlag(Qt::WindowStaysOnTopHint);
}

bool qt_presenter::is_enabled(forms::window_handle window) {
    const QWindow* known = any(window);
    return known != nullptr && !gate_.is_disabled(known);
}

void qt_presenter::enable(forms::window_handle window, bool enabled) {
    if (enabled)
        gate_.enable(any(window));
    else
        gate_.disable(any(window));
}

bool qt_presenter::is_active(forms::window_handle window) {
    const QWindow* known = any(window);
    return known != nullptr && known == QGuiApplication::focusWindow();
}

void qt_presenter::activate(forms::window_handle window) {
    if (dialog_window* ours = own(window))
        return ours->present();
    if (QWindow* known = any(window))
        known->requestActivate();
}

void qt_presenter::control_changed(forms::dialog_view& dialog, std::int32_t id) {
    if (dialog_window* window = own(dialog.window()))
        window->refresh_control(id);
}

void qt_presenter::set_focus(forms::dialog_view& dialog, std::int32_t id) {
    if (dialog_window* window = own(dialog.window()))
        window->focus_control(id);
}

void qt_presenter::post_command(forms::window_handle window, std::int32_t command) {
    if (dialog_window* target = own(window))
        target->post_command(command);
}

void qt_presenter::wait_cursor(bool on) {
    if (on == waiting_)
        return;
    waiting_ = on;
    if (on)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}

} // namespace zerdix::dialogs_qt
