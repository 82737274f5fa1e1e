// The raster library's font: a MuraFont that sets text with Cairo in the face
// and height of a UI font (HFONT) from the windowing layer. Text and
// background colours are 0xRRGGBB; their alpha bytes are ignored, as with
// Win32 COLORREFs. Background mode 0 is transparent, anything else opaque.
#pragma once

#include <cairo.h>

#include "contracts/mura.h"
#include "host/raster/text_layout.h"

class CanvasFont final : public MuraFont {
public:
    CanvasFont();

    // Takes the face and height of `font`; an unknown or null font gives
    // the default 12-pixel Arial. `flags` are accepted and not used.
    void takeUiFont(HFONT font, int flags) override;
    uint32_t setTextColor(uint32_t color) override;
    void setBackgroundColor(uint32_t color) override;
    uint32_t backgroundColor() const override;
    void setBackgroundMode(int mode) override;
    int lineHeight() const override;
    int drawText(MuraBitmap* bitmap, const char* text, int length, RECT* rect,
                 UINT flags) override;
    uint32_t textColor() const override;

    // Selects this font on `cr`.
    void select(cairo_t* cr) const;

private:
    TextFont font_;
    uint32_t textColor_ = 0x000000;
    uint32_t backgroundColor_ = 0xffffff;
    int backgroundMode_ = 0;
};

// The library's own font behind `font`, or null.
CanvasFont* canvasFontOf(MuraFont* font);

// A Cairo context for measuring text only.
cairo_t* createMeasuringContext();
