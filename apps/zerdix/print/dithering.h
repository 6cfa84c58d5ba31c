// SPDX-License-Identifier: MIT
// Turns shades of grey into the page block that the print job takes: width and height, 32 bits
// each, most significant byte first, then the rows, the last row of the picture first, eight pixels
// a byte, leftmost pixel in bit 7, a set bit white.
#ifndef ZERDIX_APP_PRINT_DITHERING_H
#define ZERDIX_APP_PRINT_DITHERING_H

#include <cstddef>
#include <vector>

namespace zerdix::app {

// Rows from the top, a byte a pixel, 0 black to 255 white. `width` is a multiple of 8.
struct grey_page {
    const unsigned char* pixels;
    std::size_t stride; // bytes from one row to the next
    int width;
    int rows;
};

// Black and white stay as they are, so that text keeps its edges; greys become an even pattern of
// 65 steps. A pattern repeats, and so compresses far better than a scatter of dots does.
std::vector<unsigned char> driver_block(const grey_page& page);

} // namespace zerdix::app

#endif
