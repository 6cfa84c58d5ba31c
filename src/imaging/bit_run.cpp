// SPDX-License-Identifier: MIT
#include "imaging/bit_run.h"

#include <bit>
#include <cstring>

namespace zerdix::imaging {

namespace {

constexpr std::int64_t word_bits = 64;

// A word of eight bytes with the leftmost pixel in its highest bit.
std::uint64_t load(const unsigned char* bytes) {
    std::uint64_t word;
    std::memcpy(&word, bytes, sizeof word);
    return std::endian::native == std::endian::little ? __builtin_bswap64(word) : word;
}

void store(unsigned char* bytes, std::uint64_t word) {
    if (std::endian::native == std::endian::little)
        word = __builtin_bswap64(word);
    std::memcpy(bytes, &word, sizeof word);
}

std::uint64_t source_word(const bit_source& source, std::int64_t index) {
    const auto words = static_cast<std::int64_t>(source.stride / sizeof(std::uint64_t));
    return index >= 0 && index < words ? load(source.row + index * 8) : 0;
}

// 64 pixels of the source from pixel `at` on; what lies outside of the row is 0.
std::uint64_t pixels_at(const bit_source& source, std::int64_t at) {
    const std::int64_t index = at >> 6; // rounds down below 0 too
    const auto shift = static_cast<unsigned>(at & (word_bits - 1));
    const std::uint64_t left = source_word(source, index);
    if (shift == 0)
        return left;
    return left << shift | source_word(source, index + 1) >> (word_bits - shift);
}

// Ones from pixel `from` up to pixel `to` of a word, both cut to it.
std::uint64_t span_mask(std::int64_t from, std::int64_t to) {
    const std::uint64_t head = from <= 0 ? ~std::uint64_t{0} : ~std::uint64_t{0} >> from;
    return to >= word_bits ? head : head & ~(~std::uint64_t{0} >> to);
}

std::uint64_t combined(std::uint64_t to, std::uint64_t from, std::uint64_t mask,
                       bit_operation operation) {
    from &= mask;
    switch (operation) {
    case bit_operation::copy:
        return (to & ~mask) | from;
    case bit_operation::exclusive_or:
        return to ^ from;
    case bit_operation::set:
        return to | from;
    case bit_operation::clear:
        return to & ~from;
    }
    return to;
}

} // namespace

void combine_bits(unsigned char* row, std::int32_t first, std::int32_t count,
                  const bit_source& source, bit_operation operation) {
    const std::uint64_t flip = source.inverted ? ~std::uint64_t{0} : 0;
    const std::int64_t end = std::int64_t{first} + count;
    const std::int64_t shift = std::int64_t{source.first} - first;
    for (std::int64_t at = first / word_bits * word_bits; at < end; at += word_bits) {
        unsigned char* const word = row + at / 8;
        const std::uint64_t mask = span_mask(first - at, end - at);
        store(word, combined(load(word), pixels_at(source, at + shift) ^ flip, mask, operation));
    }
}

} // namespace zerdix::imaging
