// SPDX-License-Identifier: MIT
// Poppler's rendering with one bit a pixel, for pages of text and lines in black, white and plain
// colours.
//
// It draws such a page as the rendering in grey and our dithering do, pixel by pixel, in a third of
// the time. What needs shades until the page is done it doesn't draw, and says so: pictures, masks,
// shadings, patterns, transparency, and glyphs that are drawings of their own, which grey smooths.
#ifndef ZERDIX_APP_PRINT_BILEVEL_DEVICE_H
#define ZERDIX_APP_PRINT_BILEVEL_DEVICE_H

#include <SplashOutputDev.h>

namespace zerdix::app {

class bilevel_device : public SplashOutputDev {
  public:
    explicit bilevel_device(SplashColorPtr paper)
        : SplashOutputDev(splashModeMono1, 4, false, paper) {}

    // Of the page drawn last: it isn't worth anything then.
    bool asks_for_grey() const { return asks_for_grey_; }

    void startPage(int number, GfxState* state, XRef* objects) override;

    void updateFillColor(GfxState* state) override;
    void updateStrokeColor(GfxState* state) override;
    void updateBlendMode(GfxState* state) override;
    void updateFillOpacity(GfxState* state) override;
    void updateStrokeOpacity(GfxState* state) override;
    void updateTransfer(GfxState* state) override;

    void stroke(GfxState* state) override;
    bool tilingPatternFill(GfxState*, Gfx*, Catalog*, GfxTilingPattern*, const double*, int, int,
                           int, int, double, double) override;
    bool functionShadedFill(GfxState*, GfxFunctionShading*) override;
    bool axialShadedFill(GfxState*, GfxAxialShading*, double, double) override;
    bool radialShadedFill(GfxState*, GfxRadialShading*, double, double) override;
    bool gouraudTriangleShadedFill(GfxState*, GfxGouraudTriangleShading*) override;

    void drawChar(GfxState* state, double x, double y, double dx, double dy, double origin_x,
                  double origin_y, CharCode code, int bytes, const Unicode* text,
                  int length) override;
    bool beginType3Char(GfxState*, double, double, double, double, CharCode, const Unicode*,
                        int) override;

    void drawImageMask(GfxState*, Object*, Stream*, int, int, bool, bool, bool) override;
    void setSoftMaskFromImageMask(GfxState*, Object*, Stream*, int, int, bool, bool,
                                  double*) override;
    void unsetSoftMaskFromImageMask(GfxState*, double*) override;
    void drawImage(GfxState*, Object*, Stream*, int, int, GfxImageColorMap*, bool, const int*,
                   bool) override;
    void drawMaskedImage(GfxState*, Object*, Stream*, int, int, GfxImageColorMap*, bool, Stream*,
                         int, int, bool, bool) override;
    void drawSoftMaskedImage(GfxState*, Object*, Stream*, int, int, GfxImageColorMap*, bool,
                             Stream*, int, int, GfxImageColorMap*, bool) override;

    void beginTransparencyGroup(GfxState*, const double*, GfxColorSpace*, bool, bool,
                                bool) override;
    void endTransparencyGroup(GfxState*) override;
    void paintTransparencyGroup(GfxState*, const double*) override;
    void setSoftMask(GfxState*, const double*, bool, Function*, GfxColor*) override;
    void clearSoftMask(GfxState*) override;

  private:
    bool ask_for_grey() { return asks_for_grey_ = true; }

    bool asks_for_grey_ = false;
};

} // namespace zerdix::app

#endif
