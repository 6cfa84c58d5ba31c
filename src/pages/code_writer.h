// SPDX-License-Identifier: MIT
// The compressor's output: packs codes into a growing block, lowest bit first.
#ifndef ZERDIX_PAGES_CODE_WRITER_H
#define ZERDIX_PAGES_CODE_WRITER_H

#include <bit>
#include <cstdlib>
#include <cstring>

#include "pages/lzw_format.h"

namespace zerdix::pages {

static_assert(std::endian::native == std::endian::little,
              "codes are packed by storing 64-bit words, lowest byte first");

class code_writer {
  public:
    // A point in the stream to which the writer can go back.
    struct position {
        std::size_t bytes = 0;   // whole bytes written
        std::size_t section = 0; // where the codes of the present width began
        std::uint64_t pending = 0;
        std::uint32_t pending_bits = 0; // bits in `pending`, below 8
        std::uint32_t width = first_width;
        std::uint32_t width_ends = max_code(first_width, last_width);
    };

    code_writer() { write_header(); }
    ~code_writer() { std::free(block_); }
    code_writer(const code_writer&) = delete;
    code_writer& operator=(const code_writer&) = delete;

    bool failed() const { return failed_; }
    const position& tell() const { return at_; }
    void go_back(const position& to) { at_ = to; }

    // Writes a code. `next_free` is the free code before the one that is about to be given away.
    void put(std::uint32_t code, std::uint32_t next_free) {
        if (at_.bytes + sizeof at_.pending > capacity_) {
            grow();
        }
        at_.pending |= std::uint64_t{code} << at_.pending_bits;
        at_.pending_bits += at_.width;
        if (block_ != nullptr) {
            std::memcpy(block_ + at_.bytes, &at_.pending, sizeof at_.pending);
        }
        at_.bytes += at_.pending_bits / 8;
        at_.pending >>= at_.pending_bits / 8 * 8;
        at_.pending_bits %= 8;
        if (next_free > at_.width_ends) {
            widen();
        }
    }

    // Bytes in the groups that are complete, the header included: what the ratio is taken from.
    std::size_t bytes_out() const {
        const std::size_t bits = (at_.bytes - at_.section) * 8 + at_.pending_bits;
        return at_.section + bits / (std::size_t{at_.width} * 8) * at_.width;
    }

    // Writes the clear code and begins again with narrow codes. Only for a full table.
    void put_clear() {
        put(clear_code, first_free);
        fill_group();
        at_.section = at_.bytes;
        at_.width = first_width;
        at_.width_ends = max_code(first_width, last_width);
    }

    // Ends the last group and hands the block over, or null when memory ran out.
    unsigned char* finish(std::size_t& length);

  private:
    void write_header();
    void grow();

    // Each width below the last is left after a power of two of codes, at least 256 of them: a
    // group always ends just there, and there is nothing to fill up.
    void widen() {
        at_.section = at_.bytes;
        ++at_.width;
        at_.width_ends = max_code(at_.width, last_width);
    }

    void fill_group();

    unsigned char* block_ = nullptr;
    std::size_t capacity_ = 0;
    position at_;
    bool failed_ = false;
};

} // namespace zerdix::pages

#endif
