// A page as it comes from the server, made readable.
//
// What the expander gives is the expanded form of the page block: width and height, each byte with
// its bits mirrored, most significant byte first, then the rows from the top, eight pixels a byte,
// leftmost pixel in bit 7, a set bit black. The server's stored form has the bits of all these
// bytes the other way round.
#ifndef ZERDIX_APP_PICTURES_STORED_PAGE_H
#define ZERDIX_APP_PICTURES_STORED_PAGE_H

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zerdix::app {

struct page_picture {
    std::uint32_t width;
    std::uint32_t rows;
    std::vector<unsigned char> bits; // as in the expanded form, without the header

    std::size_t row_bytes() const { return (std::size_t{width} + 7) / 8; }
};

// Throws failure, without naming the page, when the bytes aren't a whole page.
page_picture expand_page(const unsigned char* compressed, std::size_t size);

// The bytes that the server keeps of a picture: the page block in its stored form, compressed. The
// width is a multiple of 8. Throws failure when there is no memory.
std::vector<unsigned char> store_page(const page_picture& picture);

} // namespace zerdix::app

#endif
