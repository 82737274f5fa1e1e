// The raster library's MURA_* functions, with the signatures of contracts/mura.h.
// Every function ignores a null or foreign bitmap (or font) and draws nothing.
//
// Coordinates are pixels, (0, 0) the top-left pixel. Integer shapes cover the
// pixels they name, both ends included; float shapes (lines, circles, arcs)
// take pixel centres at whole numbers, so a circle at (10, 10) is centred on
// pixel (10, 10). Angles are radians, 0 pointing right, growing clockwise.
#pragma once

#include "contracts/mura.h"

MuraBitmap* MURA_CreateBitmap(int mode, int width, int height);
MuraFont* MURA_CreateFont();

void MURA_PutPixel(MuraBitmap* bitmap, int x, int y, uint32_t color, double alpha, int mode);
void MURA_LineInt(MuraBitmap* bitmap, int x1, int y1, int x2, int y2, uint32_t color,
                  double alpha, int mode, int antialias);
void MURA_Line(MuraBitmap* bitmap, float x1, float y1, float x2, float y2, uint32_t color,
               double alpha, int mode, int antialias);
void MURA_Circle(MuraBitmap* bitmap, float cx, float cy, float radius, uint32_t color,
                 double alpha, int mode, int antialias);
void MURA_FillCircle(MuraBitmap* bitmap, float cx, float cy, float radius, uint32_t color,
                     double alpha, int mode, int antialias);
void MURA_Arc(MuraBitmap* bitmap, float cx, float cy, float radius, float startAngle,
              float endAngle, uint32_t color, double alpha, int mode, int antialias);

void MURA_FillRect(MuraBitmap* bitmap, int x, int y, int width, int height, uint32_t color,
                   double alpha, int mode);
// The one-pixel outline of the rectangle.
void MURA_DrawRect(MuraBitmap* bitmap, int x, int y, int width, int height, uint32_t color,
                   double alpha, int mode);
// The rectangle filled with `fill` inside a one-pixel outline in `border`.
void MURA_BorderedRect(MuraBitmap* bitmap, int x, int y, int width, int height, uint32_t fill,
                       uint32_t border, double alpha, int mode);
// Every pixel becomes `color` (opaque bitmaps stay opaque).
void MURA_Clear(MuraBitmap* bitmap, uint32_t color);
void MURA_FillTriangle(MuraBitmap* bitmap, int x1, int y1, int x2, int y2, int x3, int y3,
                       uint32_t color, double alpha, int mode);
// Rows y1 to y2: the top row spans columns x1..x2, the bottom row x3..x4,
// the rows between follow the straight edges.
void MURA_FillTrapezoid(MuraBitmap* bitmap, int x1, int x2, int y1, int x3, int x4, int y2,
                        uint32_t color, double alpha, int mode);
// `xy` holds pointCount (x, y) pairs; fewer than 3 points draw nothing.
void MURA_FillConvexPolygon(MuraBitmap* bitmap, const int* xy, int pointCount, uint32_t color,
                            double alpha, int mode);

// Blits take the source's own colours and alpha at the call's opacity; in
// replace mode the covered pixels become the source's (on an opaque bitmap,
// the source's pixels over black).

// Draws `source` with its top-left pixel at (x, y).
void MURA_Blit(MuraBitmap* destination, MuraBitmap* source, int x, int y, double alpha,
               int mode);
// Draws `source` turned by `angle` about its centre, the unturned image
// placed with its top-left pixel at (x, y).
void MURA_RotatedBlit(MuraBitmap* destination, MuraBitmap* source, int x, int y, double angle,
                      double alpha, int mode);
// Draws `source` stretched to width x height at (x, y), filtered bilinearly.
void MURA_ScaledBlit(MuraBitmap* destination, MuraBitmap* source, int x, int y, int width,
                     int height, double alpha, int mode);
// Makes `destination` an exact copy of `source`, size included.
void MURA_Copy(MuraBitmap* destination, MuraBitmap* source);
// Draws `color` through a width x height coverage mask (one byte per pixel,
// 255 fully covered, rows `width` bytes apart) at (x, y).
void MURA_DrawGlyph(MuraBitmap* bitmap, const uint8_t* coverage, int x, int y, int width,
                    int height, uint32_t color, double alpha, int mode);

// Size of `text` on one line in `font`.
void MURA_MeasureText(MuraFont* font, const char* text, int* width, int* height);
// Draws one line of `text` with its top-left corner at (x, y) in `color`
// (alpha byte ignored), on a transparent background.
void MURA_DrawText(MuraBitmap* bitmap, MuraFont* font, const char* text, int x, int y,
                   uint32_t color);
