// SPDX-License-Identifier: MIT
// Expands and makes stored pages: zerdix/page.h, with failures of this program.
#ifndef ZERDIX_APP_PICTURES_STORED_PAGE_H
#define ZERDIX_APP_PICTURES_STORED_PAGE_H

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zerdix::app {

struct page_picture {
    std::uint32_t width;
    std::uint32_t rows;
    std::vector<unsigned char> bits; // as the rows of zx_page

    std::size_t row_bytes() const { return (std::size_t{width} + 7) / 8; }
};

// Throws failure, without naming the page, when the bytes aren't a whole page.
page_picture expand_page(const unsigned char* compressed, std::size_t size);

// The bytes that the server keeps of a picture. Throws failure when there is no memory, and for a
// picture without a size.
std::vector<unsigned char> store_page(const page_picture& picture);

} // namespace zerdix::app

#endif
