// SPDX-License-Identifier: MIT
#include "imaging/drawing.h"

#include <algorithm>
#include <new>
#include <utility>

#include "imaging/bit_run.h"
#include "imaging/page_forms.h"
#include "imaging/stretch.h"

namespace zerdix::imaging {

namespace {

// A stretch of pixels along one axis: where it begins on target and source, and how long it is.
struct overlap {
    std::int64_t to;
    std::int64_t from;
    std::int64_t length;
};

// What of it lies between `low` and `high` on the target and below `limit` on the source.
overlap cut(const overlap& whole, std::int64_t low, std::int64_t high, std::int64_t limit) {
    const std::int64_t lost = std::max({std::int64_t{0}, low - whole.to, -whole.from});
    const overlap rest{whole.to + lost, whole.from + lost, whole.length - lost};
    const std::int64_t length = std::min({rest.length, high - rest.to, limit - rest.from});
    return {rest.to, rest.from, std::max<std::int64_t>(length, 0)};
}

struct patch {
    overlap across;
    overlap down;
};

// Rows from the top. No rows at all stand for pixels of 0.
struct source_rows {
    const unsigned char* top;
    std::size_t stride;
    bool inverted;
};

void combine_rows(const LeadBitmap& to, const source_rows& from, const patch& at,
                  bit_operation operation) {
    if (at.across.length == 0)
        return;
    const auto first = static_cast<std::int32_t>(at.across.to);
    const auto count = static_cast<std::int32_t>(at.across.length);
    bit_source source{nullptr, from.stride, static_cast<std::int32_t>(at.across.from),
                      from.inverted};
    for (std::int64_t i = 0; i < at.down.length; ++i) {
        source.row = from.top + from.stride * static_cast<std::size_t>(at.down.from + i);
        combine_bits(row_from_top(to, static_cast<std::int32_t>(at.down.to + i)), first, count,
                     source, operation);
    }
}

int blacken(const LeadBitmap& bitmap, const overlap& across, const overlap& down) {
    const patch at{cut(across, 0, bitmap.width, across.length),
                   cut(down, 0, bitmap.height, down.length)};
    combine_rows(bitmap, {nullptr, 0, false}, at, bit_operation::copy);
    return 1;
}

int combine(const LeadBitmap& to, const LeadBitmap& from, const overlap& across,
            const overlap& down, raster_operation operation) {
    const bool copies = operation == SRCCOPY;
    if ((!copies && operation != SRCINVERT) || !holds_pixels(from) || from.pixels == to.pixels)
        return 0;
    const patch at{cut(across, 0, to.width, from.width), cut(down, 0, to.height, from.height)};
    combine_rows(to, {from.pixels, from.stride, copies && from.order != to.order}, at,
                 copies ? bit_operation::copy : bit_operation::exclusive_or);
    return 1;
}

} // namespace

std::shared_ptr<platform::font>
drawing_context::SelectObject(std::shared_ptr<platform::font> font) {
    return std::exchange(font_, std::move(font));
}

int drawing_context::BitBlt(std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height,
                            const drawing_context* source, std::int32_t from_x, std::int32_t from_y,
                            raster_operation operation) {
    if (!holds_pixels(bitmap_))
        return 0;
    if (operation == BLACKNESS)
        return blacken(bitmap_, {x, 0, width}, {y, 0, height});
    if (source == nullptr)
        return 0;
    return combine(bitmap_, source->bitmap_, {x, from_x, width}, {y, from_y, height}, operation);
}

int drawing_context::StretchBlt(std::int32_t x, std::int32_t y, std::int32_t width,
                                std::int32_t height, const drawing_context* source,
                                raster_operation operation) {
    if (!holds_pixels(bitmap_) || source == nullptr)
        return 0;
    LeadBitmap stretched{};
    if (stretch(source->bitmap_, width, height, &stretched) != 1)
        return 0;
    const int result = combine(bitmap_, stretched, {x, 0, width}, {y, 0, height}, operation);
    FreeLeadBitmap(&stretched);
    return result;
}

int drawing_context::TextOutA(std::int32_t x, std::int32_t y, std::string_view text) {
    if (font_ == nullptr || !holds_pixels(bitmap_))
        return 0;
    draw_line(x, y, text, {0, 0, bitmap_.width, bitmap_.height});
    return 1;
}

int drawing_context::DrawTextA(std::string_view text, const rectangle& bounds) {
    if (font_ == nullptr || !holds_pixels(bitmap_))
        return 0;
    const rectangle clip{std::max(bounds.left, 0), std::max(bounds.top, 0),
                         std::min(bounds.right, bitmap_.width),
                         std::min(bounds.bottom, bitmap_.height)};
    for (std::int64_t y = bounds.top; y < clip.bottom; y += font_->cell_height()) {
        const std::size_t end = text.find('\n');
        draw_line(bounds.left, y, text.substr(0, end), clip);
        if (end == std::string_view::npos)
            break;
        text.remove_prefix(end + 1);
    }
    return 1;
}

// Characters that can't reach the visible part are passed over without being rendered.
void drawing_context::draw_line(std::int64_t x, std::int64_t y, std::string_view text,
                                const rectangle& clip) {
    const std::int64_t reach = font_->character_height();
    for (const char character : text) {
        if (x - reach >= clip.right)
            return;
        const std::int64_t next = x + font_->advance(character);
        if (next + reach > clip.left)
            draw_glyph(x, y, font_->shape(character), clip);
        x = next;
    }
}

void drawing_context::draw_glyph(std::int64_t x, std::int64_t y, const platform::glyph& shape,
                                 const rectangle& clip) {
    const patch at{cut({x + shape.left, 0, shape.width}, clip.left, clip.right, shape.width),
                   cut({y + shape.top, 0, shape.height}, clip.top, clip.bottom, shape.height)};
    combine_rows(bitmap_, {shape.rows.data(), shape.stride, false}, at,
                 one_is_black(bitmap_) ? bit_operation::set : bit_operation::clear);
}

std::unique_ptr<drawing_context> L_CreateLeadDC(LeadBitmap* bitmap) {
    if (bitmap == nullptr || !holds_pixels(*bitmap))
        return nullptr;
    return std::unique_ptr<drawing_context>{new (std::nothrow) drawing_context{*bitmap}};
}

} // namespace zerdix::imaging
