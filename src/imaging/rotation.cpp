#include <utility>

#include "imaging/bit_square.h"
#include "imaging/bitmap.h"

namespace zerdix::imaging {
namespace {

// Column x of the picture, read downwards, becomes row width - 1 - x of the turned one, read from
// the left.
void turn_left(const LeadBitmap& picture, LeadBitmap& turned) {
    bit_square square;
    for (std::int32_t x = 0; x < picture.width; x += square_side) {
        const std::int32_t columns = std::min(square_side, picture.width - x);
        unsigned char* last_row = row_from_top(turned, picture.width - columns - x);
        for (std::int32_t y = 0; y < picture.height; y += square_side) {
            const std::int32_t rows = std::min(square_side, picture.height - y);
            load_square(square, row_from_top(picture, y) + x / 8, picture.stride, rows);
            transpose(square);
            std::reverse(square.rows, square.rows + columns);
            store_square(square, last_row + y / 8, turned.stride, columns);
        }
    }
}

} // namespace

int L_RotateBitmap(LeadBitmap* bitmap, std::int32_t angle, int flag) {
    if (bitmap == nullptr || !holds_pixels(*bitmap) || angle != -90 || flag != 1)
        return 0;
    LeadBitmap turned{};
    if (L_InitBitmap(&turned, bitmap->height, bitmap->width, 1) != 1 ||
        L_AllocateBitmap(&turned, 1) != 1)
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
