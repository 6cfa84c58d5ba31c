// SPDX-License-Identifier: MIT
// The state of a compressor's run, from which either of its two engines can go on.
#ifndef ZERDIX_PAGES_COMPRESS_RUN_H
#define ZERDIX_PAGES_COMPRESS_RUN_H

#include <algorithm>
#include <limits>

#include "pages/code_writer.h"

namespace zerdix::pages {

// Tells when the full table has stopped to pay: looks every 10,000 bytes at how many bytes of input
// go into a byte of output, and compares with the look before.
class clear_test {
  public:
    bool is_due(std::size_t in_count) const { return in_count >= checkpoint_; }

    // True when the table is to be cleared.
    bool fails(std::size_t in_count, std::size_t bytes_out) {
        checkpoint_ = in_count + interval;
        const std::size_t present = ratio_of(in_count, bytes_out);
        const bool worse = present <= ratio_;
        ratio_ = worse ? 0 : present;
        return worse;
    }

  private:
    static constexpr std::size_t interval = 10000;
    static constexpr std::size_t scaled_limit = 0x7fffff; // above, times 256 leaves 31 bits

    static std::size_t ratio_of(std::size_t in_count, std::size_t bytes_out) {
        if (in_count <= scaled_limit) {
            return in_count * 256 / bytes_out;
        }
        const std::size_t scaled_out = bytes_out >> 8;
        return scaled_out == 0 ? std::numeric_limits<std::int32_t>::max() : in_count / scaled_out;
    }

    std::size_t checkpoint_ = interval;
    std::size_t ratio_ = 0;
};

// A generation is the stretch from an empty table to the clear code, or to the end of the input.
enum class generation_end { input_used_up, cleared, given_up };

struct compress_run {
    compress_run(const unsigned char* bytes, std::size_t count) : input(bytes), length(count) {}

    const unsigned char* input;
    std::size_t length;
    std::size_t start = 0; // of the string to be found next
    clear_test test{};
    code_writer writer{};

    // The table is full and the string at hand ended before the byte at `next`: runs the clear
    // test when it is due, and clears.
    bool clear_if_due(std::size_t next) {
        const std::size_t in_count = next + 1;
        if (!test.is_due(in_count) || !test.fails(in_count, writer.bytes_out())) {
            return false;
        }
        writer.put_clear();
        return true;
    }
};

// Memory for the tables of a run: 69,001 keys of four bytes and as many codes of two.
inline constexpr std::uint32_t plain_slots = 69001;
inline constexpr std::size_t table_bytes = std::size_t{plain_slots} * (4 + 2);

// Takes the run through one generation with the hash table of the format's first implementation,
// probe by probe. Never gives up.
generation_end plain_generation(compress_run& run, void* tables);

// The same codes, several times as fast. Gives up when it can't be sure of them; the run's start
// and the position of its writer then need to be put back.
generation_end fast_generation(compress_run& run, void* tables);

} // namespace zerdix::pages

#endif
