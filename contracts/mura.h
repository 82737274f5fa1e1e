// The host's raster library: bitmap and font objects used through their
// virtual operations (the order of the operations is the contract), and the
// MURA_* drawing functions requested by name through the host callback
// (see host_extensions.h). Pixels are 32-bit 0xAARRGGBB.
//
// Bitmaps: MURA_CreateBitmap's mode 1 makes an opaque bitmap (it starts black
// and every pixel stays opaque: the alpha bytes of drawing colours are
// ignored); any other mode makes a bitmap with an alpha channel (it starts
// transparent, colours' alpha bytes count, and its pixels are stored
// premultiplied).
//
// Common arguments: `alpha` (0..1) is the opacity of the drawing, multiplied
// on bitmaps with alpha by the colour's own alpha byte; `mode` 1 replaces the
// covered pixels with the colour, any other mode (0) blends over them;
// `antialias` nonzero draws smooth edges. Integer coordinates name pixels
// (both ends of a line included); float coordinates put pixel centres at
// whole numbers. Text colours are 0xRRGGBB (alpha byte ignored). A null
// bitmap or font makes a call do nothing.
#pragma once

#include <cstdint>

#include "kobal.h"

class MuraBitmap {
public:
    virtual ~MuraBitmap() = default;
    virtual uint32_t* pixels() = 0;  // row-major, rowSpan() pixels apart
    virtual int width() const = 0;
    virtual int height() const = 0;
    virtual int rowSpan() const = 0;
    virtual void markDirty() = 0;  // tell the bitmap its pixels were written directly
    virtual void resize(int width, int height) = 0;
    virtual HDC deviceContext() = 0;  // usable as the source of BitBlt
};

class MuraFont {
public:
    virtual ~MuraFont() = default;
    virtual void takeUiFont(HFONT font, int flags) = 0;
    virtual uint32_t setTextColor(uint32_t color) = 0;  // returns the previous colour
    virtual void setBackgroundColor(uint32_t color) = 0;
    virtual uint32_t backgroundColor() const = 0;
    virtual void setBackgroundMode(int mode) = 0;  // 0 transparent, 1 opaque
    virtual int lineHeight() const = 0;
    // Draws `text` (length bytes, or up to its terminator when length is -1)
    // into `rect` with Win32 DT_ flags; with DT_CALCRECT it only measures and
    // widens or heightens `rect`. Returns the height of the text drawn.
    virtual int drawText(MuraBitmap* bitmap, const char* text, int length, RECT* rect,
                         UINT flags) = 0;
    virtual uint32_t textColor() const = 0;
};

// The raster functions, as the callers pass their arguments.
using MURA_CreateBitmapProc = MuraBitmap* (*)(int mode, int width, int height);
using MURA_CreateFontProc = MuraFont* (*)();
using MURA_PutPixelProc = void (*)(MuraBitmap* bitmap, int x, int y, uint32_t color, double alpha,
                                   int mode);
using MURA_LineIntProc = void (*)(MuraBitmap* bitmap, int x1, int y1, int x2, int y2,
                                  uint32_t color, double alpha, int mode, int antialias);
using MURA_LineProc = void (*)(MuraBitmap* bitmap, float x1, float y1, float x2, float y2,
                               uint32_t color, double alpha, int mode, int antialias);
using MURA_CircleProc = void (*)(MuraBitmap* bitmap, float cx, float cy, float radius,
                                 uint32_t color, double alpha, int mode, int antialias);
using MURA_FillCircleProc = MURA_CircleProc;
using MURA_FillRectProc = void (*)(MuraBitmap* bitmap, int x, int y, int width, int height,
                                   uint32_t color, double alpha, int mode);
using MURA_DrawRectProc = MURA_FillRectProc;
using MURA_BorderedRectProc = void (*)(MuraBitmap* bitmap, int x, int y, int width, int height,
                                       uint32_t fill, uint32_t border, double alpha, int mode);
using MURA_ClearProc = void (*)(MuraBitmap* bitmap, uint32_t color);
using MURA_BlitProc = void (*)(MuraBitmap* destination, MuraBitmap* source, int x, int y,
                               double alpha, int mode);
using MURA_RotatedBlitProc = void (*)(MuraBitmap* destination, MuraBitmap* source, int x, int y,
                                      double angle, double alpha, int mode);
using MURA_ScaledBlitProc = void (*)(MuraBitmap* destination, MuraBitmap* source, int x, int y,
                                     int width, int height, double alpha, int mode);
using MURA_CopyProc = void (*)(MuraBitmap* destination, MuraBitmap* source);
using MURA_DrawGlyphProc = void (*)(MuraBitmap* bitmap, const uint8_t* coverage, int x, int y,
                                    int width, int height, uint32_t color, double alpha, int mode);
using MURA_FillTriangleProc = void (*)(MuraBitmap* bitmap, int x1, int y1, int x2, int y2, int x3,
                                       int y3, uint32_t color, double alpha, int mode);
using MURA_ArcProc = void (*)(MuraBitmap* bitmap, float cx, float cy, float radius,
                              float startAngle, float endAngle, uint32_t color, double alpha,
                              int mode, int antialias);
using MURA_FillTrapezoidProc = void (*)(MuraBitmap* bitmap, int x1, int x2, int y1, int x3, int x4,
                                        int y2, uint32_t color, double alpha, int mode);
using MURA_FillConvexPolygonProc = void (*)(MuraBitmap* bitmap, const int* xy, int pointCount,
                                            uint32_t color, double alpha, int mode);
using MURA_MeasureTextProc = void (*)(MuraFont* font, const char* text, int* width, int* height);
using MURA_DrawTextProc = void (*)(MuraBitmap* bitmap, MuraFont* font, const char* text, int x,
                                   int y, uint32_t color);

// The 22 raster names in the order the effect requests them.
constexpr const char* kMuraFunctionNames[] = {
    "MURA_CreateBitmap", "MURA_PutPixel",     "MURA_LineInt",     "MURA_Line",
    "MURA_Circle",       "MURA_FillCircle",   "MURA_FillRect",    "MURA_DrawRect",
    "MURA_BorderedRect", "MURA_Clear",        "MURA_Blit",        "MURA_RotatedBlit",
    "MURA_DrawGlyph",    "MURA_CreateFont",   "MURA_FillTriangle", "MURA_Arc",
    "MURA_FillTrapezoid", "MURA_FillConvexPolygon", "MURA_Copy", "MURA_ScaledBlit",
    "MURA_MeasureText",  "MURA_DrawText",
};
