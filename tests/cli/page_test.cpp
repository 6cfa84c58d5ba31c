// SPDX-License-Identifier: MIT
// Pages that come back as pictures.

#include <cstring>
#include <gmock/gmock.h>
#include <png.h>

#include "cli/program.h"
#include "output/failure.h"
#include "pages/codec_calls.h"
#include "pictures/stored_page.h"
#include "print/pdf_file.h"
#include "support/test_server.h"

namespace zerdix::test {
namespace {

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
    void refuses(const std::string& words, int code, const std::string& part) {
        fails("page " + words + " -o", code, part, {output_});
        EXPECT_FALSE(std::filesystem::exists(output_)) << part;
    }

    test_server server_;
    std::string output_ = server_.folder() / "page.png";
};

TEST_F(Page, ComesBackPixelForPixel) {
    ASSERT_EQ(zerdix("print --to 1", {SAMPLE_PDF}).status, 0);
    const std::string document = std::to_string(server_.jobs().at(0).record.faxid);
    const std::vector<unsigned char> sent = app::pdf_file(SAMPLE_PDF).render(2).block;
    ASSERT_EQ(zerdix("page " + document + " 2 --pool out -o", {output_}).status, 0);
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
    refuses(document + " 4 --pool out", app::exit_no_input, "has no page 4, only 3");
    refuses(document + " 1 --pool desk", app::exit_no_input, "on the desk");
}

TEST_F(Page, IsToldWhenDamaged) {
    alphad::store& store = server_.store();
    const std::int32_t document = store.documents.create(TOPF_P, "zerdix");
    store.pages.put_block({document, 1, 0}, 0, "no page at all");
    refuses(std::to_string(document) + " 1 --pool desk", app::exit_bad_data, "is damaged");
}

TEST(StoredPage, MustHoldWhatItsHeaderPromises) {
    const auto expand = [](const codec::bytes& block) {
        const codec::bytes stream = *codec::compress(block);
        return app::expand_page(stream.data(), stream.size());
    };
    const auto picture = expand({0, 0, 0, 16, 0, 0, 0, 2, 0x01, 0x80, 0x0f, 0x00});
    EXPECT_EQ(picture.width, 16U);
    EXPECT_EQ(picture.rows, 2U);
    EXPECT_THAT(picture.bits, testing::ElementsAre(0x80, 0x01, 0xf0, 0x00));
    const std::pair<const char*, codec::bytes> broken[] = {
        {"a byte is missing", {0, 0, 0, 16, 0, 0, 0, 2, 1, 2, 3}},
        {"the header is cut", {0, 0, 0, 16, 0, 0, 0}},
        {"no width", {0, 0, 0, 0, 0, 0, 0, 2, 1, 2}},
        {"a width beyond all bounds", {0x7f, 0xff, 0xff, 0xff, 0, 0, 0, 2, 1, 2}},
    };
    for (const auto& [what, block] : broken)
        EXPECT_THROW(expand(block), app::failure) << what;
}

} // namespace
} // namespace zerdix::test
