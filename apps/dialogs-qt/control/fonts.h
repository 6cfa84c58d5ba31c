// SPDX-License-Identifier: MIT
#ifndef ZERDIX_CONTROL_FONTS_H
#define ZERDIX_CONTROL_FONTS_H

#include <QFont>

#include "forms/presenter.h"

namespace zerdix::dialogs_qt {

QFont font_of(const forms::font_description& description);
forms::font_description describe(const QFont& font);

} // namespace zerdix::dialogs_qt

#endif
