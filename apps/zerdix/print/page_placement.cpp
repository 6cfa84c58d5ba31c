// SPDX-License-Identifier: MIT
#include "print/page_placement.h"

#include <algorithm>
#include <cmath>

#include "output/failure.h"

namespace zerdix::app {

page_placement place_page(double width, double height) {
    if (!(width > 0) || !(height > 0))
        throw failure(exit_bad_data, "it has no size");
    page_placement place{};
    place.turned = width > height;
    if (place.turned)
        std::swap(width, height);
    const double across = width / 72 * fax_dpi_across;
    const double shrink = std::min(1.0, fax_width / across);
    const double rows = std::ceil(height / 72 * fax_dpi_down * shrink - 0.01);
    if (!(rows <= fax_longest_page))
        throw failure(exit_bad_data, "it is too long for a fax page");
    place.dpi_across = fax_dpi_across * shrink;
    place.dpi_down = fax_dpi_down * shrink;
    place.left = static_cast<int>((fax_width - std::lround(across * shrink)) / 2);
    place.rows = std::max(fax_width, static_cast<int>(rows));
    return place;
}

} // namespace zerdix::app
