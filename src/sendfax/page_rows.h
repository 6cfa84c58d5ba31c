// The rows of a page block between the printer driver's form and the stored form.
//
// A block is width and height, 32 bits each, most significant byte first, then the rows of
// width / 8 bytes. Driver form: the last row of the picture first, leftmost pixel in bit 7, a set
// bit white. Stored form: the first row first, leftmost pixel in bit 0, a set bit black.
#ifndef ZERDIX_SENDFAX_PAGE_ROWS_H
#define ZERDIX_SENDFAX_PAGE_ROWS_H

#include <cstddef>
#include <cstdint>
#include <span>

namespace zerdix::sendfax {

constexpr std::size_t page_header_size = 8;

struct page_size {
    std::uint32_t width;  // pixels
    std::uint32_t height; // rows

    std::size_t row_bytes() const { return width / 8; }

    // Whether there is a picture, in rows of whole bytes. Readers of a stored page take
    // (width + 7) / 8 bytes a row, so that they would lose their place at any other width.
    bool is_storable() const { return width > 0 && height > 0 && width % 8 == 0; }

    // Whether `bytes` take in the header and all rows.
    bool covered_by(std::size_t bytes) const;
};

// Reads a header; the block must hold one.
page_size read_page_size(std::span<const unsigned char> block);

// Copies a block with its rows turned round, so that the top of the page comes first. Bytes behind
// the rows become 0xFF. `turned` is as long as `block`, which is storable and covers its rows.
void turn_rows(std::span<const unsigned char> block, std::span<unsigned char> turned);

} // namespace zerdix::sendfax

#endif
