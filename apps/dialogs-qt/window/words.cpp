#include "window/words.h"

#include "platform/encoding.h"

namespace zerdix::dialogs_qt {

QString shown(std::string_view text) {
    return QString::fromStdString(platform::cp1252_to_utf8(text));
}

std::string taken(const QString& text) {
    return platform::utf8_to_cp1252(text.normalized(QString::NormalizationForm_C).toStdString());
}

bool can_be_taken(const QString& character) {
    return character == "?" || taken(character) != "?";
}

QString plain(const QString& caption) {
    QString text;
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (caption[i] == '&' && ++i == caption.size())
            break;
        text += caption[i];
    }
    return text;
}

} // namespace zerdix::dialogs_qt
