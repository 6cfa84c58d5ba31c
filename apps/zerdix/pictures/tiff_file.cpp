// SPDX-License-Identifier: MIT
#include "pictures/tiff_file.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

#include <tiffio.h>

#include "output/output_file.h"
#include "print/page_placement.h"

namespace zerdix::app {

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
        not_written(path, std::strerror(errno));
    const std::unique_ptr<TIFFOpenOptions, free_options> options(TIFFOpenOptionsAlloc());
    TIFFOpenOptionsSetErrorHandlerExtR(options.get(), keep_error, &error);
    TIFFOpenOptionsSetWarningHandlerExtR(options.get(), keep_quiet, nullptr);
    TIFF* file = TIFFFdOpenExt(fd, path.c_str(), "w", options.get());
    if (file == nullptr)
        ::close(fd);
    return file;
}

void set_form(TIFF* file, const page_picture& picture) {
    TIFFSetField(file, TIFFTAG_SUBFILETYPE, FILETYPE_PAGE);
    TIFFSetField(file, TIFFTAG_IMAGEWIDTH, picture.width);
    TIFFSetField(file, TIFFTAG_IMAGELENGTH, picture.rows);
    TIFFSetField(file, TIFFTAG_ROWSPERSTRIP, picture.rows);
    TIFFSetField(file, TIFFTAG_BITSPERSAMPLE, 1);
    TIFFSetField(file, TIFFTAG_SAMPLESPERPIXEL, 1);
    TIFFSetField(file, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(file, TIFFTAG_COMPRESSION, COMPRESSION_CCITTFAX4);
    TIFFSetField(file, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISWHITE);
    TIFFSetField(file, TIFFTAG_RESOLUTIONUNIT, RESUNIT_INCH);
    TIFFSetField(file, TIFFTAG_XRESOLUTION, fax_dpi_across);
    TIFFSetField(file, TIFFTAG_YRESOLUTION, fax_dpi_down);
}

bool write_rows(TIFF* file, const page_picture& picture) {
    std::vector<unsigned char> rows = picture.bits; // libtiff may change what it is given
    return TIFFWriteEncodedStrip(file, 0, rows.data(), static_cast<tmsize_t>(rows.size())) >= 0;
}

} // namespace

tiff_file::tiff_file(const std::string& path)
    : path_(path), error_(std::make_unique<std::string>("no memory for a TIFF")),
      file_(open_tiff(path, *error_)) {
    if (file_ == nullptr)
        fail();
}

tiff_file::~tiff_file() {
    if (file_ == nullptr)
        return;
    TIFFClose(file_);
    take_away(path_);
}

void tiff_file::add(const page_picture& picture) {
    set_form(file_, picture);
    if (!write_rows(file_, picture) || TIFFWriteDirectory(file_) == 0)
        fail();
}

void tiff_file::close() {
    if (TIFFFlush(file_) == 0)
        fail();
    TIFFClose(file_);
    file_ = nullptr;
}

void tiff_file::fail() const {
    not_written(path_, *error_);
}

} // namespace zerdix::app
