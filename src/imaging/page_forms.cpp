// SPDX-License-Identifier: MIT
#include "imaging/page_forms.h"

#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>

#include <zerdix/held_result.h>

#include "common/show_message.h"
#include "pages/mirror.h"
#include "pages/page_codec.h"
#include "platform/quit.h"

namespace zerdix::imaging {

namespace {

using pages::header_form;
using pages::page_size;

constexpr std::uint32_t white = 0xFFFFFF;
constexpr palette_entry white_entry{0xFF, 0xFF, 0xFF, 0};
constexpr palette_entry black_entry{0, 0, 0, 0};

using heap_block = std::unique_ptr<unsigned char, free_memory>;

palette_handle new_palette(palette_entry first, palette_entry second) {
    return new (std::nothrow) logical_palette{0x300, 2, {first, second}};
}

page_size size_of(const LeadBitmap& bitmap) {
    return {static_cast<std::uint32_t>(bitmap.width), static_cast<std::uint32_t>(bitmap.height)};
}

// Null when memory ran out.
heap_block stored_block(LeadBitmap& bitmap, bool invert) {
    const page_size size = size_of(bitmap);
    heap_block block{static_cast<unsigned char*>(std::malloc(size.block_bytes()))};
    if (block == nullptr)
        return block;
    const std::span rows{block.get() + pages::block_header_size,
                         size.block_bytes() - pages::block_header_size};
    const std::size_t bytes = size.row_bytes();
    unsigned char* to = rows.data();
    L_BeginRows(&bitmap);
    for (std::int32_t row = bitmap.height - 1; row >= 0; --row, to += bytes)
        L_GetRow(&bitmap, to, row, bytes);
    L_EndRows(&bitmap);
    invert ? pages::mirror_and_invert(rows) : pages::mirror_bits(rows);
    pages::whiten_padding(rows, size);
    pages::write_header(block.get(), size, header_form::stored);
    return block;
}

} // namespace

bool is_whole_block(const unsigned char* block, std::size_t bytes) {
    if (bytes < pages::block_header_size)
        return false;
    const page_size size = pages::read_header(block, header_form::machine);
    LeadBitmap unallocated;
    return L_InitBitmap(&unallocated, static_cast<std::int32_t>(size.width),
                        static_cast<std::int32_t>(size.height), 1) == 1 &&
           size.block_bytes() <= bytes;
}

int CreateEmptyBitmap(LeadBitmap* bitmap, std::int32_t width, std::int32_t height) {
    if (bitmap == nullptr)
        return 0;
    *bitmap = {};
    if (L_InitBitmap(bitmap, width, height, 1) != 1) {
        common::show_message(1256);
        return 0;
    }
    if (L_AllocateBitmap(bitmap, 1) != 1) {
        common::show_message(1246);
        return 0;
    }
    bitmap->palette = CreateWhiteFirstPalette();
    if (bitmap->palette != nullptr)
        bitmap->flags |= bitmap_has_palette;
    if (L_FillBitmap(bitmap, white) != 1)
        common::show_message(506);
    return 1;
}

int ConvertBmToLead(unsigned char* block, LeadBitmap* bitmap, int releaseBlock) {
    const heap_block owned{releaseBlock != 0 ? block : nullptr};
    if (block == nullptr || bitmap == nullptr)
        return 0;
    const page_size size = pages::read_header(block, header_form::machine);
    if (CreateEmptyBitmap(bitmap, static_cast<std::int32_t>(size.width),
                          static_cast<std::int32_t>(size.height)) != 1)
        return 0;
    const std::size_t bytes = size.row_bytes();
    const unsigned char* from = block + pages::block_header_size;
    L_BeginRows(bitmap);
    for (std::int32_t row = bitmap->height - 1; row >= 0; --row, from += bytes)
        L_PutRow(bitmap, from, row, bytes);
    L_EndRows(bitmap);
    L_InvertBitmap(bitmap);
    return 1;
}

int ConvertCompressedFaxToLead(const unsigned char* data, std::int32_t size, LeadBitmap* bitmap) {
    if (data == nullptr || size <= 0)
        return 0;
    unsigned char* expanded = nullptr;
    std::int32_t length = 0;
    if (pages::uncompress_mem_2_mem(data, size, &expanded, &length) != 0) {
        platform::quit_request().post(1);
        return 0;
    }
    heap_block block{expanded};
    const auto bytes = static_cast<std::size_t>(length);
    if (bytes < pages::block_header_size)
        return 0;
    pages::write_header(expanded, pages::read_header(expanded, header_form::expanded),
                        header_form::machine);
    if (!is_whole_block(expanded, bytes))
        return 0;
    return ConvertBmToLead(block.release(), bitmap, 1);
}

int ConvertLeadToCompressedFax(page_dat* page, LeadBitmap* bitmap, int invert) {
    if (page == nullptr || bitmap == nullptr || !holds_pixels(*bitmap))
        return 0;
    const heap_block block = stored_block(*bitmap, invert != 0);
    if (block == nullptr)
        return 0;
    unsigned char* data = nullptr;
    std::int32_t length = 0;
    const auto bytes = static_cast<std::int32_t>(size_of(*bitmap).block_bytes());
    if (pages::compress_mem_2_mem(block.get(), bytes, &data, &length) != 0)
        return 0;
    *page = {static_cast<std::uint32_t>(length), data};
    return 1;
}

int FreeLeadBitmap(LeadBitmap* bitmap) {
    if (bitmap == nullptr)
        return 0;
    if (bitmap->palette != nullptr) {
        DeleteObject(bitmap->palette);
        bitmap->palette = nullptr;
        bitmap->flags &= ~bitmap_has_palette;
    }
    if (holds_pixels(*bitmap))
        L_FreeBitmap(bitmap);
    return 1;
}

palette_handle CreateWhiteFirstPalette() {
    return new_palette(white_entry, black_entry);
}

palette_handle CreateBlackFirstPalette() {
    return new_palette(black_entry, white_entry);
}

int DeleteObject(palette_handle palette) {
    delete palette;
    return palette != nullptr ? 1 : 0;
}

} // namespace zerdix::imaging
