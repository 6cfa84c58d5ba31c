// SPDX-License-Identifier: MIT
#include "tiff/fax_tiff.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <unistd.h>
#include <utility>

#include <tiffio.h>

#include "tiff/group4.h"

namespace zerdix::tiff {

namespace {

int keep_error(TIFF*, void* place, const char*, const char* format, va_list values) {
    char text[160];
    std::vsnprintf(text, sizeof text, format, values);
    *static_cast<std::string*>(place) = text;
    return 1; // nothing else is to be done with it
}

int keep_quiet(TIFF*, void*, const char*, const char*, va_list) {
    return 1;
}

struct free_options {
    void operator()(TIFFOpenOptions* options) const { TIFFOpenOptionsFree(options); }
};

// libtiff tells of a file that it can't open only by way of its own handlers; opening here first
// gives the system's reason.
TIFF* open_tiff(const std::string& path, std::string& error) {
    const int fd = ::open(path.c_str(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (fd < 0)
        throw fax_tiff_error(std::strerror(errno));
    const std::unique_ptr<TIFFOpenOptions, free_options> options(TIFFOpenOptionsAlloc());
    TIFFOpenOptionsSetErrorHandlerExtR(options.get(), keep_error, &error);
    TIFFOpenOptionsSetWarningHandlerExtR(options.get(), keep_quiet, nullptr);
    TIFF* file = TIFFFdOpenExt(fd, path.c_str(), "w", options.get());
    if (file == nullptr)
        ::close(fd);
    return file;
}

std::string tiff_time() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    char text[32];
    std::strftime(text, sizeof text, "%Y:%m:%d %H:%M:%S", &local);
    return text;
}

void set_text(TIFF* file, std::uint32_t tag, const std::string& text) {
    if (!text.empty())
        TIFFSetField(file, tag, text.c_str());
}

} // namespace

coded_page coded(const fax_tiff_page& page) {
    return {page.width, page.height, group4_code(page.width, page.rows)};
}

fax_tiff::fax_tiff(const std::string& path, int pages, fax_tiff_texts texts)
    : path_(path), pages_(pages), texts_(std::move(texts)), error_("no memory for a TIFF"),
      file_(open_tiff(path, error_)) {
    require(file_ != nullptr);
}

fax_tiff::~fax_tiff() {
    if (file_ == nullptr)
        return;
    TIFFClose(file_);
    std::error_code ignored;
    if (std::filesystem::is_regular_file(path_, ignored))
        std::filesystem::remove(path_, ignored);
}

void fax_tiff::set_form(const coded_page& page, int dpi_down) {
    TIFFSetField(file_, TIFFTAG_SUBFILETYPE, FILETYPE_PAGE);
    TIFFSetField(file_, TIFFTAG_PAGENUMBER, written_, pages_);
    TIFFSetField(file_, TIFFTAG_IMAGEWIDTH, page.width);
    TIFFSetField(file_, TIFFTAG_IMAGELENGTH, page.height);
    TIFFSetField(file_, TIFFTAG_ROWSPERSTRIP, page.height);
    TIFFSetField(file_, TIFFTAG_BITSPERSAMPLE, 1);
    TIFFSetField(file_, TIFFTAG_SAMPLESPERPIXEL, 1);
    TIFFSetField(file_, TIFFTAG_FILLORDER, FILLORDER_MSB2LSB);
    TIFFSetField(file_, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(file_, TIFFTAG_COMPRESSION, COMPRESSION_CCITTFAX4);
    TIFFSetField(file_, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISWHITE);
    TIFFSetField(file_, TIFFTAG_RESOLUTIONUNIT, RESUNIT_INCH);
    TIFFSetField(file_, TIFFTAG_XRESOLUTION, static_cast<double>(ZX_DPI_ACROSS));
    TIFFSetField(file_, TIFFTAG_YRESOLUTION, static_cast<double>(dpi_down));
}

void fax_tiff::set_texts() {
    set_text(file_, TIFFTAG_DOCUMENTNAME, texts_.title);
    set_text(file_, TIFFTAG_IMAGEDESCRIPTION, texts_.description);
    set_text(file_, TIFFTAG_SOFTWARE, texts_.software);
    if (texts_.dated)
        set_text(file_, TIFFTAG_DATETIME, tiff_time());
}

// libtiff reads the code and doesn't change it.
void fax_tiff::add(const coded_page& page, int dpi_down) {
    set_form(page, dpi_down);
    set_texts();
    auto* code = const_cast<char*>(page.code.data());
    require(TIFFWriteRawStrip(file_, 0, code, static_cast<tmsize_t>(page.code.size())) >= 0);
    require(TIFFWriteDirectory(file_) != 0);
    ++written_;
}

void fax_tiff::close() {
    require(TIFFFlush(file_) != 0);
    TIFFClose(file_);
    file_ = nullptr;
}

void fax_tiff::require(bool done) const {
    if (!done)
        throw fax_tiff_error(error_);
}

} // namespace zerdix::tiff
