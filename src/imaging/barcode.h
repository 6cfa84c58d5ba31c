// SPDX-License-Identifier: MIT
// The barcode of a cover page: Industrial 2 of 5, which carries its digits in the bars alone.
//
// A symbol is start, digits, check digit and stop, all made of narrow and wide elements. An element
// is a bar, for which a wide one begins with 8 black pixels, then a gap of 4 white pixels, then 4
// black pixels that belong to the next bar. Seen along a row the bars are 4 pixels wide or 12; only
// the first one has 8, and one of 4 follows behind the stop.
#ifndef ZERDIX_IMAGING_BARCODE_H
#define ZERDIX_IMAGING_BARCODE_H

#include <cstddef>

#include "imaging/bitmap.h"

namespace zerdix::imaging {

// The most digits: as many fit on a label, and a user's record holds no more.
inline constexpr std::size_t barcode_longest = 20;

// The symbol as a page block: header in the machine's order, then 50 equal rows, leftmost pixel in
// bit 7, a set bit black. The caller frees the block. Null when `digits` aren't 1 to 20
// decimal digits, and when memory ran out.
unsigned char* BuildBarcodeBlock(const char* digits);

inline constexpr std::int32_t label_width = 1382;
inline constexpr std::int32_t label_height = 150;

// A label with the top text, the barcode and the bottom text under one another, 50 rows each; what
// is too wide is cut off. Texts are Windows-1252. The block is freed, on failure too. The caller
// releases the bitmap with FreeLeadBitmap and its record with free. Null on failure, of which the
// user is told in a message box.
LeadBitmap* CreateBarcodeLabel(unsigned char* block, const char* bottomText, const char* topText);

} // namespace zerdix::imaging

#endif
