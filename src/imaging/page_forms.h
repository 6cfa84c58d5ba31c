// SPDX-License-Identifier: MIT
// Converting page blocks to bitmaps, and bitmaps to page blocks.
//
// Page blocks are those of pages/page_block.h, memory of malloc.
//
// Results are 1 for success and 0 for failure.
#ifndef ZERDIX_IMAGING_PAGE_FORMS_H
#define ZERDIX_IMAGING_PAGE_FORMS_H

#include <cstddef>
#include <cstdint>
#include <span>

#include <zerdix/records.h>

#include "imaging/bitmap.h"
#include "pages/page_block.h"

namespace zerdix::imaging {

// Makes an all-white bitmap, white-first, with a palette. What the record held before is forgotten,
// not released, here and below. Tells the user about failures in a message box.
int CreateEmptyBitmap(LeadBitmap* bitmap, std::int32_t width, std::int32_t height);

// Makes a bitmap of a block whose header is in machine order; it ends black-first, which shows
// driver rows right and expanded rows as a negative. With `releaseBlock` other than 0 the block is
// freed, on failure too. The block isn't told its own length: its maker answers for its rows.
int ConvertBmToLead(unsigned char* block, LeadBitmap* bitmap, int releaseBlock);

// Makes a bitmap of a block in driver form, black-first, upright. False when the block lacks rows,
// its size is beyond the limits of a bitmap, or memory ran out.
bool bitmap_of_driver_block(std::span<const unsigned char> block, LeadBitmap& bitmap);

// Makes a bitmap of a compressed page: expanded rows, black-first, so that L_InvertBitmap gives
// the picture. A stream that isn't one of the codec's posts a quit request with code 1.
int ConvertCompressedFaxToLead(const unsigned char* data, std::int32_t size, LeadBitmap* bitmap);

// Makes a compressed page, which the caller frees, of a bitmap's rows, whatever its colour order:
// `invert` is 1 for driver rows and 0 for expanded rows. On failure `page` stays as it was.
int ConvertLeadToCompressedFax(page_dat* page, LeadBitmap* bitmap, int invert);

// Releases what the bitmap holds, but not the record. May be called twice.
int FreeLeadBitmap(LeadBitmap* bitmap);

// New palettes, which the caller owns; null when memory ran out.
palette_handle CreateWhiteFirstPalette();
palette_handle CreateBlackFirstPalette();

// Releases a palette; 0 for none.
int DeleteObject(palette_handle palette);

} // namespace zerdix::imaging

#endif
