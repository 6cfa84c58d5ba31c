// SPDX-License-Identifier: MIT
#include "cover/kept_picture.h"

#include <algorithm>
#include <cstring>
#include <span>

namespace zerdix::cover {

std::int32_t kept_picture::expand(const page_dat& page) {
    const std::span bytes{page.data, page.size};
    if (holds_pixels(picture_) && std::ranges::equal(bytes, bytes_))
        return 0;
    forget();
    if (ConvertCompressedFaxToLead(page.data, static_cast<std::int32_t>(page.size), &picture_) != 1)
        return not_converted;
    if (L_InvertBitmap(&picture_) != 1)
        return not_inverted;
    bytes_.assign(bytes.begin(), bytes.end());
    return 0;
}

bool kept_picture::copy_to(imaging::LeadBitmap& bitmap) const {
    if (!holds_pixels(picture_) || CreateEmptyBitmap(&bitmap, picture_.width, picture_.height) != 1)
        return false;
    bitmap.order = picture_.order;
    std::memcpy(bitmap.pixels, picture_.pixels,
                picture_.stride * static_cast<std::size_t>(picture_.height));
    return true;
}

void kept_picture::forget() {
    FreeLeadBitmap(&picture_);
    bytes_ = {};
}

} // namespace zerdix::cover
