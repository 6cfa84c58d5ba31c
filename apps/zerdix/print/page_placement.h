// SPDX-License-Identifier: MIT
// Places a page of a PDF on a fax page.
//
// A fax page is 1,728 pixels wide at 204 pixels to the inch across and 196 down. A page that is
// wider than it is high is turned, its top to the left. A page that is too wide is made smaller as
// a whole, a narrower one stands in the middle. The fax page is as long as the page itself, but at
// least as long as it is wide: the library would take it for a landscape page and turn it.
#ifndef ZERDIX_APP_PRINT_PAGE_PLACEMENT_H
#define ZERDIX_APP_PRINT_PAGE_PLACEMENT_H

#include <cstdint>

#include <zerdix/page.h>

namespace zerdix::app {

constexpr int fax_width = ZX_PAGE_WIDTH;
constexpr double fax_dpi_across = ZX_DPI_ACROSS;
constexpr double fax_dpi_down = ZX_DPI_FINE;
constexpr int fax_longest_page = 32767; // rows

struct page_placement {
    bool turned;       // a quarter turn to the left
    double dpi_across; // resolution to render at
    double dpi_down;
    int left; // white pixels in front of the page
    int rows;
};

// `width` and `height` in points (1/72 inch), as the page is looked at. Throws failure for a page
// without a size and for one that is longer than a fax page can be.
page_placement place_page(double width, double height);

} // namespace zerdix::app

#endif
