// SPDX-License-Identifier: MIT
#include "print/dithering.h"

#include <array>
#include <cstdint>

#include <zerdix/page.h>

namespace zerdix::app {

namespace {

constexpr std::size_t header_bytes = 8;

// The order in which the 64 pixels of a cell turn white: each bit of the two coordinates, the
// lowest first, halves the distance between the dots.
constexpr unsigned rank(unsigned x, unsigned y) {
    unsigned value = 0;
    for (unsigned bit = 0; bit < 3; ++bit) {
        const unsigned across = x >> bit & 1;
        const unsigned down = y >> bit & 1;
        value |= ((across ^ down) << 1 | down) << (4 - 2 * bit);
    }
    return value;
}

using threshold_table = std::array<std::array<unsigned char, 8>, 8>;

// A pixel is white when it is above its threshold: 2 to 253, so that 0 and 255 never depend on it.
constexpr threshold_table make_thresholds() {
    threshold_table table{};
    for (unsigned y = 0; y < 8; ++y) {
        for (unsigned x = 0; x < 8; ++x)
            table[y][x] = static_cast<unsigned char>(2 + rank(x, y) * 251 / 63);
    }
    return table;
}

constexpr threshold_table thresholds = make_thresholds();

unsigned char eight_pixels(const unsigned char* pixels, const std::array<unsigned char, 8>& over) {
    unsigned byte = 0;
    for (std::size_t i = 0; i < 8; ++i)
        byte = byte << 1 | (pixels[i] > over[i] ? 1U : 0U);
    return static_cast<unsigned char>(byte);
}

} // namespace

std::vector<unsigned char> driver_block(const grey_page& page) {
    const std::size_t row_bytes = static_cast<std::size_t>(page.width) / 8;
    const std::size_t rows = static_cast<std::size_t>(page.rows);
    std::vector<unsigned char> block(header_bytes);
    block.reserve(header_bytes + rows * row_bytes);
    WritePageHeader(block.data(), static_cast<std::uint32_t>(page.width),
                    static_cast<std::uint32_t>(page.rows));
    for (std::size_t y = rows; y-- > 0;) {
        const unsigned char* row = page.pixels + y * page.stride;
        for (std::size_t i = 0; i < row_bytes; ++i)
            block.push_back(eight_pixels(row + 8 * i, thresholds[y % 8]));
    }
    return block;
}

} // namespace zerdix::app
