// SPDX-License-Identifier: MIT
// Pages pixel by pixel against Poppler's public rendering, all in shades of grey, and a dithering
// of one pixel at a time.

#include <gmock/gmock.h>
#include <random>

#include <poppler-document.h>
#include <poppler-page-renderer.h>
#include <poppler-page.h>

#include "cli/tiny_pdf.h"
#include "print/page_placement.h"
#include "print/pdf_file.h"
#include "support/test_server.h"

namespace zerdix::app {
namespace {

// The threshold of a pixel in its cell of 8 by 8: the lowest bits of its place weigh most.
unsigned threshold(unsigned x, unsigned y) {
    unsigned rank = 0;
    for (unsigned bit = 0; bit < 3; ++bit)
        rank = rank << 2 | ((x ^ y) >> bit & 1) << 1 | (y >> bit & 1);
    return 2 + rank * 251 / 63;
}

struct reference_page {
    poppler::image image;

    bool is_white(int x, int y) const {
        const auto* pixels = reinterpret_cast<const unsigned char*>(image.const_data());
        return pixels[y * image.bytes_per_row() + x] >
               threshold(static_cast<unsigned>(x), static_cast<unsigned>(y));
    }
};

reference_page reference(const poppler::page& page) {
    const auto side = page.orientation();
    const bool is_turned = side == poppler::page::landscape || side == poppler::page::seascape;
    const poppler::rectf box = page.page_rect();
    const page_placement place =
        is_turned ? place_page(box.height(), box.width()) : place_page(box.width(), box.height());
    poppler::page_renderer renderer;
    renderer.set_image_format(poppler::image::format_gray8);
    return {renderer.render_page(&page, place.dpi_across, place.dpi_down, -place.left, 0, fax_width,
                                 place.rows,
                                 place.turned ? poppler::rotate_270 : poppler::rotate_0)};
}

int different_pixels(const std::vector<unsigned char>& block, const reference_page& expected) {
    const int rows = expected.image.height();
    if (block.size() != 8 + 216 * static_cast<std::size_t>(rows))
        return -1;
    int different = 0;
    for (int y = 0; y < rows; ++y) {
        const unsigned char* row = block.data() + 8 + 216 * (rows - 1 - y);
        for (int x = 0; x < fax_width; ++x)
            different += (row[x / 8] >> (7 - x % 8) & 1) != expected.is_white(x, y);
    }
    return different;
}

// Each page after the others of its document, as a print job makes them.
void expect_like_reference(const std::string& path) {
    const std::unique_ptr<poppler::document> document(poppler::document::load_from_file(path));
    ASSERT_NE(document, nullptr);
    pdf_file pdf(path);
    ASSERT_EQ(pdf.pages(), document->pages());
    for (int number = 1; number <= pdf.pages(); ++number) {
        const std::unique_ptr<poppler::page> page(document->create_page(number - 1));
        EXPECT_EQ(different_pixels(pdf.render(number).block, reference(*page)), 0)
            << "page " << number << " of " << path;
    }
}

class drawing {
  public:
    std::string draw() {
        std::string text;
        for (int i = 0; i < 60; ++i)
            text += operation() + '\n';
        return text;
    }

  private:
    std::string number(unsigned most) {
        return std::to_string(static_cast<double>(random_() % (1000u * most)) / 1000) + ' ';
    }
    std::string point() { return number(300) + number(400); }

    // Widths around those that Poppler treats otherwise with one bit a pixel.
    std::string operation() {
        const char* widths[] = {"0", "0.05", "0.2", "0.24", "0.25", "0.251", "0.4", "1", "3.3"};
        const char* shades[] = {"0", "1", "0.5", "0.01", "0.99", "0.3"};
        switch (random_() % 7) {
        case 0:
            return std::string(widths[random_() % 9]) + " w";
        case 1:
            return std::string(shades[random_() % 6]) + (random_() % 2 == 0 ? " g" : " G");
        case 2:
            return random_() % 3 == 0 ? "[3 2] 0 d" : "[] 0 d";
        case 3:
            return point() + number(100) + number(3) + "re B";
        case 4:
            return "q 1.5 .3 -.2 .7 " + point() + "cm " + point() + "m " + point() + "l S Q";
        case 5:
            return point() + "m " + point() + point() + point() + "c S";
        default:
            return "q " + point() + "m " + point() + "l " + point() + "l W n " + point() +
                   "200 200 re f Q";
        }
    }

    std::mt19937 random_{7};
};

TEST(Rendering, IsThatInGreyPixelByPixel) {
    expect_like_reference(SAMPLE_PDF);
}

TEST(Rendering, DrawsLinesAndShadesAsInGrey) {
    const test::scratch_folder folder;
    drawing drawn;
    std::vector<test::tiny_page> pages;
    for (int i = 0; i < 12; ++i)
        pages.push_back({300, 400, drawn.draw(), i % 3 * 90});
    expect_like_reference(folder.write("a.pdf", test::tiny_pdf(pages)));
}

// What can't be drawn with one bit a pixel, between pages that can.
TEST(Rendering, TakesGreyWhereAPageNeedsIt) {
    const test::scratch_folder folder;
    const std::string picture = "q 200 0 0 300 20 20 cm BI /W 4 /H 2 /BPC 8 /CS /G ID "
                                "\x20\x60\xa0\xe0\xf0\xb0\x70\x30 EI Q";
    const std::string mask = "q 100 0 0 100 50 50 cm BI /W 9 /H 3 /IM true ID "
                             "\xaa\x80\x55\x00\xff\x80 EI Q";
    expect_like_reference(
        folder.write("a.pdf", test::tiny_pdf({{300, 400, "0 g 10 10 100 100 re f " + picture},
                                              {300, 400, "0 g 10 10 100 100 re f"},
                                              {300, 400, mask + " .5 G 1 w 10 10 200 200 re S"},
                                              {300, 400, "1 0 0 rg 10 10 100 100 re f"}})));
}

} // namespace
} // namespace zerdix::app
