// SPDX-License-Identifier: MIT
#include "window/input_gate.h"

#include <algorithm>
#include <utility>

#include <QCoreApplication>
#include <QEvent>

namespace zerdix::dialogs_qt {

namespace {

bool is_user_input(QEvent::Type type) {
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletRelease:
    case QEvent::DragEnter:
    case QEvent::Drop:
    case QEvent::Close:
        return true;
    default:
        return false;
    }
}

} // namespace

input_gate::input_gate() {
    QCoreApplication::instance()->installEventFilter(this);
}

input_gate::~input_gate() = default;

void input_gate::later(QObject* owner, std::function<void()> action) {
    delayed_.push_back({owner, std::move(action)});
    ring();
}

void input_gate::ring() {
    if (shut_ == 0 && !rung_ && !delayed_.empty()) {
        rung_ = true;
        QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    }
}

void input_gate::open() {
    --shut_;
    ring();
}

// One piece at a time: each may run a loop of its own, in which the others go on.
bool input_gate::event(QEvent* event) {
    if (event->type() != QEvent::User)
        return QObject::event(event);
    rung_ = false;
    if (shut_ != 0 || delayed_.empty())
        return true;
    const delayed next = std::move(delayed_.front());
    delayed_.pop_front();
    ring();
    if (next.owner != nullptr)
        next.action();
    return true;
}

void input_gate::disable(QWindow* window) {
    if (window != nullptr && !is_disabled(window))
        disabled_.emplace_back(window);
}

void input_gate::enable(QWindow* window) {
    std::erase_if(disabled_, [window](const auto& one) { return one == nullptr || one == window; });
}

bool input_gate::is_disabled(const QWindow* window) const {
    return std::any_of(disabled_.begin(), disabled_.end(),
                       [window](const auto& one) { return one == window; });
}

// Input reaches a window before any widget in it. What ShortcutOverride is accepted for isn't
// looked up among the accelerators.
bool input_gate::eventFilter(QObject* watched, QEvent* event) {
    if (!is_user_input(event->type()) || !watched->isWindowType())
        return false;
    if (!is_disabled(static_cast<QWindow*>(watched)))
        return false;
    event->setAccepted(event->type() == QEvent::ShortcutOverride);
    if (event->type() == QEvent::MouseButtonPress && disabled_window_pressed)
        disabled_window_pressed();
    return true;
}

} // namespace zerdix::dialogs_qt
