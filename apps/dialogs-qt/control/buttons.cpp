// SPDX-License-Identifier: MIT
#include "control/buttons.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>

namespace zerdix::dialogs_qt {

push_button::push_button(window_port& window, forms::control& control, QWidget* parent)
    : control_widget(window, control, new QPushButton(parent)) {
    const auto& form = *window.dialog().form();
    auto* button = static_cast<QPushButton*>(widget());
    button->setAutoDefault(form.default_button != 0);
    button->setDefault(form.default_button == control.id());
    QObject::connect(button, &QPushButton::clicked, button, [this] {
        window_.tell([id = this->id()](auto& dialog) { dialog.user_clicks(id); });
    });
}

void push_button::refresh_content() {
    static_cast<QPushButton*>(widget())->setText(caption());
}

checkable::checkable(window_port& window, forms::control& control, QAbstractButton* widget)
    : control_widget(window, control, widget) {
    QObject::connect(widget, &QAbstractButton::clicked, widget, [this] { clicked(); });
}

// An accelerator leads to the button, too, as people know it from other programs.
void checkable::clicked() {
    widget()->setFocus(Qt::ShortcutFocusReason);
    window_.tell([id = this->id()](auto& dialog) { dialog.user_clicks(id); });
}

// A group that excludes can't be left without a checked button otherwise.
void checkable::refresh_content() {
    auto* button = static_cast<QAbstractButton*>(widget());
    button->setText(caption());
    auto* group = button->group();
    if (group != nullptr)
        group->setExclusive(false);
    button->setChecked(control_.checked);
    if (group != nullptr)
        group->setExclusive(true);
}

radio_button::radio_button(window_port& window, forms::control& control, QWidget* parent)
    : checkable(window, control, new QRadioButton(parent)) {
    const int group = control.form->style.radio_group;
    if (group != 0)
        window.radio_group(group)->addButton(static_cast<QRadioButton*>(widget()));
}

check_box::check_box(window_port& window, forms::control& control, QWidget* parent)
    : checkable(window, control, new QCheckBox(parent)) {}

} // namespace zerdix::dialogs_qt
