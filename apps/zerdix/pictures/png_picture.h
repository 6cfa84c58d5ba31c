// SPDX-License-Identifier: MIT
// A PNG as a picture of one bit a pixel.
#ifndef ZERDIX_APP_PICTURES_PNG_PICTURE_H
#define ZERDIX_APP_PICTURES_PNG_PICTURE_H

#include <string>

#include "pictures/stored_page.h"

namespace zerdix::app {

// Reads a PNG of any kind; "-" is standard input. What is darker than the middle becomes black,
// what is transparent white. `had_shades` is set when there was something between. Throws failure
// when it can't be read, when it isn't a PNG, and when it is larger than `widest` by `longest`.
page_picture read_png(const std::string& path, std::uint32_t widest, std::uint32_t longest,
                      bool& had_shades);

} // namespace zerdix::app

#endif
