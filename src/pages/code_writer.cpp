// SPDX-License-Identifier: MIT
#include "pages/code_writer.h"

#include <algorithm>
#include <utility>

namespace zerdix::pages {

void code_writer::write_header() {
    grow();
    if (failed_) {
        return;
    }
    block_[0] = magic_1;
    block_[1] = magic_2;
    block_[2] = block_flag | last_width;
    at_.bytes = at_.section = header_size;
}

// After a failure the writer goes on over the start of what it has, so that only the end of a run
// needs to look.
void code_writer::grow() {
    auto* larger = failed_
                       ? nullptr
                       : static_cast<unsigned char*>(std::realloc(block_, capacity_ + block_step));
    if (larger == nullptr) {
        failed_ = true;
        at_.bytes = at_.section = 0;
        return;
    }
    block_ = larger;
    capacity_ += block_step;
}

// A group that ends early is written in full: behind its codes stands what the group before it had
// at the same places. Codes are 16 bits wide here, and have been for thousands of groups.
void code_writer::fill_group() {
    const std::size_t used = (at_.bytes - at_.section) % last_width;
    if (used == 0 || failed_) {
        return;
    }
    if (at_.bytes + last_width > capacity_) {
        grow();
    }
    if (failed_) {
        return;
    }
    const std::size_t rest = last_width - used;
    std::memcpy(block_ + at_.bytes, block_ + at_.bytes - last_width, rest);
    at_.bytes += rest;
}

unsigned char* code_writer::finish(std::size_t& length) {
    length = 0;
    if (failed_) {
        return nullptr;
    }
    length = at_.bytes + (at_.pending_bits > 0 ? 1 : 0);
    if (whole_blocks(length) < capacity_) {
        auto* smaller = static_cast<unsigned char*>(std::realloc(block_, whole_blocks(length)));
        block_ = smaller != nullptr ? smaller : block_;
    }
    return std::exchange(block_, nullptr);
}

} // namespace zerdix::pages
