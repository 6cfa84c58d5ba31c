// SPDX-License-Identifier: MIT
#include <array>
#include <memory>

#include "pages/code_reader.h"
#include "pages/expanded_block.h"
#include "pages/page_codec.h"

namespace zerdix::pages {
namespace {

constexpr std::array<unsigned char, 256> make_mirror() {
    std::array<unsigned char, 256> mirror{};
    for (unsigned byte = 0; byte < 256; ++byte) {
        for (unsigned bit = 0; bit < 8; ++bit) {
            mirror[byte] |= static_cast<unsigned char>((byte >> bit & 1) << (7 - bit));
        }
    }
    return mirror;
}

constexpr std::array<unsigned char, 256> mirrored = make_mirror();

// Where the string of each code stands in the output. A string is the one before it in the stream
// and a byte more, and those stand in the output one behind the other: the string of code n begins
// where the string that was read before n was defined begins, and ends with the first byte of the
// next one. So one place for a code is enough, and no string is ever put together from its links.
class string_places {
  public:
    explicit string_places(std::uint32_t* places) : places_(places) {}

    static constexpr std::size_t bytes = (std::size_t{code_limit} + 1) * sizeof(std::uint32_t);

    void set(std::uint32_t code, std::size_t start) {
        places_[code] = static_cast<std::uint32_t>(start);
    }
    std::size_t start(std::uint32_t code) const { return places_[code]; }
    std::size_t length(std::uint32_t code) const { return places_[code + 1] - places_[code] + 1; }

  private:
    std::uint32_t* places_;
};

static_assert(expanded_limit <= UINT32_MAX);

struct stream_header {
    std::uint32_t largest_width;
    bool block_mode;

    // Below nine bits no code is ever defined, and the stream is one of single bytes.
    std::uint32_t code_count() const { return 1u << largest_width; }
    std::uint32_t first_free_code() const { return block_mode ? first_free : clear_code; }
};

class expansion {
  public:
    expansion(const stream_header& header, code_reader reader, std::uint32_t* places)
        : header_(header), reader_(reader), places_(places) {}

    void run(expanded_block& out) {
        std::uint32_t next_free = header_.first_free_code();
        const std::uint32_t first = reader_.next(next_free);
        if (first == code_reader::no_code || !out.reserve(1)) {
            return;
        }
        out.append(first < 256 ? mirrored[first] : static_cast<unsigned char>(first));
        places_.set(next_free, 0);
        run_on(out, next_free);
    }

  private:
    void run_on(expanded_block& out, std::uint32_t next_free) {
        const std::uint32_t code_count = header_.code_count();
        std::size_t previous = 0;
        for (;;) {
            std::uint32_t code = reader_.next(next_free);
            if (code == clear_code && header_.block_mode) {
                reader_.restart();
                next_free = clear_code; // a code that is never asked for takes the first string
                places_.set(next_free, previous);
                code = reader_.next(next_free);
            }
            const std::size_t start = out.size();
            if (code == code_reader::no_code || !append(out, code, next_free, previous)) {
                return;
            }
            if (next_free < code_count) {
                places_.set(++next_free, start);
            }
            previous = start;
        }
    }

    bool append(expanded_block& out, std::uint32_t code, std::uint32_t next_free,
                std::size_t previous) {
        if (code < 256) {
            if (!out.reserve(1)) {
                return false;
            }
            out.append(mirrored[code]);
            return true;
        }
        const bool known = code < next_free;
        const std::size_t from = known ? places_.start(code) : previous;
        const std::size_t count = known ? places_.length(code) : out.size() - previous + 1;
        if (!out.reserve(count)) {
            return false;
        }
        out.append_own(from, count);
        return true;
    }

    stream_header header_;
    code_reader reader_;
    string_places places_;
};

bool read_header(const unsigned char* input, std::size_t length, stream_header& header) {
    if (length < header_size || input[0] != magic_1 || input[1] != magic_2) {
        return false;
    }
    header = {.largest_width = input[2] & std::uint32_t{width_mask},
              .block_mode = (input[2] & block_flag) != 0};
    return header.largest_width <= last_width;
}

} // namespace

std::int32_t uncompress_mem_2_mem(const unsigned char* input, std::int32_t inputLength,
                                  unsigned char** output, std::int32_t* outputLength) {
    *output = nullptr;
    *outputLength = 0;
    const std::size_t length = inputLength > 0 ? static_cast<std::size_t>(inputLength) : 0;
    stream_header header{};
    if (!read_header(input, length, header)) {
        return 1;
    }
    const std::unique_ptr<std::uint32_t, decltype(&std::free)> places(
        static_cast<std::uint32_t*>(std::malloc(string_places::bytes)), &std::free);
    if (places == nullptr) {
        return 1;
    }
    const code_reader reader(input + header_size, length - header_size, header.largest_width);
    expanded_block out;
    expansion(header, reader, places.get()).run(out);
    if (out.out_of_memory()) {
        return 1;
    }
    *outputLength = static_cast<std::int32_t>(out.size());
    *output = out.finish();
    return 0;
}

} // namespace zerdix::pages
