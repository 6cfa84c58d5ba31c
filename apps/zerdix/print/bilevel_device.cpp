// SPDX-License-Identifier: MIT
#include "print/bilevel_device.h"

#include <cmath>
#include <limits>
#include <optional>

#include <GfxState.h>
#include <splash/Splash.h>
#include <splash/SplashPattern.h>

#include "print/dithering.h"

namespace zerdix::app {

namespace {

// A colour that is neither black nor white, as the dithering makes it.
class dithered_shade : public SplashPattern {
  public:
    explicit dithered_shade(unsigned char shade) : shade_(shade) {}

    SplashPattern* copy() const override { return new dithered_shade(shade_); }
    bool getColor(int x, int y, SplashColorPtr colour) override {
        colour[0] = is_white(shade_, x, y) ? 255 : 0;
        return true;
    }
    bool testPosition(int, int) override { return false; }
    bool isStatic() override { return false; }
    bool isCMYK() override { return false; }

  private:
    unsigned char shade_;
};

// Null for black and white, which Poppler's own patterns draw faster. The caller owns it.
SplashPattern* pattern_for(GfxGray shade) {
    const unsigned char byte = colToByte(shade);
    return byte == 0 || byte == 255 ? nullptr : new dithered_shade(byte);
}

// Half the square of the longer diagonal of a unit square on the page.
double area_scale(const double* matrix) {
    const double across = matrix[0] + matrix[2], down = matrix[1] + matrix[3];
    const double other_across = matrix[0] - matrix[2], other_down = matrix[1] - matrix[3];
    return 0.5 * std::fmax(across * across + down * down,
                           other_across * other_across + other_down * other_down);
}

// With one bit a pixel Poppler draws thin lines a pixel wide, whatever their width. It leaves lines
// below its least width alone, which it makes `least / sqrt(scale)` wide. This is the least width
// that gives a line its own, to the last bit; there may be none.
std::optional<double> least_width_for(double line_width, double scale) {
    const double root = std::sqrt(scale);
    double least = line_width * root;
    for (int tries = 0; tries < 4; ++tries) {
        if (least / root == line_width && scale * line_width * line_width < least * least)
            return least;
        least = std::nextafter(least, std::numeric_limits<double>::infinity());
    }
    return std::nullopt;
}

} // namespace

void bilevel_device::startPage(int number, GfxState* state, XRef* objects) {
    asks_for_grey_ = false;
    SplashOutputDev::startPage(number, state, objects);
}

void bilevel_device::updateFillColor(GfxState* state) {
    SplashOutputDev::updateFillColor(state);
    GfxGray shade{};
    state->getFillGray(&shade);
    if (SplashPattern* pattern = pattern_for(shade))
        getSplash()->setFillPattern(pattern);
}

void bilevel_device::updateStrokeColor(GfxState* state) {
    SplashOutputDev::updateStrokeColor(state);
    GfxGray shade{};
    state->getStrokeGray(&shade);
    if (SplashPattern* pattern = pattern_for(shade))
        getSplash()->setStrokePattern(pattern);
}

void bilevel_device::updateBlendMode(GfxState* state) {
    if (state->getBlendMode() != gfxBlendNormal)
        ask_for_grey();
    SplashOutputDev::updateBlendMode(state);
}

void bilevel_device::updateFillOpacity(GfxState* state) {
    if (state->getFillOpacity() != 1)
        ask_for_grey();
    SplashOutputDev::updateFillOpacity(state);
}

void bilevel_device::updateStrokeOpacity(GfxState* state) {
    if (state->getStrokeOpacity() != 1)
        ask_for_grey();
    SplashOutputDev::updateStrokeOpacity(state);
}

void bilevel_device::updateTransfer(GfxState* state) {
    if (state->getTransfer()[0] != nullptr)
        ask_for_grey();
    SplashOutputDev::updateTransfer(state);
}

void bilevel_device::stroke(GfxState* state) {
    Splash& canvas = *getSplash();
    const double scale = area_scale(canvas.getMatrix());
    const double width = canvas.getLineWidth();
    canvas.setMinLineWidth(0);
    if (width > 0 && scale > 0 && scale * width <= 2) {
        const auto least = least_width_for(width, scale);
        if (!least)
            ask_for_grey();
        canvas.setMinLineWidth(least.value_or(0));
    }
    SplashOutputDev::stroke(state);
}

bool bilevel_device::tilingPatternFill(GfxState*, Gfx*, Catalog*, GfxTilingPattern*, const double*,
                                       int, int, int, int, double, double) {
    return ask_for_grey();
}
bool bilevel_device::functionShadedFill(GfxState*, GfxFunctionShading*) {
    return ask_for_grey();
}
bool bilevel_device::axialShadedFill(GfxState*, GfxAxialShading*, double, double) {
    return ask_for_grey();
}
bool bilevel_device::radialShadedFill(GfxState*, GfxRadialShading*, double, double) {
    return ask_for_grey();
}
bool bilevel_device::gouraudTriangleShadedFill(GfxState*, GfxGouraudTriangleShading*) {
    return ask_for_grey();
}

// The outlines of glyphs are lines, too; they are rare enough for grey.
void bilevel_device::drawChar(GfxState* state, double x, double y, double dx, double dy,
                              double origin_x, double origin_y, CharCode code, int bytes,
                              const Unicode* text, int length) {
    constexpr int outlines = 1, fill_and_outlines = 2;
    const int how = state->getRender() & 3;
    if (how == outlines || how == fill_and_outlines)
        ask_for_grey();
    SplashOutputDev::drawChar(state, x, y, dx, dy, origin_x, origin_y, code, bytes, text, length);
}

bool bilevel_device::beginType3Char(GfxState*, double, double, double, double, CharCode,
                                    const Unicode*, int) {
    return ask_for_grey();
}

void bilevel_device::drawImageMask(GfxState*, Object*, Stream*, int, int, bool, bool, bool) {
    ask_for_grey();
}
void bilevel_device::setSoftMaskFromImageMask(GfxState*, Object*, Stream*, int, int, bool, bool,
                                              double*) {
    ask_for_grey();
}
void bilevel_device::unsetSoftMaskFromImageMask(GfxState*, double*) {}
void bilevel_device::drawImage(GfxState*, Object*, Stream*, int, int, GfxImageColorMap*, bool,
                               const int*, bool) {
    ask_for_grey();
}
void bilevel_device::drawMaskedImage(GfxState*, Object*, Stream*, int, int, GfxImageColorMap*, bool,
                                     Stream*, int, int, bool, bool) {
    ask_for_grey();
}
void bilevel_device::drawSoftMaskedImage(GfxState*, Object*, Stream*, int, int, GfxImageColorMap*,
                                         bool, Stream*, int, int, GfxImageColorMap*, bool) {
    ask_for_grey();
}

void bilevel_device::beginTransparencyGroup(GfxState*, const double*, GfxColorSpace*, bool, bool,
                                            bool) {
    ask_for_grey();
}
void bilevel_device::endTransparencyGroup(GfxState*) {}
void bilevel_device::paintTransparencyGroup(GfxState*, const double*) {
    ask_for_grey();
}
void bilevel_device::setSoftMask(GfxState*, const double*, bool, Function*, GfxColor*) {
    ask_for_grey();
}
void bilevel_device::clearSoftMask(GfxState*) {}

} // namespace zerdix::app
