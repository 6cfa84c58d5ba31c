// SPDX-License-Identifier: MIT
#include "window/dialog_window.h"

#include <QAbstractButton>
#include <QAbstractEventDispatcher>
#include <QButtonGroup>
#include <QCloseEvent>
#include <QScopedValueRollback>
#include <QThread>
#include <QTimer>

#include "control/unicode.h"

namespace zerdix::dialogs_qt {

dialog_window::dialog_window(forms::dialog_view& dialog, input_gate& gate)
    : dialog_(&dialog), gate_(gate) {
    const QScopedValueRollback updating(updating_, updating_ + 1);
    const auto& form = *dialog.form();
    setObjectName(QString::number(form.id));
    setWindowTitle(to_unicode(dialog.caption()));
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                   Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
    QFont text = font();
    text.setPointSizeF(text.pointSizeF() * form.text_percent / 100);
    setFont(text);
    controls_ = make_form(*this, *this, dialog);
    planned_width_ = plan_lists(*this, controls_, room().size());
    for (const auto& one : controls_)
        one->refresh();
}

// Children that go mustn't speak to a dialog that isn't there.
dialog_window::~dialog_window() {
    for (QObject* child : findChildren<QObject*>())
        child->blockSignals(true);
}

void dialog_window::detach() {
    ++updating_;
    for (const auto& one : controls_)
        one->detach();
    dialog_ = nullptr;
    hide();
    if (handlers_ == 0)
        delete this;
    else
        deleteLater();
}

QWindow* dialog_window::handle() {
    winId();
    return windowHandle();
}

void dialog_window::set_owner(QWindow* owner) {
    owner_ = owner;
    if (owner != nullptr && owner->flags().testFlag(Qt::WindowStaysOnTopHint))
        setWindowFlag(Qt::WindowStaysOnTopHint);
}

control_widget* dialog_window::find(std::int32_t id) {
    for (const auto& one : controls_)
        if (one->id() == id)
            return one.get();
    return nullptr;
}

QButtonGroup* dialog_window::radio_group(int number) {
    auto& group = groups_[number];
    if (group == nullptr)
        group = new QButtonGroup(this);
    return group;
}

// What comes while nothing may reach the dialog isn't lost.
void dialog_window::tell(const action& what) {
    if (updating_ != 0 || dialog_ == nullptr)
        return;
    if (gate_.is_shut())
        return tell_later(what);
    const QPointer<dialog_window> alive(this);
    ++handlers_;
    what(*dialog_);
    if (alive == nullptr)
        return;
    --handlers_;
    settle();
}

void dialog_window::tell_later(const action& what) {
    gate_.later(this, [this, what] { tell(what); });
}

void dialog_window::post_command(std::int32_t command) {
    tell_later([command](auto& dialog) { dialog.on_command(command); });
}

// A click that the dialog didn't take leaves nothing behind.
void dialog_window::settle() {
    if (dialog_ == nullptr)
        return;
    for (const auto& one : controls_)
        if (qobject_cast<QAbstractButton*>(one->widget()) != nullptr)
            refresh_control(one->id());
    if (dialog_->has_ended() && loop_ != nullptr)
        loop_->quit();
}

void dialog_window::refresh_control(std::int32_t id) {
    control_widget* one = find(id);
    if (one == nullptr)
        return;
    const QScopedValueRollback updating(updating_, updating_ + 1);
    const bool was_hidden = one->widget()->isHidden();
    one->refresh();
    if (isVisible() && one->widget()->isHidden() != was_hidden)
        fit_later();
}

void dialog_window::focus_control(std::int32_t id) {
    if (control_widget* one = find(id))
        one->widget()->setFocus(Qt::OtherFocusReason);
}

bool dialog_window::press(std::int32_t button) {
    control_widget* one = find(button);
    auto* widget = one != nullptr ? qobject_cast<QAbstractButton*>(one->widget()) : nullptr;
    if (widget == nullptr || !widget->isVisible() || !widget->isEnabled())
        return false;
    widget->click();
    return true;
}

void dialog_window::reject() {
    tell([](auto& dialog) { dialog.user_closes(); });
}

// The dialog decides whether it goes.
void dialog_window::closeEvent(QCloseEvent* event) {
    event->ignore();
    reject();
}

void dialog_window::run() {
    QEventLoop loop;
    const QScopedValueRollback running(loop_, &loop);
    auto* dispatcher = QAbstractEventDispatcher::instance(QThread::currentThread());
    QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, &loop, [this, &loop] {
        if (dialog_ != nullptr && dialog_->has_ended())
            loop.quit();
    });
    QTimer::singleShot(0, &loop, [this] { present(); });
    loop.exec();
}

} // namespace zerdix::dialogs_qt
