// SPDX-License-Identifier: MIT
#include "pages/page_picture.h"

#include <cstdlib>
#include <memory>
#include <new>

#include "pages/mirror.h"
#include "pages/page_codec.h"

namespace zerdix::pages {

namespace {

struct freed {
    void operator()(unsigned char* bytes) const { std::free(bytes); }
};
using heap_block = std::unique_ptr<unsigned char, freed>;

bool is_side(std::uint32_t pixels) {
    return pixels > 0 && pixels <= largest_side;
}

expanded_page take_rows(std::span<const unsigned char> block) {
    const page_size size = read_header(block.data(), header_form::expanded);
    if (!is_side(size.width) || !is_side(size.height))
        return {page_fault::no_size, {size, {}}, 0};
    const auto rows = block.subspan(block_header_size);
    if (block.size() < size.block_bytes())
        return {page_fault::rows_missing,
                {size, {}},
                static_cast<std::uint32_t>(rows.size() / size.row_bytes())};
    const auto end = rows.begin() + static_cast<std::ptrdiff_t>(size.height * size.row_bytes());
    return {page_fault::none, {size, {rows.begin(), end}}, size.height};
}

} // namespace

expanded_page expand_page(std::span<const unsigned char> compressed) {
    unsigned char* expanded = nullptr;
    std::int32_t length = 0;
    const std::int32_t rc = uncompress_mem_2_mem(
        compressed.data(), static_cast<std::int32_t>(compressed.size()), &expanded, &length);
    const heap_block holder{expanded};
    if (rc != 0 || expanded == nullptr || length < static_cast<std::int32_t>(block_header_size))
        return {page_fault::not_compressed, {}, 0};
    return take_rows({expanded, static_cast<std::size_t>(length)});
}

std::vector<unsigned char> compress_page(const page_picture& picture) {
    std::vector<unsigned char> block(block_header_size + picture.rows.size());
    write_header(block.data(), picture.size, header_form::stored);
    const std::span rows = std::span{block}.subspan(block_header_size);
    mirror_rows({picture.rows.data(), 0, rows.size(), 1}, rows.data(), false);
    whiten_padding(rows, picture.size);
    unsigned char* compressed = nullptr;
    std::int32_t length = 0;
    const std::int32_t rc = compress_mem_2_mem(
        block.data(), static_cast<std::int32_t>(block.size()), &compressed, &length);
    const heap_block holder{compressed};
    if (rc != 0)
        throw std::bad_alloc{};
    return {compressed, compressed + length};
}

} // namespace zerdix::pages
