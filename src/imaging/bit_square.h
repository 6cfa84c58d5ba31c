// SPDX-License-Identifier: MIT
// 64 by 64 pixels as 64 words, and their exchange of rows and columns: what a quarter turn and
// stretching across are made of.
//
// Word i holds row i from the top, its highest bit the leftmost pixel. In a bitmap's memory that is
// a word with its highest byte first.
#ifndef ZERDIX_IMAGING_BIT_SQUARE_H
#define ZERDIX_IMAGING_BIT_SQUARE_H

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace zerdix::imaging {

inline constexpr std::int32_t square_side = 64;

struct bit_square {
    std::uint64_t rows[square_side];
};

inline std::uint64_t load_pixels(const unsigned char* bytes) {
    std::uint64_t word;
    std::memcpy(&word, bytes, sizeof word);
    return std::endian::native == std::endian::little ? __builtin_bswap64(word) : word;
}

inline void store_pixels(unsigned char* bytes, std::uint64_t word) {
    if (std::endian::native == std::endian::little)
        word = __builtin_bswap64(word);
    std::memcpy(bytes, &word, sizeof word);
}

// `count` rows, 1 to 64, that lie `stride` bytes apart; the rest of the square becomes 0.
inline void load_square(bit_square& square, const unsigned char* first, std::size_t stride,
                        std::int32_t count) {
    for (std::int32_t i = 0; i < count; ++i, first += stride)
        square.rows[i] = load_pixels(first);
    std::fill(square.rows + count, square.rows + square_side, std::uint64_t{0});
}

// The stride may be below 0: then the rows come to lie from the bottom upwards.
inline void store_square(const bit_square& square, unsigned char* first, std::ptrdiff_t stride,
                         std::int32_t count) {
    for (std::int32_t i = 0; i < count; ++i, first += stride)
        store_pixels(first, square.rows[i]);
}

// Exchanges the upper right and the lower left quarter of every square of 2 * Side.
template <int Side>
inline void exchange_quarters(bit_square& square, std::uint64_t right_halves) {
    for (int top = 0; top < square_side; top += 2 * Side)
        for (int i = top; i < top + Side; ++i) {
            const std::uint64_t upper = square.rows[i];
            const std::uint64_t lower = square.rows[i + Side];
            const std::uint64_t differ = (upper ^ lower >> Side) & right_halves;
            square.rows[i] = upper ^ differ;
            square.rows[i + Side] = lower ^ differ << Side;
        }
}

// White paper, which is most of a page, has rows and columns alike.
inline bool is_of_one_colour(const bit_square& square) {
    std::uint64_t differ = 0;
    for (const std::uint64_t row : square.rows)
        differ |= row ^ square.rows[0];
    return differ == 0 && square.rows[0] + 1 <= 1;
}

// Rows become columns: pixel (x, y) changes places with (y, x).
inline void transpose(bit_square& square) {
    if (is_of_one_colour(square))
        return;
    exchange_quarters<32>(square, 0x00000000FFFFFFFFu);
    exchange_quarters<16>(square, 0x0000FFFF0000FFFFu);
    exchange_quarters<8>(square, 0x00FF00FF00FF00FFu);
    exchange_quarters<4>(square, 0x0F0F0F0F0F0F0F0Fu);
    exchange_quarters<2>(square, 0x3333333333333333u);
    exchange_quarters<1>(square, 0x5555555555555555u);
}

} // namespace zerdix::imaging

#endif
