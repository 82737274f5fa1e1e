// Bitmap to bitmap drawing and coverage masks.
#include <cstring>
#include <vector>

#include "host/raster/mura_drawing.h"
#include "host/raster/mura_paint.h"

namespace {

// Paints the source set on `paint` over the clip area at the paint's
// opacity. In replace mode the area takes the source's pixels; an opaque
// bitmap cannot hold transparency, so there they land on black.
void paintSource(const MuraPaint& paint) {
    cairo_t* cr = paint.cr();
    if (paint.bitmap()->isOpaque() && cairo_get_operator(cr) == CAIRO_OPERATOR_SOURCE) {
        cairo_pattern_t* source = cairo_pattern_reference(cairo_get_source(cr));
        cairo_set_source_rgb(cr, 0, 0, 0);
        cairo_paint(cr);
        cairo_set_source(cr, source);
        cairo_pattern_destroy(source);
        cairo_set_operator(cr, CAIRO_OPERATOR_OVER);
    }
    cairo_paint_with_alpha(cr, paint.opacity());
}

void paintRectangle(const MuraPaint& paint, double x, double y, double width, double height) {
    cairo_rectangle(paint.cr(), x, y, width, height);
    cairo_clip(paint.cr());
    paintSource(paint);
}

}  // namespace

void MURA_Blit(MuraBitmap* destination, MuraBitmap* source, int x, int y, double alpha,
               int mode) {
    MuraPaint paint(destination, 0xffffffff, alpha, mode, false);
    CanvasBitmap* from = canvasBitmapOf(source);
    if (!paint || from == nullptr) return;
    cairo_set_source_surface(paint.cr(), from->canvas().surface(), x, y);
    paintRectangle(paint, x, y, from->width(), from->height());
}

void MURA_RotatedBlit(MuraBitmap* destination, MuraBitmap* source, int x, int y, double angle,
                      double alpha, int mode) {
    MuraPaint paint(destination, 0xffffffff, alpha, mode, true);
    CanvasBitmap* from = canvasBitmapOf(source);
    if (!paint || from == nullptr) return;
    cairo_t* cr = paint.cr();
    const double halfWidth = from->width() / 2.0;
    const double halfHeight = from->height() / 2.0;
    cairo_translate(cr, x + halfWidth, y + halfHeight);
    cairo_rotate(cr, angle);
    cairo_translate(cr, -halfWidth, -halfHeight);
    cairo_set_source_surface(cr, from->canvas().surface(), 0, 0);
    paintRectangle(paint, 0, 0, from->width(), from->height());
}

void MURA_ScaledBlit(MuraBitmap* destination, MuraBitmap* source, int x, int y, int width,
                     int height, double alpha, int mode) {
    MuraPaint paint(destination, 0xffffffff, alpha, mode, false);
    CanvasBitmap* from = canvasBitmapOf(source);
    if (!paint || from == nullptr || width <= 0 || height <= 0 || from->width() <= 0 ||
        from->height() <= 0)
        return;
    cairo_t* cr = paint.cr();
    cairo_rectangle(cr, x, y, width, height);
    cairo_clip(cr);
    cairo_translate(cr, x, y);
    cairo_scale(cr, static_cast<double>(width) / from->width(),
                static_cast<double>(height) / from->height());
    cairo_set_source_surface(cr, from->canvas().surface(), 0, 0);
    cairo_pattern_set_filter(cairo_get_source(cr), CAIRO_FILTER_BILINEAR);
    cairo_pattern_set_extend(cairo_get_source(cr), CAIRO_EXTEND_PAD);
    paintSource(paint);
}

void MURA_Copy(MuraBitmap* destination, MuraBitmap* source) {
    CanvasBitmap* to = canvasBitmapOf(destination);
    CanvasBitmap* from = canvasBitmapOf(source);
    if (to == nullptr || from == nullptr || to == from) return;
    to->canvas().resize(from->width(), from->height());
    to->canvas().copyFrom(from->canvas(), 0, 0, from->width(), from->height(), 0, 0);
}

void MURA_DrawGlyph(MuraBitmap* bitmap, const uint8_t* coverage, int x, int y, int width,
                    int height, uint32_t color, double alpha, int mode) {
    MuraPaint paint(bitmap, color, alpha, mode, false);
    if (!paint || coverage == nullptr || width <= 0 || height <= 0) return;
    // Cairo wants mask rows on its own stride.
    const int stride = cairo_format_stride_for_width(CAIRO_FORMAT_A8, width);
    std::vector<unsigned char> mask(static_cast<size_t>(stride) * height);
    for (int row = 0; row < height; ++row)
        std::memcpy(&mask[static_cast<size_t>(row) * stride],
                    coverage + static_cast<size_t>(row) * width, width);
    cairo_surface_t* maskSurface =
        cairo_image_surface_create_for_data(mask.data(), CAIRO_FORMAT_A8, width, height, stride);
    cairo_mask_surface(paint.cr(), maskSurface, x, y);
    cairo_surface_destroy(maskSurface);
}
