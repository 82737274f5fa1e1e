#include "host/raster/opaque_fill.h"

#include <algorithm>

#include "host/raster/canvas_bitmap.h"
#include "host/raster/mura_paint.h"

namespace {

// The opacity MuraPaint gives the call (see mura_paint.h).
double callOpacity(const CanvasBitmap& bitmap, uint32_t color, double alpha, int mode) {
    if (bitmap.isOpaque()) return mode == kMuraModeReplace ? 1.0 : clampedOpacity(alpha);
    return clampedOpacity(alpha) * ((color >> 24) / 255.0);
}

}  // namespace

bool fillOpaqueRect(CanvasBitmap* bitmap, int x, int y, int width, int height, uint32_t color,
                    double alpha, int mode) {
    if (!bitmap || callOpacity(*bitmap, color, alpha, mode) != 1.0) return false;
    const int left = std::max(x, 0);
    const int top = std::max(y, 0);
    const int right = std::min<long>(static_cast<long>(x) + width, bitmap->width());
    const int bottom = std::min<long>(static_cast<long>(y) + height, bitmap->height());
    if (left >= right || top >= bottom) return true;
    uint32_t* pixels = bitmap->pixels();  // flushes pending Cairo drawing first
    const int span = bitmap->rowSpan();
    const uint32_t pixel = 0xff000000u | (color & 0x00ffffffu);
    for (int row = top; row < bottom; ++row)
        std::fill(pixels + row * span + left, pixels + row * span + right, pixel);
    cairo_surface_mark_dirty_rectangle(bitmap->canvas().surface(), left, top, right - left,
                                       bottom - top);
    return true;
}
