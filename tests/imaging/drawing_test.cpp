// SPDX-License-Identifier: MIT
// Rectangles of one bitmap on another, against a twin that goes pixel by pixel.

#include <limits>

#include "imaging/drawing.h"
#include "imaging/owned_bitmap.h"
#include "imaging/pictures.h"
#include "imaging/stretch.h"

namespace zerdix::imaging {
namespace {

struct placing {
    std::int32_t x, y, width, height, from_x, from_y;
};

bool is_on(const picture& where, std::int64_t x, std::int64_t y) {
    return x >= 0 && y >= 0 && x < width_of(where) && y < height_of(where);
}

void combine_twin(picture& to, const picture& from, const placing& at, bool copies, bool inverted) {
    for (std::int32_t y = 0; y < height_of(to); ++y)
        for (std::int32_t x = 0; x < width_of(to); ++x) {
            const std::int64_t across = std::int64_t{x} - at.x;
            const std::int64_t down = std::int64_t{y} - at.y;
            const std::int64_t u = across + at.from_x;
            const std::int64_t v = down + at.from_y;
            if (across < 0 || down < 0 || across >= at.width || down >= at.height ||
                !is_on(from, u, v))
                continue;
            int& pixel = to[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)];
            const int source = from[static_cast<std::size_t>(v)][static_cast<std::size_t>(u)];
            pixel = copies ? source ^ (inverted ? 1 : 0) : pixel ^ source;
        }
}

class Placings {
  public:
    placing next() {
        return {offset(), offset() / 8, length(), length() / 4, offset(), offset() / 8};
    }
    bool coin() { return random_() / 16 % 2 == 0; }

  private:
    std::int32_t offset() { return static_cast<std::int32_t>(random_() / 16 % 160) - 20; }
    std::int32_t length() { return static_cast<std::int32_t>(random_() / 16 % 200); }
    std::minstd_rand random_{7};
};

TEST(Drawing, CombinesWhatIsOnBothBitmaps) {
    Placings placings;
    for (int round = 0; round < 400; ++round) {
        const picture source = random_picture(1 + round % 137, 1 + round % 13, 2);
        picture target = random_picture(1 + round * 7 % 141, 9, 3);
        owned_bitmap from;
        owned_bitmap to;
        fill(from, source);
        fill(to, target);
        const placing at = placings.next();
        const bool copies = placings.coin();
        const bool inverted = placings.coin();
        if (inverted)
            L_InvertBitmap(&from);
        const auto source_context = L_CreateLeadDC(&from);
        const auto context = L_CreateLeadDC(&to);
        ASSERT_EQ(context->BitBlt(at.x, at.y, at.width, at.height, source_context.get(), at.from_x,
                                  at.from_y, copies ? SRCCOPY : SRCINVERT),
                  1);
        combine_twin(target, source, at, copies, inverted);
        ASSERT_EQ(pixels_of(to), target) << "round " << round;
    }
}

TEST(Drawing, StretchesASourceWherePartOfItIsVisible) {
    const picture source = random_picture(37, 11, 4);
    picture target = random_picture(70, 20, 2);
    owned_bitmap from;
    owned_bitmap to;
    owned_bitmap stretched;
    fill(from, source);
    fill(to, target);
    ASSERT_EQ(stretch(from, 90, 7, &stretched), 1);
    combine_twin(target, pixels_of(stretched), {-15, 4, 90, 7, 0, 0}, false, false);
    const auto source_context = L_CreateLeadDC(&from);
    const auto context = L_CreateLeadDC(&to);
    EXPECT_EQ(context->StretchBlt(-15, 4, 90, 7, source_context.get(), SRCINVERT), 1);
    EXPECT_EQ(pixels_of(to), target);
    EXPECT_EQ(context->StretchBlt(0, 0, 70000, 7, source_context.get(), SRCINVERT), 0);
    EXPECT_EQ(context->StretchBlt(0, 0, 90, -7, source_context.get(), SRCINVERT), 0);
    EXPECT_EQ(pixels_of(to), target);
}

TEST(Drawing, BlacknessIsTheFirstColourOfTheOrder) {
    owned_bitmap bitmap;
    ASSERT_EQ(CreateEmptyBitmap(&bitmap, 70, 4), 1);
    L_FillBitmap(&bitmap, 0);
    picture expected = pixels_of(bitmap);
    combine_twin(expected, picture(99, std::vector<int>(99, 0)), {3, -1, 65, 3, 0, 0}, true, false);
    const auto context = L_CreateLeadDC(&bitmap);
    EXPECT_EQ(context->BitBlt(3, -1, 65, 3, nullptr, 0, 0, BLACKNESS), 1);
    EXPECT_EQ(pixels_of(bitmap), expected);
    EXPECT_EQ(context->BitBlt(-5, -5, 1728, 150, nullptr, 0, 0, BLACKNESS), 1);
    EXPECT_EQ(pixels_of(bitmap), picture(4, std::vector<int>(70, 0)));
}

TEST(Drawing, RefusesWhatItCanNotDraw) {
    constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
    constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
    owned_bitmap empty;
    EXPECT_EQ(L_CreateLeadDC(nullptr), nullptr);
    EXPECT_EQ(L_CreateLeadDC(&empty), nullptr);
    owned_bitmap bitmap;
    owned_bitmap other;
    fill(bitmap, random_picture(20, 20, 2));
    fill(other, random_picture(20, 20, 2));
    const picture before = pixels_of(bitmap);
    const auto context = L_CreateLeadDC(&bitmap);
    const auto source = L_CreateLeadDC(&other);
    EXPECT_EQ(context->BitBlt(0, 0, 9, 9, nullptr, 0, 0, SRCCOPY), 0);
    EXPECT_EQ(context->BitBlt(0, 0, 9, 9, context.get(), 0, 0, SRCCOPY), 0);
    EXPECT_EQ(context->BitBlt(0, 0, 9, 9, source.get(), 0, 0, raster_operation{1}), 0);
    EXPECT_EQ(context->TextOutA(0, 0, "no font"), 0);
    EXPECT_EQ(context->BitBlt(most, least, most, most, source.get(), least, most, SRCCOPY), 1);
    EXPECT_EQ(context->BitBlt(0, 0, least, most, source.get(), 0, 0, SRCCOPY), 1);
    EXPECT_EQ(pixels_of(bitmap), before);
    FreeLeadBitmap(&other);
    EXPECT_EQ(context->BitBlt(0, 0, 9, 9, source.get(), 0, 0, SRCCOPY), 0);
}

} // namespace
} // namespace zerdix::imaging
