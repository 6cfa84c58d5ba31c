// SPDX-License-Identifier: MIT
#include "imaging/stretch.h"

#include <functional>
#include <memory>
#include <new>
#include <utility>

#include "imaging/bit_square.h"
#include "imaging/owned_bitmap.h"
#include "pages/wide_registers.h"

namespace zerdix::imaging {
namespace {

// The pixels of one side that make a pixel of the other: those from first to end - 1.
struct span {
    std::int32_t first, end;
};

// The first of m pixels that comes to lie on pixel i of n.
std::int32_t first_on(std::int64_t i, std::int64_t m, std::int64_t n) {
    return static_cast<std::int32_t>((i * m + n - 1) / n);
}

// For each of `to` pixels those of `from` that make it. Null when memory ran out.
std::unique_ptr<span[]> spans_of(std::int32_t from, std::int32_t to) {
    std::unique_ptr<span[]> spans{new (std::nothrow) span[static_cast<std::size_t>(to)]};
    if (spans == nullptr)
        return spans;
    for (std::int32_t i = 0; i < to; ++i) {
        const auto nearest = static_cast<std::int32_t>((2 * std::int64_t{i} + 1) * from / 2 / to);
        spans[static_cast<std::size_t>(i)] =
            to < from ? span{first_on(i, from, to), first_on(i + 1, from, to)}
                      : span{nearest, nearest + 1};
    }
    return spans;
}

template <class Combine>
[[gnu::always_inline]] inline void combine_rows(unsigned char* row, const unsigned char* other,
                                                std::size_t bytes, Combine combine) {
    for (std::size_t at = 0; at < bytes; at += sizeof(std::uint64_t)) {
        std::uint64_t word;
        std::uint64_t with;
        std::memcpy(&word, row + at, sizeof word);
        std::memcpy(&with, other + at, sizeof with);
        word = combine(word, with);
        std::memcpy(row + at, &word, sizeof word);
    }
}

// `Darkest` gives black where one of two words has it: or, where 1 is black, else and. The
// functions that take it give false when memory ran out.
template <class Darkest>
bool stretch_down(const LeadBitmap& picture, LeadBitmap& stretched, Darkest darkest) {
    const auto spans = spans_of(picture.height, stretched.height);
    for (std::int32_t y = 0; spans != nullptr && y < stretched.height; ++y) {
        const auto [first, end] = spans[static_cast<std::size_t>(y)];
        unsigned char* row = row_from_top(stretched, y);
        std::memcpy(row, row_from_top(picture, first), picture.stride);
        for (std::int32_t from = first + 1; from < end; ++from)
            combine_rows(row, row_from_top(picture, from), picture.stride, darkest);
    }
    return spans != nullptr;
}

// A band of up to 64 rows as squares, turned so that a word is a column.
class column_band {
  public:
    explicit column_band(const LeadBitmap& bitmap)
        : count_(bitmap.stride / sizeof(std::uint64_t)),
          squares_(new (std::nothrow) bit_square[count_]()) {}

    explicit operator bool() const { return squares_ != nullptr; }

    std::uint64_t& operator[](std::int32_t x) {
        return squares_[static_cast<std::size_t>(x / square_side)].rows[x % square_side];
    }

    void load(const unsigned char* row, std::size_t stride, std::int32_t rows) {
        for (std::size_t i = 0; i < count_; ++i) {
            load_square(squares_[i], row + i * sizeof(std::uint64_t), stride, rows);
            transpose(squares_[i]);
        }
    }

    void store(unsigned char* row, std::size_t stride, std::int32_t rows) const {
        for (std::size_t i = 0; i < count_; ++i) {
            bit_square square = squares_[i];
            transpose(square);
            store_square(square, row + i * sizeof(std::uint64_t),
                         static_cast<std::ptrdiff_t>(stride), rows);
        }
    }

  private:
    std::size_t count_;
    std::unique_ptr<bit_square[]> squares_;
};

template <class Darkest>
bool stretch_across(const LeadBitmap& picture, LeadBitmap& stretched, Darkest darkest) {
    column_band from{picture};
    column_band to{stretched};
    const auto spans = spans_of(picture.width, stretched.width);
    if (!from || !to || spans == nullptr)
        return false;
    for (std::int32_t y = 0; y < picture.height; y += square_side) {
        const std::int32_t rows = std::min(square_side, picture.height - y);
        from.load(row_from_top(picture, y), picture.stride, rows);
        for (std::int32_t x = 0; x < stretched.width; ++x) {
            const auto [first, end] = spans[static_cast<std::size_t>(x)];
            std::uint64_t column = from[first];
            for (std::int32_t other = first + 1; other < end; ++other)
                column = darkest(column, from[other]);
            to[x] = column;
        }
        to.store(row_from_top(stretched, y), stretched.stride, rows);
    }
    return true;
}

template <class Darkest>
bool stretch_step(const LeadBitmap& picture, LeadBitmap& stretched, Darkest darkest) {
    return picture.width == stretched.width ? stretch_down(picture, stretched, darkest)
                                            : stretch_across(picture, stretched, darkest);
}

// A step in one direction.
bool stretch_step(const LeadBitmap& picture, std::int32_t width, std::int32_t height,
                  LeadBitmap& stretched) {
    if (!allocate_unset(stretched, width, height))
        return false;
    stretched.order = picture.order;
    return one_is_black(picture) ? stretch_step(picture, stretched, std::bit_or{})
                                 : stretch_step(picture, stretched, std::bit_and{});
}

// Pictures of one size lie alike in memory, and are combined as one long row.
[[gnu::always_inline]] inline void exclusive_or_all(const LeadBitmap& picture, LeadBitmap& target) {
    combine_rows(target.pixels, picture.pixels,
                 target.stride * static_cast<std::size_t>(target.height), std::bit_xor{});
}

#if defined(__x86_64__)
__attribute__((target("avx2"))) void exclusive_or_wide(const LeadBitmap& picture,
                                                       LeadBitmap& target) {
    exclusive_or_all(picture, target);
}

void exclusive_or(const LeadBitmap& picture, LeadBitmap& target) {
    pages::has_wide_registers() ? exclusive_or_wide(picture, target)
                                : exclusive_or_all(picture, target);
}
#else
void exclusive_or(const LeadBitmap& picture, LeadBitmap& target) {
    exclusive_or_all(picture, target);
}
#endif

} // namespace

int stretch(const LeadBitmap& picture, std::int32_t width, std::int32_t height,
            LeadBitmap* stretched) {
    if (stretched == nullptr || !holds_pixels(picture))
        return 0;
    // Of the two pictures that may lie between, the smaller one is the cheaper.
    owned_bitmap between;
    owned_bitmap result;
    const bool down_first = height < picture.height;
    const bool both = width != picture.width && height != picture.height;
    if (both && !stretch_step(picture, down_first ? picture.width : width,
                              down_first ? height : picture.height, between))
        return 0;
    if (!stretch_step(both ? between : picture, width, height, result))
        return 0;
    *stretched = std::exchange(static_cast<LeadBitmap&>(result), {});
    return 1;
}

int stretch_exclusive_or(const LeadBitmap& picture, LeadBitmap* target) {
    if (target == nullptr || !holds_pixels(*target) || !holds_pixels(picture))
        return 0;
    if (picture.width == target->width && picture.height == target->height) {
        exclusive_or(picture, *target);
        return 1;
    }
    owned_bitmap stretched;
    if (stretch(picture, target->width, target->height, &stretched) != 1)
        return 0;
    exclusive_or(stretched, *target);
    return 1;
}

} // namespace zerdix::imaging
