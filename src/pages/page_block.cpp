// SPDX-License-Identifier: MIT
#include "pages/page_block.h"

#include <cstring>

#include "pages/mirror.h"

namespace zerdix::pages {

namespace {

// Each order is its own inverse.
std::uint32_t in_order(std::uint32_t word, header_form form) {
    switch (form) {
    case header_form::stored:
        return SwapLong(word);
    case header_form::expanded:
        return MirrorLong(word);
    default:
        return word;
    }
}

} // namespace

page_size read_header(const unsigned char* block, header_form form) {
    std::uint32_t words[2];
    std::memcpy(words, block, sizeof words);
    return {in_order(words[0], form), in_order(words[1], form)};
}

void write_header(unsigned char* block, page_size size, header_form form) {
    const std::uint32_t words[2] = {in_order(size.width, form), in_order(size.height, form)};
    std::memcpy(block, words, sizeof words);
}

void whiten_padding(std::span<unsigned char> rows, page_size size) {
    if (size.width % 8 == 0)
        return;
    const auto pixels = static_cast<unsigned char>((1 << size.width % 8) - 1);
    for (std::size_t last = size.row_bytes() - 1; last < rows.size(); last += size.row_bytes())
        rows[last] &= pixels;
}

std::uint32_t SwapLong(std::uint32_t value) {
    return __builtin_bswap32(value);
}

std::uint32_t MirrorLong(std::uint32_t value) {
    unsigned char bytes[sizeof value];
    std::memcpy(bytes, &value, sizeof value);
    mirror_bits(bytes);
    std::memcpy(&value, bytes, sizeof value);
    return SwapLong(value);
}

} // namespace zerdix::pages
