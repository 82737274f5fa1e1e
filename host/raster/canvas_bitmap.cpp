#include "host/raster/canvas_bitmap.h"

#include <algorithm>

namespace {

constexpr uint32_t kOpaqueBlack = 0xff000000;

}  // namespace

CanvasBitmap::CanvasBitmap(int width, int height, bool opaque)
    : canvas_(width, height), opaque_(opaque) {
    if (opaque_) canvas_.fillRect(0, 0, canvas_.width(), canvas_.height(), kOpaqueBlack);
}

uint32_t* CanvasBitmap::pixels() {
    cairo_surface_flush(canvas_.surface());
    return reinterpret_cast<uint32_t*>(cairo_image_surface_get_data(canvas_.surface()));
}

int CanvasBitmap::width() const { return canvas_.width(); }

int CanvasBitmap::height() const { return canvas_.height(); }

int CanvasBitmap::rowSpan() const { return cairo_image_surface_get_stride(canvas_.surface()) / 4; }

void CanvasBitmap::markDirty() { cairo_surface_mark_dirty(canvas_.surface()); }

void CanvasBitmap::resize(int width, int height) {
    const int oldWidth = canvas_.width();
    const int oldHeight = canvas_.height();
    canvas_.resize(width, height);
    if (!opaque_) return;
    // The new strips right of and below the kept pixels start black.
    canvas_.fillRect(oldWidth, 0, canvas_.width() - oldWidth, canvas_.height(), kOpaqueBlack);
    canvas_.fillRect(0, oldHeight, std::min(oldWidth, canvas_.width()),
                     canvas_.height() - oldHeight, kOpaqueBlack);
}

HDC CanvasBitmap::deviceContext() { return canvas_.deviceContext(); }

CanvasBitmap* canvasBitmapOf(MuraBitmap* bitmap) { return dynamic_cast<CanvasBitmap*>(bitmap); }
