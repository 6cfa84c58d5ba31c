// SPDX-License-Identifier: MIT
#include "platform/font_face.h"

#include <algorithm>
#include <cstring>
#include <string>

#include FT_TRUETYPE_TABLES_H

#include "platform/encoding.h"

namespace zerdix::platform {
namespace {

// Hinted for pictures that know black and white only; shades that are cut off afterwards would
// leave stems of uneven width.
constexpr FT_Int32 load_flags = FT_LOAD_TARGET_MONO;

std::shared_ptr<FT_LibraryRec_> open_library() {
    FT_Library library = nullptr;
    if (FT_Init_FreeType(&library) != 0)
        return nullptr;
    return {library, [](FT_Library opened) { FT_Done_FreeType(opened); }};
}

// The one code point of a text in UTF-8, of up to three bytes, which is all that Windows-1252 has.
FT_ULong code_point(const std::string& utf8) {
    FT_ULong code = static_cast<unsigned char>(utf8[0]);
    if (code >= 0x80)
        code &= utf8.size() == 2 ? 0x1F : 0x0F;
    for (std::size_t i = 1; i < utf8.size(); ++i)
        code = code << 6 | (static_cast<unsigned char>(utf8[i]) & 0x3F);
    return code;
}

void copy_rows(const FT_Bitmap& from, glyph& to) {
    to.width = static_cast<std::int32_t>(from.width);
    to.height = static_cast<std::int32_t>(from.rows);
    to.stride = std::size_t{8} * ((from.width + 63) / 64);
    to.rows.assign(to.stride * from.rows, 0);
    for (std::size_t y = 0; y < from.rows; ++y)
        std::memcpy(to.rows.data() + to.stride * y,
                    from.buffer + from.pitch * static_cast<std::ptrdiff_t>(y),
                    (from.width + 7) / 8);
}

} // namespace

std::shared_ptr<font_face> font_face::open(const font_file& file) {
    static const library_handle library = open_library();
    FT_Face face = nullptr;
    if (library == nullptr || FT_New_Face(library.get(), file.path.c_str(), file.index, &face) != 0)
        return nullptr;
    face_handle handle{face, &FT_Done_Face};
    if (!FT_IS_SCALABLE(face) || face->units_per_EM == 0)
        return nullptr;
    return std::shared_ptr<font_face>{new font_face{library, std::move(handle)}};
}

// The cell is what the face's maker set aside for Windows, where there is such an entry.
font_face::font_face(library_handle library, face_handle face)
    : library_(std::move(library)), face_(std::move(face)), ascent_(face_->ascender),
      descent_(-face_->descender) {
    const auto* os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face_.get(), FT_SFNT_OS2));
    if (os2 != nullptr && os2->version != 0xFFFF && os2->usWinAscent != 0) {
        ascent_ = os2->usWinAscent;
        descent_ = os2->usWinDescent;
    }
}

// Rounded up: hinting moves the edges of letters to whole pixels.
std::int32_t font_face::scaled(std::int32_t units, std::int32_t pixels) const {
    const std::int64_t em = face_->units_per_EM;
    return static_cast<std::int32_t>((std::int64_t{units} * pixels + em - 1) / em);
}

std::int32_t font_face::fitting(std::int32_t cell) const {
    const std::int64_t units = std::max(1, ascent_ + descent_);
    const std::int64_t most = std::int64_t{cell} * face_->units_per_EM / units;
    auto pixels = static_cast<std::int32_t>(std::min<std::int64_t>(most, highest_characters));
    while (pixels > 1 && ascent(pixels) + descent(pixels) > cell)
        --pixels;
    return pixels;
}

FT_UInt font_face::index_of(char character) const {
    // Control characters move the pen like a blank.
    if (static_cast<unsigned char>(character) < ' ')
        character = ' ';
    const FT_UInt index =
        FT_Get_Char_Index(face_.get(), code_point(cp1252_to_utf8({&character, 1})));
    return index != 0 ? index : FT_Get_Char_Index(face_.get(), '?');
}

bool font_face::load(char character, std::int32_t pixels) {
    if (pixels != pixels_) {
        const auto size = static_cast<FT_UInt>(pixels);
        pixels_ = FT_Set_Pixel_Sizes(face_.get(), size, size) == 0 ? pixels : 0;
    }
    return pixels_ != 0 && FT_Load_Glyph(face_.get(), index_of(character), load_flags) == 0;
}

std::int32_t font_face::advance(char character, std::int32_t pixels) {
    if (!load(character, pixels))
        return 0;
    return std::max(0, static_cast<std::int32_t>((face_->glyph->advance.x + 32) / 64));
}

glyph font_face::render(char character, std::int32_t pixels) {
    glyph shape;
    FT_GlyphSlot slot = face_->glyph;
    if (!load(character, pixels) || FT_Render_Glyph(slot, FT_RENDER_MODE_MONO) != 0)
        return shape;
    copy_rows(slot->bitmap, shape);
    shape.left = slot->bitmap_left;
    shape.top = ascent(pixels) - slot->bitmap_top;
    return shape;
}

} // namespace zerdix::platform
