// SPDX-License-Identifier: MIT
// Driver form to stored form, pixel by pixel.

#include <gtest/gtest.h>
#include <random>

#include "pages/codec_calls.h"
#include "pages/driver_form.h"
#include "pages/mirror.h"

namespace zerdix::pages {
namespace {

using block = std::vector<unsigned char>;

bool driver_pixel_is_black(const block& page, std::size_t row_bytes, std::size_t x,
                           std::size_t row) {
    return (page[8 + row * row_bytes + x / 8] >> (7 - x % 8) & 1) == 0;
}

bool stored_pixel_is_black(const block& page, std::size_t row_bytes, std::size_t x,
                           std::size_t row) {
    return (page[8 + row * row_bytes + x / 8] >> (x % 8) & 1) == 1;
}

block random_page(std::uint32_t width, std::uint32_t height, std::size_t spare) {
    std::minstd_rand random{width * 131 + height};
    block page = codec::page_header(width, height);
    page.resize(8 + std::size_t{width / 8} * height + spare);
    std::generate(page.begin() + 8, page.end(),
                  [&] { return static_cast<unsigned char>(random() >> 8); });
    return page;
}

TEST(PageRows, StoredFormShowsTheSamePictureUpright) {
    for (std::uint32_t width : {8u, 16u, 24u, 56u, 64u, 72u, 136u, 1728u})
        for (std::uint32_t height : {1u, 2u, 3u, 17u}) {
            const block page = random_page(width, height, 0);
            block turned(page.size());
            write_stored_form(page, turned);
            ASSERT_TRUE(std::equal(page.begin(), page.begin() + 8, turned.begin()));
            for (std::size_t row = 0; row < height; ++row)
                for (std::size_t x = 0; x < width; ++x)
                    ASSERT_EQ(driver_pixel_is_black(page, width / 8, x, height - 1 - row),
                              stored_pixel_is_black(turned, width / 8, x, row))
                        << width << "x" << height << " at " << x << "," << row;
        }
}

TEST(PageRows, SpareBytesBecomeWhite) {
    const block page = random_page(16, 3, 5);
    block turned(page.size(), 0x55);
    write_stored_form(page, turned);
    EXPECT_EQ(block(turned.end() - 5, turned.end()), block(5, 0x00));
}

TEST(PageRows, SingleBytesAreMirroredThenInverted) {
    const block bytes{0x01, 0xF0, 0x00, 0xFF, 0x80, 0x0F, 0xAA, 0x12, 0x01};
    block turned(bytes.size());
    mirror_rows({bytes.data(), 0, bytes.size(), 1}, turned.data(), true);
    EXPECT_EQ(turned, (block{0x7F, 0xF0, 0xFF, 0x00, 0xFE, 0x0F, 0xAA, 0xB7, 0x7F}));
}

TEST(PageRows, ABlocksLengthDoesNotOverflow) {
    EXPECT_EQ((page_size{1728, 2286}.block_bytes()), 8u + 216 * 2286);
    EXPECT_EQ((page_size{0xFFFFFFFF, 0xFFFFFFFF}.block_bytes()), 8 + 0xFFFFFFFFull * 0x20000000ull);
    EXPECT_EQ((page_size{8, 0}.block_bytes()), 8u);
}

} // namespace
} // namespace zerdix::pages
