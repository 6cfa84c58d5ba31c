// SPDX-License-Identifier: MIT
#include "tiff/group4.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <vector>

#include "tiff/run_codes.h"

namespace zerdix::tiff {

namespace {

constexpr fax_code pass = code("0001");
constexpr fax_code horizontal = code("001");
constexpr std::array<fax_code, 7> vertical = {code("0000010"), code("000010"), code("010"),
                                              code("1"),       code("011"),    code("000011"),
                                              code("0000011")}; // 3 to the left to 3 to the right
constexpr fax_code end_of_line = code("000000000001");

class bit_writer {
  public:
    void put(fax_code code) { put(code.bits, code.length); }

    // At most 32 bits.
    void put(std::uint64_t bits, unsigned length) {
        kept_ = kept_ << length | bits;
        count_ += length;
        if (count_ >= word_bits)
            put_word();
    }

    std::string finish() {
        for (; count_ >= 8; count_ -= 8)
            bytes_ += static_cast<char>(kept_ >> (count_ - 8) & 255);
        if (count_ > 0)
            bytes_ += static_cast<char>(kept_ << (8 - count_) & 255);
        return std::move(bytes_);
    }

  private:
    static constexpr unsigned word_bits = 32;

    void put_word() {
        count_ -= word_bits;
        auto word = static_cast<std::uint32_t>(kept_ >> count_);
        if constexpr (std::endian::native == std::endian::little)
            word = __builtin_bswap32(word);
        bytes_.append(reinterpret_cast<const char*>(&word), sizeof word);
    }

    std::string bytes_;
    std::uint64_t kept_ = 0; // the lowest `count_` bits wait, fewer than 32
    unsigned count_ = 0;
};

std::uint64_t load_big_endian(const unsigned char* bytes, std::size_t count) {
    unsigned char padded[8] = {};
    std::memcpy(padded, bytes, std::min<std::size_t>(count, 8));
    std::uint64_t word = 0;
    std::memcpy(&word, padded, sizeof word);
    if constexpr (std::endian::native == std::endian::little)
        word = __builtin_bswap64(word);
    return word;
}

// Where a row changes its colour, from left to right, starting from white: those at even places
// turn black. Behind them stands the width several times over, for the looks ahead.
class changes {
  public:
    explicit changes(std::size_t width) : width_(static_cast<std::int32_t>(width)) {
        places_.resize(width + looks_ahead);
        clear();
    }

    void find(const unsigned char* row, std::size_t bytes) {
        count_ = 0;
        std::uint64_t last = 0; // the pixel before
        for (std::size_t at = 0; at < bytes; at += 8) {
            const std::uint64_t word = load_big_endian(row + at, bytes - at);
            std::uint64_t edges = word ^ (word >> 1 | last << 63);
            last = word & 1;
            while (edges != 0) {
                const int place = std::countl_zero(edges);
                edges ^= top >> place;
                add(static_cast<std::int32_t>(8 * at) + place);
            }
        }
        close();
    }

    void clear() {
        count_ = 0;
        close();
    }

    std::size_t count() const { return count_; }
    std::int32_t operator[](std::size_t place) const { return places_[place]; }

  private:
    static constexpr std::uint64_t top = std::uint64_t{1} << 63;
    static constexpr std::size_t looks_ahead = 4;

    void add(std::int32_t place) {
        if (place < width_)
            places_[count_++] = place;
    }
    void close() {
        std::fill_n(places_.begin() + static_cast<std::ptrdiff_t>(count_), looks_ahead, width_);
    }

    std::int32_t width_;
    std::vector<std::int32_t> places_;
    std::size_t count_ = 0;
};

class group4_writer {
  public:
    explicit group4_writer(std::size_t width) : width_(static_cast<std::int32_t>(width)) {}

    void put_row(const changes& above, const changes& row);
    // A row like the one above it.
    void put_same_row(std::size_t changes);
    std::string finish();

  private:
    void put_run(std::int32_t pixels, unsigned colour);

    std::int32_t width_;
    bit_writer out_;
};

void group4_writer::put_run(std::int32_t pixels, unsigned colour) {
    const run_codes& codes = run_codes_of[colour];
    auto left = static_cast<std::size_t>(pixels);
    if (left < 64)
        return out_.put(codes.rest[left]);
    const std::size_t most = codes.sixty_fours.size() - 1;
    for (; left >= 64 * (most + 1); left -= 64 * most)
        out_.put(codes.sixty_fours[most]);
    if (left >= 64)
        out_.put(codes.sixty_fours[left / 64]);
    out_.put(codes.rest[left % 64]);
}

// The names of the standard: a0 is where the coding stands, a1 and a2 the next changes of the row,
// b1 and b2 those of the row above behind a0, b1 to the other colour than that of a0.
void group4_writer::put_row(const changes& above, const changes& row) {
    std::int32_t a0 = -1; // in front of the first pixel
    std::size_t next = 0; // of the row; its lowest bit is the colour, too
    std::size_t b = 0;
    while (a0 < width_) {
        b = b > 0 ? b - 1 : 0;
        b += (b ^ next) & 1;
        while (above[b] <= a0 && above[b] < width_)
            b += 2;
        const std::int32_t a1 = row[next], b1 = above[b], b2 = above[b + 1];
        const std::int32_t shift = a1 - b1 + 3;
        if (b2 < a1) {
            out_.put(pass);
            a0 = b2;
        } else if (shift >= 0 && shift <= 6) {
            out_.put(vertical[static_cast<std::size_t>(shift)]);
            a0 = a1;
            ++next;
        } else {
            const std::int32_t a2 = row[next + 1];
            out_.put(horizontal);
            put_run(a1 - std::max(a0, 0), next & 1);
            put_run(a2 - a1, ~next & 1);
            a0 = a2;
            next += 2;
        }
    }
}

// Each change stands below its own, and so does the end of the row.
void group4_writer::put_same_row(std::size_t changes) {
    constexpr std::size_t at_once = 32;
    std::size_t left = changes + 1;
    for (; left >= at_once; left -= at_once)
        out_.put(0xffffffff, at_once);
    out_.put((std::uint64_t{1} << left) - 1, static_cast<unsigned>(left));
}

std::string group4_writer::finish() {
    out_.put(end_of_line);
    out_.put(end_of_line);
    return out_.finish();
}

} // namespace

std::string group4_code(std::uint32_t width, std::span<const unsigned char> rows) {
    const std::size_t bytes = (std::size_t{width} + 7) / 8;
    changes above(width);
    changes row(width);
    group4_writer writer(width);
    const std::vector<unsigned char> white(bytes, 0);
    const unsigned char* last = white.data();
    for (std::size_t at = 0; at + bytes <= rows.size(); at += bytes) {
        const unsigned char* now = rows.data() + at;
        if (std::memcmp(now, last, bytes) == 0) {
            writer.put_same_row(above.count());
            continue;
        }
        row.find(now, bytes);
        writer.put_row(above, row);
        std::swap(above, row);
        last = now;
    }
    return writer.finish();
}

} // namespace zerdix::tiff
