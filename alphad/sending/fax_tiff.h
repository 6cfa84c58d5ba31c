// SPDX-License-Identifier: MIT
// The pages of a fax as a multi-page TIFF file in Group 4 coding.
#ifndef ZERDIX_ALPHAD_SENDING_FAX_TIFF_H
#define ZERDIX_ALPHAD_SENDING_FAX_TIFF_H

#include <filesystem>
#include <string>
#include <vector>

#include "alphad/sending/fax_page.h"

namespace zerdix::alphad {

// A page as it stands in the file.
struct coded_page {
    zerdix::pages::page_size size;
    std::string code;
};

coded_page coded(const page_picture& page);

struct spooled_picture {
    std::vector<coded_page> pages;
    std::string title;       // UTF-8
    std::string description; // UTF-8
    bool normal;             // 98 rows to the inch instead of 196
};

// False when the file can't be written whole.
bool write_fax_tiff(const std::filesystem::path& file_name, const spooled_picture& picture);

} // namespace zerdix::alphad

#endif
