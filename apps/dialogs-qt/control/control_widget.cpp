// SPDX-License-Identifier: MIT
#include "control/control_widget.h"

#include <QLabel>

#include "control/buttons.h"
#include "control/combo.h"
#include "control/edits.h"
#include "control/frame.h"
#include "control/label.h"
#include "control/list.h"
#include "control/unicode.h"

namespace zerdix::dialogs_qt {

control_widget::control_widget(window_port& window, forms::control& control, QWidget* widget)
    : window_(window), control_(control), widget_(widget) {
    widget_->setObjectName(QString::number(control.id()));
}

control_widget::~control_widget() = default;

QString control_widget::caption() const {
    return to_unicode(control_.caption);
}

void control_widget::make_label(QWidget* parent) {
    label_ = new QLabel(parent);
    label_->setTextFormat(Qt::PlainText);
    label_->setBuddy(widget_);
}

void control_widget::refresh() {
    refresh_content();
    widget_->setAccessibleName(without_accelerator(caption()));
    widget_->setEnabled(control_.enabled);
    widget_->setVisible(control_.visible);
    if (label_ == nullptr)
        return;
    label_->setText(caption());
    label_->setEnabled(control_.enabled);
    label_->setVisible(control_.visible);
}

std::unique_ptr<control_widget> make_control_widget(window_port& window, forms::control& control,
                                                    QWidget* parent) {
    using forms::control_kind;
    switch (control.kind()) {
    case control_kind::label:
        return std::make_unique<label_control>(window, control, parent);
    case control_kind::edit:
        if (control.form->style.multiline)
            return std::make_unique<text_control>(window, control, parent);
        return std::make_unique<edit_control>(window, control, parent);
    case control_kind::push_button:
        return std::make_unique<push_button>(window, control, parent);
    case control_kind::radio_button:
        return std::make_unique<radio_button>(window, control, parent);
    case control_kind::check_box:
        return std::make_unique<check_box>(window, control, parent);
    case control_kind::combo_box:
        return std::make_unique<combo_control>(window, control, parent);
    case control_kind::tree_list:
        return std::make_unique<list_control>(window, control, parent);
    case control_kind::frame:
        return std::make_unique<frame_control>(window, control, parent);
    }
    return nullptr;
}

} // namespace zerdix::dialogs_qt
