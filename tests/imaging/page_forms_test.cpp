// SPDX-License-Identifier: MIT
// Bitmaps, and pages on their way from one form to another.

#include <algorithm>
#include <cstring>

#include <gmock/gmock.h>

#include "imaging/owned_bitmap.h"
#include "imaging/pictures.h"
#include "pages/codec_calls.h"
#include "pages/naive_codec.h"
#include "platform/scratch.h"

namespace zerdix::imaging {
namespace {

using codec::bytes;
using namespace testing;

class PageForms : public testing::Test {
  protected:
    tests::recorded_boxes boxes;
    tests::recorded_quits quits;
};

bytes block_of(std::uint32_t width, std::uint32_t height, const bytes& rows) {
    bytes block(8 + rows.size());
    std::memcpy(block.data(), &width, 4);
    std::memcpy(block.data() + 4, &height, 4);
    std::copy(rows.begin(), rows.end(), block.begin() + 8);
    return block;
}

// The compressed page of rows with the leftmost pixel in bit 7, by way of bytes alone.
bytes compressed(std::uint32_t width, std::uint32_t height, const bytes& rows,
                 unsigned char inverted) {
    bytes stored = codec::page_header(width, height);
    for (const unsigned char byte : rows)
        stored.push_back(naive::mirror(unsigned{byte}) ^ inverted);
    return *codec::compress(stored);
}

bytes taken(page_dat page) {
    bytes data(page.data, page.data + page.size);
    std::free(page.data);
    return data;
}

int expand_page(const bytes& page, LeadBitmap* bitmap) {
    return ConvertCompressedFaxToLead(page.data(), static_cast<std::int32_t>(page.size()), bitmap);
}

TEST_F(PageForms, AFullWhitePage) {
    owned_bitmap bitmap;
    ASSERT_EQ(CreateEmptyBitmap(&bitmap, 1728, 2286), 1);
    EXPECT_EQ(bitmap.flags, 0x4001u);
    EXPECT_EQ(bitmap.order, colour_order::white_first);
    page_dat page{};
    ASSERT_EQ(ConvertLeadToCompressedFax(&page, &bitmap, 0), 1);
    const bytes stream = taken(page);
    EXPECT_THAT(bytes(stream.begin(), stream.begin() + 3), ElementsAre(0x1F, 0x9D, 0x90));
    EXPECT_LT(stream.size(), 493784u / 100);
    bytes expanded = *codec::expand(stream);
    EXPECT_EQ(expanded.size(), 493784u);
    const bytes header{0x00, 0x00, 0x60, 0x03, 0x00, 0x00, 0x10, 0x77};
    EXPECT_TRUE(std::equal(header.begin(), header.end(), expanded.begin()));
    EXPECT_EQ(std::count(expanded.begin() + 8, expanded.end(), 0), 493776);
    const pages::page_size size = pages::read_header(expanded.data(), pages::header_form::expanded);
    EXPECT_EQ(size.width, 1728u);
    EXPECT_EQ(size.height, 2286u);
    pages::write_header(expanded.data(), size, pages::header_form::stored);
    EXPECT_THAT(bytes(expanded.begin(), expanded.begin() + 8),
                ElementsAre(0x00, 0x00, 0x06, 0xC0, 0x00, 0x00, 0x08, 0xEE));
}

TEST_F(PageForms, RowsComeBackByteForByte) {
    for (const std::uint32_t width : {8u, 16u, 56u, 64u, 72u, 1728u})
        for (const std::uint32_t height : {1u, 2u, 17u}) {
            const bytes rows = codec::random_bytes(std::size_t{width} / 8 * height, width + height);
            bytes block = block_of(width, height, rows);
            for (const int invert : {0, 1}) {
                const bytes direct = compressed(width, height, rows, invert == 1 ? 0xFF : 0);
                owned_bitmap bitmap;
                ASSERT_EQ(ConvertBmToLead(block.data(), &bitmap, 0), 1);
                EXPECT_EQ(bitmap.order, colour_order::black_first);
                bytes top(width / 8);
                EXPECT_EQ(L_GetRow(&bitmap, top.data(), bitmap.height - 1, top.size()), 1);
                EXPECT_TRUE(std::equal(top.begin(), top.end(), rows.begin()));
                page_dat page{};
                ASSERT_EQ(ConvertLeadToCompressedFax(&page, &bitmap, invert), 1);
                EXPECT_EQ(taken(page), direct) << width << "x" << height;
            }
            const bytes direct = compressed(width, height, rows, 0);
            owned_bitmap bitmap;
            ASSERT_EQ(expand_page(direct, &bitmap), 1);
            EXPECT_EQ(L_InvertBitmap(&bitmap), 1);
            EXPECT_EQ(bitmap.order, colour_order::white_first);
            EXPECT_EQ(bytes(row_from_top(bitmap, 0), row_from_top(bitmap, 0) + width / 8),
                      bytes(rows.begin(), rows.begin() + width / 8));
            page_dat page{};
            ASSERT_EQ(ConvertLeadToCompressedFax(&page, &bitmap, 0), 1);
            EXPECT_EQ(taken(page), direct) << width << "x" << height;
        }
    EXPECT_THAT(boxes.shown, IsEmpty());
}

TEST_F(PageForms, BitsBehindTheLastPixelAreDroppedAndGoOutWhite) {
    for (const std::uint32_t width : {1u, 7u, 9u, 63u, 65u}) {
        const std::size_t row = (width + 7) / 8;
        bytes block = block_of(width, 3, codec::repeated("\xff", row * 3));
        owned_bitmap bitmap;
        ASSERT_EQ(ConvertBmToLead(block.data(), &bitmap, 0), 1);
        EXPECT_EQ(pixels_of(bitmap), picture(3, std::vector<int>(width, 1)));
        page_dat page{};
        for (const int invert : {0, 1}) {
            ASSERT_EQ(ConvertLeadToCompressedFax(&page, &bitmap, invert), 1);
            const bytes expanded = *codec::expand(taken(page));
            ASSERT_EQ(expanded.size(), 8 + row * 3);
            const int last = invert == 1 ? 0 : 0xFF00 >> ((width - 1) % 8 + 1) & 0xFF;
            EXPECT_EQ(expanded.back(), last) << width;
        }
    }
}

TEST_F(PageForms, DamagedPagesGiveNoBitmap) {
    const bytes full = compressed(64, 50, codec::random_bytes(400, 1), 0);
    const bytes expanded = *codec::expand(full);
    const auto header_only = [](std::uint32_t width, std::uint32_t height) {
        return compressed(width, height, {}, 0);
    };
    const std::vector<bytes> damaged{
        bytes{},
        bytes(full.begin(), full.begin() + 3),
        bytes(full.begin(), full.begin() + 200),
        *codec::compress({0, 0, 6, 0xC0, 0, 0, 8}),
        header_only(1728, 2286),
        header_only(65536, 65536),
        header_only(0xFFFFFFFF, 0xFFFFFFFF),
        header_only(65535, 1025),
        compressed(16, 2, bytes(3, 0), 0),
    };
    for (const bytes& page : damaged) {
        owned_bitmap bitmap;
        EXPECT_EQ(expand_page(page, &bitmap), 0) << page.size();
        EXPECT_EQ(bitmap.pixels, nullptr);
    }
    EXPECT_THAT(boxes.shown, IsEmpty());
    EXPECT_THAT(quits.codes, IsEmpty());
    owned_bitmap bitmap;
    EXPECT_EQ(expand_page({0x1F, 0x9E, 0x90, 0, 0}, &bitmap), 0);
    EXPECT_THAT(quits.codes, ElementsAre(1));
    EXPECT_THAT(boxes.shown, IsEmpty());
}

TEST_F(PageForms, FailuresTellTheUserByTheStepThatFailed) {
    const auto released = [](std::uint32_t width, std::uint32_t height, LeadBitmap* bitmap) {
        const bytes block = block_of(width, height, {});
        auto* memory = static_cast<unsigned char*>(std::malloc(block.size()));
        std::memcpy(memory, block.data(), block.size());
        return ConvertBmToLead(memory, bitmap, 1);
    };
    owned_bitmap bitmap;
    EXPECT_EQ(released(65536, 1, &bitmap), 0);
    EXPECT_EQ(CreateEmptyBitmap(&bitmap, 8200, 8200), 0);
    EXPECT_EQ(CreateEmptyBitmap(&bitmap, -8, 8), 0);
    EXPECT_EQ(released(8, 0, &bitmap), 0);
    const auto told = [](const char* text) { return Pair(text, "Benachrichtigung"); };
    const auto no_size = told("Error L_InitBitmap()");
    EXPECT_THAT(boxes.shown,
                ElementsAre(no_size, no_size, no_size, told("Error L_AllocateBitmap()")));
    boxes.shown.clear();
    page_dat page{};
    EXPECT_EQ(released(8, 0, nullptr), 0);
    EXPECT_EQ(ConvertBmToLead(nullptr, &bitmap, 1), 0);
    EXPECT_EQ(CreateEmptyBitmap(nullptr, 8, 8), 0);
    EXPECT_EQ(ConvertLeadToCompressedFax(&page, &bitmap, 0), 0);
    EXPECT_EQ(L_InvertBitmap(&bitmap), 0);
    EXPECT_THAT(boxes.shown, IsEmpty());
}

TEST_F(PageForms, FreeingTwiceDoesNoHarm) {
    LeadBitmap bitmap;
    ASSERT_EQ(CreateEmptyBitmap(&bitmap, 9, 9), 1);
    EXPECT_EQ(FreeLeadBitmap(&bitmap), 1);
    EXPECT_EQ(bitmap.flags, 0u);
    EXPECT_EQ(FreeLeadBitmap(&bitmap), 1);
    EXPECT_EQ(FreeLeadBitmap(nullptr), 0);
}

TEST(Bitmap, RowsCountFromTheBottomAndPixelsHaveTheColoursOfTheOrder) {
    for (const std::int32_t width : {1, 8, 9, 63, 64, 65, 130}) {
        owned_bitmap bitmap;
        ASSERT_EQ(CreateEmptyBitmap(&bitmap, width, 3), 1);
        const auto filled = [&](std::uint32_t colour) {
            EXPECT_EQ(L_FillBitmap(&bitmap, colour), 1);
            return pixels_of(bitmap);
        };
        const picture zeros(3, std::vector<int>(static_cast<std::size_t>(width), 0));
        const picture ones(3, std::vector<int>(static_cast<std::size_t>(width), 1));
        EXPECT_EQ(filled(0x000000), ones);
        EXPECT_EQ(filled(0xFFFFFF), zeros);
        L_InvertBitmap(&bitmap);
        EXPECT_EQ(filled(0xFFFFFF), ones);
        EXPECT_EQ(filled(0x000000), zeros);
        const bytes row(row_bytes(width), 0xFF);
        EXPECT_EQ(L_PutRow(&bitmap, row.data(), 0, row.size()), 1);
        EXPECT_EQ(pixels_of(bitmap), (picture{zeros[0], zeros[0], ones[0]}));
        EXPECT_EQ(L_PutRow(&bitmap, row.data(), 3, row.size()), 0);
        EXPECT_EQ(L_PutRow(&bitmap, row.data(), -1, row.size()), 0);
        EXPECT_EQ(L_PutRow(&bitmap, row.data(), 0, row.size() + 1), 0);
    }
}

} // namespace
} // namespace zerdix::imaging
