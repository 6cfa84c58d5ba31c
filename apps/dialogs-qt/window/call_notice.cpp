// SPDX-License-Identifier: MIT
#include "window/call_notice.h"

#include <QAccessible>
#include <QApplication>
#include <QThread>

#include "control/unicode.h"

namespace zerdix::dialogs_qt {

namespace {

constexpr qint64 patience_ms = 150;
constexpr qint64 between_paintings_ms = 80;
constexpr qint64 time_to_appear_ms = 60;
constexpr std::int32_t text_server_is_asked = 40000;

// A dialog that asks for nothing is there for the waiting.
bool says_so_itself(dialog_window& window) {
    return window.view()->form()->default_button == 0;
}

} // namespace

void call_notice::call_begins() {
    shut_ = std::make_unique<input_gate::shut>(gate_);
    if (!busy_.isValid()) {
        busy_.start();
        gate_.later(this, [this] { hide(); });
    }
    show_when_due();
}

void call_notice::call_goes_on() {
    show_when_due();
}

void call_notice::call_ended() {
    shut_.reset();
}

void call_notice::show_when_due() {
    if (!busy_.hasExpired(patience_ms))
        return;
    if (painted_.isValid() && !painted_.hasExpired(between_paintings_ms))
        return;
    dialog_window* window = speaker();
    const bool is_new = label_ == nullptr || label_->parentWidget() != window;
    if (window != nullptr && is_new && !says_so_itself(*window))
        show_on(*window);
    let_painted();
    painted_.start();
}

// At the lower edge, over whatever is there: nothing else moves for it.
void call_notice::show_on(dialog_window& window) {
    delete label_;
    label_ = new QLabel(to_unicode(window.view()->string_text(text_server_is_asked)), &window);
    label_->setTextFormat(Qt::PlainText);
    label_->setAutoFillBackground(true);
    label_->setBackgroundRole(QPalette::ToolTipBase);
    label_->setForegroundRole(QPalette::ToolTipText);
    label_->setFrameShape(QFrame::StyledPanel);
    label_->setMargin(label_->fontMetrics().height() / 3);
    label_->adjustSize();
    label_->move((window.width() - label_->width()) / 2, window.height() - label_->height());
    label_->show();
    QAccessibleEvent alert(label_, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void call_notice::let_painted() {
    if (pumps_)
        return QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    for (QWidget* window : QApplication::topLevelWidgets())
        if (dynamic_cast<dialog_window*>(window) != nullptr && window->isVisible())
            window->repaint();
}

void call_notice::hide() {
    busy_.invalidate();
    painted_.invalidate();
    delete label_;
}

void call_notice::paint(QWidget& window) {
    const input_gate::shut shut(gate_);
    QElapsedTimer waiting;
    waiting.start();
    while (pumps_ && !window.windowHandle()->isExposed() &&
           !waiting.hasExpired(time_to_appear_ms)) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        QThread::msleep(1);
    }
    window.repaint();
}

} // namespace zerdix::dialogs_qt
