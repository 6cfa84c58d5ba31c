#ifndef ZERDIX_CONTROL_FONTS_H
#define ZERDIX_CONTROL_FONTS_H

#include <QFont>

#include "platform/dialog/presenter.h"

namespace zerdix::dialogs_qt {

QFont font_of(const platform::font_description& description);
platform::font_description describe(const QFont& font);

} // namespace zerdix::dialogs_qt

#endif
