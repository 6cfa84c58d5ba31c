// Texts of the library are Windows-1252, texts of the toolkit are Unicode.
#ifndef ZERDIX_WINDOW_WORDS_H
#define ZERDIX_WINDOW_WORDS_H

#include <string>
#include <string_view>

#include <QString>

namespace zerdix::dialogs_qt {

QString shown(std::string_view text);
// A letter and its accent become one character where there is such a one; what then has no
// counterpart becomes "?".
std::string taken(const QString& text);
// Whether taken() keeps it.
bool can_be_taken(const QString& character);

// A caption without its accelerator.
QString plain(const QString& caption);

} // namespace zerdix::dialogs_qt

#endif
