// SPDX-License-Identifier: MIT
#include "control/unicode.h"

#include "platform/encoding.h"

namespace zerdix::dialogs_qt {

QString to_unicode(std::string_view text) {
    return QString::fromStdString(platform::cp1252_to_utf8(text));
}

std::string to_cp1252(const QString& text) {
    return platform::utf8_to_cp1252(text.normalized(QString::NormalizationForm_C).toStdString());
}

bool has_cp1252(const QString& character) {
    return character == "?" || to_cp1252(character) != "?";
}

QString without_accelerator(const QString& caption) {
    QString text;
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (caption[i] == '&' && ++i == caption.size())
            break;
        text += caption[i];
    }
    return text;
}

} // namespace zerdix::dialogs_qt
