// SPDX-License-Identifier: MIT
// Paper to draw on, for the demo data's cover page, letterhead and signature.
#ifndef ZERDIX_ALPHAD_DEMO_DEMO_PAPER_H
#define ZERDIX_ALPHAD_DEMO_DEMO_PAPER_H

#include <cstdint>
#include <string>
#include <string_view>

#include "alphad/sending/fax_page.h"
#include "platform/font.h"

namespace zerdix::alphad {

// Coordinates are pixels from the top left corner; what lies outside isn't drawn.
class demo_paper {
  public:
    // All white. Throws std::bad_alloc.
    demo_paper(std::uint32_t width, std::uint32_t height);

    void box(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height);
    void disc(double x, double y, double radius);

    // One line in the face "Arial", its cell's top left corner at (x, y). Nothing on a machine
    // without fonts.
    enum class weight { regular = 400, bold = 700 };
    void text(std::int32_t x, std::int32_t y, std::int32_t height, weight how,
              std::string_view utf8);

    // The picture as the server keeps it. Throws std::bad_alloc.
    std::string stored() const;

  private:
    void row(std::int32_t y, std::int32_t left, std::int32_t right);
    void letter(const platform::glyph& shape, std::int32_t x, std::int32_t y);

    page_picture page_;
};

} // namespace zerdix::alphad

#endif
