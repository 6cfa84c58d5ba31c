// SPDX-License-Identifier: MIT
// A bitmap that is released with its scope, and one whose pixels are about to be written.
#ifndef ZERDIX_IMAGING_OWNED_BITMAP_H
#define ZERDIX_IMAGING_OWNED_BITMAP_H

#include <cstdlib>

#include "imaging/page_forms.h"

namespace zerdix::imaging {

struct owned_bitmap : LeadBitmap {
    owned_bitmap() : LeadBitmap{} {}
    ~owned_bitmap() { FreeLeadBitmap(this); }
    owned_bitmap(const owned_bitmap&) = delete;
    owned_bitmap& operator=(const owned_bitmap&) = delete;
};

// Sets up a bitmap for a caller that writes all of its memory, padding too. False when a size is
// out of bounds or memory ran out.
inline bool allocate_unset(LeadBitmap& bitmap, std::int32_t width, std::int32_t height) {
    if (L_InitBitmap(&bitmap, width, height, 1) != 1 || width == 0 || height == 0)
        return false;
    bitmap.pixels =
        static_cast<unsigned char*>(std::malloc(bitmap.stride * static_cast<std::size_t>(height)));
    if (bitmap.pixels == nullptr)
        return false;
    bitmap.flags |= bitmap_has_pixels;
    return true;
}

} // namespace zerdix::imaging

#endif
