#include "host/ui/face_drawing.h"

#include "host/raster/canvas.h"
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

void drawFramedBox(Canvas& canvas, const RECT& rect, uint32_t fill, uint32_t frame) {
    int width = rect.right - rect.left;
    int height = rect.bottom - rect.top;
    if (width <= 0 || height <= 0) return;
    canvas.fillRect(rect.left, rect.top, width, height, fill);
    canvas.frameRect(rect.left, rect.top, width, height, frame);
}

RECT rectAt(int x, int y, int width, int height) { return RECT{x, y, x + width, y + height}; }

}  // namespace kobal_layer
