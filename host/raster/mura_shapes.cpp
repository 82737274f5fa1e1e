// Lines, circles and filled shapes.
#include <cmath>
#include <cstdlib>

#include "host/raster/color.h"
#include "host/raster/mura_drawing.h"
#include "host/raster/mura_paint.h"
#include "host/raster/opaque_fill.h"
#include "host/raster/segment_raster.h"

namespace {

// Adds every pixel of the integer line from (x1, y1) to (x2, y2), both ends
// included, as a unit square (Bresenham's walk).
void addPixelLine(cairo_t* cr, int x1, int y1, int x2, int y2) {
    if (x1 == x2 || y1 == y2) {
        cairo_rectangle(cr, std::min(x1, x2), std::min(y1, y2), std::abs(x2 - x1) + 1,
                        std::abs(y2 - y1) + 1);
        return;
    }
    const int dx = std::abs(x2 - x1);
    const int dy = -std::abs(y2 - y1);
    const int stepX = x1 < x2 ? 1 : -1;
    const int stepY = y1 < y2 ? 1 : -1;
    int error = dx + dy;
    for (int x = x1, y = y1;;) {
        cairo_rectangle(cr, x, y, 1, 1);
        if (x == x2 && y == y2) break;
        const int doubled = 2 * error;
        if (doubled >= dy) {
            error += dy;
            x += stepX;
        }
        if (doubled <= dx) {
            error += dx;
            y += stepY;
        }
    }
}

// A one-pixel stroke between pixel centres.
void strokeBetweenCentres(cairo_t* cr, double x1, double y1, double x2, double y2) {
    cairo_set_line_width(cr, 1.0);
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
    cairo_move_to(cr, x1 + 0.5, y1 + 0.5);
    cairo_line_to(cr, x2 + 0.5, y2 + 0.5);
    cairo_stroke(cr);
}

void addCircle(cairo_t* cr, float cx, float cy, float radius) {
    cairo_new_sub_path(cr);
    cairo_arc(cr, cx + 0.5, cy + 0.5, radius, 0, 2 * M_PI);
}

// The outer one-pixel ring of a rectangle, for even-odd filling.
void addRing(cairo_t* cr, int x, int y, int width, int height) {
    cairo_set_fill_rule(cr, CAIRO_FILL_RULE_EVEN_ODD);
    cairo_rectangle(cr, x, y, width, height);
    if (width > 2 && height > 2) cairo_rectangle(cr, x + 1, y + 1, width - 2, height - 2);
}

// A closed path through pixel centres.
void addPolygon(cairo_t* cr, const int* xy, int pointCount) {
    cairo_move_to(cr, xy[0] + 0.5, xy[1] + 0.5);
    for (int i = 1; i < pointCount; ++i) cairo_line_to(cr, xy[2 * i] + 0.5, xy[2 * i + 1] + 0.5);
    cairo_close_path(cr);
}

}  // namespace

void MURA_PutPixel(MuraBitmap* bitmap, int x, int y, uint32_t color, double alpha, int mode) {
    MuraPaint paint(bitmap, color, alpha, mode, false);
    if (!paint) return;
    cairo_rectangle(paint.cr(), x, y, 1, 1);
    cairo_fill(paint.cr());
}

void MURA_LineInt(MuraBitmap* bitmap, int x1, int y1, int x2, int y2, uint32_t color,
                  double alpha, int mode, int antialias) {
    if (antialias == 0 && (x1 == x2 || y1 == y2) &&
        fillOpaqueRect(canvasBitmapOf(bitmap), std::min(x1, x2), std::min(y1, y2),
                       std::abs(x2 - x1) + 1, std::abs(y2 - y1) + 1, color, alpha, mode))
        return;
    if (antialias != 0 &&
        strokeSegmentExactly(canvasBitmapOf(bitmap), x1, y1, x2, y2, color, alpha, mode))
        return;
    MuraPaint paint(bitmap, color, alpha, mode, antialias != 0);
    if (!paint) return;
    if (antialias != 0) {
        strokeBetweenCentres(paint.cr(), x1, y1, x2, y2);
        return;
    }
    addPixelLine(paint.cr(), x1, y1, x2, y2);
    cairo_fill(paint.cr());
}

void MURA_Line(MuraBitmap* bitmap, float x1, float y1, float x2, float y2, uint32_t color,
               double alpha, int mode, int antialias) {
    if (antialias == 0) {
        MURA_LineInt(bitmap, std::lround(x1), std::lround(y1), std::lround(x2), std::lround(y2),
                     color, alpha, mode, 0);
        return;
    }
    if (strokeSegmentExactly(canvasBitmapOf(bitmap), x1, y1, x2, y2, color, alpha, mode)) return;
    MuraPaint paint(bitmap, color, alpha, mode, true);
    if (!paint) return;
    strokeBetweenCentres(paint.cr(), x1, y1, x2, y2);
}

void MURA_Circle(MuraBitmap* bitmap, float cx, float cy, float radius, uint32_t color,
                 double alpha, int mode, int antialias) {
    MURA_Arc(bitmap, cx, cy, radius, 0.0f, static_cast<float>(2 * M_PI), color, alpha, mode,
             antialias);
}

void MURA_FillCircle(MuraBitmap* bitmap, float cx, float cy, float radius, uint32_t color,
                     double alpha, int mode, int antialias) {
    MuraPaint paint(bitmap, color, alpha, mode, antialias != 0);
    if (!paint || !(radius >= 0)) return;
    addCircle(paint.cr(), cx, cy, radius);
    cairo_fill(paint.cr());
}

void MURA_Arc(MuraBitmap* bitmap, float cx, float cy, float radius, float startAngle,
              float endAngle, uint32_t color, double alpha, int mode, int antialias) {
    MuraPaint paint(bitmap, color, alpha, mode, antialias != 0);
    if (!paint || !(radius >= 0)) return;
    cairo_arc(paint.cr(), cx + 0.5, cy + 0.5, radius, startAngle, endAngle);
    cairo_set_line_width(paint.cr(), 1.0);
    cairo_stroke(paint.cr());
}

void MURA_FillRect(MuraBitmap* bitmap, int x, int y, int width, int height, uint32_t color,
                   double alpha, int mode) {
    if (width > 0 && height > 0 &&
        fillOpaqueRect(canvasBitmapOf(bitmap), x, y, width, height, color, alpha, mode))
        return;
    MuraPaint paint(bitmap, color, alpha, mode, false);
    if (!paint || width <= 0 || height <= 0) return;
    cairo_rectangle(paint.cr(), x, y, width, height);
    cairo_fill(paint.cr());
}

void MURA_DrawRect(MuraBitmap* bitmap, int x, int y, int width, int height, uint32_t color,
                   double alpha, int mode) {
    MuraPaint paint(bitmap, color, alpha, mode, false);
    if (!paint || width <= 0 || height <= 0) return;
    addRing(paint.cr(), x, y, width, height);
    cairo_fill(paint.cr());
}

void MURA_BorderedRect(MuraBitmap* bitmap, int x, int y, int width, int height, uint32_t fill,
                       uint32_t border, double alpha, int mode) {
    if (width > 2 && height > 2) MURA_FillRect(bitmap, x + 1, y + 1, width - 2, height - 2, fill,
                                               alpha, mode);
    MURA_DrawRect(bitmap, x, y, width, height, border, alpha, mode);
}

void MURA_Clear(MuraBitmap* bitmap, uint32_t color) {
    MuraPaint paint(bitmap, kMuraModeReplace, false);
    if (!paint) return;
    if (paint.bitmap()->isOpaque())
        setSourceRgb(paint.cr(), color);
    else
        setSourceArgb(paint.cr(), color);
    cairo_paint(paint.cr());
}

void MURA_FillTriangle(MuraBitmap* bitmap, int x1, int y1, int x2, int y2, int x3, int y3,
                       uint32_t color, double alpha, int mode) {
    const int corners[] = {x1, y1, x2, y2, x3, y3};
    MURA_FillConvexPolygon(bitmap, corners, 3, color, alpha, mode);
}

void MURA_FillTrapezoid(MuraBitmap* bitmap, int x1, int x2, int y1, int x3, int x4, int y2,
                        uint32_t color, double alpha, int mode) {
    MuraPaint paint(bitmap, color, alpha, mode, false);
    if (!paint || y2 < y1) return;
    // Pixel corners, so that the end columns and rows are covered.
    cairo_t* cr = paint.cr();
    cairo_move_to(cr, std::min(x1, x2), y1);
    cairo_line_to(cr, std::max(x1, x2) + 1, y1);
    cairo_line_to(cr, std::max(x3, x4) + 1, y2 + 1);
    cairo_line_to(cr, std::min(x3, x4), y2 + 1);
    cairo_close_path(cr);
    cairo_fill(cr);
}

void MURA_FillConvexPolygon(MuraBitmap* bitmap, const int* xy, int pointCount, uint32_t color,
                            double alpha, int mode) {
    MuraPaint paint(bitmap, color, alpha, mode, false);
    if (!paint || xy == nullptr || pointCount < 3) return;
    addPolygon(paint.cr(), xy, pointCount);
    cairo_fill(paint.cr());
}
