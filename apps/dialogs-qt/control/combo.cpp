// SPDX-License-Identifier: MIT
#include "control/combo.h"

#include <QComboBox>

#include "control/unicode.h"

namespace zerdix::dialogs_qt {

namespace {

constexpr int least_characters = 14;

} // namespace

combo_control::combo_control(window_port& window, forms::control& control, QWidget* parent)
    : control_widget(window, control, new QComboBox(parent)) {
    auto* box = static_cast<QComboBox*>(widget());
    box->setMinimumContentsLength(least_characters);
    QObject::connect(box, &QComboBox::activated, box, [this](int item) {
        window_.tell([id = this->id(), item](auto& dialog) { dialog.user_picks_item(id, item); });
    });
}

// Items are only ever added at the end.
void combo_control::add_new_items() {
    auto* box = static_cast<QComboBox*>(widget());
    if (static_cast<std::size_t>(box->count()) > control_.items.size())
        box->clear();
    for (auto i = static_cast<std::size_t>(box->count()); i < control_.items.size(); ++i)
        box->addItem(to_unicode(control_.items[i]));
}

void combo_control::refresh_content() {
    add_new_items();
    static_cast<QComboBox*>(widget())->setCurrentIndex(control_.selected_item);
}

} // namespace zerdix::dialogs_qt
