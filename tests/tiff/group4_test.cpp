// SPDX-License-Identifier: MIT
// Our Group 4 coding against that of libtiff, byte by byte.

#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <tiffio.h>

#include "pages/page_picture.h"
#include "platform/scratch.h"
#include "tiff/group4.h"

namespace zerdix::tiff {
namespace {

using zerdix::pages::page_picture;

struct close_tiff {
    void operator()(TIFF* file) const { TIFFClose(file); }
};
using open_file = std::unique_ptr<TIFF, close_tiff>;

std::string code_of_libtiff(const std::string& name, page_picture picture) {
    {
        const open_file file{TIFFOpen(name.c_str(), "w")};
        TIFFSetField(file.get(), TIFFTAG_IMAGEWIDTH, picture.size.width);
        TIFFSetField(file.get(), TIFFTAG_IMAGELENGTH, picture.size.height);
        TIFFSetField(file.get(), TIFFTAG_BITSPERSAMPLE, 1);
        TIFFSetField(file.get(), TIFFTAG_SAMPLESPERPIXEL, 1);
        TIFFSetField(file.get(), TIFFTAG_COMPRESSION, COMPRESSION_CCITTFAX4);
        TIFFSetField(file.get(), TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISWHITE);
        TIFFSetField(file.get(), TIFFTAG_ROWSPERSTRIP, picture.size.height);
        TIFFWriteEncodedStrip(file.get(), 0, picture.rows.data(),
                              static_cast<tmsize_t>(picture.rows.size()));
    }
    const open_file file{TIFFOpen(name.c_str(), "r")};
    std::string code(static_cast<std::size_t>(TIFFRawStripSize(file.get(), 0)), '\0');
    TIFFReadRawStrip(file.get(), 0, code.data(), static_cast<tmsize_t>(code.size()));
    return code;
}

class drawing {
  public:
    // Runs of up to so many pixels; of the rows every second one is nearly that above it.
    page_picture draw(std::uint32_t width, std::uint32_t height, unsigned longest_run) {
        page_picture picture{{width, height}, {}};
        picture.rows.resize(picture.row_bytes() * height);
        for (std::uint32_t y = 0; y < height; ++y)
            if (y > 0 && random_() % 2 == 0)
                repeat(picture, y);
            else
                fill(picture, y, longest_run);
        return picture;
    }

    unsigned up_to(unsigned most) { return 1 + static_cast<unsigned>(random_() % most); }

  private:
    void repeat(page_picture& picture, std::uint32_t y) {
        std::memcpy(picture.row(y), picture.row(y - 1), picture.row_bytes());
        for (unsigned flips = up_to(4); flips > 1; --flips)
            flip(picture, up_to(picture.size.width) - 1, y);
    }
    void fill(page_picture& picture, std::uint32_t y, unsigned longest_run) {
        bool black = random_() % 2 == 0;
        for (std::uint32_t x = 0; x < picture.size.width; black = !black)
            for (unsigned run = up_to(longest_run); run > 0 && x < picture.size.width; --run, ++x)
                if (black)
                    flip(picture, x, y);
    }
    static void flip(page_picture& picture, std::uint32_t x, std::uint32_t y) {
        picture.row(y)[x / 8] ^= static_cast<unsigned char>(128 >> (x % 8));
    }

    std::mt19937 random_{1};
};

TEST(Group4, CodesAsLibtiffDoes) {
    const tests::scratch_folder folder;
    drawing drawn;
    for (int round = 0; round < 300; ++round)
        for (const unsigned longest_run : {2U, 12U, 70U, 3000U}) {
            const std::uint32_t width = round % 10 == 0 ? drawn.up_to(6000) : drawn.up_to(400);
            const page_picture picture = drawn.draw(width, drawn.up_to(30), longest_run);
            ASSERT_EQ(group4_code(width, picture.rows),
                      code_of_libtiff(folder.path("a.tif"), picture))
                << width << " by " << picture.size.height << " in round " << round;
        }
}

} // namespace
} // namespace zerdix::tiff
