// SPDX-License-Identifier: MIT
// The exported functions on pages (zerdix/page.h).

#include <cstdlib>
#include <cstring>
#include <new>

#include <zerdix/page.h>

#include "pages/page_picture.h"

using namespace zerdix::pages;

namespace {

static_assert(static_cast<int>(page_fault::not_compressed) == ZX_PAGE_NOT_COMPRESSED);
static_assert(static_cast<int>(page_fault::no_size) == ZX_PAGE_NO_SIZE);
static_assert(static_cast<int>(page_fault::rows_missing) == ZX_PAGE_ROWS_MISSING);

unsigned char* heap_copy(const std::vector<unsigned char>& bytes) {
    auto* copy = static_cast<unsigned char*>(std::malloc(bytes.size()));
    if (copy == nullptr)
        throw std::bad_alloc{};
    std::memcpy(copy, bytes.data(), bytes.size());
    return copy;
}

bool has_size(const zx_page& page) {
    return page.rows != nullptr && page.width > 0 && page.height > 0 &&
           page.width <= largest_side && page.height <= largest_side &&
           page.row_bytes == row_bytes(page.width);
}

std::int32_t expand(std::span<const unsigned char> stored, zx_page& page) {
    const expanded_page expanded = expand_page(stored);
    const page_size size = expanded.picture.size;
    page = {size.width, size.height, static_cast<std::uint32_t>(size.row_bytes()),
            expanded.rows_there, nullptr};
    if (expanded.fault == page_fault::none)
        page.rows = heap_copy(expanded.picture.rows);
    return static_cast<std::int32_t>(expanded.fault);
}

} // namespace

extern "C" std::int32_t ExpandPage(const void* stored, std::uint32_t size, zx_page* page) {
    if (page == nullptr)
        return ZX_PAGE_NO_SIZE;
    *page = {};
    if (stored == nullptr)
        return ZX_PAGE_NOT_COMPRESSED;
    try {
        return expand({static_cast<const unsigned char*>(stored), size}, *page);
    } catch (const std::bad_alloc&) {
        return ZX_PAGE_NO_MEMORY;
    }
}

extern "C" void FreePage(zx_page* page) {
    if (page == nullptr)
        return;
    std::free(page->rows);
    *page = {};
}

extern "C" std::int32_t CompressPage(const zx_page* page, unsigned char** stored,
                                     std::uint32_t* size) {
    *stored = nullptr;
    *size = 0;
    if (page == nullptr || !has_size(*page))
        return ZX_PAGE_NO_SIZE;
    try {
        const std::size_t bytes = std::size_t{page->row_bytes} * page->height;
        const std::vector<unsigned char> compressed =
            compress_page({{page->width, page->height}, {page->rows, page->rows + bytes}});
        *stored = heap_copy(compressed);
        *size = static_cast<std::uint32_t>(compressed.size());
        return ZX_PAGE_GOOD;
    } catch (const std::bad_alloc&) {
        return ZX_PAGE_NO_MEMORY;
    }
}

extern "C" void FreeStoredPage(unsigned char* stored) {
    std::free(stored);
}

extern "C" void WritePageHeader(unsigned char* block, std::uint32_t width, std::uint32_t height) {
    write_header(block, {width, height}, header_form::stored);
}
