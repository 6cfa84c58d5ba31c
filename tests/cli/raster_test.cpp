// SPDX-License-Identifier: MIT
// From a page of a PDF to a page block.

#include <cstdint>
#include <gmock/gmock.h>

#include "cli/tiny_pdf.h"
#include "output/failure.h"
#include "print/dithering.h"
#include "print/page_placement.h"
#include "print/pdf_file.h"
#include "support/test_server.h"

namespace zerdix::app {
namespace {

using block = std::vector<unsigned char>;

std::uint32_t number_at(const block& bytes, std::size_t at) {
    return static_cast<std::uint32_t>(bytes[at] << 24 | bytes[at + 1] << 16 | bytes[at + 2] << 8 |
                                      bytes[at + 3]);
}

// A pixel of a driver form block, rows counted from the top.
bool is_black(const block& bytes, std::uint32_t x, std::uint32_t y) {
    const std::size_t row = number_at(bytes, 4) - 1 - y;
    return (bytes[8 + row * (number_at(bytes, 0) / 8) + x / 8] >> (7 - x % 8) & 1) == 0;
}

block render(const test::tiny_page& page) {
    const test::scratch_folder folder;
    pdf_file pdf(folder.write("a.pdf", test::tiny_pdf({page})));
    return pdf.render(1).block;
}

TEST(Geometry, PlacesPagesOfAllShapes) {
    const page_placement a4 = place_page(595.276, 841.89);
    EXPECT_FALSE(a4.turned);
    EXPECT_DOUBLE_EQ(a4.dpi_across, 204);
    EXPECT_DOUBLE_EQ(a4.dpi_down, 196);
    EXPECT_EQ(a4.rows, 2292);
    EXPECT_EQ(a4.left, (1728 - 1687) / 2);

    const page_placement landscape = place_page(841.89, 595.276);
    EXPECT_TRUE(landscape.turned);
    EXPECT_EQ(landscape.rows, a4.rows);

    // Twice too wide: half the size in both directions.
    const page_placement wide = place_page(1728.0 / 204 * 72 * 2, 1728.0 / 204 * 72 * 4);
    EXPECT_NEAR(wide.dpi_across, 102, 1e-9);
    EXPECT_NEAR(wide.dpi_down, 98, 1e-9);
    EXPECT_EQ(wide.left, 0);
    EXPECT_EQ(wide.rows, 3321); // 1728 * 2 * 196 / 204, rounded up

    EXPECT_EQ(place_page(1, 1).rows, 1728);
    EXPECT_THROW(place_page(0, 10), failure);
    EXPECT_THROW(place_page(10, 1e9), failure);
}

TEST(PageBlock, HasBigEndianHeaderAndItsLastRowFirst) {
    const block grey(16 * 3, 255);
    block pixels = grey;
    pixels[0] = 0;           // top left
    pixels[2 * 16 + 15] = 0; // bottom right
    EXPECT_THAT(driver_block(grey_page{pixels.data(), nullptr, 16, 16, 3}),
                testing::ElementsAre(0, 0, 0, 16, 0, 0, 0, 3, 0xff, 0xfe, 0xff, 0xff, 0x7f, 0xff));
}

TEST(PageBlock, KeepsBlackAndWhitePureAndTonesApart) {
    int last = -1;
    for (const int tone : {0, 1, 64, 128, 192, 254, 255}) {
        const block pixels(64, static_cast<unsigned char>(tone));
        const block bytes = driver_block(grey_page{pixels.data(), nullptr, 8, 8, 8});
        int white = 0;
        for (std::size_t i = 8; i < bytes.size(); ++i)
            white += __builtin_popcount(bytes[i]);
        EXPECT_NEAR(white, tone * 64 / 255, 1) << "tone " << tone;
        EXPECT_GE(white, last);
        last = white;
    }
    EXPECT_EQ(last, 64);
}

TEST(PageBlock, ShowsThePaperThroughWhatDoesntHideIt) {
    const block black(64, 0);
    for (const int cover : {0, 1, 64, 128, 255}) {
        const block covers(64, static_cast<unsigned char>(cover));
        const block grey(64, static_cast<unsigned char>(255 - cover));
        EXPECT_EQ(driver_block(grey_page{black.data(), covers.data(), 8, 8, 8}),
                  driver_block(grey_page{grey.data(), nullptr, 8, 8, 8}))
            << cover;
    }
}

TEST(Rendering, CentresANarrowPageAndKeepsItUpright) {
    // 72 by 144 points, 204 by 392 pixels; the upper left eighth of an inch is black. The rest of
    // the rows that a page has at least is white.
    const block page = render({72, 144, "0 g 0 135 9 9 re f"});
    EXPECT_EQ(number_at(page, 0), 1728U);
    EXPECT_EQ(number_at(page, 4), 1728U);
    EXPECT_EQ(page.size(), 8U + 1728 * 216);
    const std::uint32_t left = (1728 - 204) / 2;
    EXPECT_TRUE(is_black(page, left + 2, 2));
    EXPECT_TRUE(is_black(page, left + 20, 20));
    EXPECT_FALSE(is_black(page, left - 3, 2));
    EXPECT_FALSE(is_black(page, left + 30, 2));
    EXPECT_FALSE(is_black(page, left + 2, 30));
    EXPECT_FALSE(is_black(page, left + 2, 389));
}

TEST(Rendering, TurnsLandscapePagesTopToTheLeft) {
    // The black corner is the upper left one, as the page is looked at.
    const block plain = render({144, 72, "0 g 0 63 9 9 re f"});
    // The same page made by turning an upright one: /Rotate 90 moves the lower left to the top.
    const block rotated = render({72, 144, "0 g 0 0 9 9 re f", 90});
    for (const block& page : {plain, rotated}) {
        EXPECT_EQ(number_at(page, 4), 1728U);
        const std::uint32_t left = (1728 - 204) / 2;
        EXPECT_TRUE(is_black(page, left + 2, 389));
        EXPECT_FALSE(is_black(page, left + 2, 400));
        EXPECT_FALSE(is_black(page, left + 2, 2));
        EXPECT_FALSE(is_black(page, left + 200, 389));
    }
}

TEST(Rendering, ShrinksWidePagesToTheFullWidth) {
    const block page = render({1500, 2000, "0 g 1490 0 10 2000 re f 0 0 10 2000 re f"});
    EXPECT_TRUE(is_black(page, 1, 100));
    EXPECT_TRUE(is_black(page, 1726, 100));
    EXPECT_FALSE(is_black(page, 864, 100));
}

} // namespace
} // namespace zerdix::app
