// SPDX-License-Identifier: MIT
#include "control/frame.h"

#include <QGroupBox>

namespace zerdix::dialogs_qt {

namespace {

QWidget* make_frame(const forms::control& control, QWidget* parent) {
    return control.caption.empty() ? new QWidget(parent) : new QGroupBox(parent);
}

} // namespace

frame_control::frame_control(window_port& window, forms::control& control, QWidget* parent)
    : control_widget(window, control, make_frame(control, parent)) {}

void frame_control::refresh_content() {
    if (auto* box = qobject_cast<QGroupBox*>(widget()))
        box->setTitle(caption());
}

} // namespace zerdix::dialogs_qt
