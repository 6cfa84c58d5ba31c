// SPDX-License-Identifier: MIT
#include "pages/expanded_block.h"

#include <algorithm>
#include <utility>

#include "pages/page_codec.h"

namespace zerdix::pages {

bool expanded_block::grow(std::size_t wanted) {
    if (wanted > expanded_limit) {
        return false;
    }
    // Never more than the limit needs, so that reserve() can't pass it either.
    const std::size_t capacity =
        std::min(whole_blocks(std::max(wanted + 2 * piece, capacity_ + capacity_ / 2)),
                 expanded_limit + 2 * piece);
    auto* larger = static_cast<unsigned char*>(std::realloc(bytes_, capacity));
    if (larger == nullptr) {
        out_of_memory_ = true;
        return false;
    }
    bytes_ = larger;
    capacity_ = capacity;
    return true;
}

unsigned char* expanded_block::finish() {
    const std::size_t whole = whole_blocks(size_);
    if (whole > 0 && whole < capacity_) {
        auto* smaller = static_cast<unsigned char*>(std::realloc(bytes_, whole));
        bytes_ = smaller != nullptr ? smaller : bytes_;
    }
    return std::exchange(bytes_, nullptr);
}

} // namespace zerdix::pages
