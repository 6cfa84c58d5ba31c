// SPDX-License-Identifier: MIT
// A PDF of scanned pages: photographs in shades of grey, 1,654 by 2,339 pixels (A4 at 200 dpi),
// each a JPEG picture over the whole page.
//
//     scanned_pages OUTPUT.pdf COUNT
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include <jpeglib.h>

#include "apps/zerdix/sample/drawn_photograph.h"

namespace {

constexpr int width = 1654;
constexpr int height = 2339;
constexpr int quality = 80;

using zerdix::sample::grey_picture;

// Drawn at a fourth of the size each way, for the sake of time, and enlarged; with the grain of a
// scanner.
grey_picture scan() {
    constexpr int shrink = 4;
    const grey_picture small =
        zerdix::sample::draw_photograph(width / shrink + 2, height / shrink + 2);
    grey_picture large{width, height, {}};
    std::minstd_rand grain;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const auto at = static_cast<std::size_t>(y / shrink * small.width + x / shrink);
            const auto below = at + static_cast<std::size_t>(small.width);
            const int right = x % shrink, down = y % shrink;
            const int above = small.pixels[at] * (shrink - right) + small.pixels[at + 1] * right;
            const int under =
                small.pixels[below] * (shrink - right) + small.pixels[below + 1] * right;
            const int shade = (above * (shrink - down) + under * down) / (shrink * shrink) +
                              static_cast<int>(grain() % 9) - 4;
            large.pixels.push_back(static_cast<unsigned char>(std::clamp(shade, 0, 255)));
        }
    return large;
}

std::string jpeg_of(const grey_picture& picture) {
    jpeg_compress_struct info{};
    jpeg_error_mgr errors{};
    info.err = jpeg_std_error(&errors);
    jpeg_create_compress(&info);
    unsigned char* bytes = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&info, &bytes, &size);
    info.image_width = static_cast<JDIMENSION>(picture.width);
    info.image_height = static_cast<JDIMENSION>(picture.height);
    info.input_components = 1;
    info.in_color_space = JCS_GRAYSCALE;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, quality, TRUE);
    jpeg_start_compress(&info, TRUE);
    while (info.next_scanline < info.image_height) {
        auto* row = const_cast<unsigned char*>(picture.pixels.data() +
                                               static_cast<std::size_t>(info.next_scanline) *
                                                   static_cast<std::size_t>(width));
        jpeg_write_scanlines(&info, &row, 1);
    }
    jpeg_finish_compress(&info);
    std::string jpeg(reinterpret_cast<const char*>(bytes), size);
    jpeg_destroy_compress(&info);
    std::free(bytes);
    return jpeg;
}

class pdf_writer {
  public:
    explicit pdf_writer(const char* name) : file_(name, std::ios::binary) { put("%PDF-1.4\n"); }

    void add(const std::string& object) {
        offsets_.push_back(written_);
        put(std::to_string(offsets_.size()) + " 0 obj\n" + object + "\nendobj\n");
    }
    void add_stream(const std::string& entries, const std::string& data) {
        add("<< " + entries + " /Length " + std::to_string(data.size()) + " >>\nstream\n" + data +
            "\nendstream");
    }

    bool finish() {
        const std::size_t table = written_;
        const std::string count = std::to_string(offsets_.size() + 1);
        put("xref\n0 " + count + "\n0000000000 65535 f \n");
        for (const std::size_t offset : offsets_) {
            char line[24];
            std::snprintf(line, sizeof line, "%010zu 00000 n \n", offset);
            put(line);
        }
        put("trailer\n<< /Size " + count + " /Root 1 0 R >>\nstartxref\n" + std::to_string(table) +
            "\n%%EOF\n");
        file_.close();
        return !file_.fail();
    }

  private:
    void put(const std::string& text) {
        file_ << text;
        written_ += text.size();
    }

    std::ofstream file_;
    std::size_t written_ = 0;
    std::vector<std::size_t> offsets_;
};

void add_page(pdf_writer& pdf, int page, const std::string& jpeg) {
    const std::string picture = std::to_string(4 + 3 * page);
    pdf.add("<< /Type /Page /Parent 2 0 R /MediaBox [0 0 595.44 842.04] /Resources << /XObject << "
            "/Scan " +
            picture + " 0 R >> >> /Contents " + std::to_string(5 + 3 * page) + " 0 R >>");
    pdf.add_stream("/Type /XObject /Subtype /Image /Width " + std::to_string(width) + " /Height " +
                       std::to_string(height) +
                       " /ColorSpace /DeviceGray /BitsPerComponent 8 /Filter /DCTDecode",
                   jpeg);
    pdf.add_stream("", "q 595.44 0 0 842.04 0 0 cm /Scan Do Q");
}

bool write_scans(const char* name, int count) {
    pdf_writer pdf(name);
    pdf.add("<< /Type /Catalog /Pages 2 0 R >>");
    std::string kids;
    for (int page = 0; page < count; ++page)
        kids += std::to_string(3 + 3 * page) + " 0 R ";
    pdf.add("<< /Type /Pages /Count " + std::to_string(count) + " /Kids [" + kids + "] >>");
    grey_picture picture = scan();
    for (int page = 0; page < count; ++page) {
        add_page(pdf, page, jpeg_of(picture));
        // No page like another.
        std::rotate(picture.pixels.begin(), picture.pixels.begin() + 71 * width,
                    picture.pixels.end());
    }
    return pdf.finish();
}

} // namespace

int main(int argc, char** argv) {
    const int count = argc == 3 ? std::atoi(argv[2]) : 0;
    if (count < 1) {
        std::fprintf(stderr, "usage: scanned_pages OUTPUT.pdf COUNT\n");
        return 64;
    }
    return write_scans(argv[1], count) ? 0 : 1;
}
