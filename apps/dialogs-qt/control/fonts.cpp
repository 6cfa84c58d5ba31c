// SPDX-License-Identifier: MIT
#include "control/fonts.h"

#include <algorithm>
#include <cstdlib>

#include <QFontInfo>
#include <QFontMetrics>
#include <QStringList>

#include "control/unicode.h"

namespace zerdix::dialogs_qt {

namespace {

struct twin {
    const char* face;
    const char* name;
};

// The same widths under a name that free systems have.
constexpr twin twins[] = {{"Courier", "Liberation Mono"},
                          {"Courier New", "Liberation Mono"},
                          {"Arial", "Liberation Sans"},
                          {"Times New Roman", "Liberation Serif"}};

QStringList families(const QString& face) {
    for (const auto& [name, free_name] : twins)
        if (face.compare(name, Qt::CaseInsensitive) == 0)
            return {free_name, face};
    return {face};
}

// The height of the characters at which a cell, which has room above and below, is `cell` high.
int characters_of_cell(QFont font, int cell) {
    font.setPixelSize(cell);
    const int height = std::max(QFontMetrics(font).height(), 1);
    return std::max(cell * cell / height, 1);
}

} // namespace

QFont font_of(const forms::font_description& description) {
    constexpr int tallest = 200;
    const int height = static_cast<int>(
        std::clamp<std::int64_t>(std::abs(std::int64_t{description.height}), 1, tallest));
    QFont font;
    font.setFamilies(families(to_unicode(description.face)));
    font.setWeight(static_cast<QFont::Weight>(std::clamp(description.weight, 1, 1000)));
    font.setPixelSize(description.height > 0 ? characters_of_cell(font, height) : height);
    return font;
}

forms::font_description describe(const QFont& font) {
    return {-QFontInfo(font).pixelSize(), font.weight(), to_cp1252(font.family())};
}

} // namespace zerdix::dialogs_qt
