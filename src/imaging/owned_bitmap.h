// A bitmap that is released with its scope.
#ifndef ZERDIX_IMAGING_OWNED_BITMAP_H
#define ZERDIX_IMAGING_OWNED_BITMAP_H

#include "imaging/page_forms.h"

namespace zerdix::imaging {

struct owned_bitmap : LeadBitmap {
    owned_bitmap() : LeadBitmap{} {}
    ~owned_bitmap() { FreeLeadBitmap(this); }
    owned_bitmap(const owned_bitmap&) = delete;
    owned_bitmap& operator=(const owned_bitmap&) = delete;
};

} // namespace zerdix::imaging

#endif
