// SPDX-License-Identifier: MIT
// Letters for pictures of one bit per pixel.
#ifndef ZERDIX_PLATFORM_FONT_H
#define ZERDIX_PLATFORM_FONT_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace zerdix::platform {

// Higher characters are drawn at this height, in pixels.
constexpr std::int32_t highest_characters = 4096;

struct font_request {
    std::string face; // Windows-1252
    // Below 0: the height of the characters, which is the em. Above 0: that of the cell, ascent and
    // descent, which the characters' height is chosen to fit. 0: characters of 33 pixels, 12 points
    // of a fax page.
    std::int32_t height = 0;
    std::int32_t weight = 0; // 400 regular, 700 bold; 0 for any, which is regular

    bool operator==(const font_request&) const = default;
};

// The black pixels of a character. Rows from the top, leftmost pixel in bit 7, a set bit black, and
// zero behind the last pixel.
struct glyph {
    std::int32_t left = 0; // first column, from the pen; below 0 for one that reaches back
    std::int32_t top = 0;  // first row, from the top of the cell
    std::int32_t width = 0;
    std::int32_t height = 0; // 0 for a blank
    std::size_t stride = 0;  // bytes from row to row, a multiple of 8
    std::vector<unsigned char> rows;
};

// One face at one size. Characters are Windows-1252; one that the face lacks shows as "?".
class font {
  public:
    virtual ~font() = default;

    virtual std::int32_t character_height() const = 0;
    virtual std::int32_t cell_height() const = 0;

    // How far the pen moves to the right, at least 0.
    virtual std::int32_t advance(char character) = 0;

    // Good until the next call. A character reaches over its advance by less than the character
    // height on either side.
    virtual const glyph& shape(char character) = 0;
};

class font_port {
  public:
    // The face with that name, the one made to replace it, or else one that can stand in. Null when
    // there is no font at all. The same request gives the same object for as long as it is kept.
    virtual std::shared_ptr<font> find(const font_request& request) = 0;

  protected:
    ~font_port() = default;
};

// The one in use. Without a replacement: FreeType, on the files that fontconfig names.
font_port& fonts();

// As port_slot.h says.
font_port* replace_fonts(font_port* port);

} // namespace zerdix::platform

#endif
