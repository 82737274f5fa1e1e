#include "host/raster/canvas.h"

#include <algorithm>
#include <mutex>
#include <unordered_set>

#include "host/raster/color.h"
#include "host/raster/font_faces.h"
#include "host/raster/text_layout.h"

namespace {

// The live device contexts, so that canvasOf can refuse unknown handles.
std::mutex registryLock;
std::unordered_set<HDC>& liveDeviceContexts() {
    static std::unordered_set<HDC> contexts;
    return contexts;
}

cairo_surface_t* createSurface(int width, int height) {
    return cairo_image_surface_create(CAIRO_FORMAT_ARGB32, std::max(width, 0),
                                      std::max(height, 0));
}

uint8_t unpremultiply(uint32_t channel, uint32_t alpha) {
    return static_cast<uint8_t>(std::min<uint32_t>(255, (channel * 255 + alpha / 2) / alpha));
}

}  // namespace

Canvas::Canvas(int width, int height) : surface_(createSurface(width, height)) {
    deviceContext_.canvas = this;
    std::lock_guard<std::mutex> guard(registryLock);
    liveDeviceContexts().insert(&deviceContext_);
}

Canvas::~Canvas() {
    {
        std::lock_guard<std::mutex> guard(registryLock);
        liveDeviceContexts().erase(&deviceContext_);
    }
    cairo_surface_destroy(surface_);
}

int Canvas::width() const { return cairo_image_surface_get_width(surface_); }

int Canvas::height() const { return cairo_image_surface_get_height(surface_); }

void Canvas::resize(int width, int height) {
    if (width == this->width() && height == this->height()) return;
    cairo_surface_t* resized = createSurface(width, height);
    cairo_t* cr = cairo_create(resized);
    cairo_set_source_surface(cr, surface_, 0, 0);
    cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
    cairo_paint(cr);
    cairo_destroy(cr);
    cairo_surface_destroy(surface_);
    surface_ = resized;
}

HDC Canvas::deviceContext() { return &deviceContext_; }

void Canvas::fillRect(int x, int y, int width, int height, uint32_t color) {
    if (width <= 0 || height <= 0) return;
    cairo_t* cr = cairo_create(surface_);
    setSourceArgb(cr, color);
    cairo_rectangle(cr, x, y, width, height);
    cairo_fill(cr);
    cairo_destroy(cr);
}

void Canvas::frameRect(int x, int y, int width, int height, uint32_t color) {
    if (width <= 0 || height <= 0) return;
    cairo_t* cr = cairo_create(surface_);
    setSourceArgb(cr, color);
    // The outer one-pixel ring of the rectangle.
    cairo_set_fill_rule(cr, CAIRO_FILL_RULE_EVEN_ODD);
    cairo_rectangle(cr, x, y, width, height);
    if (width > 2 && height > 2) cairo_rectangle(cr, x + 1, y + 1, width - 2, height - 2);
    cairo_fill(cr);
    cairo_destroy(cr);
}

void Canvas::line(double x1, double y1, double x2, double y2, uint32_t color, double lineWidth) {
    cairo_t* cr = cairo_create(surface_);
    setSourceArgb(cr, color);
    cairo_set_line_width(cr, lineWidth);
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_SQUARE);
    // Pixel centres, so that a one-pixel line covers whole pixels.
    cairo_move_to(cr, x1 + 0.5, y1 + 0.5);
    cairo_line_to(cr, x2 + 0.5, y2 + 0.5);
    cairo_stroke(cr);
    cairo_destroy(cr);
}

void Canvas::text(const char* text, const RECT& rect, UINT dtFlags, uint32_t color,
                  int pixelHeight) {
    cairo_t* cr = cairo_create(surface_);
    selectTextFont(cr, TextFont{uiFontFace("Arial", 400, false), pixelHeight});
    setSourceRgb(cr, color);
    RECT area = rect;
    layoutText(cr, text, -1, &area, dtFlags & ~DT_CALCRECT);
    cairo_destroy(cr);
}

void Canvas::copyFrom(const Canvas& source, int sourceX, int sourceY, int width, int height,
                      int x, int y) {
    if (width <= 0 || height <= 0) return;
    cairo_t* cr = cairo_create(surface_);
    cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
    cairo_set_source_surface(cr, source.surface_, x - sourceX, y - sourceY);
    cairo_rectangle(cr, x, y, width, height);
    cairo_fill(cr);
    cairo_destroy(cr);
}

uint32_t Canvas::pixel(int x, int y) const {
    if (x < 0 || y < 0 || x >= width() || y >= height()) return 0;
    cairo_surface_flush(surface_);
    const unsigned char* row =
        cairo_image_surface_get_data(surface_) + y * cairo_image_surface_get_stride(surface_);
    const uint32_t stored = reinterpret_cast<const uint32_t*>(row)[x];
    const uint32_t alpha = stored >> 24;
    if (alpha == 0) return 0;
    if (alpha == 255) return stored;
    return alpha << 24 | unpremultiply(stored >> 16 & 0xff, alpha) << 16 |
           unpremultiply(stored >> 8 & 0xff, alpha) << 8 | unpremultiply(stored & 0xff, alpha);
}

bool Canvas::writePng(const std::string& path) const {
    return cairo_surface_write_to_png(surface_, path.c_str()) == CAIRO_STATUS_SUCCESS;
}

Canvas* canvasOf(HDC dc) {
    std::lock_guard<std::mutex> guard(registryLock);
    return liveDeviceContexts().count(dc) != 0 ? dc->canvas : nullptr;
}
