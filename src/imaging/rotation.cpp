// SPDX-License-Identifier: MIT
#include <utility>

#include "imaging/bit_square.h"
#include "imaging/owned_bitmap.h"
#include "pages/wide_registers.h"

namespace zerdix::imaging {
namespace {

constexpr std::int32_t band_height = 4 * square_side;

// Column x of the picture, read downwards, becomes row width - 1 - x of the turned one, read from
// the left. A band of rows at a time, which the nearest cache holds while squares are cut from it.
[[gnu::always_inline]] inline void turn_band(const LeadBitmap& picture, std::int32_t top,
                                             std::int32_t bottom, LeadBitmap& turned) {
    const auto upwards = -static_cast<std::ptrdiff_t>(turned.stride);
    bit_square square;
    for (std::int32_t x = 0; x < picture.width; x += square_side) {
        const std::int32_t columns = std::min(square_side, picture.width - x);
        unsigned char* row = row_from_top(turned, picture.width - 1 - x);
        for (std::int32_t y = top; y < bottom; y += square_side) {
            const std::int32_t rows = std::min(square_side, bottom - y);
            load_square(square, row_from_top(picture, y) + x / 8, picture.stride, rows);
            transpose(square);
            store_square(square, row + y / 8, upwards, columns);
        }
    }
}

[[gnu::always_inline]] inline void turn_bands(const LeadBitmap& picture, LeadBitmap& turned) {
    for (std::int32_t y = 0; y < picture.height; y += band_height)
        turn_band(picture, y, std::min(y + band_height, picture.height), turned);
}

#if defined(__x86_64__)
// Four words at a time.
__attribute__((target("avx2"))) void turn_wide(const LeadBitmap& picture, LeadBitmap& turned) {
    turn_bands(picture, turned);
}

void turn_left(const LeadBitmap& picture, LeadBitmap& turned) {
    pages::has_wide_registers() ? turn_wide(picture, turned) : turn_bands(picture, turned);
}
#else
void turn_left(const LeadBitmap& picture, LeadBitmap& turned) {
    turn_bands(picture, turned);
}
#endif

} // namespace

int L_RotateBitmap(LeadBitmap* bitmap, std::int32_t angle, int flag) {
    if (bitmap == nullptr || !holds_pixels(*bitmap) || angle != -90 || flag != 1)
        return 0;
    LeadBitmap turned{};
    if (!allocate_unset(turned, bitmap->height, bitmap->width))
        return 0;
    turn_left(*bitmap, turned);
    std::swap(bitmap->pixels, turned.pixels);
    bitmap->width = turned.width;
    bitmap->height = turned.height;
    bitmap->stride = turned.stride;
    L_FreeBitmap(&turned);
    return 1;
}

} // namespace zerdix::imaging
