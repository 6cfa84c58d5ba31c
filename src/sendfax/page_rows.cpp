#include "sendfax/page_rows.h"

#include <algorithm>
#include <cstring>

namespace zerdix::sendfax {

namespace {

std::uint32_t big_endian(const unsigned char* bytes) {
    std::uint32_t word;
    std::memcpy(&word, bytes, sizeof word);
    return __builtin_bswap32(word);
}

// All eight bytes at once: halves, quarters and single bits of each change places.
std::uint64_t mirror_and_invert(std::uint64_t bytes) {
    bytes = (bytes >> 1 & 0x5555555555555555u) | (bytes & 0x5555555555555555u) << 1;
    bytes = (bytes >> 2 & 0x3333333333333333u) | (bytes & 0x3333333333333333u) << 2;
    bytes = (bytes >> 4 & 0x0F0F0F0F0F0F0F0Fu) | (bytes & 0x0F0F0F0F0F0F0F0Fu) << 4;
    return ~bytes;
}

} // namespace

bool page_size::covered_by(std::size_t bytes) const {
    // Below 2^32 each, so that the product fits in 64 bits.
    return bytes >= page_header_size &&
           std::uint64_t{height} * row_bytes() <= bytes - page_header_size;
}

page_size read_page_size(std::span<const unsigned char> block) {
    return {big_endian(block.data()), big_endian(block.data() + 4)};
}

void turn_rows(std::span<const unsigned char> block, std::span<unsigned char> turned) {
    const page_size size = read_page_size(block);
    const std::size_t row = size.row_bytes();
    std::memcpy(turned.data(), block.data(), page_header_size);
    unsigned char* to = turned.data() + page_header_size;
    for (std::uint32_t i = row == 0 ? 0 : size.height; i > 0; --i, to += row)
        std::memcpy(to, block.data() + page_header_size + row * (i - 1), row);
    std::fill(to, turned.data() + turned.size(), static_cast<unsigned char>(0xFF));
}

void mirror_and_invert(std::span<unsigned char> bytes) {
    std::size_t at = 0;
    for (; at + 8 <= bytes.size(); at += 8) {
        std::uint64_t word;
        std::memcpy(&word, bytes.data() + at, sizeof word);
        word = mirror_and_invert(word);
        std::memcpy(bytes.data() + at, &word, sizeof word);
    }
    for (; at < bytes.size(); ++at)
        bytes[at] = static_cast<unsigned char>(mirror_and_invert(std::uint64_t{bytes[at]}));
}

} // namespace zerdix::sendfax
