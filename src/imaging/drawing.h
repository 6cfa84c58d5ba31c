// SPDX-License-Identifier: MIT
// Drawing on a bitmap: rectangles of other bitmaps, and text.
//
// Coordinates are pixels, (0, 0) is the top left corner, y grows downwards. Any coordinates are
// allowed: what lies outside of a bitmap is neither drawn nor read.
//
// Black and white are those of each bitmap's colour order. Text is black on what is there. A copy
// keeps its colours between bitmaps of different order; exclusive or works on the pixel values as
// they stand, so in white-first order a pixel becomes black where exactly one was.
#ifndef ZERDIX_IMAGING_DRAWING_H
#define ZERDIX_IMAGING_DRAWING_H

#include <cstdint>
#include <memory>
#include <string_view>

#include "imaging/bitmap.h"
#include "platform/font.h"

namespace zerdix::imaging {

enum raster_operation : std::uint32_t {
    BLACKNESS = 0x000042, // pixel value 0, which is white in white-first order; needs no source
    SRCINVERT = 0x660046, // exclusive or
    SRCCOPY = 0xCC0020,
};

struct rectangle {
    std::int32_t left;
    std::int32_t top;
    std::int32_t right; // behind the last column
    std::int32_t bottom;
};

// Draws on the bitmap's own pixels. Record and pixels must stay for as long as the context is used.
// Results are 1 for success and 0 for failure; a rectangle of which nothing is visible is a
// success.
class drawing_context {
  public:
    explicit drawing_context(LeadBitmap& bitmap) : bitmap_(bitmap) {}

    // The font of the text from here on; gives the one that it replaces. Null for none.
    std::shared_ptr<platform::font> SelectObject(std::shared_ptr<platform::font> font);

    // Combines a rectangle with the one of the same size at (from_x, from_y) of `source`, where
    // both are on their bitmaps. 0 for an unknown operation, without the source that it needs, and
    // for a source on the same pixels.
    int BitBlt(std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height,
               const drawing_context* source, std::int32_t from_x, std::int32_t from_y,
               raster_operation operation);

    // Combines a rectangle with the whole of `source`, stretched to its size (imaging/stretch.h):
    // where rows or columns fall away, what is black in the source's colour order is kept. 0 as
    // above, for a size that a bitmap can't have, and when memory ran out.
    int StretchBlt(std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height,
                   const drawing_context* source, raster_operation operation);

    // One line of text, its cell's top left corner at (x, y). 0 without a font.
    int TextOutA(std::int32_t x, std::int32_t y, std::string_view text);

    // Text from the top left corner of a rectangle, nothing of it outside. A line feed begins a new
    // line, nothing else does. 0 without a font.
    int DrawTextA(std::string_view text, const rectangle& bounds);

  private:
    void draw_line(std::int64_t x, std::int64_t y, std::string_view text, const rectangle& clip);
    void draw_glyph(std::int64_t x, std::int64_t y, const platform::glyph& shape,
                    const rectangle& clip);

    LeadBitmap& bitmap_;
    std::shared_ptr<platform::font> font_;
};

// Null for a bitmap without pixels, and when memory ran out. The context's end is its release.
std::unique_ptr<drawing_context> L_CreateLeadDC(LeadBitmap* bitmap);

} // namespace zerdix::imaging

#endif
