// SPDX-License-Identifier: MIT
#include "pictures/stored_page.h"

#include <memory>
#include <string>

#include <zerdix/page.h>

#include "output/failure.h"

namespace zerdix::app {

namespace {

using owned_page = std::unique_ptr<zx_page, decltype(&FreePage)>;

[[noreturn]] void damaged(std::int32_t fault, const zx_page& page) {
    switch (fault) {
    case ZX_PAGE_NO_SIZE:
        throw failure(exit_bad_data, "is damaged: it has no sensible size");
    case ZX_PAGE_ROWS_MISSING:
        throw failure(exit_bad_data, "is damaged: " + std::to_string(page.rows_there) + " of " +
                                         std::to_string(page.height) + " rows are left of it");
    case ZX_PAGE_NO_MEMORY:
        throw failure(exit_internal, "no memory for a picture");
    default:
        throw failure(exit_bad_data, "is damaged: it can't be expanded");
    }
}

} // namespace

page_picture expand_page(const unsigned char* compressed, std::size_t size) {
    zx_page page{};
    const std::int32_t fault = ExpandPage(compressed, static_cast<std::uint32_t>(size), &page);
    const owned_page owner(&page, &FreePage);
    if (fault != ZX_PAGE_GOOD)
        damaged(fault, page);
    return {page.width,
            page.height,
            {page.rows, page.rows + std::size_t{page.row_bytes} * page.height}};
}

std::vector<unsigned char> store_page(const page_picture& picture) {
    std::vector<unsigned char> rows = picture.bits;
    const zx_page page{picture.width, picture.rows, static_cast<std::uint32_t>(picture.row_bytes()),
                       picture.rows, rows.data()};
    unsigned char* stored = nullptr;
    std::uint32_t size = 0;
    const std::int32_t fault = CompressPage(&page, &stored, &size);
    const std::unique_ptr<unsigned char, decltype(&FreeStoredPage)> owner(stored, &FreeStoredPage);
    if (fault != ZX_PAGE_GOOD)
        damaged(fault, page);
    return {stored, stored + size};
}

} // namespace zerdix::app
