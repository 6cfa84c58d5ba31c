// SPDX-License-Identifier: MIT
// The picture of a compressed page. It is expanded once and kept until other bytes come, since all
// cover pages of a fan-out have the same form.
#ifndef ZERDIX_COVER_KEPT_PICTURE_H
#define ZERDIX_COVER_KEPT_PICTURE_H

#include <cstdint>
#include <vector>

#include <zerdix/records.h>

#include "imaging/owned_bitmap.h"

namespace zerdix::cover {

constexpr std::int32_t not_converted = 1210; // numbers of messages
constexpr std::int32_t not_inverted = 1257;

class kept_picture {
  public:
    // Makes it the picture of `page`, white-first. 0, or the number of the message for what went
    // wrong, which isn't shown; then there is no picture.
    std::int32_t expand(const page_dat& page);

    // Holds nothing before the first expand and after a failure.
    imaging::LeadBitmap& picture() { return picture_; }

    // A copy of the picture, with a palette. What `bitmap` held is forgotten, not released. False
    // when there is no picture, or no memory.
    bool copy_to(imaging::LeadBitmap& bitmap) const;

    void forget();

  private:
    std::vector<unsigned char> bytes_; // of the page
    imaging::owned_bitmap picture_;
};

} // namespace zerdix::cover

#endif
