// SPDX-License-Identifier: MIT
// The rows of a printer driver's page block (pages/page_block.h).
#ifndef ZERDIX_PAGES_DRIVER_FORM_H
#define ZERDIX_PAGES_DRIVER_FORM_H

#include <span>

#include "pages/page_block.h"

namespace zerdix::pages {

// Whether there is a picture, in rows of whole bytes. A driver's rows have no bits behind the last
// pixel: what they mean isn't told, and they would reach the receiver.
constexpr bool is_storable(page_size size) {
    return size.width > 0 && size.height > 0 && size.width % 8 == 0;
}

// Copies a block with its rows turned round, so that the top of the page comes first. Bytes behind
// the rows become 0xFF. `turned` is as long as `block`, which is storable and covers its rows.
void turn_rows(std::span<const unsigned char> block, std::span<unsigned char> turned);

} // namespace zerdix::pages

#endif
