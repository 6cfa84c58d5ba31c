// SPDX-License-Identifier: MIT
#include "pages/driver_form.h"

#include <algorithm>

namespace zerdix::pages {

row_walk rows_from_top(const unsigned char* block) {
    const page_size size = read_header(block, header_form::stored);
    const std::size_t bytes = size.row_bytes();
    return {block + block_header_size + bytes * (std::max(size.height, 1u) - 1),
            -static_cast<std::ptrdiff_t>(bytes), bytes, size.height};
}

void write_stored_form(std::span<const unsigned char> block, std::span<unsigned char> stored) {
    const row_walk rows = rows_from_top(block.data());
    std::copy_n(block.begin(), block_header_size, stored.begin());
    mirror_rows(rows, stored.data() + block_header_size, true);
    const std::size_t written = block_header_size + rows.bytes * rows.count;
    std::fill(stored.begin() + static_cast<std::ptrdiff_t>(written), stored.end(),
              static_cast<unsigned char>(0));
}

} // namespace zerdix::pages
