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
    for (std::uint32_t i = size.height; i > 0; --i, to += row)
        std::memcpy(to, block.data() + page_header_size + row * (i - 1), row);
    std::fill(to, turned.data() + turned.size(), static_cast<unsigned char>(0xFF));
}

} // namespace zerdix::sendfax
