// SPDX-License-Identifier: MIT
// Turning, stretching and combining against twins that go pixel by pixel.

#include <functional>
#include <gtest/gtest.h>

#include "imaging/owned_bitmap.h"
#include "imaging/pictures.h"
#include "imaging/stretch.h"

namespace zerdix::imaging {
namespace {

// Where the pixels of one side come to lie on the other: true for a pair that belongs together.
bool lies_on(std::int32_t source, std::int32_t from, std::int32_t result, std::int32_t to) {
    return to < from ? source * to / from == result : (2 * result + 1) * from / (2 * to) == source;
}

picture stretched_twin(const picture& from, std::int32_t width, std::int32_t height, int black) {
    picture result(static_cast<std::size_t>(height),
                   std::vector<int>(static_cast<std::size_t>(width), 1 - black));
    for (std::size_t y = 0; y < result.size(); ++y)
        for (std::size_t v = 0; v < from.size(); ++v) {
            if (!lies_on(static_cast<std::int32_t>(v), height_of(from),
                         static_cast<std::int32_t>(y), height))
                continue;
            for (std::size_t x = 0; x < result[0].size(); ++x)
                for (std::size_t u = 0; u < from[0].size(); ++u)
                    if (from[v][u] == black && lies_on(static_cast<std::int32_t>(u), width_of(from),
                                                       static_cast<std::int32_t>(x), width))
                        result[y][x] = black;
        }
    return result;
}

TEST(Turn, EqualsThePixelwiseTwin) {
    for (std::int32_t width = 1; width <= 136; ++width)
        for (const std::int32_t height : {1, 7, 63, 64, 65, 127, 131}) {
            const picture from = random_picture(width, height, width % 2 == 0 ? 2 : 40);
            owned_bitmap bitmap;
            fill(bitmap, from);
            ASSERT_EQ(L_RotateBitmap(&bitmap, -90, 1), 1);
            ASSERT_EQ(bitmap.width, height);
            ASSERT_EQ(bitmap.height, width);
            ASSERT_EQ(pixels_of(bitmap), turned_left(from)) << width << 'x' << height;
        }
}

TEST(Turn, PutsTheTopToTheLeftAndRefusesOtherAngles) {
    owned_bitmap bitmap;
    fill(bitmap, {{1, 1, 1}, {0, 0, 1}}); // a line at the top, going down at its right end
    L_InvertBitmap(&bitmap);
    const picture before = pixels_of(bitmap);
    EXPECT_EQ(L_RotateBitmap(&bitmap, 90, 1), 0);
    EXPECT_EQ(L_RotateBitmap(&bitmap, -90, 0), 0);
    EXPECT_EQ(pixels_of(bitmap), before);
    ASSERT_EQ(L_RotateBitmap(&bitmap, -90, 1), 1);
    EXPECT_EQ(pixels_of(bitmap), (picture{{1, 1}, {1, 0}, {1, 0}}));
    EXPECT_FALSE(one_is_black(bitmap)) << "the colour order stays";
    EXPECT_NE(bitmap.palette, nullptr);
    LeadBitmap none{};
    EXPECT_EQ(L_RotateBitmap(&none, -90, 1), 0);
    EXPECT_EQ(L_RotateBitmap(nullptr, -90, 1), 0);
}

void expect_stretched(const picture& from, std::int32_t width, std::int32_t height) {
    for (const int black : {1, 0}) {
        owned_bitmap bitmap;
        fill(bitmap, from);
        if (black == 0)
            L_InvertBitmap(&bitmap);
        owned_bitmap result;
        ASSERT_EQ(stretch(bitmap, width, height, &result), 1);
        ASSERT_EQ(result.order, bitmap.order);
        ASSERT_EQ(pixels_of(result), stretched_twin(from, width, height, black))
            << width_of(from) << 'x' << from.size() << " to " << width << 'x' << height << " black "
            << black;
    }
}

TEST(Stretch, EqualsThePixelwiseTwin) {
    for (std::int32_t width = 8; width <= 136; width += 8) {
        const std::int32_t height = width % 70 + 1;
        const picture from = random_picture(width, height, width % 2 == 0 ? 2 : 12);
        for (const auto& [wider, higher] : {std::pair{width, height},
                                            {width, 2 * height},
                                            {width, 67},
                                            {131, height},
                                            {2 * width, 2 * height},
                                            {1, 1},
                                            {width - 1, height + 1},
                                            {40, 29},
                                            {72, 5}})
            expect_stretched(from, wider, higher);
    }
}

TEST(Stretch, CombinesByExclusiveOr) {
    for (std::int32_t width = 8; width <= 136; ++width) {
        const std::int32_t height = width * 7 % 66 | 1;
        for (const auto& [over, high] : {std::pair{width, height}, {width / 2 + 1, height + 9}}) {
            const picture below = random_picture(width, height, 3);
            const picture above = random_picture(over, high, 5);
            owned_bitmap target;
            owned_bitmap laid_over;
            fill(target, below);
            fill(laid_over, above);
            picture expected = stretched_twin(above, width, height, 1);
            for (std::size_t y = 0; y < expected.size(); ++y)
                std::transform(below[y].begin(), below[y].end(), expected[y].begin(),
                               expected[y].begin(), std::bit_xor{});
            ASSERT_EQ(stretch_exclusive_or(laid_over, &target), 1);
            ASSERT_EQ(pixels_of(target), expected) << width << 'x' << height;
        }
    }
}

TEST(Stretch, RefusesWhatIsNoPicture) {
    owned_bitmap bitmap;
    fill(bitmap, random_picture(20, 20, 2));
    const picture before = pixels_of(bitmap);
    LeadBitmap none{};
    for (const auto& [width, height] :
         {std::pair{0, 5}, {5, 0}, {-1, 5}, {bitmap_side_limit + 1, 1}, {65535, 65535}})
        EXPECT_EQ(stretch(bitmap, width, height, &none), 0) << width << 'x' << height;
    EXPECT_EQ(stretch(none, 5, 5, &none), 0);
    EXPECT_EQ(stretch_exclusive_or(none, &bitmap), 0);
    EXPECT_EQ(stretch_exclusive_or(bitmap, &none), 0);
    EXPECT_EQ(pixels_of(bitmap), before);
}

} // namespace
} // namespace zerdix::imaging
