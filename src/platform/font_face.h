// SPDX-License-Identifier: MIT
// A face that FreeType has opened, and characters of it rendered for one bit per pixel.
#ifndef ZERDIX_PLATFORM_FONT_FACE_H
#define ZERDIX_PLATFORM_FONT_FACE_H

#include <cstdint>
#include <memory>

#include <ft2build.h>
#include FT_FREETYPE_H

#include "platform/font.h"
#include "platform/font_file.h"

namespace zerdix::platform {

class font_face {
  public:
    // Null when the file isn't a font that can be scaled.
    static std::shared_ptr<font_face> open(const font_file& file);

    // The whole numbers of pixels that characters of `pixels` take above and below the baseline.
    std::int32_t ascent(std::int32_t pixels) const { return scaled(ascent_, pixels); }
    std::int32_t descent(std::int32_t pixels) const { return scaled(descent_, pixels); }

    // The height of the characters whose cell comes nearest to `cell` from below; at least 1.
    std::int32_t fitting(std::int32_t cell) const;

    std::int32_t advance(char character, std::int32_t pixels);
    glyph render(char character, std::int32_t pixels);

  private:
    using library_handle = std::shared_ptr<FT_LibraryRec_>;
    using face_handle = std::unique_ptr<FT_FaceRec_, FT_Error (*)(FT_Face)>;

    font_face(library_handle library, face_handle face);
    std::int32_t scaled(std::int32_t units, std::int32_t pixels) const;
    FT_UInt index_of(char character) const;
    bool load(char character, std::int32_t pixels);

    library_handle library_; // outlives the face
    face_handle face_;
    std::int32_t ascent_; // font units
    std::int32_t descent_;
    std::int32_t pixels_ = 0; // the size that the face is set to
};

} // namespace zerdix::platform

#endif
