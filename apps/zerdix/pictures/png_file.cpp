// SPDX-License-Identifier: MIT
#include "pictures/png_file.h"

#include <cerrno>
#include <cmath>
#include <csetjmp>
#include <cstdio>
#include <cstring>

#include <png.h>

#include <zerdix/page.h>

#include "output/output_file.h"

namespace zerdix::app {

namespace {

png_uint_32 per_metre(double dots_per_inch) {
    return static_cast<png_uint_32>(std::lround(dots_per_inch / 0.0254));
}

// What libpng needs for one picture; its error text, if any, stays in `error`.
class png_writer {
  public:
    png_writer()
        : png_(png_create_write_struct(PNG_LIBPNG_VER_STRING, this, keep_error, keep_quiet)),
          info_(png_ != nullptr ? png_create_info_struct(png_) : nullptr) {}
    ~png_writer() { png_destroy_write_struct(&png_, &info_); }
    png_writer(const png_writer&) = delete;
    png_writer& operator=(const png_writer&) = delete;

    // libpng leaves its functions by a jump, back to here: no object may be made in between.
    bool write(std::FILE* out, const page_picture& picture) {
        if (info_ == nullptr || setjmp(png_jmpbuf(png_)) != 0) // NOLINT: libpng's way
            return false;
        png_init_io(png_, out);
        put_header(picture);
        png_set_invert_mono(png_); // a set bit is black here, white in a PNG
        for (std::uint32_t y = 0; y < picture.rows; ++y)
            png_write_row(png_, picture.bits.data() + y * picture.row_bytes());
        png_write_end(png_, info_);
        return true;
    }

    const char* error() const { return error_; }

  private:
    void put_header(const page_picture& picture) {
        png_set_IHDR(png_, info_, picture.width, picture.rows, 1, PNG_COLOR_TYPE_GRAY,
                     PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
        png_set_pHYs(png_, info_, per_metre(ZX_DPI_ACROSS), per_metre(ZX_DPI_FINE),
                     PNG_RESOLUTION_METER);
        png_write_info(png_, info_);
    }

    [[noreturn]] static void keep_error(png_structp png, png_const_charp message) {
        auto* writer = static_cast<png_writer*>(png_get_error_ptr(png));
        std::snprintf(writer->error_, sizeof writer->error_, "%s", message);
        png_longjmp(png, 1);
    }
    static void keep_quiet(png_structp, png_const_charp) {}

    char error_[80] = "no memory for a PNG";
    png_structp png_;
    png_infop info_;
};

// The reason why not, "" for success.
std::string write_to(std::FILE* out, const page_picture& picture) {
    png_writer writer;
    errno = 0;
    if (!writer.write(out, picture))
        return errno != 0 ? std::strerror(errno) : writer.error();
    return std::fflush(out) != 0 ? std::strerror(errno) : "";
}

} // namespace

void write_png(const std::string& path, const page_picture& picture) {
    const bool to_standard_output = path == "-";
    std::FILE* out = to_standard_output ? stdout : std::fopen(path.c_str(), "wbe");
    if (out == nullptr)
        not_written(path, std::strerror(errno));
    std::string error = write_to(out, picture);
    if (to_standard_output && !error.empty())
        not_written("standard output", error);
    if (!to_standard_output && std::fclose(out) != 0 && error.empty())
        error = std::strerror(errno);
    if (error.empty())
        return;
    take_away(path);
    not_written(path, error);
}

} // namespace zerdix::app
