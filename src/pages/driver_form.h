// SPDX-License-Identifier: MIT
// The rows of a printer driver's page block (pages/page_block.h).
#ifndef ZERDIX_PAGES_DRIVER_FORM_H
#define ZERDIX_PAGES_DRIVER_FORM_H

#include <span>

#include "pages/mirror.h"
#include "pages/page_block.h"

namespace zerdix::pages {

// Whether there is a picture, in rows of whole bytes. A driver's rows have no bits behind the last
// pixel: what they mean isn't told, and they would reach the receiver.
constexpr bool is_storable(page_size size) {
    return size.width > 0 && size.height > 0 && size.width % 8 == 0;
}

// Writes the stored form of a block: its rows from the top of the page, mirrored and inverted.
// Bytes behind the rows become 0. `stored` is as long as `block`, which is storable and covers its
// rows. The same steps lead back from the stored form.
void write_stored_form(std::span<const unsigned char> block, std::span<unsigned char> stored);

// The rows of a block in driver form from the top of the page.
row_walk rows_from_top(const unsigned char* block);

} // namespace zerdix::pages

#endif
