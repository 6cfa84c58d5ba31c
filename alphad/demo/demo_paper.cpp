// SPDX-License-Identifier: MIT
#include "alphad/demo/demo_paper.h"

#include <algorithm>
#include <cmath>

#include "platform/encoding.h"

namespace zerdix::alphad {

demo_paper::demo_paper(std::uint32_t width, std::uint32_t height) {
    page_.size = {width, height};
    page_.rows.resize(page_.row_bytes() * height);
}

void demo_paper::row(std::int32_t y, std::int32_t left, std::int32_t right) {
    if (y < 0 || y >= static_cast<std::int32_t>(page_.size.height))
        return;
    unsigned char* pixels = page_.row(static_cast<std::uint32_t>(y));
    const auto end = std::min(right, static_cast<std::int32_t>(page_.size.width));
    for (std::int32_t x = std::max(left, 0); x < end; ++x)
        pixels[x / 8] |= static_cast<unsigned char>(0x80 >> x % 8);
}

void demo_paper::box(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height) {
    for (std::int32_t y = top; y < top + height; ++y)
        row(y, left, left + width);
}

void demo_paper::disc(double x, double y, double radius) {
    const auto last = static_cast<std::int32_t>(y + radius);
    for (auto line = static_cast<std::int32_t>(y - radius); line <= last; ++line) {
        const double reach = std::sqrt(std::max(0.0, radius * radius - (line - y) * (line - y)));
        row(line, static_cast<std::int32_t>(x - reach), static_cast<std::int32_t>(x + reach));
    }
}

void demo_paper::text(std::int32_t x, std::int32_t y, std::int32_t height, weight how,
                      std::string_view utf8) {
    const auto font = platform::fonts().find({"Arial", -height, static_cast<std::int32_t>(how)});
    if (font == nullptr)
        return;
    for (const char character : platform::utf8_to_cp1252(utf8)) {
        letter(font->shape(character), x, y);
        x += font->advance(character);
    }
}

// (x, y) is the pen, at the top of the cell.
void demo_paper::letter(const platform::glyph& shape, std::int32_t x, std::int32_t y) {
    for (std::int32_t line = 0; line < shape.height; ++line) {
        const unsigned char* bits =
            shape.rows.data() + shape.stride * static_cast<std::size_t>(line);
        for (std::int32_t column = 0; column < shape.width; ++column)
            if ((bits[column / 8] & 0x80 >> column % 8) != 0)
                row(y + shape.top + line, x + shape.left + column, x + shape.left + column + 1);
    }
}

std::string demo_paper::stored() const {
    return stored_page(page_);
}

} // namespace zerdix::alphad
