#include "alphad/spool.h"

#include <cctype>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <memory>
#include <tiffio.h>

namespace zerdix::alphad {

namespace {

constexpr double across = 204, fine = 196, normal = 98; // dots per inch

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

void set_form(TIFF* file, const page_picture& page, bool is_normal) {
    TIFFSetField(file, TIFFTAG_IMAGEWIDTH, static_cast<std::uint32_t>(page.width));
    TIFFSetField(file, TIFFTAG_IMAGELENGTH, static_cast<std::uint32_t>(page.height));
    TIFFSetField(file, TIFFTAG_BITSPERSAMPLE, 1);
    TIFFSetField(file, TIFFTAG_SAMPLESPERPIXEL, 1);
    TIFFSetField(file, TIFFTAG_COMPRESSION, COMPRESSION_CCITTFAX4);
    TIFFSetField(file, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISWHITE);
    TIFFSetField(file, TIFFTAG_FILLORDER, FILLORDER_MSB2LSB);
    TIFFSetField(file, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(file, TIFFTAG_ROWSPERSTRIP, static_cast<std::uint32_t>(page.height));
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

// The encoder reads the rows and doesn't change them.
bool write_rows(TIFF* file, const page_picture& page) {
    auto* rows = const_cast<unsigned char*>(page.rows.data());
    return TIFFWriteEncodedStrip(file, 0, rows, static_cast<tmsize_t>(page.rows.size())) >= 0;
}

bool write_file(const char* path, const spooled_picture& picture) {
    const std::unique_ptr<TIFF, close_tiff> file{TIFFOpen(path, "w")};
    if (!file)
        return false;
    for (std::size_t i = 0; i < picture.pages.size(); ++i) {
        set_form(file.get(), picture.pages[i], picture.normal);
        set_labels(file.get(), picture, i);
        if (!write_rows(file.get(), picture.pages[i]) || !TIFFWriteDirectory(file.get()))
            return false;
    }
    return TIFFFlush(file.get()) == 1;
}

} // namespace

spool::spool(std::filesystem::path folder) : folder_(std::move(folder)) {
    std::error_code error;
    std::filesystem::create_directories(folder_, error);
    if (error)
        throw spool_error("the spool folder " + folder_.string() +
                          " can't be made: " + error.message());
}

std::filesystem::path spool::part_of(const std::string& name) const {
    return folder_ / ("." + name + ".part");
}

void spool::finish(const std::string& name, bool written) const {
    std::error_code error;
    if (written)
        std::filesystem::rename(part_of(name), folder_ / name, error);
    if (written && !error)
        return;
    const std::string reason = error ? ": " + error.message() : "";
    std::filesystem::remove(part_of(name), error);
    throw spool_error("the file " + (folder_ / name).string() + " can't be written" + reason);
}

void spool::write(const std::string& name, const spooled_picture& picture) const {
    finish(name, write_file(part_of(name).c_str(), picture));
}

void spool::write_text(const std::string& name, std::string_view text) const {
    std::ofstream file{part_of(name), std::ios::binary};
    file << text;
    file.close();
    finish(name, !file.fail());
}

void spool::remove(const std::string& name) const {
    std::error_code error;
    if (!name.empty())
        std::filesystem::remove(folder_ / name, error);
}

std::string spool::file_name(std::int32_t id, std::string_view text, std::string_view ending) {
    char number[16];
    std::snprintf(number, sizeof number, "%06d", id);
    std::string name = number;
    name += '-';
    for (const char c : text)
        if (std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '+')
            name += c;
    return name.append(ending);
}

} // namespace zerdix::alphad
