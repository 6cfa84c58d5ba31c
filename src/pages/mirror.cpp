// SPDX-License-Identifier: MIT
#include "pages/mirror.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

#include "pages/wide_registers.h"

namespace zerdix::pages {

namespace {

// All eight bytes at once: halves, quarters and single bits of each change places.
std::uint64_t mirrored(std::uint64_t bytes) {
    bytes = (bytes >> 1 & 0x5555555555555555u) | (bytes & 0x5555555555555555u) << 1;
    bytes = (bytes >> 2 & 0x3333333333333333u) | (bytes & 0x3333333333333333u) << 2;
    bytes = (bytes >> 4 & 0x0F0F0F0F0F0F0F0Fu) | (bytes & 0x0F0F0F0F0F0F0F0Fu) << 4;
    return bytes;
}

#if defined(__x86_64__)

// What each value of a byte's lower half becomes in the upper half, and the other way round.
alignas(16) constexpr unsigned char lower_half[16] = {
    0x00, 0x80, 0x40, 0xC0, 0x20, 0xA0, 0x60, 0xE0, 0x10, 0x90, 0x50, 0xD0, 0x30, 0xB0, 0x70, 0xF0};
alignas(16) constexpr unsigned char upper_half[16] = {
    0x00, 0x08, 0x04, 0x0C, 0x02, 0x0A, 0x06, 0x0E, 0x01, 0x09, 0x05, 0x0D, 0x03, 0x0B, 0x07, 0x0F};

__attribute__((target("avx2"))) __m256i table_of(const unsigned char (&values)[16]) {
    return _mm256_broadcastsi128_si256(_mm_load_si128(reinterpret_cast<const __m128i*>(values)));
}

__attribute__((target("avx2"), always_inline)) inline void
mirror_block(const unsigned char* from, unsigned char* to, __m256i lower, __m256i upper) {
    const __m256i half = _mm256_set1_epi8(0x0F);
    const __m256i value = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from));
    const __m256i low = _mm256_and_si256(value, half);
    const __m256i high = _mm256_and_si256(_mm256_srli_epi16(value, 4), half);
    _mm256_storeu_si256(
        reinterpret_cast<__m256i*>(to),
        _mm256_xor_si256(_mm256_shuffle_epi8(lower, low), _mm256_shuffle_epi8(upper, high)));
}

// 32 bytes at a time; those at the end of a row overlap with those before. A row has at least 32.
__attribute__((target("avx2"))) void mirror_wide(const row_walk& rows, unsigned char* to,
                                                 unsigned char flip) {
    constexpr std::size_t width = sizeof(__m256i);
    const __m256i lower =
        _mm256_xor_si256(table_of(lower_half), _mm256_set1_epi8(static_cast<char>(flip)));
    const __m256i upper = table_of(upper_half);
    const unsigned char* from = rows.first;
    for (std::size_t row = 0; row < rows.count; ++row, from += rows.step, to += rows.bytes) {
        for (std::size_t at = 0; at + width <= rows.bytes; at += width)
            mirror_block(from + at, to + at, lower, upper);
        mirror_block(from + rows.bytes - width, to + rows.bytes - width, lower, upper);
    }
}

bool takes_wide(const row_walk& rows) {
    return rows.bytes >= sizeof(__m256i) && has_wide_registers();
}

#else

void mirror_wide(const row_walk&, unsigned char*, unsigned char) {}

bool takes_wide(const row_walk&) {
    return false;
}

#endif

// `from` and `to` may be the same.
void mirror_row(const unsigned char* from, unsigned char* to, std::size_t bytes,
                unsigned char flip) {
    const std::uint64_t flips = flip * 0x0101010101010101u;
    std::size_t at = 0;
    for (; at + 8 <= bytes; at += 8) {
        std::uint64_t word;
        std::memcpy(&word, from + at, sizeof word);
        word = mirrored(word) ^ flips;
        std::memcpy(to + at, &word, sizeof word);
    }
    for (; at < bytes; ++at)
        to[at] = static_cast<unsigned char>(mirrored(std::uint64_t{from[at]}) ^ flip);
}

} // namespace

void mirror_bits(std::span<unsigned char> bytes) {
    mirror_row(bytes.data(), bytes.data(), bytes.size(), 0);
}

void mirror_rows(const row_walk& rows, unsigned char* to, bool invert) {
    const unsigned char flip = invert ? 0xFF : 0;
    if (takes_wide(rows))
        return mirror_wide(rows, to, flip);
    const unsigned char* from = rows.first;
    for (std::size_t row = 0; row < rows.count; ++row, from += rows.step, to += rows.bytes)
        mirror_row(from, to, rows.bytes, flip);
}

} // namespace zerdix::pages
