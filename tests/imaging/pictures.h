// SPDX-License-Identifier: MIT
// Pictures that tests can go through pixel by pixel, and the ways to bitmaps and back.
#ifndef ZERDIX_TESTS_IMAGING_PICTURES_H
#define ZERDIX_TESTS_IMAGING_PICTURES_H

#include <algorithm>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "imaging/page_forms.h"

namespace zerdix::imaging {

// Pixel values, rows from the top.
using picture = std::vector<std::vector<int>>;

inline picture random_picture(std::int32_t width, std::int32_t height, unsigned one_in,
                              unsigned seed = 0) {
    std::minstd_rand random{static_cast<unsigned>(width * 65536 + height) + seed};
    picture made(static_cast<std::size_t>(height),
                 std::vector<int>(static_cast<std::size_t>(width)));
    for (auto& row : made)
        for (int& pixel : row)
            pixel = random() / 16 % one_in == 0;
    return made;
}

inline std::int32_t width_of(const picture& made) {
    return static_cast<std::int32_t>(made[0].size());
}

inline std::int32_t height_of(const picture& made) {
    return static_cast<std::int32_t>(made.size());
}

inline picture turned_left(const picture& from) {
    picture turned;
    for (std::size_t x = from[0].size(); x-- > 0;) {
        turned.emplace_back();
        for (const auto& row : from)
            turned.back().push_back(row[x]);
    }
    return turned;
}

inline void fill(LeadBitmap& bitmap, const picture& from) {
    ASSERT_EQ(CreateEmptyBitmap(&bitmap, width_of(from), height_of(from)), 1);
    for (std::int32_t y = 0; y < height_of(from); ++y)
        for (std::size_t x = 0; x < from[0].size(); ++x)
            row_from_top(bitmap, y)[x / 8] |=
                static_cast<unsigned char>(from[static_cast<std::size_t>(y)][x] << (7 - x % 8));
}

// Fails the test where padding isn't 0.
inline picture pixels_of(const LeadBitmap& bitmap) {
    picture found;
    for (std::int32_t y = 0; y < bitmap.height; ++y) {
        std::vector<int> row;
        for (std::size_t x = 0; x < bitmap.stride * 8; ++x)
            row.push_back(row_from_top(bitmap, y)[x / 8] >> (7 - x % 8) & 1);
        const auto end = row.begin() + bitmap.width;
        EXPECT_EQ(std::count(end, row.end(), 1), 0) << "padding of row " << y;
        row.erase(end, row.end());
        found.push_back(row);
    }
    return found;
}

} // namespace zerdix::imaging

#endif
