#include "host/ui/face_drawing.h"

#include <cmath>

#include "host/raster/canvas.h"
#include "host/raster/color.h"
#include "host/raster/font_faces.h"
#include "host/raster/text_layout.h"
#include "host/ui/system_colors.h"

namespace kobal_layer {

uint32_t facePixel() { return systemPixel(COLOR_BTNFACE); }
uint32_t textPixel() { return systemPixel(COLOR_BTNTEXT); }
uint32_t shadowPixel() { return systemPixel(COLOR_BTNSHADOW); }
uint32_t fieldPixel() { return systemPixel(COLOR_WINDOW); }

void drawControlText(Canvas& canvas, const std::string& text, const RECT& rect, UINT dtFlags,
                     uint32_t color) {
    if (text.empty()) return;
    canvas.text(text.c_str(), rect, dtFlags | DT_SINGLELINE, color, kControlTextHeight);
}

void drawControlTextUpward(Canvas& canvas, const std::string& text, const RECT& rect,
                           uint32_t color) {
    const int width = rect.right - rect.left;
    const int height = rect.bottom - rect.top;
    if (text.empty() || width <= 0 || height <= 0) return;
    cairo_t* cr = cairo_create(canvas.surface());
    cairo_rectangle(cr, rect.left, rect.top, width, height);
    cairo_clip(cr);
    cairo_translate(cr, rect.left, rect.bottom);
    cairo_rotate(cr, -M_PI / 2);
    selectTextFont(cr, TextFont{uiFontFace("Arial", 400, false), kControlTextHeight});
    setSourceRgb(cr, color);
    RECT turned{0, 0, height, width};  // the rectangle as the text sees it
    layoutText(cr, text.c_str(), -1, &turned, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    cairo_destroy(cr);
}

void drawFramedBox(Canvas& canvas, const RECT& rect, uint32_t fill, uint32_t frame) {
    int width = rect.right - rect.left;
    int height = rect.bottom - rect.top;
    if (width <= 0 || height <= 0) return;
    canvas.fillRect(rect.left, rect.top, width, height, fill);
    canvas.frameRect(rect.left, rect.top, width, height, frame);
}

RECT rectAt(int x, int y, int width, int height) { return RECT{x, y, x + width, y + height}; }

}  // namespace kobal_layer
