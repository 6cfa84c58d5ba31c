// SPDX-License-Identifier: MIT
// Stretching pictures, and laying one over another.
//
// Stretching keeps what is black: where rows or columns fall away, a pixel of the result is black
// when any of the pixels is that come to lie on it. Source pixel s of a side of m pixels comes to
// lie on pixel s * n / m of the n. Where they are doubled, result pixel i shows the source pixel
// that its middle lies on, (2 * i + 1) * m / (2 * n). The two directions don't depend on each
// other.
#ifndef ZERDIX_IMAGING_STRETCH_H
#define ZERDIX_IMAGING_STRETCH_H

#include "imaging/bitmap.h"

namespace zerdix::imaging {

// Makes `stretched`, whose former content is forgotten, of the picture in another size, in the same
// colour order and without a palette. 0 when `picture` has no pixels, for a size beyond the limits
// of a bitmap or below 1, and when memory ran out.
int stretch(const LeadBitmap& picture, std::int32_t width, std::int32_t height,
            LeadBitmap* stretched);

// Stretches `picture` to the size of `target` and combines the pixel values, as they stand and
// whatever the colour orders, by exclusive or. 0 as above; then `target` is as it was.
int stretch_exclusive_or(const LeadBitmap& picture, LeadBitmap* target);

} // namespace zerdix::imaging

#endif
