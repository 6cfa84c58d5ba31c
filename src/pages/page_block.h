// SPDX-License-Identifier: MIT
// The forms of a page, and the header that all of them have.
//
// A page block is width and height, 32 bits each, then the rows, (width + 7) / 8 bytes each. Blocks
// differ in their header, in the order of their rows, and in what a byte of a row means:
//
//     form      header                            rows            leftmost pixel   a set bit is
//     driver    most significant byte first       bottom to top   bit 7            white
//     stored    most significant byte first       top to bottom   bit 0            black
//     expanded  the stored one, bytes mirrored    top to bottom   bit 7            black
//
// A printer driver hands in the driver form, the server keeps the stored form, compressed, and the
// page codec expands a stored page into the expanded form. While the library works on a block, its
// header is in the machine's byte order.
#ifndef ZERDIX_PAGES_PAGE_BLOCK_H
#define ZERDIX_PAGES_PAGE_BLOCK_H

#include <cstddef>
#include <cstdint>
#include <span>

namespace zerdix::pages {

inline constexpr std::size_t block_header_size = 8;

// Bytes of a row, whose last bits may be behind the last pixel.
constexpr std::size_t row_bytes(std::uint32_t width) {
    return (std::size_t{width} + 7) / 8;
}

struct page_size {
    std::uint32_t width;  // pixels
    std::uint32_t height; // rows

    constexpr std::size_t row_bytes() const { return pages::row_bytes(width); }

    // Header and rows. Below 2^62, whatever a header claims.
    constexpr std::uint64_t block_bytes() const {
        return block_header_size + std::uint64_t{height} * row_bytes();
    }
};

// How the two words of a header are written.
enum class header_form {
    stored,   // of the driver form, too
    expanded, // what the codec makes of the stored one
    machine,
};

// `block` holds a header at least.
page_size read_header(const unsigned char* block, header_form form);
void write_header(unsigned char* block, page_size size, header_form form);

// Makes the bits behind the last pixel of each row white, in rows of the stored form.
void whiten_padding(std::span<unsigned char> rows, page_size size);

// Turns the order of the four bytes round: a word between stored and machine order.
std::uint32_t SwapLong(std::uint32_t value);

// The same with the bits of each byte reversed: a word of an expanded header.
std::uint32_t MirrorLong(std::uint32_t value);

} // namespace zerdix::pages

#endif
