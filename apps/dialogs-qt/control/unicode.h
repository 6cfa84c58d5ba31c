// SPDX-License-Identifier: MIT
// Texts of the library are Windows-1252, texts of the toolkit are Unicode.
#ifndef ZERDIX_CONTROL_UNICODE_H
#define ZERDIX_CONTROL_UNICODE_H

#include <string>
#include <string_view>

#include <QString>

namespace zerdix::dialogs_qt {

QString to_unicode(std::string_view text);
// A letter and its accent become one character where there is such a one; what then has no
// counterpart becomes "?".
std::string to_cp1252(const QString& text);
// Whether to_cp1252() keeps it.
bool has_cp1252(const QString& character);

// A caption without its accelerator.
QString without_accelerator(const QString& caption);

} // namespace zerdix::dialogs_qt

#endif
