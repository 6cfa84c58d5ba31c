// SPDX-License-Identifier: MIT
#include "pages/driver_form.h"

#include <algorithm>
#include <cstring>

namespace zerdix::pages {

void turn_rows(std::span<const unsigned char> block, std::span<unsigned char> turned) {
    const page_size size = read_header(block.data(), header_form::stored);
    const std::size_t row = size.row_bytes();
    std::memcpy(turned.data(), block.data(), block_header_size);
    unsigned char* to = turned.data() + block_header_size;
    for (std::uint32_t i = size.height; i > 0; --i, to += row)
        std::memcpy(to, block.data() + block_header_size + row * (i - 1), row);
    std::fill(to, turned.data() + turned.size(), static_cast<unsigned char>(0xFF));
}

} // namespace zerdix::pages
