// Bitmap and font creation and the one-line text functions.
#include "host/raster/canvas_font.h"
#include "host/raster/color.h"
#include "host/raster/mura_drawing.h"
#include "host/raster/mura_paint.h"

namespace {

constexpr int kOpaqueBitmapMode = 1;
constexpr int kLargestSide = 32767;  // the largest image Cairo makes

}  // namespace

MuraBitmap* MURA_CreateBitmap(int mode, int width, int height) {
    if (width < 0 || height < 0 || width > kLargestSide || height > kLargestSide) return nullptr;
    return new CanvasBitmap(width, height, mode == kOpaqueBitmapMode);
}

MuraFont* MURA_CreateFont() { return new CanvasFont(); }

void MURA_MeasureText(MuraFont* font, const char* text, int* width, int* height) {
    CanvasFont* measuring = canvasFontOf(font);
    if (measuring == nullptr || text == nullptr) {
        if (width != nullptr) *width = 0;
        if (height != nullptr) *height = 0;
        return;
    }
    cairo_t* cr = createMeasuringContext();
    measuring->select(cr);
    measureTextLine(cr, text, -1, width, height);
    cairo_destroy(cr);
}

void MURA_DrawText(MuraBitmap* bitmap, MuraFont* font, const char* text, int x, int y,
                   uint32_t color) {
    CanvasFont* drawing = canvasFontOf(font);
    MuraPaint paint(bitmap, 0, false);
    if (!paint || drawing == nullptr || text == nullptr) return;
    cairo_set_antialias(paint.cr(), CAIRO_ANTIALIAS_DEFAULT);
    drawing->select(paint.cr());
    setSourceRgb(paint.cr(), color);
    RECT anchor{x, y, x, y};
    layoutText(paint.cr(), text, -1, &anchor, DT_SINGLELINE | DT_NOCLIP);
}
