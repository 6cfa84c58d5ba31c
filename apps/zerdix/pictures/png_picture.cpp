// SPDX-License-Identifier: MIT
#include "pictures/png_picture.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include <png.h>

#include "output/failure.h"

namespace zerdix::app {

namespace {

// What libpng needs for one picture.
class png_reader {
  public:
    explicit png_reader(const std::string& path) : path_(path) {
        image_.version = PNG_IMAGE_VERSION;
        const bool standard_input = path == "-";
        file_ = standard_input ? stdin : std::fopen(path.c_str(), "rbe");
        if (file_ == nullptr)
            throw failure(exit_no_input, path + " can't be opened: " + std::strerror(errno));
        if (std::error_code ignored; std::filesystem::is_directory(path, ignored))
            throw failure(exit_no_input, path + " is a folder");
        if (png_image_begin_read_from_stdio(&image_, file_) == 0)
            refuse();
    }
    ~png_reader() {
        png_image_free(&image_);
        if (file_ != nullptr && file_ != stdin)
            std::fclose(file_);
    }
    png_reader(const png_reader&) = delete;
    png_reader& operator=(const png_reader&) = delete;

    std::uint32_t width() const { return image_.width; }
    std::uint32_t height() const { return image_.height; }

    // A byte a pixel, 0 black to 255 white, on white paper.
    std::vector<unsigned char> grey() {
        image_.format = PNG_FORMAT_GRAY;
        std::vector<unsigned char> pixels(PNG_IMAGE_SIZE(image_));
        const png_color paper{255, 255, 255};
        if (png_image_finish_read(&image_, &paper, pixels.data(), 0, nullptr) == 0)
            refuse();
        return pixels;
    }

  private:
    [[noreturn]] void refuse() const {
        throw failure(exit_bad_data, path_ + " can't be read as a PNG: " + image_.message);
    }

    std::string path_;
    std::FILE* file_ = nullptr;
    png_image image_{};
};

std::string size_text(std::uint32_t width, std::uint32_t height) {
    return std::to_string(width) + " by " + std::to_string(height);
}

} // namespace

page_picture read_png(const std::string& path, std::uint32_t widest, std::uint32_t longest,
                      bool& had_shades) {
    png_reader reader(path);
    if (reader.width() > widest || reader.height() > longest)
        throw failure(exit_bad_data, path + " has " + size_text(reader.width(), reader.height()) +
                                         " pixels, more than " + size_text(widest, longest));
    const std::vector<unsigned char> grey = reader.grey();
    page_picture picture{(reader.width() + 7) / 8 * 8, reader.height(), {}};
    picture.bits.assign(picture.row_bytes() * picture.rows, 0);
    for (std::uint32_t y = 0; y < reader.height(); ++y) {
        for (std::uint32_t x = 0; x < reader.width(); ++x) {
            const unsigned char shade = grey[std::size_t{y} * reader.width() + x];
            had_shades = had_shades || (shade != 0 && shade != 255);
            if (shade < 128)
                picture.bits[y * picture.row_bytes() + x / 8] |=
                    static_cast<unsigned char>(0x80 >> x % 8);
        }
    }
    return picture;
}

} // namespace zerdix::app
