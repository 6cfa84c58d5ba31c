// SPDX-License-Identifier: MIT
// A page as rows of pixels, and the way to the stored form and back.
#ifndef ZERDIX_PAGES_PAGE_PICTURE_H
#define ZERDIX_PAGES_PAGE_PICTURE_H

#include <optional>
#include <span>
#include <vector>

#include "pages/page_block.h"

namespace zerdix::pages {

// Rows from the top of the page, size.row_bytes() each, leftmost pixel in bit 7, a set bit black.
struct page_picture {
    page_size size{};
    std::vector<unsigned char> rows;

    std::size_t row_bytes() const { return size.row_bytes(); }
    unsigned char* row(std::uint32_t y) { return rows.data() + y * row_bytes(); }
    const unsigned char* row(std::uint32_t y) const { return rows.data() + y * row_bytes(); }
};

// No fax page has more pixels a side.
inline constexpr std::uint32_t largest_side = 65535;

enum class page_fault {
    none,
    not_compressed, // the bytes aren't a stream of the codec, or too short for a header
    no_size,        // width or height is 0 or above largest_side
    rows_missing,   // the stream ends before the last row
};

// `rows_there` is what the stream holds of the picture's rows, for a message.
struct expanded_page {
    page_fault fault;
    page_picture picture; // of the told size; its rows only without a fault
    std::uint32_t rows_there;
};

// Of a compressed stored page.
expanded_page expand_page(std::span<const unsigned char> compressed);

// The compressed stored form. Bits behind the last pixel of a row are stored white. Throws
// std::bad_alloc when memory runs out.
std::vector<unsigned char> compress_page(const page_picture& picture);

} // namespace zerdix::pages

#endif
