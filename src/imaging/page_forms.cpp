// SPDX-License-Identifier: MIT
#include "imaging/page_forms.h"

#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>

#include <zerdix/held_result.h>

#include "common/show_message.h"
#include "imaging/owned_bitmap.h"
#include "pages/driver_form.h"
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

// The rows of a bitmap from the top. Without padding they are one long row.
pages::row_walk rows_of(const LeadBitmap& bitmap) {
    const std::size_t bytes = row_bytes(bitmap.width);
    const auto count = static_cast<std::size_t>(bitmap.height);
    if (bytes == bitmap.stride)
        return {bitmap.pixels, 0, bytes * count, 1};
    return {bitmap.pixels, static_cast<std::ptrdiff_t>(bitmap.stride), bytes, count};
}

// Null when memory ran out.
heap_block stored_block(const LeadBitmap& bitmap, bool invert) {
    const page_size size = size_of(bitmap);
    heap_block block{static_cast<unsigned char*>(std::malloc(size.block_bytes()))};
    if (block == nullptr)
        return block;
    const std::span rows{block.get() + pages::block_header_size,
                         size.block_bytes() - pages::block_header_size};
    pages::mirror_rows(rows_of(bitmap), rows.data(), invert);
    pages::whiten_padding(rows, size);
    pages::write_header(block.get(), size, header_form::stored);
    return block;
}

// A white-first bitmap whose pixels are still to be written.
bool create_unset(LeadBitmap& bitmap, std::int32_t width, std::int32_t height) {
    bitmap = {};
    if (L_InitBitmap(&bitmap, width, height, 1) != 1) {
        common::show_message(1256);
        return false;
    }
    if (!allocate_unset(bitmap, width, height)) {
        common::show_message(1246);
        return false;
    }
    bitmap.palette = CreateWhiteFirstPalette();
    if (bitmap.palette != nullptr)
        bitmap.flags |= bitmap_has_palette;
    return true;
}

// A black-first bitmap of these rows, the one at the top first.
bool create_from_rows(LeadBitmap& bitmap, page_size size, pages::row_walk rows) {
    if (!create_unset(bitmap, static_cast<std::int32_t>(size.width),
                      static_cast<std::int32_t>(size.height)))
        return false;
    for (std::int32_t y = 0; y < bitmap.height; ++y, rows.first += rows.step)
        set_row_from_top(bitmap, y, rows.first);
    L_InvertBitmap(&bitmap);
    return true;
}

bool is_within_limits(page_size size) {
    LeadBitmap unallocated;
    return L_InitBitmap(&unallocated, static_cast<std::int32_t>(size.width),
                        static_cast<std::int32_t>(size.height), 1) == 1;
}

} // namespace

int CreateEmptyBitmap(LeadBitmap* bitmap, std::int32_t width, std::int32_t height) {
    if (bitmap == nullptr || !create_unset(*bitmap, width, height))
        return 0;
    if (L_FillBitmap(bitmap, white) != 1)
        common::show_message(506);
    return 1;
}

int ConvertBmToLead(unsigned char* block, LeadBitmap* bitmap, int releaseBlock) {
    const heap_block owned{releaseBlock != 0 ? block : nullptr};
    if (block == nullptr || bitmap == nullptr)
        return 0;
    const page_size size = pages::read_header(block, header_form::machine);
    const pages::row_walk rows{block + pages::block_header_size,
                               static_cast<std::ptrdiff_t>(size.row_bytes()), size.row_bytes(),
                               size.height};
    return create_from_rows(*bitmap, size, rows) ? 1 : 0;
}

bool bitmap_of_driver_block(std::span<const unsigned char> block, LeadBitmap& bitmap) {
    if (block.size() < pages::block_header_size)
        return false;
    const page_size size = pages::read_header(block.data(), header_form::stored);
    return is_within_limits(size) && size.block_bytes() <= block.size() &&
           create_from_rows(bitmap, size, pages::rows_from_top(block.data()));
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
    const page_size stored = pages::read_header(expanded, header_form::expanded);
    if (!is_within_limits(stored) || stored.block_bytes() > bytes)
        return 0;
    pages::write_header(expanded, stored, header_form::machine);
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
