// SPDX-License-Identifier: MIT
#include "window/form_layout.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

namespace zerdix::dialogs_qt {

namespace {

using forms::control_kind;
using forms::control_place;

// A column of the template is two in the grid, labels and what stands behind them.
int label_column(const control_place& place) {
    return 2 * place.column;
}

int field_column(const control_place& place) {
    return 2 * place.column + 1;
}

int last_column(const control_place& place) {
    return 2 * (place.column + place.column_span) - 1;
}

bool has_border(const QWidget* widget) {
    return widget->isWindow() || qobject_cast<const QGroupBox*>(widget) != nullptr;
}

// A button under a text is as wide as its words; buttons in a column of their own are equally wide.
Qt::Alignment alignment_of(const forms::control_template& form) {
    const bool under_text =
        form.kind == control_kind::push_button && form.place.frame == 0 && form.place.column == 0;
    return under_text ? Qt::AlignHCenter : Qt::Alignment();
}

} // namespace

form_layout::form_layout(QWidget* window) {
    add_area(0, window, {});
}

void form_layout::add_area(int frame, QWidget* widget, const control_place& place) {
    auto* grid = new QGridLayout(widget);
    if (!has_border(widget))
        grid->setContentsMargins(0, 0, 0, 0);
    areas_[frame] = {.widget = widget, .grid = grid, .place = place};
}

QWidget* form_layout::parent_of(const control_place& place) const {
    const auto found = areas_.find(place.frame);
    return found != areas_.end() ? found->second.widget : areas_.at(0).widget;
}

void form_layout::grow(area& around, const control_place& place, bool wide, bool high) {
    if (wide)
        around.grid->setColumnStretch(last_column(place), 1);
    if (high)
        around.grid->setRowStretch(place.row, 1);
    around.grows_wide |= wide;
    around.grows_high |= high;
}

void form_layout::add_with_label(area& into, const control_widget& control) {
    const auto& place = control.form().place;
    if (control.form().style.multiline) {
        auto* box = new QVBoxLayout;
        box->addWidget(control.label());
        box->addWidget(control.widget());
        into.grid->addLayout(box, place.row, label_column(place), place.row_span,
                             2 * place.column_span);
        return;
    }
    into.grid->addWidget(control.label(), place.row, label_column(place));
    into.grid->addWidget(control.widget(), place.row, field_column(place), place.row_span,
                         2 * place.column_span - 1);
}

void form_layout::add(const control_widget& control) {
    const auto& place = control.form().place;
    const auto around = areas_.find(place.frame);
    area& into = around != areas_.end() ? around->second : areas_.at(0);
    if (control.label() != nullptr)
        add_with_label(into, control);
    else
        into.grid->addWidget(control.widget(), place.row, label_column(place), place.row_span,
                             2 * place.column_span, alignment_of(control.form()));
    if (control.form().kind != control_kind::frame)
        return grow(into, place, control.grows_wide(), control.grows_high());
    add_area(control.id(), control.widget(), place);
    frames_.push_back(control.id());
}

// Inner frames first, so that an outer one knows what it holds. One that doesn't grow keeps its
// controls together at its top.
void form_layout::finish() {
    for (auto frame = frames_.rbegin(); frame != frames_.rend(); ++frame) {
        area& inner = areas_.at(*frame);
        grow(areas_.at(inner.place.frame), inner.place, inner.grows_wide, inner.grows_high);
        if (!inner.grows_high)
            inner.grid->setRowStretch(inner.grid->rowCount(), 1);
    }
}

} // namespace zerdix::dialogs_qt
