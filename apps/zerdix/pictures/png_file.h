// SPDX-License-Identifier: MIT
// A fax page as a PNG of one bit a pixel.
#ifndef ZERDIX_APP_PICTURES_PNG_FILE_H
#define ZERDIX_APP_PICTURES_PNG_FILE_H

#include <string>

#include "pictures/stored_page.h"

namespace zerdix::app {

// Writes it with a resolution of 204 by 196 dots to the inch. "-" is standard output. A file that
// couldn't be written whole is taken away again. Throws failure.
void write_png(const std::string& path, const page_picture& picture);

} // namespace zerdix::app

#endif
