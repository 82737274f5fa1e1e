#include "host/raster/mura_paint.h"

#include <algorithm>
#include <cmath>

#include "host/raster/color.h"

double clampedOpacity(double alpha) {
    if (!(alpha > 0)) return 0;  // also NaN
    return std::min(alpha, 1.0);
}

MuraPaint::MuraPaint(MuraBitmap* bitmap, int mode, bool antialias)
    : bitmap_(canvasBitmapOf(bitmap)) {
    if (bitmap_ == nullptr) return;
    cr_ = cairo_create(bitmap_->canvas().surface());
    cairo_set_antialias(cr_, antialias ? CAIRO_ANTIALIAS_DEFAULT : CAIRO_ANTIALIAS_NONE);
    cairo_set_operator(cr_, mode == kMuraModeReplace ? CAIRO_OPERATOR_SOURCE
                                                      : CAIRO_OPERATOR_OVER);
}

MuraPaint::MuraPaint(MuraBitmap* bitmap, uint32_t color, double alpha, int mode, bool antialias)
    : MuraPaint(bitmap, mode, antialias) {
    if (cr_ == nullptr) return;
    opacity_ = clampedOpacity(alpha);
    if (bitmap_->isOpaque()) {
        if (mode == kMuraModeReplace) opacity_ = 1.0;
    } else {
        opacity_ *= colorChannel(color, 24);
    }
    setSourceRgb(cr_, color, opacity_);
}

MuraPaint::~MuraPaint() {
    if (cr_ != nullptr) cairo_destroy(cr_);
}
