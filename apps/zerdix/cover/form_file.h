// SPDX-License-Identifier: MIT
// Reads the files that hold the cover page and the letterhead of a site.
#ifndef ZERDIX_APP_COVER_FORM_FILE_H
#define ZERDIX_APP_COVER_FORM_FILE_H

#include <string>

#include "pictures/stored_page.h"

namespace zerdix::app {

// A whole fax page: the first one of a PDF (by its ending, .pdf), or a PNG pixel by pixel at the
// top left of a page of A4. Notes tell what isn't taken. Throws failure.
page_picture read_form(const std::string& path);

// The commands of a cover template in Windows-1252, a line feed behind each line. Throws failure
// when no line begins them, since such a text draws nothing.
std::string read_commands(const std::string& path);

} // namespace zerdix::app

#endif
