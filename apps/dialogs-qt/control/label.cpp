// SPDX-License-Identifier: MIT
#include "control/label.h"

#include <QLabel>

#include "control/unicode.h"

namespace zerdix::dialogs_qt {

namespace {

constexpr int widest_characters = 64;

} // namespace

label_control::label_control(window_port& window, forms::control& control, QWidget* parent)
    : control_widget(window, control, new QLabel(parent)) {
    static_cast<QLabel*>(widget())->setTextFormat(Qt::PlainText);
}

void label_control::lead_to(QWidget* next) {
    leads_ = true;
    static_cast<QLabel*>(widget())->setBuddy(next);
}

void label_control::refresh_content() {
    auto* label = static_cast<QLabel*>(widget());
    const QString own = to_unicode(control_.text).trimmed();
    label->setText(!own.isEmpty() || leads_ ? own : without_accelerator(caption()));
    if (own.isEmpty() && leads_)
        label->setText(caption());
    wrap();
}

// A long line goes on in the next one instead of making the window wide.
void label_control::wrap() {
    auto* label = static_cast<QLabel*>(widget());
    const auto metrics = label->fontMetrics();
    const int widest = widest_characters * metrics.averageCharWidth();
    const bool long_text = metrics.size(0, label->text()).width() > widest;
    label->setWordWrap(long_text);
    label->setMinimumSize(0, 0);
    if (long_text)
        label->setMinimumSize(widest, label->heightForWidth(widest));
}

} // namespace zerdix::dialogs_qt
