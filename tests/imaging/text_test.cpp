// SPDX-License-Identifier: MIT
// Text on bitmaps, by what can be said of it without knowing the pixels: metrics, cells, positions.

#include <cstdlib>
#include <functional>
#include <numeric>
#include <string>

#include "imaging/drawing.h"
#include "imaging/owned_bitmap.h"
#include "imaging/pictures.h"

namespace zerdix::imaging {
namespace {

using platform::font_request;
using platform::fonts;

const char* const faces[] = {"Courier", "Arial", "Times New Roman", "No Such Face"};

picture drawn(std::int32_t width, std::int32_t height,
              const std::function<void(drawing_context&)>& draw) {
    owned_bitmap bitmap;
    EXPECT_EQ(CreateEmptyBitmap(&bitmap, width, height), 1);
    draw(*L_CreateLeadDC(&bitmap));
    return pixels_of(bitmap);
}

picture line(const font_request& request, std::string_view text, std::int32_t x = 20,
             std::int32_t y = 20) {
    return drawn(420, 130, [&](drawing_context& context) {
        context.SelectObject(fonts().find(request));
        EXPECT_EQ(context.TextOutA(x, y, text), 1);
    });
}

int ink_of(const std::vector<int>& row) {
    return std::accumulate(row.begin(), row.end(), 0);
}

int ink_of(const picture& made) {
    return std::accumulate(made.begin(), made.end(), 0,
                           [](int sum, const auto& row) { return sum + ink_of(row); });
}

// First row with ink and the row behind the last one.
std::pair<std::int32_t, std::int32_t> inked_rows(const picture& made) {
    const auto inked = [](const auto& row) { return ink_of(row) > 0; };
    const auto first = std::find_if(made.begin(), made.end(), inked);
    const auto last = std::find_if(made.rbegin(), made.rend(), inked);
    return {first - made.begin(), made.rend() - last};
}

// The widths of the black runs of a row.
std::vector<int> runs_of(const std::vector<int>& row) {
    std::vector<int> runs;
    for (std::size_t x = 1; x < row.size(); ++x) {
        if (row[x] > row[x - 1])
            runs.push_back(0);
        if (row[x] == 1)
            ++runs.back();
    }
    return runs;
}

picture moved(const picture& made, std::int32_t right, std::int32_t down) {
    picture result(made.size(), std::vector<int>(made[0].size(), 0));
    for (std::int32_t y = 0; y < height_of(made); ++y)
        for (std::int32_t x = 0; x < width_of(made); ++x)
            if (y + down >= 0 && y + down < height_of(made) && x + right >= 0 &&
                x + right < width_of(made))
                result[static_cast<std::size_t>(y + down)][static_cast<std::size_t>(x + right)] =
                    made[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)];
    return result;
}

// The widths that the faces' names promise, in thousandths of the characters' height.
TEST(Text, FacesHaveTheWidthsOfTheirNames) {
    struct {
        const char* face;
        std::int32_t weight;
        std::array<std::int32_t, 5> widths; // of A, i, W, 0, m
    } const expected[] = {
        {"Courier", 0, {600, 600, 600, 600, 600}},
        {"Courier", 700, {600, 600, 600, 600, 600}},
        {"Arial", 0, {667, 222, 944, 556, 833}},
        {"arial", 700, {722, 278, 944, 556, 889}},
        {"Times New Roman", 400, {722, 278, 944, 500, 778}},
        {"Times New Roman", 700, {722, 278, 1000, 500, 833}},
    };
    for (const auto& face : expected) {
        const auto font = fonts().find({face.face, -1000, face.weight});
        ASSERT_NE(font, nullptr);
        for (std::size_t i = 0; i < 5; ++i)
            EXPECT_NEAR(font->advance("AiW0m"[i]), face.widths[i], 1) << face.face << i;
    }
}

TEST(Text, HeightsAreOfCharactersBelowZeroAndOfTheCellAbove) {
    for (const char* face : faces) {
        for (const std::int32_t height : {1, 25, 33, 77, 4096}) {
            EXPECT_EQ(fonts().find({face, -height, 0})->character_height(), height);
            EXPECT_GE(fonts().find({face, -height, 0})->cell_height(), height);
        }
        for (const std::int32_t height : {4, 13, 40, 100}) {
            const auto font = fonts().find({face, height, 0});
            EXPECT_LE(font->cell_height(), height);
            EXPECT_GE(font->cell_height(), height - 2);
            EXPECT_LE(font->character_height(), height);
        }
        EXPECT_EQ(fonts().find({face, 0, 0})->character_height(), 33);
    }
    EXPECT_EQ(fonts().find({"Arial", 40, 700}), fonts().find({"Arial", 40, 700}));
}

TEST(Text, InkStaysInItsCellAndMovesWithIt) {
    const std::string text = "\xc4\xc5 gjpqy|()[\x80";
    for (const char* face : faces)
        for (const std::int32_t height : {-25, -33, -77, 40}) {
            const auto cell = fonts().find({face, height, 700})->cell_height();
            const picture there = line({face, height, 700}, text);
            const auto [top, bottom] = inked_rows(there);
            EXPECT_GE(top, 20) << face << height;
            EXPECT_LE(bottom, 20 + cell) << face << height;
            for (const std::int32_t by : {1, 7, 57, -150})
                EXPECT_TRUE(line({face, height, 700}, text, 20 + by, 20 - by) ==
                            moved(there, by, -by))
                    << face << height << " by " << by;
            EXPECT_GT(ink_of(there) * 5, ink_of(line({face, height, 0}, text)) * 6);
        }
}

// Where another program draws a "j" of 1,000 pixels, from the pen: hooks go back behind it, and
// that much of a letter shows whose pen stands outside already.
TEST(Text, LettersReachOverTheirPlaceOnEitherSide) {
    for (const auto& [face, left, wide] :
         {std::tuple{"Arial", -25, 180}, {"Times New Roman", -29, 221}}) {
        const auto huge = fonts().find({face, -1000, 0});
        EXPECT_NEAR(huge->shape('j').left, left, 3) << face;
        EXPECT_NEAR(huge->shape('j').width, wide, 3) << face;
    }
    const font_request request{"Times New Roman", -33, 0};
    const auto font = fonts().find(request);
    ASSERT_LT(font->shape('j').left, 0);
    ASSERT_GT(font->shape('f').left + font->shape('f').width, font->advance('f'));
    for (const char* letter : {"j", "f"}) {
        const picture there = line(request, letter);
        for (const std::int32_t x : {-14, -12, -10, -9, -1, 0, 1, 410, 418, 419, 420, 421})
            EXPECT_TRUE(line(request, letter, x) == moved(there, x - 20, 0)) << letter << x;
        const picture cut = drawn(420, 130, [&](drawing_context& context) {
            context.SelectObject(font);
            context.DrawTextA(letter, {20, 20, 20 + font->advance(*letter), 130});
        });
        EXPECT_LT(ink_of(cut), ink_of(there)) << "nothing outside of the rectangle";
    }
}

TEST(Text, EveryCharacterShowsAndUnknownOnesAsQuestionMarks) {
    const auto blank = [](platform::font& font, char c) {
        return std::ranges::count(font.shape(c).rows, 0) == std::ssize(font.shape(c).rows);
    };
    const auto same = [](platform::font& font, char a, char b) {
        const auto rows = font.shape(a).rows;
        return rows == font.shape(b).rows;
    };
    for (const char* face : faces) {
        const auto font = fonts().find({face, -33, 0});
        for (int code = 0x20; code < 0x100; ++code) {
            const char c = static_cast<char>(code);
            EXPECT_GT(font->advance(c), 0) << code;
            EXPECT_EQ(blank(*font, c), code == 0x20 || code == 0xA0) << face << code;
            EXPECT_TRUE(code >= 0x7F || same(*font, c, '?') == (c == '?')) << face << code;
        }
        EXPECT_TRUE(same(*font, '\x81', '?'));
        EXPECT_TRUE(same(*font, '\n', ' '));
        for (const char special : {'\x80', '\xdf', '\x84', '\xe4', '\xd6'})
            EXPECT_FALSE(same(*font, special, '?')) << face;
    }
}

// Which letters that are hinted for grey, or not at all, don't have.
TEST(Text, StemsOfALetterAreEquallyWide) {
    for (const char* face : {"Courier", "Arial", "Times New Roman"})
        for (std::int32_t height = 20; height <= 40; ++height) {
            const picture letter = line({face, -height, 0}, "H");
            const auto runs =
                runs_of(letter[static_cast<std::size_t>(inked_rows(letter).first + 4)]);
            ASSERT_EQ(runs.size(), 2u) << face << height;
            EXPECT_EQ(runs[0], runs[1]) << face << height;
        }
}

TEST(Text, IsBlackInBothOrdersAndLeavesTheRest) {
    owned_bitmap bitmap;
    fill(bitmap, random_picture(200, 60, 3));
    const picture before = pixels_of(bitmap);
    const picture text = drawn(200, 60, [](drawing_context& context) {
        context.SelectObject(fonts().find({"Arial", -33, 0}));
        context.TextOutA(3, 3, "Fax");
    });
    for (const int black : {1, 0}) {
        const picture under = pixels_of(bitmap);
        const auto context = L_CreateLeadDC(&bitmap);
        EXPECT_EQ(context->SelectObject(fonts().find({"Arial", -33, 0})), nullptr);
        EXPECT_EQ(context->TextOutA(3, 3, "Fax"), 1);
        const picture after = pixels_of(bitmap);
        for (std::size_t y = 0; y < 60; ++y)
            for (std::size_t x = 0; x < 200; ++x)
                ASSERT_EQ(after[y][x], text[y][x] == 1 ? black : under[y][x]);
        L_InvertBitmap(&bitmap);
    }
}

TEST(Text, RectanglesCutAndLineFeedsBreak) {
    const auto font = fonts().find({"Courier", 40, 700});
    const rectangle bounds{10, 5, 100, 75};
    const picture boxed = drawn(300, 120, [&](drawing_context& context) {
        context.SelectObject(font);
        EXPECT_EQ(context.DrawTextA("Quittung\ngelesen\ndritte", bounds), 1);
    });
    const picture free = drawn(300, 120, [&](drawing_context& context) {
        context.SelectObject(font);
        context.TextOutA(10, 5, "Quittung");
        context.TextOutA(10, 5 + font->cell_height(), "gelesen");
    });
    for (std::size_t y = 0; y < 120; ++y)
        for (std::size_t x = 0; x < 300; ++x)
            ASSERT_EQ(boxed[y][x], x < 100 && y < 75 ? free[y][x] : 0) << x << "," << y;
}

TEST(Text, HugeLettersAndLongTextsAreCutOff) {
    const std::string text(10000, 'W');
    for (const std::int32_t height : {-10000, 10000, -2147483647 - 1, 2147483647, 0, -1})
        for (const std::int32_t x : {0, -100000, 2147483647, -2147483647 - 1})
            drawn(300, 100, [&](drawing_context& context) {
                const auto font = fonts().find({"Arial", height, 0});
                ASSERT_LE(font->character_height(), platform::highest_characters);
                context.SelectObject(font);
                EXPECT_EQ(context.TextOutA(x, x, text), 1);
                EXPECT_EQ(context.DrawTextA(text, {x, 0, 300, 100}), 1);
            });
    EXPECT_GT(ink_of(line({"Arial", -33, 0}, text, -50000)), 1000);
}

// Darkness in ninths of squares of 6 by 6 pixels, as another program draws the text, in grey and
// without hinting.
constexpr std::string_view golden[] = {
    "0000000000000000000000000000000000", "0022000000110024300000000122100220",
    "0644720000321071530000000344705454", "4300103643654150611655000004227310",
    "5203533506007151604426200016027310", "4301263407007150264533100043027310",
    "1743543405435152262625000061005444", "0023101100220021310131000020000220",
    "0000000000000000000000000000000000"};

// Pixels by which a picture differs from the golden one where it is worst: within four columns of
// squares, which is a letter.
int distance(const picture& made) {
    std::vector<int> apart(golden[0].size());
    for (std::size_t row = 0; row < std::size(golden); ++row)
        for (std::size_t column = 0; column < apart.size(); ++column) {
            int found = 0;
            for (std::size_t y = row * 6; y < row * 6 + 6; ++y)
                found += std::accumulate(made[y].begin() + static_cast<int>(column) * 6,
                                         made[y].begin() + static_cast<int>(column) * 6 + 6, 0);
            apart[column] += std::abs(found - (golden[row][column] - '0') * 4);
        }
    int worst = 0;
    for (auto at = apart.begin(); at + 4 <= apart.end(); ++at)
        worst = std::max(worst, std::accumulate(at, at + 4, 0));
    return worst;
}

TEST(Text, LooksAsAnotherProgramDrawsIt) {
    const std::string text = "Gr\xf6\xdf"
                             "e 7\x80";
    constexpr std::size_t none = 99;
    const auto font = fonts().find({"Arial", -48, 0});
    const auto letters = [&](std::size_t odd, std::int32_t right, std::int32_t down) {
        return drawn(204, 54, [&](drawing_context& context) {
            context.SelectObject(font);
            std::int32_t x = 0;
            for (std::size_t i = 0; i < text.size(); x += font->advance(text[i++]))
                context.TextOutA(i == odd ? x + right : x, i == odd ? down : 0, text.substr(i, 1));
        });
    };
    constexpr int tolerance = 90;
    EXPECT_LT(distance(letters(none, 0, 0)), tolerance);
    for (std::size_t odd = 0; odd < text.size(); ++odd)
        for (const auto& [right, down] :
             {std::pair{5, 0}, std::pair{-5, 0}, std::pair{0, 5}, std::pair{0, -5}, {999, 0}})
            EXPECT_EQ(distance(letters(odd, right, down)) > tolerance, text[odd] != ' ')
                << odd << " by " << right << "," << down;
}

} // namespace
} // namespace zerdix::imaging
