// SPDX-License-Identifier: MIT
#include "alphad/sending/fax_tiff.h"

#include <ctime>
#include <memory>
#include <tiffio.h>

#include <zerdix/page.h>

#include "alphad/sending/group4.h"

namespace zerdix::alphad {

namespace {

constexpr double across = ZX_DPI_ACROSS, fine = ZX_DPI_FINE, normal = ZX_DPI_NORMAL;

struct close_tiff {
    void operator()(TIFF* file) const { TIFFClose(file); }
};

std::string tiff_time() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    char text[32];
    std::strftime(text, sizeof text, "%Y:%m:%d %H:%M:%S", &local);
    return text;
}

void set_form(TIFF* file, const coded_page& page, bool is_normal) {
    TIFFSetField(file, TIFFTAG_IMAGEWIDTH, page.size.width);
    TIFFSetField(file, TIFFTAG_IMAGELENGTH, page.size.height);
    TIFFSetField(file, TIFFTAG_BITSPERSAMPLE, 1);
    TIFFSetField(file, TIFFTAG_SAMPLESPERPIXEL, 1);
    TIFFSetField(file, TIFFTAG_COMPRESSION, COMPRESSION_CCITTFAX4);
    TIFFSetField(file, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISWHITE);
    TIFFSetField(file, TIFFTAG_FILLORDER, FILLORDER_MSB2LSB);
    TIFFSetField(file, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(file, TIFFTAG_ROWSPERSTRIP, page.size.height);
    TIFFSetField(file, TIFFTAG_RESOLUTIONUNIT, RESUNIT_INCH);
    TIFFSetField(file, TIFFTAG_XRESOLUTION, across);
    TIFFSetField(file, TIFFTAG_YRESOLUTION, is_normal ? normal : fine);
}

void set_labels(TIFF* file, const spooled_picture& picture, std::size_t index) {
    TIFFSetField(file, TIFFTAG_SUBFILETYPE, FILETYPE_PAGE);
    TIFFSetField(file, TIFFTAG_PAGENUMBER, static_cast<int>(index),
                 static_cast<int>(picture.pages.size()));
    TIFFSetField(file, TIFFTAG_DOCUMENTNAME, picture.title.c_str());
    TIFFSetField(file, TIFFTAG_IMAGEDESCRIPTION, picture.description.c_str());
    TIFFSetField(file, TIFFTAG_DATETIME, tiff_time().c_str());
    TIFFSetField(file, TIFFTAG_SOFTWARE, "alphad");
}

// The library reads the code and doesn't change it.
bool write_code(TIFF* file, const coded_page& page) {
    auto* code = const_cast<char*>(page.code.data());
    return TIFFWriteRawStrip(file, 0, code, static_cast<tmsize_t>(page.code.size())) >= 0;
}

} // namespace

coded_page coded(const page_picture& page) {
    return {page.size, group4_code(page)};
}

bool write_fax_tiff(const std::filesystem::path& file_name, const spooled_picture& picture) {
    const std::unique_ptr<TIFF, close_tiff> file{TIFFOpen(file_name.c_str(), "w")};
    if (!file)
        return false;
    for (std::size_t i = 0; i < picture.pages.size(); ++i) {
        set_form(file.get(), picture.pages[i], picture.normal);
        set_labels(file.get(), picture, i);
        if (!write_code(file.get(), picture.pages[i]) || !TIFFWriteDirectory(file.get()))
            return false;
    }
    return TIFFFlush(file.get()) == 1;
}

} // namespace zerdix::alphad
