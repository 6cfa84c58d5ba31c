// SPDX-License-Identifier: MIT
// Stored pages as pixels and back, through the exported functions.

#include <cstring>

#include <gtest/gtest.h>
#include <vector>

#include <zerdix/page.h>

namespace zerdix::testing {
namespace {

// Width 12: the second byte of each row has four bits behind the last pixel.
struct sample {
    std::vector<unsigned char> rows{0xF0, 0x0F, 0x81, 0xAF, 0x00, 0xF0};
    zx_page page{12, 3, 2, 3, rows.data()};
};

struct stored_page {
    unsigned char* bytes = nullptr;
    std::uint32_t size = 0;
    explicit stored_page(const zx_page& page) { fault = CompressPage(&page, &bytes, &size); }
    ~stored_page() { FreeStoredPage(bytes); }
    int fault;
};

TEST(StoredPage, ComesBackAsItWasButForThePadding) {
    sample picture;
    const stored_page stored(picture.page);
    ASSERT_EQ(stored.fault, ZX_PAGE_GOOD);
    zx_page back;
    ASSERT_EQ(ExpandPage(stored.bytes, stored.size, &back), ZX_PAGE_GOOD);
    EXPECT_EQ(back.width, 12u);
    EXPECT_EQ(back.height, 3u);
    EXPECT_EQ(back.row_bytes, 2u);
    const unsigned char expected[] = {0xF0, 0x00, 0x81, 0xA0, 0x00, 0xF0};
    EXPECT_EQ(std::memcmp(back.rows, expected, sizeof expected), 0);
    FreePage(&back);
    EXPECT_EQ(back.rows, nullptr);
}

TEST(StoredPage, AsWideAsPagesMayBeComesBack) {
    std::vector<unsigned char> row(8192);
    const stored_page stored({65535, 1, 8192, 1, row.data()});
    ASSERT_EQ(stored.fault, ZX_PAGE_GOOD);
    zx_page back;
    ASSERT_EQ(ExpandPage(stored.bytes, stored.size, &back), ZX_PAGE_GOOD);
    FreePage(&back);
}

TEST(StoredPage, DamageIsTold) {
    sample picture;
    const stored_page stored(picture.page);
    zx_page back;
    EXPECT_EQ(ExpandPage("no page at all", 14, &back), ZX_PAGE_NOT_COMPRESSED);
    EXPECT_EQ(ExpandPage(nullptr, 0, &back), ZX_PAGE_NOT_COMPRESSED);
    // 9-bit codes, so that the last bytes hold the last rows.
    ASSERT_EQ(ExpandPage(stored.bytes, stored.size - 4, &back), ZX_PAGE_ROWS_MISSING);
    EXPECT_EQ(back.height, 3u);
    EXPECT_LT(back.rows_there, 3u);
    EXPECT_EQ(back.rows, nullptr);
    picture.page.width = 0;
    EXPECT_EQ(stored_page(picture.page).fault, ZX_PAGE_NO_SIZE);
    picture.page.width = 65536;
    EXPECT_EQ(stored_page(picture.page).fault, ZX_PAGE_NO_SIZE);
}

TEST(StoredPage, TheDriversHeaderIsBigEndian) {
    unsigned char block[8];
    WritePageHeader(block, ZX_PAGE_WIDTH, 2286);
    const unsigned char expected[] = {0, 0, 6, 0xC0, 0, 0, 8, 0xEE};
    EXPECT_EQ(std::memcmp(block, expected, sizeof expected), 0);
}

} // namespace
} // namespace zerdix::testing
