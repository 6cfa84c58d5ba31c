// SPDX-License-Identifier: MIT
// Pages that come back as pictures.

#include <cstring>
#include <gmock/gmock.h>
#include <png.h>

#include <zerdix/journal.h>
#include <zerdix/zerdix.h>

#include "cli/program.h"
#include "output/failure.h"
#include "pictures/stored_page.h"
#include "print/pdf_file.h"
#include "support/test_server.h"

namespace zerdix::test {
namespace {

using testing::HasSubstr;

// A PNG as one byte a pixel, read by libpng's own short way.
struct grey_picture {
    std::uint32_t width = 0;
    std::uint32_t rows = 0;
    std::vector<unsigned char> pixels;
};

grey_picture read_png(const std::string& path) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    grey_picture picture;
    if (png_image_begin_read_from_file(&image, path.c_str()) == 0)
        return picture;
    image.format = PNG_FORMAT_GRAY;
    picture.width = image.width;
    picture.rows = image.height;
    picture.pixels.resize(PNG_IMAGE_SIZE(image));
    png_image_finish_read(&image, nullptr, picture.pixels.data(), 0, nullptr);
    return picture;
}

class Page : public testing::Test {
  protected:
    outcome fetch(int document, int page, const std::string& pool) {
        return run_zerdix({"page", std::to_string(document), std::to_string(page), "-o", output_,
                           "--pool", pool});
    }

    void expect_failure(const outcome& result, int code, const std::string& part) {
        EXPECT_EQ(result.status, code) << result.errors;
        EXPECT_THAT(result.errors, HasSubstr(part));
        EXPECT_FALSE(std::filesystem::exists(output_));
    }

    test_server server_;
    std::string output_ = server_.folder() / "page.png";
};

TEST_F(Page, ComesBackPixelForPixel) {
    ASSERT_EQ(run_zerdix({"print", SAMPLE_PDF, "--to", "1"}).status, 0);
    const int document = server_.jobs().at(0).record.faxid;
    const std::vector<unsigned char> sent = app::pdf_file(SAMPLE_PDF).render(2).block;
    ASSERT_EQ(fetch(document, 2, "out").status, 0);
    const grey_picture got = read_png(output_);
    ASSERT_EQ(got.width, 1728U);
    ASSERT_EQ(got.pixels.size() / 8 + 8, sent.size());
    std::size_t different = 0;
    for (std::size_t i = 0; i < got.pixels.size(); ++i) {
        const std::size_t row = got.rows - 1 - i / got.width;
        const std::size_t x = i % got.width;
        const bool white = (sent[8 + row * 216 + x / 8] >> (7 - x % 8) & 1) != 0;
        different += got.pixels[i] == (white ? 255 : 0) ? 0 : 1;
    }
    EXPECT_EQ(different, 0U);
    std::filesystem::remove(output_);
    expect_failure(fetch(document, 4, "out"), app::exit_no_input, "has no page 4, only 3");
    expect_failure(fetch(document, 1, "desk"), app::exit_no_input, "on the desk");
}

TEST_F(Page, IsToldWhenDamaged) {
    ZERDIX session;
    session.setUserId("zerdix");
    ASSERT_NE(session.GetClientAddr("127.0.0.1"), nullptr);
    JOURNAL journal;
    const std::int32_t document = journal.makeDoc();
    unsigned char noise[] = "no page at all";
    const page_dat page{sizeof noise, noise};
    ASSERT_EQ(journal.putDocPage(document, 1, 0, &page), 0);
    session.CleanupHostConnection();
    expect_failure(fetch(document, 1, "desk"), app::exit_bad_data, "is damaged");
}

// A compressed block of single bytes: codes of 9 bits, fewer than would widen them.
std::vector<unsigned char> compressed(const std::vector<unsigned char>& bytes) {
    std::vector<unsigned char> stream{0x1f, 0x9d, 0x90};
    unsigned long pending = 0;
    unsigned bits = 0;
    for (const unsigned char byte : bytes) {
        pending |= static_cast<unsigned long>(byte) << bits;
        for (bits += 9; bits >= 8; bits -= 8, pending >>= 8)
            stream.push_back(static_cast<unsigned char>(pending));
    }
    stream.push_back(static_cast<unsigned char>(pending));
    return stream;
}

TEST(StoredPage, MustHoldWhatItsHeaderPromises) {
    const auto whole = compressed({0, 0, 0, 16, 0, 0, 0, 2, 0x01, 0x80, 0x0f, 0x00});
    const app::page_picture picture = app::expand_page(whole.data(), whole.size());
    EXPECT_EQ(picture.width, 16U);
    EXPECT_EQ(picture.rows, 2U);
    EXPECT_THAT(picture.bits, testing::ElementsAre(0x80, 0x01, 0xf0, 0x00));
    for (const auto& bytes :
         std::vector<std::vector<unsigned char>>{{0, 0, 0, 16, 0, 0, 0, 2, 1, 2,
                                                  3},                    // a byte is missing
                                                 {0, 0, 0, 16, 0, 0, 0}, // the header is cut
                                                 {0, 0, 0, 0, 0, 0, 0, 2, 1, 2}, // no width
                                                 {0x7f, 0xff, 0xff, 0xff, 0, 0, 0, 2, 1,
                                                  2}}) // a width beyond all bounds
    {
        const auto stream = compressed(bytes);
        EXPECT_THROW(app::expand_page(stream.data(), stream.size()), app::failure);
    }
}

} // namespace
} // namespace zerdix::test
