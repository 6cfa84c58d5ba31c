// SPDX-License-Identifier: MIT
#include "print/dithering.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

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

// Eight pixels in a word, the leftmost in its lowest byte.
using eight_pixels = std::uint64_t;
using threshold_table = std::array<eight_pixels, 8>;

// A pixel is white when it is above its threshold: 2 to 253, so that 0 and 255 never depend on it.
constexpr threshold_table make_thresholds() {
    threshold_table table{};
    for (unsigned y = 0; y < 8; ++y) {
        for (unsigned x = 0; x < 8; ++x)
            table[y] |= std::uint64_t{2 + rank(x, y) * 251 / 63} << (8 * x);
    }
    return table;
}

constexpr threshold_table thresholds = make_thresholds();
constexpr eight_pixels top_bits = 0x8080808080808080;
constexpr eight_pixels all_white = ~eight_pixels{0};

eight_pixels load(const unsigned char* pixels) {
    eight_pixels word = 0;
    std::memcpy(&word, pixels, sizeof word);
    if constexpr (std::endian::native == std::endian::big)
        word = __builtin_bswap64(word);
    return word;
}

// The top bit of each byte says whether the pixel is above its threshold: whether taking it from
// the threshold borrows.
eight_pixels above(eight_pixels pixels, eight_pixels threshold) {
    const eight_pixels difference =
        ((threshold | top_bits) - (pixels & ~top_bits)) ^ ((threshold ^ ~pixels) & top_bits);
    return ((~threshold & pixels) | ((~threshold | pixels) & difference)) & top_bits;
}

// The multiplication brings the bits together, that of the leftmost pixel to the top.
unsigned char bits_of(eight_pixels tops) {
    return static_cast<unsigned char>((tops >> 7) * 0x8040201008040201 >> 56);
}

eight_pixels on_paper(eight_pixels pixels, eight_pixels cover) {
    eight_pixels seen = 0;
    for (unsigned shift = 0; shift < 64; shift += 8) {
        const auto hidden = static_cast<unsigned>(cover >> shift & 255);
        const auto shade = static_cast<unsigned>(pixels >> shift & 255);
        const unsigned sum = (255 - hidden) * 255 + hidden * shade;
        seen |= std::uint64_t{(sum + (sum >> 8) + 128) >> 8 & 255} << shift;
    }
    return seen;
}

void put_row(const unsigned char* pixels, const unsigned char* cover, std::size_t bytes,
             eight_pixels threshold, unsigned char* row) {
    for (std::size_t i = 0; i < bytes; ++i) {
        eight_pixels eight = load(pixels + 8 * i);
        if (cover != nullptr) {
            const eight_pixels hidden = load(cover + 8 * i);
            if (hidden != all_white)
                eight = hidden == 0 ? all_white : on_paper(eight, hidden);
        }
        row[i] = eight == all_white ? 0xff : bits_of(above(eight, threshold));
    }
}

std::vector<unsigned char> block_of(int width, int rows) {
    const std::size_t bytes = static_cast<std::size_t>(width) / 8 * static_cast<std::size_t>(rows);
    std::vector<unsigned char> block(header_bytes + bytes);
    WritePageHeader(block.data(), static_cast<std::uint32_t>(width),
                    static_cast<std::uint32_t>(rows));
    return block;
}

} // namespace

std::vector<unsigned char> driver_block(const grey_page& page) {
    const auto width = static_cast<std::size_t>(page.width);
    const auto rows = static_cast<std::size_t>(page.rows);
    std::vector<unsigned char> block = block_of(page.width, page.rows);
    unsigned char* row = block.data() + header_bytes;
    for (std::size_t y = rows; y-- > 0; row += width / 8) {
        const unsigned char* cover = page.cover != nullptr ? page.cover + y * width : nullptr;
        put_row(page.pixels + y * page.stride, cover, width / 8, thresholds[y % 8], row);
    }
    return block;
}

bool is_white(unsigned char shade, int x, int y) {
    const auto column = static_cast<unsigned>(x) % 8;
    return shade > (thresholds[static_cast<unsigned>(y) % 8] >> (8 * column) & 255);
}

std::vector<unsigned char> driver_block(const bilevel_page& page) {
    const std::size_t bytes = static_cast<std::size_t>(page.width) / 8;
    std::vector<unsigned char> block = block_of(page.width, page.rows);
    unsigned char* row = block.data() + header_bytes;
    for (auto y = static_cast<std::size_t>(page.rows); y-- > 0; row += bytes)
        std::memcpy(row, page.rows_of_bits + y * page.stride, bytes);
    return block;
}

} // namespace zerdix::app
