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

__attribute__((target("avx2"))) void run_wide(unsigned char* bytes, std::size_t length,
                                              unsigned char flip) {
    const __m256i flipped = _mm256_set1_epi8(static_cast<char>(flip));
    const __m256i lower = _mm256_xor_si256(table_of(lower_half), flipped);
    const __m256i upper = table_of(upper_half);
    const __m256i half = _mm256_set1_epi8(0x0F);
    for (std::size_t at = 0; at < length; at += sizeof(__m256i)) {
        auto* place = reinterpret_cast<__m256i*>(bytes + at);
        const __m256i value = _mm256_loadu_si256(place);
        const __m256i low = _mm256_and_si256(value, half);
        const __m256i high = _mm256_and_si256(_mm256_srli_epi16(value, 4), half);
        _mm256_storeu_si256(place, _mm256_xor_si256(_mm256_shuffle_epi8(lower, low),
                                                    _mm256_shuffle_epi8(upper, high)));
    }
}

// 32 bytes at a time where the processor can. Gives how many bytes from the start on are done.
std::size_t mirror_wide(std::span<unsigned char> bytes, unsigned char flip) {
    if (!has_wide_registers())
        return 0;
    const std::size_t length = bytes.size() / sizeof(__m256i) * sizeof(__m256i);
    run_wide(bytes.data(), length, flip);
    return length;
}

#else

std::size_t mirror_wide(std::span<unsigned char>, unsigned char) {
    return 0;
}

#endif

// `flip` is 0xFF where the bits are to be inverted as well, else 0.
void mirror(std::span<unsigned char> bytes, unsigned char flip) {
    const std::uint64_t flips = flip * 0x0101010101010101u;
    std::size_t at = mirror_wide(bytes, flip);
    for (; at + 8 <= bytes.size(); at += 8) {
        std::uint64_t word;
        std::memcpy(&word, bytes.data() + at, sizeof word);
        word = mirrored(word) ^ flips;
        std::memcpy(bytes.data() + at, &word, sizeof word);
    }
    for (; at < bytes.size(); ++at)
        bytes[at] = static_cast<unsigned char>(mirrored(std::uint64_t{bytes[at]}) ^ flip);
}

} // namespace

void mirror_bits(std::span<unsigned char> bytes) {
    mirror(bytes, 0);
}

void mirror_and_invert(std::span<unsigned char> bytes) {
    mirror(bytes, 0xFF);
}

} // namespace zerdix::pages
