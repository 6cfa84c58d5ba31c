// SPDX-License-Identifier: MIT
#include "window/form_controls.h"

#include <QLayout>
#include <QPixmap>

#include "control/label.h"
#include "control/list.h"
#include "window/form_layout.h"

namespace zerdix::dialogs_qt {

namespace {

using forms::control_kind;

bool holds_input(const control_widget& control) {
    const auto kind = control.form().kind;
    return kind == control_kind::edit || kind == control_kind::combo_box ||
           kind == control_kind::tree_list;
}

// A label's accelerator goes to the control behind it.
void lead_labels(const form_controls& controls) {
    for (std::size_t i = 0; i + 1 < controls.size(); ++i)
        if (controls[i]->form().kind == control_kind::label && holds_input(*controls[i + 1]))
            static_cast<label_control&>(*controls[i]).lead_to(controls[i + 1]->widget());
}

void order_tabs(const form_controls& controls) {
    QWidget* before = nullptr;
    for (const auto& one : controls) {
        if (one->widget()->focusPolicy() == Qt::NoFocus)
            continue;
        if (before != nullptr)
            QWidget::setTabOrder(before, one->widget());
        before = one->widget();
    }
}

list_control* as_list(control_widget& control) {
    return control.form().kind == control_kind::tree_list ? &static_cast<list_control&>(control)
                                                          : nullptr;
}

} // namespace

form_controls make_form(QWidget& window, window_port& port, forms::dialog_view& dialog) {
    form_controls controls;
    form_layout layout(&window);
    for (auto& control : dialog.controls()) {
        controls.push_back(
            make_control_widget(port, control, layout.parent_of(control.form->place)));
        layout.add(*controls.back());
    }
    layout.finish();
    lead_labels(controls);
    order_tabs(controls);
    for (const auto& one : controls)
        one->refresh();
    return controls;
}

int plan_lists(QWidget& window, const form_controls& controls, const QSize& screen) {
    for (const auto& one : controls)
        one->widget()->setVisible(true);
    window.layout()->activate();
    window.resize(window.sizeHint().boundedTo(screen));
    // Painting a point is what gives hidden widgets their sizes.
    window.grab(QRect(0, 0, 1, 1));
    for (const auto& one : controls)
        if (list_control* list = as_list(*one))
            list->note_width();
    return window.width();
}

} // namespace zerdix::dialogs_qt
