// What may take a page before it is compressed as it stands. Each is given the work buffer, a page
// block in driver form with its rows from the top of the page, and leaves it as it was.
//
// 0: `page` holds the finished, compressed page, which the caller frees. 4: the page is none of
// the preparer's business. 8: failure.
#ifndef ZERDIX_SENDFAX_PAGE_PREPARERS_H
#define ZERDIX_SENDFAX_PAGE_PREPARERS_H

#include <cstdint>

#include <zerdix/records.h>

namespace zerdix::sendfax {

// Lays the page over the user's letterhead for this paper source. There are no letterheads yet:
// every page passes.
std::int32_t MergeBackPaper(unsigned char* block, std::int32_t size, std::int16_t paperSource,
                            page_dat* page);

// Turns a landscape page upright. No page is turned yet: every page passes.
std::int32_t RotateBitmap(unsigned char* block, std::int32_t size, page_dat* page);

} // namespace zerdix::sendfax

#endif
