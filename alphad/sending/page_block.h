// A stored page as a picture.
//
// The picture has its rows from top to bottom, each of (width + 7) / 8 bytes, the leftmost pixel in
// bit 7, a set bit black.
#ifndef ZERDIX_ALPHAD_SENDING_PAGE_BLOCK_H
#define ZERDIX_ALPHAD_SENDING_PAGE_BLOCK_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zerdix::alphad {

struct page_picture {
    std::int32_t width; // a multiple of 8
    std::int32_t height;
    std::vector<unsigned char> rows;

    std::size_t row_bytes() const { return (static_cast<std::size_t>(width) + 7) / 8; }
    unsigned char* row(std::int32_t y) {
        return rows.data() + row_bytes() * static_cast<std::size_t>(y);
    }
};

// Nothing unless the bytes are a compressed page block whose rows are all there.
std::optional<page_picture> expand_page(std::string_view compressed);

// What a fax can't be made of is refused as early as it shows. Bytes that don't begin as a
// compressed stream are nobody's page, and not refused here.
//
// Whether a page that begins so may become a picture: its width and its height are possible ones,
// or haven't come yet.
bool may_become_picture(std::string_view beginning);
// Whether a page that is all there is one.
bool is_picture(std::string_view compressed);

// The picture as it is stored. Throws std::bad_alloc.
std::string compress_page(const page_picture& page);

// Half as many rows: each is black where one of its two was.
page_picture halved(page_picture page);

} // namespace zerdix::alphad

#endif
