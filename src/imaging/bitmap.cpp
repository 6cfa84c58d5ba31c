// SPDX-License-Identifier: MIT
#include "imaging/bitmap.h"

#include <cstdlib>
#include <cstring>

namespace zerdix::imaging {

namespace {

constexpr std::size_t row_alignment = 8;

// The bits of a row's last byte that are pixels.
unsigned char last_byte_mask(std::int32_t width) {
    const int used = width % 8;
    return static_cast<unsigned char>(used == 0 ? 0xFF : 0xFF00 >> used);
}

bool usable(const LeadBitmap* bitmap) {
    return bitmap != nullptr && holds_pixels(*bitmap);
}

bool within_limits(std::int32_t width, std::int32_t height) {
    return width >= 0 && height >= 0 && width <= bitmap_side_limit && height <= bitmap_side_limit &&
           std::int64_t{width} * height <= bitmap_pixel_limit;
}

bool has_row(const LeadBitmap* bitmap, std::int32_t row, std::size_t count) {
    return usable(bitmap) && row >= 0 && row < bitmap->height && count <= row_bytes(bitmap->width);
}

unsigned char* numbered_row(const LeadBitmap& bitmap, std::int32_t row) {
    return row_from_top(bitmap, bitmap.height - 1 - row);
}

bool is_light(std::uint32_t colour) {
    const std::uint32_t brightness = (colour >> 16 & 0xFF) + (colour >> 8 & 0xFF) + (colour & 0xFF);
    return brightness >= 3 * 0x80;
}

// All pixels of a row to 1, the padding to 0.
void set_row(const LeadBitmap& bitmap, unsigned char* row) {
    const std::size_t bytes = row_bytes(bitmap.width);
    std::memset(row, 0xFF, bytes);
    row[bytes - 1] = last_byte_mask(bitmap.width);
}

} // namespace

int L_InitBitmap(LeadBitmap* bitmap, std::int32_t width, std::int32_t height, std::int32_t bits) {
    if (bitmap == nullptr || !within_limits(width, height) || bits < 0 || bits > 1)
        return 0;
    *bitmap = {};
    bitmap->width = width;
    bitmap->height = height;
    bitmap->bits_per_pixel = bits;
    bitmap->stride = (row_bytes(width) + row_alignment - 1) / row_alignment * row_alignment;
    return 1;
}

int L_AllocateBitmap(LeadBitmap* bitmap, int) {
    if (bitmap == nullptr || holds_pixels(*bitmap) || bitmap->width == 0 || bitmap->height == 0 ||
        bitmap->bits_per_pixel == 0)
        return 0;
    const auto rows = static_cast<std::size_t>(bitmap->height);
    bitmap->pixels = static_cast<unsigned char*>(std::calloc(rows, bitmap->stride));
    if (bitmap->pixels == nullptr)
        return 0;
    bitmap->flags |= bitmap_has_pixels;
    return 1;
}

int L_FillBitmap(LeadBitmap* bitmap, std::uint32_t colour) {
    if (!usable(bitmap))
        return 0;
    if (is_light(colour) == one_is_black(*bitmap)) {
        std::memset(bitmap->pixels, 0, bitmap->stride * static_cast<std::size_t>(bitmap->height));
        return 1;
    }
    for (std::int32_t y = 0; y < bitmap->height; ++y)
        set_row(*bitmap, row_from_top(*bitmap, y));
    return 1;
}

int L_BeginRows(LeadBitmap* bitmap) {
    return usable(bitmap) ? 1 : 0;
}

int L_EndRows(LeadBitmap* bitmap) {
    return usable(bitmap) ? 1 : 0;
}

int L_GetRow(const LeadBitmap* bitmap, unsigned char* buffer, std::int32_t row, std::size_t count) {
    if (!has_row(bitmap, row, count) || buffer == nullptr)
        return 0;
    std::memcpy(buffer, numbered_row(*bitmap, row), count);
    return 1;
}

int L_PutRow(LeadBitmap* bitmap, const unsigned char* buffer, std::int32_t row, std::size_t count) {
    if (!has_row(bitmap, row, count) || buffer == nullptr)
        return 0;
    unsigned char* const bytes = numbered_row(*bitmap, row);
    std::memcpy(bytes, buffer, count);
    bytes[row_bytes(bitmap->width) - 1] &= last_byte_mask(bitmap->width);
    return 1;
}

void set_row_from_top(LeadBitmap& bitmap, std::int32_t y, const unsigned char* bytes) {
    unsigned char* const row = row_from_top(bitmap, y);
    const std::size_t count = row_bytes(bitmap.width);
    std::memcpy(row, bytes, count);
    row[count - 1] &= last_byte_mask(bitmap.width);
    std::memset(row + count, 0, bitmap.stride - count);
}

int L_InvertBitmap(LeadBitmap* bitmap) {
    if (!usable(bitmap))
        return 0;
    bitmap->order = one_is_black(*bitmap) ? colour_order::black_first : colour_order::white_first;
    return 1;
}

int L_FreeBitmap(LeadBitmap* bitmap) {
    if (bitmap == nullptr)
        return 0;
    std::free(bitmap->pixels);
    bitmap->pixels = nullptr;
    bitmap->flags &= ~bitmap_has_pixels;
    return 1;
}

} // namespace zerdix::imaging
