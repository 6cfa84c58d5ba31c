// SPDX-License-Identifier: MIT
// Pages as a user names them: "3", "1-3", "2-", "1-3,7".
#ifndef ZERDIX_APP_ARGUMENTS_PAGE_RANGE_H
#define ZERDIX_APP_ARGUMENTS_PAGE_RANGE_H

#include <string>
#include <vector>

namespace zerdix::app {

struct page_range {
    int first;
    int last; // 0: to the end of the document
};

// All pages for an empty text. Throws failure for a text that names none.
std::vector<page_range> read_page_ranges(const std::string& typed);

// Closes an open range. Throws failure when the document, `name`, hasn't these pages.
page_range within(page_range range, int pages, const std::string& name);

} // namespace zerdix::app

#endif
