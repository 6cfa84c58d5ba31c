// SPDX-License-Identifier: MIT
// Turning a landscape page upright before it is compressed.
#ifndef ZERDIX_SENDFAX_LANDSCAPE_PAGE_H
#define ZERDIX_SENDFAX_LANDSCAPE_PAGE_H

#include <cstdint>

#include <zerdix/records.h>

namespace zerdix::sendfax {

// Turns a page that is wider than high, so that its top comes to the left. A square page is taken
// and not turned. `block` holds `size` bytes, a page block in driver form.
//
// 0: `page` holds the compressed page, which the caller frees. 4: the page is upright, and `page`
// is unchanged. 8: failure.
std::int32_t RotateBitmap(const unsigned char* block, std::int32_t size, page_dat* page);

} // namespace zerdix::sendfax

#endif
