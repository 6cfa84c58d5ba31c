// SPDX-License-Identifier: MIT
// Laying a page over the user's letterhead before it is compressed.
#ifndef ZERDIX_SENDFAX_LETTERHEAD_H
#define ZERDIX_SENDFAX_LETTERHEAD_H

#include <cstdint>

#include <zerdix/records.h>

namespace zerdix::sendfax {

// Lays the page over the user's letterhead for this paper source, 0 to 9. The letterhead is the
// first page of the pool document that `papertrays` of the user's record names; it is stretched to
// the page's size, and a pixel is black where exactly one of the two is. A picture that is wider
// than high is turned first, page and letterhead each on its own. The letterhead is fetched once
// for each change of the paper source in a job.
//
// `block` is a page block in driver form, of `size` bytes, of which the header at least is there; a
// block without all of its rows is a failure.
//
// 0: `page` holds the compressed page, which the caller frees. 4: there is no letterhead that
// can be used, and `page` is unchanged. 8: failure.
std::int32_t MergeBackPaper(const unsigned char* block, std::int32_t size, std::int16_t paperSource,
                            page_dat* page);

} // namespace zerdix::sendfax

#endif
