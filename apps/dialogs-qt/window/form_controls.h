// SPDX-License-Identifier: MIT
// The controls of a dialog, made and laid out by its template.
#ifndef ZERDIX_WINDOW_FORM_CONTROLS_H
#define ZERDIX_WINDOW_FORM_CONTROLS_H

#include <memory>
#include <vector>

#include "control/control_widget.h"

namespace zerdix::dialogs_qt {

using form_controls = std::vector<std::unique_ptr<control_widget>>;

form_controls make_form(QWidget& window, window_port& port, forms::dialog_view& dialog);

// The width of the window when all that it has shows, at most that of the screen; each list knows
// its room afterwards. What is hidden has to be refreshed then.
int plan_lists(QWidget& window, const form_controls& controls, const QSize& screen);

} // namespace zerdix::dialogs_qt

#endif
