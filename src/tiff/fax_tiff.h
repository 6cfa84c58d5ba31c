// SPDX-License-Identifier: MIT
// Fax pages as a TIFF file with a picture for each page, compressed as fax machines do (Group 4).
#ifndef ZERDIX_TIFF_FAX_TIFF_H
#define ZERDIX_TIFF_FAX_TIFF_H

#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>

#include <zerdix/page.h>

struct tiff;

namespace zerdix::tiff {

// Holds the reason, without the file's name.
class fax_tiff_error : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// What is written into each page; an empty text isn't. UTF-8.
struct fax_tiff_texts {
    std::string title, description, software;
    bool dated = false; // with the time of writing
};

// The rows as those of zx_page.
struct fax_tiff_page {
    std::uint32_t width, height;
    std::span<const unsigned char> rows;
    int dpi_down = ZX_DPI_FINE;
};

// A page as it stands in the file.
struct coded_page {
    std::uint32_t width, height;
    std::string code;
};

// Takes the time that a page needs; adding the outcome to a file doesn't.
coded_page coded(const fax_tiff_page& page);

class fax_tiff {
  public:
    // `pages` is how many there will be. Throws fax_tiff_error, as the others do.
    fax_tiff(const std::string& path, int pages, fax_tiff_texts texts = {});

    // A file that wasn't closed is taken away again.
    ~fax_tiff();
    fax_tiff(const fax_tiff&) = delete;
    fax_tiff& operator=(const fax_tiff&) = delete;

    void add(const fax_tiff_page& page) { add(coded(page), page.dpi_down); }
    void add(const coded_page& page, int dpi_down);
    void close();

  private:
    void set_form(const coded_page& page, int dpi_down);
    void set_texts();
    void require(bool done) const;

    std::string path_;
    int pages_;
    int written_ = 0;
    fax_tiff_texts texts_;
    std::string error_; // what libtiff said last
    ::tiff* file_;
};

} // namespace zerdix::tiff

#endif
