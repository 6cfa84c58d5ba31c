// SPDX-License-Identifier: MIT
// Fax pages as one TIFF, compressed as fax machines do (Group 4).
#ifndef ZERDIX_APP_PICTURES_TIFF_FILE_H
#define ZERDIX_APP_PICTURES_TIFF_FILE_H

#include <memory>
#include <string>

#include "pictures/stored_page.h"

struct tiff;

namespace zerdix::app {

class tiff_file {
  public:
    // Throws failure when it can't be made.
    explicit tiff_file(const std::string& path);

    // A file that wasn't closed is taken away again.
    ~tiff_file();
    tiff_file(const tiff_file&) = delete;
    tiff_file& operator=(const tiff_file&) = delete;

    // At 204 by 196 dots to the inch. Throws failure, as close() does.
    void add(const page_picture& picture);
    void close();

  private:
    [[noreturn]] void fail() const;

    std::string path_;
    std::unique_ptr<std::string> error_; // what libtiff said last, at an address that it knows
    ::tiff* file_;
};

} // namespace zerdix::app

#endif
