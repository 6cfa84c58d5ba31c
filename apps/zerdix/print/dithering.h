// SPDX-License-Identifier: MIT
// From shades of grey, or from black and white, to the page block that the print job takes: width
// and height, 32 bits each, most significant byte first, then the rows, the last row of the picture
// first, eight pixels a byte, leftmost pixel in bit 7, a set bit white.
#ifndef ZERDIX_APP_PRINT_DITHERING_H
#define ZERDIX_APP_PRINT_DITHERING_H

#include <cstddef>
#include <vector>

namespace zerdix::app {

// Rows from the top, a byte a pixel, 0 black to 255 white. `width` is a multiple of 8.
struct grey_page {
    const unsigned char* pixels;
    const unsigned char* cover; // a byte a pixel, `width` in a row: how much of the white paper the
                                // pixel hides, 0 nothing to 255 all; null: all of it
    std::size_t stride;         // bytes from one row of pixels to the next
    int width;
    int rows;
};

// Rows from the top, eight pixels a byte, as in a page block.
struct bilevel_page {
    const unsigned char* rows_of_bits;
    std::size_t stride;
    int width;
    int rows;
};

// Black and white stay as they are, so that text keeps its edges; greys become an even pattern of
// 65 steps. A pattern repeats, and so compresses far better than a scatter of dots does.
std::vector<unsigned char> driver_block(const grey_page& page);

std::vector<unsigned char> driver_block(const bilevel_page& page);

// Whether a pixel of this shade is white in a page block.
bool is_white(unsigned char shade, int x, int y);

} // namespace zerdix::app

#endif
