#include "host/raster/canvas_font.h"

#include "host/raster/canvas_bitmap.h"
#include "host/raster/color.h"
#include "host/raster/font_faces.h"
#include "host/ui/ui_font.h"

namespace {

constexpr int kDefaultHeight = 12;

TextFont textFontFor(HFONT font) {
    LOGFONT description{};
    if (!describeUiFont(font, &description))
        return TextFont{uiFontFace("Arial", 400, false), kDefaultHeight};
    return TextFont{uiFontFace(description.lfFaceName, description.lfWeight,
                               description.lfItalic != 0),
                    description.lfHeight == 0 ? kDefaultHeight : description.lfHeight};
}

}  // namespace

cairo_t* createMeasuringContext() {
    static cairo_surface_t* scratch = cairo_image_surface_create(CAIRO_FORMAT_A8, 1, 1);
    return cairo_create(scratch);
}

CanvasFont::CanvasFont() : font_(textFontFor(nullptr)) {}

void CanvasFont::takeUiFont(HFONT font, int) { font_ = textFontFor(font); }

uint32_t CanvasFont::setTextColor(uint32_t color) {
    const uint32_t previous = textColor_;
    textColor_ = color;
    return previous;
}

void CanvasFont::setBackgroundColor(uint32_t color) { backgroundColor_ = color; }

uint32_t CanvasFont::backgroundColor() const { return backgroundColor_; }

void CanvasFont::setBackgroundMode(int mode) { backgroundMode_ = mode; }

int CanvasFont::lineHeight() const {
    cairo_t* cr = createMeasuringContext();
    select(cr);
    const int height = textLineHeight(cr);
    cairo_destroy(cr);
    return height;
}

int CanvasFont::drawText(MuraBitmap* bitmap, const char* text, int length, RECT* rect,
                         UINT flags) {
    if (rect == nullptr) return 0;
    CanvasBitmap* target = canvasBitmapOf(bitmap);
    if (flags & DT_CALCRECT || target == nullptr) {
        RECT measured = *rect;
        cairo_t* cr = createMeasuringContext();
        select(cr);
        const int height = layoutText(cr, text, length, &measured, flags | DT_CALCRECT);
        if (flags & DT_CALCRECT) *rect = measured;
        cairo_destroy(cr);
        return height;
    }
    cairo_t* cr = cairo_create(target->canvas().surface());
    select(cr);
    if (backgroundMode_ != 0) {
        setSourceRgb(cr, backgroundColor_);
        cairo_rectangle(cr, rect->left, rect->top, rect->right - rect->left,
                        rect->bottom - rect->top);
        cairo_fill(cr);
    }
    setSourceRgb(cr, textColor_);
    const int height = layoutText(cr, text, length, rect, flags);
    cairo_destroy(cr);
    return height;
}

uint32_t CanvasFont::textColor() const { return textColor_; }

void CanvasFont::select(cairo_t* cr) const { selectTextFont(cr, font_); }

CanvasFont* canvasFontOf(MuraFont* font) { return dynamic_cast<CanvasFont*>(font); }
