// SPDX-License-Identifier: MIT
// Lays out the controls of a template: a grid for the dialog and one for each frame.
#ifndef ZERDIX_WINDOW_FORM_LAYOUT_H
#define ZERDIX_WINDOW_FORM_LAYOUT_H

#include <map>
#include <vector>

#include "control/control_widget.h"

class QGridLayout;

namespace zerdix::dialogs_qt {

class form_layout {
  public:
    explicit form_layout(QWidget* window);

    // The widget that a control with this place belongs into. Frames come before what they hold.
    QWidget* parent_of(const forms::control_place& place) const;
    void add(const control_widget& control);
    // After the last control: says where room goes that nobody needs.
    void finish();

  private:
    struct area {
        QWidget* widget = nullptr;
        QGridLayout* grid = nullptr;
        forms::control_place place; // in the frame around it
        bool grows_wide = false;
        bool grows_high = false;
    };

    void add_area(int frame, QWidget* widget, const forms::control_place& place);
    void add_with_label(area& into, const control_widget& control);
    static void grow(area& around, const forms::control_place& place, bool wide, bool high);

    std::map<int, area> areas_;
    std::vector<int> frames_; // from the outermost to the innermost
};

} // namespace zerdix::dialogs_qt

#endif
