#include "imaging/page_forms.h"

#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>

#include "common/show_message.h"
#include "imaging/mirror.h"
#include "imaging/page_codec.h"
#include "platform/quit.h"

namespace zerdix::imaging {

namespace {

constexpr std::uint32_t white = 0xFFFFFF;
constexpr palette_entry white_entry{0xFF, 0xFF, 0xFF, 0};
constexpr palette_entry black_entry{0, 0, 0, 0};

struct freed {
    void operator()(unsigned char* bytes) const { std::free(bytes); }
};
using heap_block = std::unique_ptr<unsigned char, freed>;

palette_handle new_palette(palette_entry first, palette_entry second) {
    return new (std::nothrow) logical_palette{0x300, 2, {first, second}};
}

// The bits behind the last pixel of each stored row are white.
void whiten_padding(unsigned char* rows, const LeadBitmap& bitmap) {
    if (bitmap.width % 8 == 0)
        return;
    const std::size_t bytes = row_bytes(bitmap.width);
    for (std::int32_t y = 0; y < bitmap.height; ++y, rows += bytes)
        rows[bytes - 1] &= static_cast<unsigned char>((1 << bitmap.width % 8) - 1);
}

// Null when memory ran out.
heap_block stored_block(LeadBitmap& bitmap, bool invert) {
    const block_size size{bitmap.width, bitmap.height};
    heap_block block{static_cast<unsigned char*>(std::malloc(size.bytes()))};
    if (block == nullptr)
        return block;
    const std::span rows{block.get() + block_header_size, size.bytes() - block_header_size};
    const std::size_t bytes = row_bytes(size.width);
    unsigned char* to = rows.data();
    L_BeginRows(&bitmap);
    for (std::int32_t row = size.height - 1; row >= 0; --row, to += bytes)
        L_GetRow(&bitmap, to, row, bytes);
    L_EndRows(&bitmap);
    invert ? mirror_and_invert(rows) : mirror_bits(rows);
    whiten_padding(rows.data(), bitmap);
    write_block_size(block.get(), size);
    convert_header(block.get(), SwapLong);
    return block;
}

} // namespace

block_size read_block_size(const unsigned char* block) {
    block_size size;
    std::memcpy(&size.width, block, 4);
    std::memcpy(&size.height, block + 4, 4);
    return size;
}

void write_block_size(unsigned char* block, block_size size) {
    std::memcpy(block, &size.width, 4);
    std::memcpy(block + 4, &size.height, 4);
}

void convert_header(unsigned char* block, std::uint32_t (*turn)(std::uint32_t)) {
    std::uint32_t words[2];
    std::memcpy(words, block, sizeof words);
    for (std::uint32_t& word : words)
        word = turn(word);
    std::memcpy(block, words, sizeof words);
}

bool is_whole_block(const unsigned char* block, std::size_t bytes) {
    if (bytes < block_header_size)
        return false;
    const block_size size = read_block_size(block);
    LeadBitmap unallocated;
    return L_InitBitmap(&unallocated, size.width, size.height, 1) == 1 && size.bytes() <= bytes;
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
    const block_size size = read_block_size(block);
    if (CreateEmptyBitmap(bitmap, size.width, size.height) != 1)
        return 0;
    const std::size_t bytes = row_bytes(size.width);
    const unsigned char* from = block + block_header_size;
    L_BeginRows(bitmap);
    for (std::int32_t row = size.height - 1; row >= 0; --row, from += bytes)
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
    if (uncompress_mem_2_mem(data, size, &expanded, &length) != 0) {
        platform::quit_request().post(1);
        return 0;
    }
    heap_block block{expanded};
    const auto bytes = static_cast<std::size_t>(length);
    if (bytes < block_header_size)
        return 0;
    convert_header(expanded, MirrorLong);
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
    const block_size size{bitmap->width, bitmap->height};
    unsigned char* data = nullptr;
    std::int32_t length = 0;
    if (compress_mem_2_mem(block.get(), static_cast<std::int32_t>(size.bytes()), &data, &length) !=
        0)
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
    // Pixels have no second form here that a context could hold: free always clears the flag.
    if (holds_pixels(*bitmap))
        L_FreeBitmap(bitmap);
    return 1;
}

std::uint32_t SwapLong(std::uint32_t value) {
    return __builtin_bswap32(value);
}

std::uint32_t MirrorLong(std::uint32_t value) {
    unsigned char bytes[sizeof value];
    std::memcpy(bytes, &value, sizeof value);
    mirror_bits(bytes);
    std::memcpy(&value, bytes, sizeof value);
    return SwapLong(value);
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
