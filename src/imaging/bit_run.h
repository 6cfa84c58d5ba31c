// SPDX-License-Identifier: MIT
// Combining a run of pixels of one row with a run of another, at any two places in them.
#ifndef ZERDIX_IMAGING_BIT_RUN_H
#define ZERDIX_IMAGING_BIT_RUN_H

#include <cstddef>
#include <cstdint>

namespace zerdix::imaging {

enum class bit_operation { copy, exclusive_or, set, clear };

// Where the pixels come from. The row is `stride` bytes long, a multiple of 8; leftmost pixel in
// bit 7 of a byte.
struct bit_source {
    const unsigned char* row;
    std::size_t stride;
    std::int32_t first; // the pixel to begin with
    bool inverted;      // each is taken for its opposite
};

// Combines `count` pixels of `row`, from `first` on, with as many of `source`. Both rows hold all
// of them; nothing else in `row` changes. `set` and `clear` make a pixel 1 or 0 where the source
// has 1. The rows don't overlap.
void combine_bits(unsigned char* row, std::int32_t first, std::int32_t count,
                  const bit_source& source, bit_operation operation);

} // namespace zerdix::imaging

#endif
