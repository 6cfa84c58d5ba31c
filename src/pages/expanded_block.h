// SPDX-License-Identifier: MIT
// The expander's output: a growing block to which pieces of itself are appended.
#ifndef ZERDIX_PAGES_EXPANDED_BLOCK_H
#define ZERDIX_PAGES_EXPANDED_BLOCK_H

#include <array>
#include <cstdlib>
#include <cstring>

#include "pages/lzw_format.h"

namespace zerdix::pages {

class expanded_block {
  public:
    ~expanded_block() { std::free(bytes_); }
    expanded_block() = default;
    expanded_block(const expanded_block&) = delete;
    expanded_block& operator=(const expanded_block&) = delete;

    std::size_t size() const { return size_; }
    bool out_of_memory() const { return out_of_memory_; }

    // Makes room for `count` more bytes. False at expanded_limit, or when memory ran out.
    bool reserve(std::size_t count) {
        return size_ + count + 2 * piece <= capacity_ || grow(size_ + count);
    }

    // Room must have been reserved, here and below.
    void append(unsigned char byte) { bytes_[size_++] = byte; }

    // Appends `count` bytes that start at `from`. They may run into the new ones by one byte, as
    // the string that is only being defined does.
    void append_own(std::size_t from, std::size_t count) {
        const unsigned char* source = bytes_ + from;
        unsigned char* target = bytes_ + size_;
        const bool runs_over = from + count > size_;
        copy_piece(target, source);
        for (std::size_t done = piece; done < count; done += piece) {
            copy_piece(target + done, source + done);
        }
        if (runs_over) {
            target[count - 1] = *source;
        }
        size_ += count;
    }

    // Hands the block over, cut to whole steps; null when it is empty.
    unsigned char* finish();

  private:
    // Copies go in pieces of this many bytes and may write as many behind the end.
    static constexpr std::size_t piece = 16;

    // Both may overlap: what comes from the overlap is behind the end or written again.
    static void copy_piece(unsigned char* target, const unsigned char* source) {
        std::array<unsigned char, piece> bytes;
        std::memcpy(bytes.data(), source, piece);
        std::memcpy(target, bytes.data(), piece);
    }

    bool grow(std::size_t wanted);

    unsigned char* bytes_ = nullptr;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
    bool out_of_memory_ = false;
};

} // namespace zerdix::pages

#endif
