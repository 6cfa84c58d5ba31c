// SPDX-License-Identifier: MIT
#include "platform/font_file.h"

#include <array>
#include <memory>
#include <string_view>

#include <fontconfig/fontconfig.h>

#include "platform/encoding.h"

namespace zerdix::platform {
namespace {

struct destroyed {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using pattern_handle = std::unique_ptr<FcPattern, destroyed>;

struct replacement {
    std::string_view face;
    const char* metric_compatible;
};

// Same widths as the face that was asked for, and hinted by hand for pictures without grey, which
// others that fontconfig may prefer aren't.
constexpr std::array replacements{
    replacement{"Courier", "Liberation Mono"},
    replacement{"Courier New", "Liberation Mono"},
    replacement{"Arial", "Liberation Sans"},
    replacement{"Helvetica", "Liberation Sans"},
    replacement{"Times New Roman", "Liberation Serif"},
    replacement{"Times", "Liberation Serif"},
};
constexpr const char* stand_in = "Liberation Sans";

void add_family(FcPattern* pattern, const char* family) {
    FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(family));
}

pattern_handle pattern_for(const std::string& face, std::int32_t weight) {
    pattern_handle pattern{FcPatternCreate()};
    if (pattern == nullptr)
        return pattern;
    const std::string wanted = cp1252_to_utf8(face);
    for (const replacement& r : replacements) {
        if (FcStrCmpIgnoreCase(reinterpret_cast<const FcChar8*>(wanted.c_str()),
                               reinterpret_cast<const FcChar8*>(r.face.data())) == 0)
            add_family(pattern.get(), r.metric_compatible);
    }
    add_family(pattern.get(), wanted.c_str());
    add_family(pattern.get(), stand_in);
    FcPatternAddInteger(pattern.get(), FC_WEIGHT,
                        FcWeightFromOpenType(weight <= 0 || weight > 1000 ? 400 : weight));
    FcPatternAddInteger(pattern.get(), FC_SLANT, FC_SLANT_ROMAN);
    FcPatternAddBool(pattern.get(), FC_OUTLINE, FcTrue);
    FcConfigSubstitute(nullptr, pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    return pattern;
}

} // namespace

std::optional<font_file> find_font_file(const std::string& face, std::int32_t weight) {
    const pattern_handle pattern = pattern_for(face, weight);
    FcResult result = FcResultNoMatch;
    const pattern_handle match{pattern ? FcFontMatch(nullptr, pattern.get(), &result) : nullptr};
    FcChar8* path = nullptr;
    if (match == nullptr || FcPatternGetString(match.get(), FC_FILE, 0, &path) != FcResultMatch)
        return std::nullopt;
    font_file file{reinterpret_cast<const char*>(path), 0};
    FcPatternGetInteger(match.get(), FC_INDEX, 0, &file.index);
    return file;
}

} // namespace zerdix::platform
