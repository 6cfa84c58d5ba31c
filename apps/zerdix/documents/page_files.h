// SPDX-License-Identifier: MIT
// Pages of a document, written to files.
#ifndef ZERDIX_APP_DOCUMENTS_PAGE_FILES_H
#define ZERDIX_APP_DOCUMENTS_PAGE_FILES_H

#include <string>
#include <vector>

#include "arguments/page_range.h"
#include "documents/document_name.h"

namespace zerdix::app {

// The form follows the ending of `path`: .tif or .tiff, .txt, else PNG. A PNG holds one page, so
// for several the path needs a "%d", which becomes the page's number; "%3d" has it at least three
// digits wide. "-" is a PNG on standard output. Throws failure for what can't be told apart from
// the path alone.
void check_page_path(const std::string& path, const std::vector<page_range>& pages);

// The paths that were written, in order. A number of pages of the document, all of which exist.
// Throws failure; what was whole by then stays.
std::vector<std::string> write_pages(user_session& user, const document& which,
                                     const std::vector<int>& pages, const std::string& path);

} // namespace zerdix::app

#endif
