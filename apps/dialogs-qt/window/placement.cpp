// SPDX-License-Identifier: MIT
// Size, place and focus of a dialog's window.
#include "window/dialog_window.h"

#include <algorithm>
#include <utility>

#include <QCursor>
#include <QGuiApplication>
#include <QLayout>
#include <QScreen>

namespace zerdix::dialogs_qt {

namespace {

QScreen* screen_of(const QWindow* owner) {
    if (owner != nullptr && owner->screen() != nullptr)
        return owner->screen();
    QScreen* under_mouse = QGuiApplication::screenAt(QCursor::pos());
    return under_mouse != nullptr ? under_mouse : QGuiApplication::primaryScreen();
}

// `size` in the middle of `room`.
QPoint middle(const QRect& room, const QSize& size) {
    return room.center() - QPoint(size.width(), size.height()) / 2;
}

// A word or two make no window.
QSize least_size(const QWidget& window) {
    const auto metrics = window.fontMetrics();
    return {30 * metrics.averageCharWidth(), 4 * metrics.lineSpacing()};
}

// From the innermost to the outermost; the toolkit doesn't do it for a window that isn't visible.
void settle_layouts(QWidget& window) {
    const auto inner = window.findChildren<QWidget*>();
    for (auto one = inner.rbegin(); one != inner.rend(); ++one)
        if ((*one)->layout() != nullptr)
            (*one)->layout()->activate();
    window.layout()->activate();
}

bool takes_focus(const QWidget* widget) {
    return widget->isEnabled() && !widget->isHidden() && (widget->focusPolicy() & Qt::TabFocus);
}

} // namespace

QRect dialog_window::room() const {
    return screen_of(isVisible() ? windowHandle() : owner_.data())->availableGeometry();
}

void dialog_window::fit_later() {
    if (std::exchange(fit_waits_, true))
        return;
    gate_.later(this, [this] {
        fit_waits_ = false;
        fit();
    });
}

// It grows for what it has to show and doesn't shrink again, so that nothing jumps about.
void dialog_window::fit() {
    settle_layouts(*this);
    QSize size = sizeHint().expandedTo(least_size(*this)).expandedTo({planned_width_, 0});
    if (isVisible())
        size = size.expandedTo(this->size());
    resize(size.boundedTo(room().size()));
    if (isVisible())
        keep_on_screen();
}

void dialog_window::keep_on_screen() {
    const QRect all = room();
    const QRect frame = frameGeometry();
    const int right = std::max(all.right() - frame.width() + 1, all.left());
    const int bottom = std::max(all.bottom() - frame.height() + 1, all.top());
    const QPoint place(std::clamp(frame.x(), all.left(), right),
                       std::clamp(frame.y(), all.top(), bottom));
    if (place != frame.topLeft())
        move(place);
}

// Over the owner, in its lower half where what it shows stays in sight, or in the middle of the
// screen.
QPoint dialog_window::first_place() const {
    if (centered_ || owner_ == nullptr || !owner_->isVisible())
        return middle(room(), size());
    QRect below = owner_->frameGeometry();
    if (below.height() > 2 * height())
        below.setTop(below.center().y());
    return middle(below, size());
}

void dialog_window::present() {
    if (dialog_ == nullptr || dialog_->has_ended())
        return;
    if (!isVisible()) {
        fit();
        move(first_place());
        handle()->setTransientParent(owner_);
        keep_on_screen();
        focus_something();
        show();
    }
    raise();
    activateWindow();
}

void dialog_window::focus_something() {
    if (focusWidget() != nullptr && takes_focus(focusWidget()))
        return;
    const auto first = std::find_if(controls_.begin(), controls_.end(),
                                    [](const auto& one) { return takes_focus(one->widget()); });
    if (first != controls_.end())
        (*first)->widget()->setFocus(Qt::OtherFocusReason);
}

} // namespace zerdix::dialogs_qt
