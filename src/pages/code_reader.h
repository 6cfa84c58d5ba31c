// SPDX-License-Identifier: MIT
// The expander's input: takes codes out of a stream, group by group.
#ifndef ZERDIX_PAGES_CODE_READER_H
#define ZERDIX_PAGES_CODE_READER_H

#include <algorithm>
#include <bit>
#include <cstring>

#include "pages/lzw_format.h"

namespace zerdix::pages {

static_assert(std::endian::native == std::endian::little,
              "codes are unpacked by loading 64-bit words, lowest byte first");

class code_reader {
  public:
    static constexpr std::uint32_t no_code = ~0u;

    // `codes` is the stream behind its header.
    code_reader(const unsigned char* codes, std::size_t length, std::uint32_t largest_width)
        : codes_(codes), length_(length), bits_(length * 8), largest_width_(largest_width) {}

    // The next code, or no_code. `next_free` says when codes become wider. A code of which only
    // some bits are left isn't one.
    std::uint32_t next(std::uint32_t next_free) {
        if (next_free > width_ends_) [[unlikely]] {
            skip_group();
            ++width_;
            width_ends_ = max_code(width_, largest_width_);
        }
        if (at_ + width_ > bits_) [[unlikely]] {
            return no_code;
        }
        const std::uint32_t code = load(at_) & ((1u << width_) - 1);
        at_ += width_;
        return code;
    }

    // Behind a clear code: narrow codes again, from the next group on.
    void restart() {
        skip_group();
        width_ = first_width;
        width_ends_ = max_code(first_width, last_width);
    }

  private:
    // To the end of the group at hand: a group is eight codes of one width.
    void skip_group() {
        const std::size_t group = std::size_t{width_} * 8;
        section_ += (at_ - section_ + group - 1) / group * group;
        at_ = section_;
    }

    std::uint32_t load(std::size_t bit) const {
        const std::size_t byte = bit / 8;
        std::uint64_t word = 0;
        if (byte + sizeof word <= length_) [[likely]] {
            std::memcpy(&word, codes_ + byte, sizeof word);
        } else {
            std::memcpy(&word, codes_ + byte, length_ - byte);
        }
        return static_cast<std::uint32_t>(word >> bit % 8);
    }

    const unsigned char* codes_;
    std::size_t length_;
    std::size_t bits_;
    std::uint32_t largest_width_;
    std::uint32_t width_ = first_width;
    std::uint32_t width_ends_ = max_code(first_width, last_width); // 511 even if none is wider
    std::size_t section_ = 0; // where the groups of the present width began, in bits
    std::size_t at_ = 0;      // the next code, in bits
};

} // namespace zerdix::pages

#endif
