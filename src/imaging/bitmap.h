// SPDX-License-Identifier: MIT
// The bitmap layer: pictures of one bit per pixel, held so that they can be drawn on, turned and
// combined.
//
// The raster. Pixel memory is the rows from the top of the picture to its bottom, `stride` bytes
// each. In a row the leftmost pixel is bit 7 of the first byte. The stride is a multiple of 8 and
// the memory is aligned to 8 bytes, so that rows can be worked on in words of 64 bits. The bits
// behind the last pixel of a row, up to the stride, are padding: they are 0 whatever the colour
// order, and every operation keeps them so.
//
// Row numbers, where an operation takes one, count from the bottom: the top row is height - 1.
// Coordinates of the drawing layer (imaging/drawing.h) count from the top.
//
// Colour order says what a pixel's value means: white-first, 0 is white and 1 black; black-first
// the other way round. Rows go in and out of a bitmap unchanged, whatever its order.
//
// Operations give 1 for success and 0 for failure, 0 for a null bitmap too.
#ifndef ZERDIX_IMAGING_BITMAP_H
#define ZERDIX_IMAGING_BITMAP_H

#include <array>
#include <cstddef>
#include <cstdint>

#include "pages/page_block.h"

namespace zerdix::imaging {

// A larger picture is refused before anything is allocated for it. A full fax page is 1,728 by
// 2,286, not four million pixels.
inline constexpr std::int32_t bitmap_side_limit = 65535;
inline constexpr std::int64_t bitmap_pixel_limit = std::int64_t{64} << 20;

struct palette_entry {
    std::uint8_t red, green, blue, flags;
    bool operator==(const palette_entry&) const = default;
};

struct logical_palette {
    std::uint16_t version; // 0x300
    std::uint16_t count;
    std::array<palette_entry, 2> entries;
};
using palette_handle = logical_palette*;

enum class colour_order : std::int32_t { white_first, black_first };

constexpr std::uint32_t bitmap_has_pixels = 0x0001;
constexpr std::uint32_t bitmap_has_palette = 0x4000;

// The record belongs to the caller and is plain: `LeadBitmap b{}` holds nothing, and so does one
// that was zeroed. What it points to is released by FreeLeadBitmap (imaging/page_forms.h), never
// by the record's end.
struct LeadBitmap {
    std::int32_t width;  // pixels
    std::int32_t height; // rows
    std::uint32_t flags; // bitmap_has_pixels, bitmap_has_palette
    palette_handle palette;
    std::int32_t bits_per_pixel; // 0 or 1
    colour_order order;
    std::size_t stride;    // bytes from one row to the next
    unsigned char* pixels; // from malloc
};

// Bytes of a row without padding, as blocks have them and L_GetRow and L_PutRow take them.
constexpr std::size_t row_bytes(std::int32_t width) {
    return pages::row_bytes(static_cast<std::uint32_t>(width));
}

// Row `y` from the top. The bitmap must hold pixels and the row.
inline unsigned char* row_from_top(const LeadBitmap& bitmap, std::int32_t y) {
    return bitmap.pixels + bitmap.stride * static_cast<std::size_t>(y);
}

constexpr bool holds_pixels(const LeadBitmap& bitmap) {
    return (bitmap.flags & bitmap_has_pixels) != 0;
}

// What a pixel value of 1 means.
constexpr bool one_is_black(const LeadBitmap& bitmap) {
    return bitmap.order == colour_order::white_first;
}

// Sets a record up, white-first and without pixels; what it held before is forgotten, not
// released. 0 for a size beyond the limits or below 0, and for more than one bit per pixel.
int L_InitBitmap(LeadBitmap* bitmap, std::int32_t width, std::int32_t height, std::int32_t bits);

// Gives the record its pixel memory, all of it 0. `kind` is always 1. 0 when memory ran out, for
// a bitmap without rows, columns or bits, and for one that holds pixels already.
int L_AllocateBitmap(LeadBitmap* bitmap, int kind);

// Sets every pixel to black or white, whichever is nearer to 0xRRGGBB.
int L_FillBitmap(LeadBitmap* bitmap, std::uint32_t colour);

// Bracket a series of row reads or writes. L_BeginRows gives 0 for a bitmap without pixels.
int L_BeginRows(LeadBitmap* bitmap);
int L_EndRows(LeadBitmap* bitmap);

// Copy the bytes of a row out or in; `count` at most those of a row. Bits that come in behind the
// last pixel are dropped.
int L_GetRow(const LeadBitmap* bitmap, unsigned char* buffer, std::int32_t row, std::size_t count);
int L_PutRow(LeadBitmap* bitmap, const unsigned char* buffer, std::int32_t row, std::size_t count);

// Writes row `y` from the top whole, padding too, from the bytes of a row. The bitmap holds the
// row.
void set_row_from_top(LeadBitmap& bitmap, std::int32_t y, const unsigned char* bytes);

// Makes the picture its negative: the colour order changes, the rows stay.
int L_InvertBitmap(LeadBitmap* bitmap);

// A quarter turn to the left, which is what `angle` -90 means here: the top of the picture becomes
// its left side. So a landscape page comes to lie on upright paper with its top to the left, as the
// command line's client lays them too. With `flag` 1 the bitmap takes the turned size. 0 for
// another angle or flag, and when memory ran out: then the bitmap is as it was. (rotation.cpp)
int L_RotateBitmap(LeadBitmap* bitmap, std::int32_t angle, int flag);

// Releases the pixel memory, if there is any.
int L_FreeBitmap(LeadBitmap* bitmap);

} // namespace zerdix::imaging

#endif
